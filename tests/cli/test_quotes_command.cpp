#include "sample_base.h"

#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

// What each option selects is the quotes model's (CotizacionesTest.*): here options and formats.
TEST(QuotesCommand, OptionsRowsAndCounts)
{
    struct Caso {
        QStringList opciones;
        int filas;
        QString primera, cuentas;
    };
    const Caso casos[] = {
        {{"--sort", "dif"},
         131,
         "5\tDESA   (DESA)\t10,40\t10,88\t4,62%\t2.168.880\t10,91\t10,42\t23.282",
         "suben\t55\nbajan\t75\nrepiten\t1"},
        {{"--sort", "dif", "--asc"},
         131,
         "6\tPESCANOVA   (PVA)\t30,09\t28,73\t-4,52%\t19.209\t30,26\t28,70\t562",
         "suben\t55\nbajan\t75\nrepiten\t1"},
        {{"--set", "valor", "--value", "TELEFONICA"},
         200,
         "6\tTELEFONICA   (20/11/2026)\t8,66\t8,53\t-1,46%\t2.062.773\t8,67\t8,51\t17.678",
         ""},
        {{"--set", "ibex"},
         35,
         "6\tUNICAJA   (UNI)\t32,20\t32,05\t-0,47%\t442.236\t32,39\t31,76\t14.180",
         ""},
        {{"--interval", "2025-01-01", "2025-12-31"},
         131,
         "5\tSOS CUETARA   (SOS)\t3,09\t3,23\t4,47%\t22.794.671\t3,78\t2,63\t72.865",
         ""},
        {{"--date", "2024-01-07"}, 0, "suben\t0", "suben\t0\nbajan\t0\nrepiten\t0"}, // a Sunday
    };
    const CopiaDeMuestra copia;
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.opciones.join(' ').toStdString());
        const SalidaCli o = correrCli(QStringList{"quotes", copia.base, "--user", "1"} + c.opciones);
        ASSERT_EQ(o.codigo, 0) << o.err.toStdString();
        const QStringList lineas = o.lineas();
        ASSERT_EQ(lineas.size(), c.filas + 3);
        EXPECT_EQ(lineas.first(), c.primera);
        for (const QString &fila : lineas.mid(0, c.filas))
            EXPECT_EQ(fila.count('\t'), 8) << fila.toStdString();
        if (!c.cuentas.isEmpty()) {
            EXPECT_EQ(lineas.mid(c.filas).join('\n'), c.cuentas);
        }
    }
    EXPECT_EQ(correrCli({"quotes", copia.base, "--user", "1", "--set", "todo"}).codigo, 2);
    EXPECT_EQ(correrCli({"quotes", copia.base, "--user", "1", "--interval", "2025-01-01"}).codigo, 2);
}

} // namespace
} // namespace tesorel::testing
