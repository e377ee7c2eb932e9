#include <gtest/gtest.h>

#include "market/cotizaciones.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/usuario.h"
#include "support/test_base.h"

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

// Two days: the 14th with three values, the 15th with three and a
// portfolio series; REPSOL's change on the 15th is null.
class CotizacionesTest : public ::testing::Test, protected SesionDePrueba
{
  protected:
    std::unique_ptr<Cotizaciones> c;

    void SetUp() override
    {
        base.db->executeNative(
            "INSERT INTO Codigo_Empresas VALUES (10, 'BANCO SANTANDER', 'SAN', 'SANTANDER', ''),"
            " (11, 'TELEFONICA', 'TEF', 'TELEFONICA', ''), (12, 'REPSOL', 'REP', 'REPSOL', ''),"
            " (34001, 'CARTERA', 'CAR', 'CARTERA', '');"
            "INSERT INTO bolsa VALUES (10, '2024-03-14', 4.3, 4.4, 2, 90, 4.5, 4.2, 396),"
            " (11, '2024-03-14', 3.8, 3.8, 0, 50, 3.9, 3.7, 190), (12, '2024-03-14', 13.4, 13.3, -1, 10, 14, "
            "13, 133),"
            " (10, '2024-03-15', 4.4, 4.5, 0.01, 1234567, 4.6, 4.3, 5555555.4),"
            " (11, '2024-03-15', 3.8, 3.6, -5, 200, 3.9, 3.5, 720),"
            " (12, '2024-03-15', 13.3, 14, NULL, 300, 14, 13, 4200),"
            " (34001, '2024-03-15', 1, 1.1, 10, 1, 1, 1, 1);"
            "INSERT INTO ibex VALUES (11);"
            "INSERT INTO cartera (usuario, valor, cantidad) VALUES (1, 12, 100), (2, 10, 5);"
            "UPDATE Usuario_Actual SET USUARIO_ACTUAL = 1;");
        Abrir_Empresas(s);
        s.Usuario_Numero = 1;
        s.Usuario_Sesion = std::make_unique<Usuario>(s);
        c = std::make_unique<Cotizaciones>(s);
        c->Form_Load(QStringLiteral("BANCO SANTANDER"));
    }
    void TearDown() override
    {
        // Nothing here fails quietly: a failed statement would show the error box.
        for (const auto &m : ui.messages)
            ADD_FAILURE() << m.prompt.toStdString();
    }
    void dia(const char *fecha) { c->setText1(fecha); }
    QStringList columna(QString FilaCotizacion::*celda) const
    {
        QStringList out;
        for (const auto &f : c->filas)
            if (f.Visible)
                out << f.*celda;
        return out;
    }
    QString cuentas() const { return c->Suben + "/" + c->Bajan + "/" + c->Repiten; }
};

TEST_F(CotizacionesTest, LoadWaitsForTheTimerThenDrawsTheNewestDay)
{
    EXPECT_EQ(c->Fecha, "15-03-2024");
    EXPECT_EQ(c->pestana_Caption[15], "SANTANDER");
    for (int tick = 1; tick <= 8; ++tick)
        ASSERT_FALSE(c->Timer1_Timer()) << tick;
    EXPECT_TRUE(c->Timer1_Timer());
    EXPECT_EQ(c->Text1(), "15-03-2024");
    auto u = base.db->openRecordset("select fecha_Actual from Usuario_Actual");
    EXPECT_EQ(u->field(0).toDate(), QDate(2024, 3, 15));
    // Sorted by code, descending; the portfolio series stays out, the null change counts nowhere.
    EXPECT_EQ(columna(&FilaCotizacion::Valor),
              QStringList({"REPSOL   (REP) ", "TELEFONICA   (TEF) ", "SANTANDER   (SAN) "}));
    EXPECT_EQ(cuentas(), "1 /1 /0 ");
    const FilaCotizacion &san = c->filas[2];
    EXPECT_EQ(san.Anterior, "4,40   ");
    EXPECT_EQ(san.Dif, "0,01% ");
    EXPECT_EQ(san.Volumen, "1.234.567    ");
    EXPECT_EQ(san.Efectivo, "5.555.555    ");
    EXPECT_EQ(c->filas[0].Dif, "% ");
}

TEST_F(CotizacionesTest, DayButtonsBeepAtEitherEndAndWaitForTheTimer)
{
    c->Command2_Click();
    EXPECT_EQ(ui.beeps, 1);
    c->Command1_Click();
    EXPECT_EQ(c->Fecha, "14-03-2024");
    c->Command1_Click();
    EXPECT_EQ(ui.beeps, 2);
    EXPECT_EQ(c->Text1(), "");
    EXPECT_EQ(c->NumReg, 0);
}

TEST_F(CotizacionesTest, MarkAndColourFollowTheChangeAndANullKeepsThoseOfTheRow)
{
    const struct {
        double dif;
        int color;
    } casos[] = {{0.01, 256}, {5, 255 * 256}, {2.55, 255 * 256}, {0, 0}, {-0.01, 1}, {-5, 255}, {-400, 255}};
    for (const auto &k : casos)
        EXPECT_EQ(Cotizaciones::colorDe(k.dif), k.color) << k.dif;
    dia("14-03-2024"); // row 1 is REPSOL, down by 1
    ASSERT_EQ(c->filas[0].SubeBaja, "6");
    dia("15-03-2024"); // row 1 is REPSOL again, with no change to compare
    EXPECT_EQ(c->filas[0].Valor, "REPSOL   (REP) ");
    EXPECT_EQ(c->filas[0].SubeBaja, "6");
    EXPECT_EQ(c->filas[0].SubeBaja_ForeColor, 100);
    EXPECT_EQ(c->filas[2].SubeBaja, "5");
    EXPECT_EQ(c->filas[2].SubeBaja_ForeColor, 256);
}

