#include "sample_base.h"

#include "store/recordset.h"

#include <QDate>
#include <QMap>
#include <gtest/gtest.h>

using namespace tesorel;
using tesorel::testing::SampleBase;
using tesorel::testing::scalar;

// The sample's days, its quirks and that every reference row names an existing value.
TEST(SampleBase, FiguresOfTheSample)
{
    const auto db = SampleBase::instance().open();
    const qlonglong days = tradingDays(QDate(2023, 11, 20), QDate(2026, 11, 20)).size();
    const struct {
        const char *statement;
        QVariant value;
    } cases[] = {
        {"select count(*) from bolsa", 131 * days},
        {"select count(*) from Fechas", days},
        {"select count(*) from historico", 7},
        {"select fecha_Actual from Usuario_Actual", QDate(2026, 11, 20)},
        {"select fecha_inicial from Usuario_Actual", QDate(2026, 10, 20)},
        // Three days closed at 0, all of one value.
        {"select count(*) from bolsa where ultimo = 0", 3},
        {"select count(*) from bolsa b inner join codigo_empresas c on b.valor = c.codigo "
         "where b.ultimo = 0 and c.abreviatura3 = 'PVA'",
         3},
        // A broker with a link row charges nothing.
        {"select sum(c.tanto) + sum(c.minimo) from comisiones c inner join operadores o on c.nombre = "
         "o.nombre",
         0},
        {"select count(*) from comisiones c inner join operadores o on c.nombre = o.nombre", 1},
        // Every reference row names an existing value.
        {"select count(*) from ibex where valor not in (select codigo from codigo_empresas)", 0},
        {"select count(*) from www where campo2 not in (select nombre from codigo_empresas)", 0},
        {"select count(*) from categoriastodo where valor not in (select codigo from codigo_empresas)", 0},
        {"select count(*) from categoriastodo where categoria not in (select categoria from "
         "nombrecategorias)",
         0},
        {"select count(*) from bolsa where valor not in (select codigo from codigo_empresas)", 0},
        {"select count(*) from comisiones where entidad not in (select codigo from operadores)", 0},
        {"select count(*) from codigo_empresas where codigo >= 34000", 0},
        {"select count(*) from codigo_empresas where len(abreviatura11) > 11", 0},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.statement);
        const QVariant v = scalar(*db, c.statement);
        if (c.value.typeId() == QMetaType::QDate)
            EXPECT_EQ(v.toDate(), c.value.toDate());
        else
            EXPECT_EQ(v.toDouble(), c.value.toDouble());
    }
}

TEST(SampleBase, TheDemoUserHoldsWhatItsLedgerSays)
{
    // The demo login is every tests/windows VentanaDemo's; the program starts on the demo user.
    const auto db = SampleBase::instance().open();
    EXPECT_EQ(scalar(*db, "select usuario_actual from Usuario_Actual").toInt(), 1);
    QMap<int, double> ledger, held;
    for (auto rs = db->openRecordset("select valor, cantidad from historico"); !rs->Eof(); rs->MoveNext())
        ledger[rs->field("valor").toInt()] += rs->field("cantidad").toDouble();
    for (auto rs = db->openRecordset("select valor, cantidad from cartera"); !rs->Eof(); rs->MoveNext())
        held[rs->field("valor").toInt()] += rs->field("cantidad").toDouble();
    EXPECT_EQ(ledger, held);

    // Six purchases and a sale, booked as the windows book them (their rules: tests/portfolio).
    EXPECT_TRUE(scalar(*db, "select Operacion from historico where operacionNum = 4")
                    .toString()
                    .contains(": Venta de 200 IBERDROLA por "));
    EXPECT_EQ(
        scalar(*db, "select count(*) from historico where operacion like '*: Compra de * por *'").toInt(), 6);
}
