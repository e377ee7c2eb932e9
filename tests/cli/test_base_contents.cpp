#include "sample_base.h"

#include "store/recordset.h"

#include <QDate>
#include <QFile>
#include <QMap>
#include <QStringList>
#include <gtest/gtest.h>

using namespace tesorel;
using tesorel::testing::SampleBase;
using tesorel::testing::scalar;

namespace
{

std::shared_ptr<Database> openCopy(const QString &name)
{
    const QString copy = SampleBase::instance().tempFile(name);
    QFile::remove(copy);
    EXPECT_TRUE(QFile::copy(SampleBase::instance().path(), copy));
    return Database::open(copy);
}

QStringList fieldNames(Recordset &rs)
{
    QStringList names;
    for (int i = 0; i < rs.fieldCount(); ++i)
        names.append(rs.fieldName(i));
    return names;
}

} // namespace

TEST(SampleBase, EveryTableAndStoredQueryAnswersWithItsFields)
{
    struct Source {
        const char *name;
        QStringList fields; // leading fields that must come first, in order
    };
    const Source sources[] = {
        {"Codigo_Empresas", {"Codigo", "NOMBRE", "ABREVIATURA3", "ABREVIATURA11", "Invertia"}},
        {"bolsa", {"VALOR", "FECHA", "ANTERIOR", "ULTIMO", "DIF", "VOLUMEN", "MAXIMO", "MINIMO", "EFECT"}},
        {"ibex", {"VALOR"}},
        {"www", {"Campo2", "Campo3", "Web"}},
        {"NombreCategorias", {"usuario", "Categoria"}},
        {"categoriastodo", {"usuario", "categoria", "Valor"}},
        {"comentarios", {"codigo", "Comentario"}},
        {"noticias", {"VALOR"}},
        {"Usuario",
         {"clave", "NOMBRE", "Password", "Configuracion", "Maximo_dias", "email", "Direccion", "Poblacion",
          "CodigoPost"}},
        {"Usuario_Actual", {"USUARIO_ACTUAL", "fecha_Actual", "fecha_inicial", "fecha_final"}},
        {"intervalo", {"usuario", "FechaInicial", "FechaFinal"}},
        {"faboritos", {"Usuario", "VALOR"}},
        {"cartera", {"Usuario", "VALOR", "Cantidad", "Precio_Compra", "Fecha_Compra", "Total_Compra"}},
        {"cartera1",
         {"Cantidad", "Valor", "Valor_Actual", "coste_total", "Precio_Compra", "Diferencial", "Ultimo",
          "Beneficio", "Fecha", "porcentage"}},
        {"historico",
         {"Usuario", "Cantidad", "VALOR", "operacionNum", "Operacion", "Entidad", "precio_operacion",
          "Fecha_operacion", "Total_operacion"}},
        {"operadores", {"codigo", "NOMBRE"}},
        {"comisiones", {"Entidad", "NOMBRE", "Tanto", "minimo", "desde", "Hasta"}},
        {"Fechas", {"Fecha"}},
        {"primerdia", {"Fecha"}},
        {"Ultimodia", {"Máxdefecha"}},
        {"bolsa_de_un_dia",
         {"VALOR", "FECHA", "ANTERIOR", "ULTIMO", "DIF", "VOLUMEN", "MAXIMO", "MINIMO", "EFECT"}},
        {"Valores_intervalo", {"VALOR", "ANTERIOR", "ULTIMO", "DIF", "VOLUMEN", "MAXIMO", "MINIMO", "EFECT"}},
        {"Los que mas suben", {"Valor", "DIF"}},
        {"CARTERA_actual", {"VALOR"}},
        {"Faboritos_actual", {"VALOR"}},
        {"Cartera_Flotante_Total", {"Fecha", "Anterior", "Ultimo", "Volumen", "Maximo", "minimo", "Efect"}},
        {"total_operaciones", {}},
    };
    const auto db = SampleBase::instance().open();
    for (const Source &s : sources) {
        SCOPED_TRACE(s.name);
        const auto rs = db->openRecordset(s.name);
        const QStringList names = fieldNames(*rs);
        ASSERT_GE(names.size(), s.fields.size());
        EXPECT_EQ(names.mid(0, s.fields.size()), s.fields);
    }
}

