#include "sample_base.h"

#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

// The quotes command on a copy of the sample base: its lines split in fields.
struct Salida {
    int codigo = -1;
    QList<QStringList> filas;
    QHash<QString, int> cuentas;
};

Salida quotes(const QStringList &opciones)
{
    const CopiaDeMuestra copia;
    const SalidaCli o = correrCli(QStringList{"quotes", copia.base} + opciones);
    Salida out;
    out.codigo = o.codigo;
    for (const QString &linea : o.lineas()) {
        const QStringList campos = linea.split('\t');
        if (campos.size() == 2)
            out.cuentas.insert(campos[0], campos[1].toInt());
        else
            out.filas << campos;
    }
    return out;
}

int cuenta(const QString &sql)
{
    return scalar(*SampleBase::instance().open(), sql).toInt();
}

QString ultimoDia()
{
    return scalar(*SampleBase::instance().open(), "select max(fecha) from bolsa")
        .toDate()
        .toString(Qt::ISODate);
}

TEST(QuotesCommand, DayOfTheWholeMarketSortedByChange)
{
    const QString dia = ultimoDia();
    const QString donde = "from bolsa where valor < 34000 and fecha = '" + dia + "' and dif ";
    for (const bool asc : {false, true}) {
        const Salida s = quotes(asc ? QStringList{"--user", "1", "--sort", "dif", "--asc"}
                                    : QStringList{"--user", "1", "--sort", "dif"});
        ASSERT_EQ(s.codigo, 0);
        EXPECT_EQ(s.cuentas.value("suben"), cuenta("select count(*) " + donde + "> 0"));
        EXPECT_EQ(s.cuentas.value("bajan"), cuenta("select count(*) " + donde + "< 0"));
        EXPECT_EQ(s.cuentas.value("repiten"), cuenta("select count(*) " + donde + "= 0"));
        ASSERT_EQ(s.filas.size(),
                  cuenta("select count(*) from bolsa where valor < 34000 and fecha = '" + dia + "'"));
        // The marks come in the order of the change: rises, levels, falls (or the reverse).
        QString marcas;
        for (const QStringList &f : s.filas) {
            ASSERT_EQ(f.size(), 9);
            marcas += f[0];
        }
        QString ordenadas = marcas;
        std::sort(ordenadas.begin(), ordenadas.end(), [asc](QChar x, QChar y) {
            const QString orden = asc ? "605" : "506";
            return orden.indexOf(x) < orden.indexOf(y);
        });
        EXPECT_EQ(marcas, ordenadas);
    }
}

TEST(QuotesCommand, SetsDaysAndIntervals)
{
    const struct {
        QStringList opciones;
        QString cuentaEsperada; // statement for the number of rows drawn
    } casos[] = {
        {{"--set", "valor", "--value", "TELEFONICA"},
         "select min(200, count(*)) from bolsa b join codigo_empresas c on c.codigo = b.valor "
         "where c.nombre = 'TELEFONICA'"},
        {{"--set", "ibex"},
         "select count(*) from bolsa b join ibex i on i.valor = b.valor "
         "where b.fecha = (select max(fecha) from bolsa)"},
        {{"--interval", "2025-01-01", "2025-12-31"},
         "select count(distinct valor) from bolsa where valor < 34000 and fecha between '2025-01-01' and "
         "'2025-12-31'"},
        {{"--date", "2024-01-07"}, "select 0"}, // a Sunday
    };
    for (const auto &k : casos) {
        const Salida s = quotes(QStringList{"--user", "1"} + k.opciones);
        ASSERT_EQ(s.codigo, 0) << k.opciones.join(' ').toStdString();
        EXPECT_EQ(s.filas.size(), cuenta(k.cuentaEsperada)) << k.opciones.join(' ').toStdString();
        EXPECT_EQ(s.cuentas.size(), 3);
    }
    const Salida valor = quotes({"--user", "1", "--set", "valor", "--value", "TELEFONICA"});
    ASSERT_FALSE(valor.filas.isEmpty());
    EXPECT_EQ(valor.filas[0][1],
              "TELEFONICA   (" + QDate::fromString(ultimoDia(), Qt::ISODate).toString("dd/MM/yyyy") + ")");
    EXPECT_EQ(quotes({"--user", "1", "--set", "todo"}).codigo, 2);
    EXPECT_EQ(quotes({"--user", "1", "--interval", "2025-01-01"}).codigo, 2);
}

} // namespace
} // namespace tesorel::testing