TEST_F(CotizacionesTest, DayWithoutQuotesOrAPortfolioSeriesShowsNoRow)
{
    dia("15-03-2024");
    dia("16-03-2024");
    EXPECT_EQ(cuentas(), "0 /0 /0 ");
    EXPECT_EQ(c->NumReg, 3);
    EXPECT_TRUE(columna(&FilaCotizacion::Valor).isEmpty());
    EXPECT_EQ(c->VScroll1_Max, 1);

    // The value tab of a portfolio series is as empty.
    Cotizaciones cartera(s);
    cartera.Form_Load(QStringLiteral("CARTERA"));
    cartera.pestana_Click(15);
    EXPECT_EQ(cartera.Suben + cartera.Bajan + cartera.Repiten, "0 0 0 ");
    EXPECT_EQ(cartera.NumReg, 0);
}

TEST_F(CotizacionesTest, MoreThanTwoHundredValuesCountAllAndDrawTwoHundred)
{
    base.db->executeNative(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 250)"
        " INSERT INTO bolsa (VALOR, FECHA, ANTERIOR, ULTIMO, DIF, VOLUMEN, MAXIMO, MINIMO, EFECT)"
        " SELECT 100 + i, '2024-03-19', 1, 1, (i % 3) - 1, i, 1, 1, 1 FROM n;");
    dia("19-03-2024");
    EXPECT_EQ(cuentas(), "83 /83 /84 ");
    EXPECT_EQ(c->NumReg, 200);
    EXPECT_EQ(columna(&FilaCotizacion::Valor).size(), 200);
    EXPECT_EQ(c->VScroll1_Max, 200);
}

TEST_F(CotizacionesTest, HeadingClicksSortAndFlip)
{
    dia("15-03-2024");
    const struct {
        int cabecera;
        const char *ordenar, *desc, *primero;
    } pasos[] = {
        {1, "Valor", "", "SANTANDER   (SAN) "},   // the sorted heading again: ascending
        {1, "Valor", "DESC", "REPSOL   (REP) "},  // and back
        {4, "Dif", "DESC", "SANTANDER   (SAN) "}, // another heading keeps the direction
        {2, "Dif", "DESC", "SANTANDER   (SAN) "}, // no option: nothing
        {8, "efect", "DESC", "SANTANDER   (SAN) "}, {8, "efect", "", "TELEFONICA   (TEF) "},
    };
    for (const auto &p : pasos) {
        c->Image0_Click(p.cabecera);
        EXPECT_EQ(c->Ordenar(), p.ordenar) << p.cabecera;
        EXPECT_EQ(c->desc(), p.desc) << p.cabecera;
        EXPECT_EQ(c->filas[0].Valor, p.primero) << p.cabecera;
    }
    EXPECT_EQ(c->Image0[8], ImagenOrden::Ascendente);
    EXPECT_EQ(c->Image0[1], ImagenOrden::Ninguna);
}

TEST_F(CotizacionesTest, TabsChooseTheSetOfValues)
{
    dia("15-03-2024");
    const struct {
        int pestana;
        QStringList valores;
    } casos[] = {
        {2, {"TELEFONICA   (TEF) "}},
        {3, {"REPSOL   (REP) "}}, // user 1's portfolio only
        {15, {"SANTANDER   (15/03/2024) ", "SANTANDER   (14/03/2024) "}},
        {1, {"REPSOL   (REP) ", "TELEFONICA   (TEF) ", "SANTANDER   (SAN) "}},
    };
    for (const auto &k : casos) {
        c->pestana_Click(k.pestana);
        EXPECT_EQ(columna(&FilaCotizacion::Valor), k.valores) << k.pestana;
    }
    EXPECT_EQ(c->Caption, "Cotizaciones Mercado Continuo");
    // A click on a row shows its value in the main window and hides this one.
    QString mostrado;
    c->mostrarValor = [&](const QString &n) { mostrado = n; };
    c->Valor_Click(2);
    EXPECT_EQ(mostrado, "TELEFONICA");
    EXPECT_FALSE(c->Visible);
}

TEST_F(CotizacionesTest, IntervalSumsTheDaysOfEachValue)
{
    s.Usuario_Sesion->setFechaInicial(QDate(2024, 3, 14));
    s.Usuario_Sesion->setFechaFinal(QDate(2024, 3, 15));
    c->menu_intervalo_Click();
    EXPECT_TRUE(c->menu_intervalo_Checked);
    EXPECT_EQ(columna(&FilaCotizacion::Valor).size(), 3);
    EXPECT_EQ(c->filas[2].Volumen, "1.234.657    ");
}

TEST_F(CotizacionesTest, OverflowAsksForAMoreSelectiveQuery)
{
    base.db->executeNative(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 32768)"
        " INSERT INTO bolsa (VALOR, FECHA, DIF) SELECT 10, date('1900-01-01', '+' || i || ' days'),"
        " 1 FROM n;");
    c->pestana_Click(15);
    ASSERT_FALSE(ui.messages.empty());
    EXPECT_EQ(ui.messages.back().prompt, "Desbordamiento, Haga una consulta más selectiva");
    EXPECT_EQ(ui.messages.back().title, "Error");
    ui.messages.clear();
}

} // namespace