// Counts, days and reference rows of the sample, each one figure of a statement.
TEST(SampleBase, FiguresOfTheSample)
{
    const auto db = SampleBase::instance().open();
    const qlonglong days = tradingDays(QDate(2023, 11, 20), QDate(2026, 11, 20)).size();
    const QDate last(2026, 11, 20);
    const struct {
        const char *statement;
        QVariant value;
    } cases[] = {
        {"select count(*) from Codigo_Empresas", 131},
        {"select count(*) from ibex", 35},
        {"select count(*) from www", 131},
        {"select count(*) from categoriastodo", 131},
        {"select count(*) from bolsa", 131 * days},
        {"select count(*) from Fechas", days},
        {"select count(*) from bolsa_de_un_dia", 131},
        {"select count(*) from Usuario", 3},
        {"select count(*) from Usuario_Actual", 1},
        {"select count(*) from historico", 7},
        {"select count(*) from cartera", 5},
        {"select count(*) from faboritos", 5},
        {"select count(*) from CARTERA_actual", 5},
        {"select count(*) from Faboritos_actual", 5},
        {"select * from primerdia", QDate(2023, 11, 20)},
        {"select * from Ultimodia", last},
        {"select max(fecha) from bolsa", last},
        {"select fecha_Actual from Usuario_Actual", last},
        {"select fecha_final from Usuario_Actual", last},
        {"select fecha_inicial from Usuario_Actual", QDate(2026, 10, 20)},
        // Three days closed at 0, all of one value.
        {"select count(*) from bolsa where ultimo = 0", 3},
        {"select count(*) from bolsa b inner join codigo_empresas c on b.valor = c.codigo where b.ultimo = 0 "
         "and "
         "c.abreviatura3 = 'PVA'",
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

TEST(SampleBase, DayQueryFollowsTheSessionDate)
{
    const auto db = openCopy("day.mdb");
    const struct {
        const char *day;
        qlonglong rows;
    } cases[] = {
        {"06-02-25", 131}, // the split day
        {"06-07-25", 0},   // a Saturday
        {"12-25-24", 0},   // Christmas
        {"11-20-23", 131}, // the first day
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.day);
        db->execute(QStringLiteral("update Usuario_Actual set fecha_Actual = #%1#").arg(c.day));
        EXPECT_EQ(scalar(*db, "select count(*) from bolsa_de_un_dia").toLongLong(), c.rows);
        EXPECT_EQ(
            scalar(*db, QStringLiteral("select count(*) from bolsa_de_un_dia where fecha <> #%1#").arg(c.day))
                .toLongLong(),
            0);
        EXPECT_EQ(scalar(*db, "select count(*) from [Los que mas suben]").toLongLong(), c.rows);
    }
}

TEST(SampleBase, DemoUserLogsInAndHoldsWhatItsLedgerSays)
{
    const auto db = SampleBase::instance().open();
    const int demo =
        scalar(*db, "select clave from Usuario where nombre = 'demo' and password = 'demo'").toInt();
    ASSERT_GT(demo, 0);
    EXPECT_EQ(scalar(*db, "select usuario_actual from Usuario_Actual").toInt(), demo);
    EXPECT_EQ(scalar(*db, "select nombre from Usuario where password = '738nomlib2'").toString(), "demo");
    EXPECT_EQ(scalar(*db, "select nombre from Usuario where password = 'sinllav627'").toString(), "demo");

    QMap<int, double> ledger, held;
    for (auto rs = db->openRecordset("select valor, cantidad from historico"); !rs->Eof(); rs->MoveNext())
        ledger[rs->field("valor").toInt()] += rs->field("cantidad").toDouble();
    for (auto rs = db->openRecordset("select valor, cantidad from cartera"); !rs->Eof(); rs->MoveNext())
        held[rs->field("valor").toInt()] += rs->field("cantidad").toDouble();
    EXPECT_EQ(ledger, held);

    // A sale is a negative quantity and negative money with a positive price.
    const auto sale = db->openRecordset("select * from historico where operacionNum = 4");
    ASSERT_FALSE(sale->Eof());
    EXPECT_LT(sale->field("Cantidad").toDouble(), 0);
    EXPECT_LT(sale->field("Total_operacion").toDouble(), 0);
    EXPECT_GT(sale->field("precio_operacion").toDouble(), 0);
    EXPECT_TRUE(sale->field("Operacion").toString().contains(": Venta de 200 IBERDROLA por "));
    EXPECT_EQ(
        scalar(*db, "select count(*) from historico where operacion like '*: Compra de * por *'").toInt(), 6);
}

TEST(SampleBase, PortfolioQueryValuesTheLedgerAtTheDaysQuotes)
{
    const auto db = SampleBase::instance().open();
    double value = 0;
    const auto rs =
        db->openRecordset("select c.cantidad, b.ultimo from cartera c inner join bolsa_de_un_dia b "
                          "on c.valor = b.valor");
    for (; !rs->Eof(); rs->MoveNext())
        value += rs->field("cantidad").toDouble() * rs->field("ultimo").toDouble();
    const auto total = db->openRecordset("Cartera_Flotante_Total");
    ASSERT_FALSE(total->Eof());
    EXPECT_EQ(total->field("Fecha").toDate(), QDate(2026, 11, 20));
    EXPECT_NEAR(total->field("Ultimo").toDouble(), value / 1000, 1e-9);
    EXPECT_GE(total->field("Maximo").toDouble(), total->field("minimo").toDouble());
}

TEST(SampleBase, IntervalQuerySumsUpEachValue)
{
    const auto db = openCopy("interval.mdb");
    db->execute("update Usuario_Actual set fecha_inicial = #06-02-25#, fecha_final = #06-06-25#");
    const int itx = scalar(*db, "select codigo from codigo_empresas where abreviatura3 = 'ITX'").toInt();
    const auto days = db->openRecordset(
        QStringLiteral("select * from bolsa where valor = %1 and fecha >= #06-02-25# and fecha <= #06-06-25# "
                       "order by fecha")
            .arg(itx));
    double first = days->field("anterior").toDouble(), last = 0, volume = 0, high = 0, low = 1e9;
    for (; !days->Eof(); days->MoveNext()) {
        last = days->field("ultimo").toDouble();
        volume += days->field("volumen").toDouble();
        high = std::max(high, days->field("maximo").toDouble());
        low = std::min(low, days->field("minimo").toDouble());
    }
    const auto rs =
        db->openRecordset(QStringLiteral("select * from Valores_intervalo where valor = %1").arg(itx));
    ASSERT_FALSE(rs->Eof());
    EXPECT_EQ(rs->field("ANTERIOR").toDouble(), first);
    EXPECT_EQ(rs->field("ULTIMO").toDouble(), last);
    EXPECT_NEAR(rs->field("DIF").toDouble(), (last - first) * 100 / first, 1e-9);
    EXPECT_EQ(rs->field("VOLUMEN").toDouble(), volume);
    EXPECT_EQ(rs->field("MAXIMO").toDouble(), high);
    EXPECT_EQ(rs->field("MINIMO").toDouble(), low);
    EXPECT_EQ(scalar(*db, "select count(*) from Valores_intervalo").toInt(), 131);
}
