#include "booking_fixture.h"

#include <QFile>
#include <QTemporaryDir>

#include "../core/fallo.h"
#include "core/texto_1252.h"
#include "portfolio/cartera_valoracion.h"
#include "portfolio/informe_html.h"
#include "portfolio/modif_cartera.h"

namespace tesorel::testing
{
namespace
{

const QDate kDia(2024, 3, 15);

struct Valoracion : CarteraBase {
    QStringList abiertas;
    cartera11 ventana{s, [this](const QString &v) { abiertas << v; }};

    void SetUp() override
    {
        empresa(1, "ALFA");
        empresa(2, "BETA");
        empresa(3, "GAMMA");
        diaActual(kDia);
        s.hoyFijo = kDia;
    }
    const FilaCartera &fila(const QString &abrev) const
    {
        for (const auto &f : ventana.filas)
            if (f.Valor.trimmed() == abrev)
                return f;
        throw std::runtime_error("no row");
    }
    QStringList orden() const
    {
        QStringList r;
        for (const auto &f : ventana.filas)
            r << f.Valor.trimmed();
        return r;
    }
};

TEST_F(Valoracion, APositionValuedInEurosAndPesetas)
{
    posicion(1, 100, 10, 1006, QDate(2024, 3, 1));
    cotizacion(1, kDia, 12, 11.5);
    ventana.Form_Load();
    ASSERT_EQ(ventana.filas.size(), 1u);
    const FilaCartera &f = ventana.filas[0];
    struct Caso {
        const char *celda;
        QString visto, esperado;
    } casos[] = {
        {"ValorActual", f.ValorActual, "  1.200,00 "},
        {"Beneficio", f.Beneficio, "  194,00 "},
        {"CosteInversion", f.CosteInversion, "  1.006,00 "},
        {"Ultimo", f.Ultimo, "  12,00 "},
        {"TantoGanancia", f.TantoGanancia, "20 %"},
        {"TantoCartera", f.TantoCartera, "100 %  "},
        {"Titulos", f.Titulos, "100  "},
        {"FechaCompra", f.FechaCompra, "01-03-2024  "},
        {"Dias", f.Dias, "14  "},
        {"Label1(800)", ventana.Label1_800, "194,00 "},
        {"CarteraLabel(0)", ventana.CarteraLabel[0], "  1.150,00 "},
        {"CarteraDif", ventana.CarteraDif, "  50,00 "},
        {"CarteraTanto", ventana.CarteraTanto, "4,17  "},
        {"Fecha", ventana.Fecha, "15/03/2024"},
    };
    for (const auto &c : casos)
        EXPECT_EQ(c.visto, c.esperado) << c.celda;
    EXPECT_NE(f.TantoGanancia_ForeColor, 0);
    EXPECT_NE(ventana.LabelDif_ForeColor, 0);

    ventana.setMoneda("P");
    EXPECT_EQ(ventana.filas[0].ValorActual, "  199.663 ");
    EXPECT_EQ(ventana.Label1_1400, "199.663 ");
    ventana.setMoneda("X");
    EXPECT_EQ(ventana.visualizar(1200), "");

    // Days count from the clock, not from the session's date.
    s.hoyFijo = QDate(2025, 3, 1);
    ventana.Form_Load();
    EXPECT_EQ(ventana.filas[0].Dias, "365  ");
}

TEST_F(Valoracion, AValueWithoutAQuoteOnTheDayIsWorthNothing)
{
    posicion(1, 100, 10, 1006, QDate(2024, 3, 1));
    posicion(2, 10, 50, 500, QDate(2024, 3, 1));
    cotizacion(1, kDia, 12);
    cotizacion(2, kDia.addDays(-1), 55); // the day before does not count
    ventana.Form_Load();
    const FilaCartera &b = fila("BETA");
    EXPECT_EQ(b.ValorActual, "  ,00 ");
    EXPECT_EQ(b.TantoGanancia, "-100 %");
    EXPECT_EQ(b.Beneficio, "  -500,00 ");
    EXPECT_EQ(ventana.Label1_1400, "1.200,00 ");
    EXPECT_EQ(ventana.Label1_800, "-306,00 ");
}

TEST_F(Valoracion, SortsByEachKeyInBothDirections)
{
    posicion(1, 10, 10, 100, QDate(2024, 1, 1)); // worth 120, gain 20, +20 %
    posicion(2, 10, 10, 100, QDate(2024, 2, 1)); // worth 50, gain -50, -50 %
    posicion(3, 100, 1, 100, QDate(2023, 1, 1)); // worth 300, gain 200, +200 %
    cotizacion(1, kDia, 12);
    cotizacion(2, kDia, 5);
    cotizacion(3, kDia, 3);
    ventana.Form_Load();
    EXPECT_EQ(orden(), QStringList({"BETA", "ALFA", "GAMMA"})) << "newest purchase first on opening";
    struct Caso {
        int opcion, direccion;
        QStringList esperado;
    } casos[] = {
        {3, 6, {"BETA", "ALFA", "GAMMA"}}, // worst first
        {3, 5, {"GAMMA", "ALFA", "BETA"}}, {2, 6, {"BETA", "ALFA", "GAMMA"}},
        {1, 5, {"GAMMA", "ALFA", "BETA"}}, {4, 6, {"GAMMA", "ALFA", "BETA"}},
    };
    for (const auto &c : casos) {
        ventana.SSOption_Click(c.opcion);
        ventana.SSOption_Click(c.direccion);
        EXPECT_EQ(orden(), c.esperado) << c.opcion << "/" << c.direccion;
    }
}

TEST_F(Valoracion, AnEmptyPortfolioShowsEmptyRowsAndZeroTotals)
{
    posicion(1, 10, 10, 100, QDate(2024, 1, 1));
    cotizacion(1, kDia, 12);
    ventana.Form_Load();
    Query(db, "delete from cartera").exec();
    ventana.rellenar2();
    ASSERT_EQ(ventana.filas.size(), 1u);
    EXPECT_EQ(ventana.filas[0].celdas().join(""), "");
    EXPECT_EQ(ventana.Label1_1300, ",00 ");
    EXPECT_EQ(ventana.Label1_1400, ",00 ");
    EXPECT_EQ(ventana.CarteraDif, "  ,00 ");
}

TEST_F(Valoracion, MoreThanFifteenRowsScroll)
{
    for (int i = 0; i < 17; ++i)
        posicion(1, 1, 1, 1, QDate(2024, 1, 1).addDays(i));
    ventana.Form_Load();
    EXPECT_TRUE(ventana.VScroll1_Enabled);
    EXPECT_EQ(ventana.VScroll1_Max, 2);
    ventana.VScroll1_Change(5);
    EXPECT_EQ(ventana.VScroll1_Value, 2);
}

TEST_F(Valoracion, TheHubOpensItsWindowsAndRebuildsAfterEach)
{
    ventana.Form_Load();
    posicion(1, 10, 10, 100, QDate(2024, 1, 1));
    cotizacion(1, kDia, 12);
    for (int i : {0, 1, 2, 3, 5})
        ventana.Command1_Click(i);
    EXPECT_EQ(abiertas, QStringList({"ModifCartera", "Comprar", "Vender", "Historico", "ImportarOp"}));
    EXPECT_EQ(ventana.filas.size(), 1u) << "rebuilt on return";
    ventana.Command1_Click(4);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].prompt, "Disponible en breve");

    struct Caso {
        const char *respuesta;
        int abiertas;
    } claves[] = {{"bancomar", 6}, {"BANCOMAR", 6}, {"", 6}};
    for (const auto &c : claves) {
        ui.inputs.push_back(c.respuesta);
        ventana.Importa_Click();
        EXPECT_EQ(abiertas.size(), c.abiertas) << c.respuesta;
    }
    ventana.Valor_DblClick(1);
    EXPECT_EQ(s.Valor_Cartera_Edicion, 1);
    EXPECT_EQ(abiertas.back(), "ModifCartera");
}

// The report files: Windows-1252 text, and an unwritable folder.
TEST(InformeHtml, TextInWindows1252)
{
    const struct {
        QString texto;
        QByteArray bytes;
    } casos[] = {
        {QStringLiteral("compré"), QByteArray("compr\xe9")},
        {QStringLiteral("vendí 1€ – ñ"), QByteArray("vend\xed 1\x80 \x96 \xf1")},
        {QStringLiteral("漢"), QByteArray("?")},
    };
    for (const auto &c : casos)
        EXPECT_EQ(a1252(c.texto), c.bytes) << c.texto.toStdString();
}

TEST(InformeHtml, AnUnwritableFolderFailsAtOpenAndAtEachWrite)
{
    QTemporaryDir dir;
    const QString ruta = dir.path() + "/no/existe/r.htm";
    EXPECT_EQ(falloDe([&] { InformeHtml f(ruta); }).numero, 75);
    InformeHtml cerrado;
    EXPECT_EQ(falloDe([&] { cerrado.linea(QStringLiteral("x")); }).numero, 52);
}

// The report cartera.htm, read back as lines without their CR LF.
struct InformeCartera : Valoracion {
    void SetUp() override
    {
        Valoracion::SetUp();
        s.Nombre_Usuario = QStringLiteral("Muñoz");
    }
    QByteArrayList informe()
    {
        ventana.html_Click();
        QFile f(s.carpeta + "/cartera.htm");
        EXPECT_TRUE(f.open(QIODevice::ReadOnly));
        QByteArrayList lineas = f.readAll().split('\n');
        EXPECT_TRUE(lineas.back().isEmpty()) << "every line ends";
        lineas.removeLast();
        for (const QByteArray &l : lineas)
            EXPECT_TRUE(l.endsWith('\r'));
        for (QByteArray &l : lineas)
            l.chop(1);
        return lineas;
    }
};

TEST_F(InformeCartera, AnEmptyPortfolioHasBothTablesAndOneRowOfTotals)
{
    ventana.Form_Load();
    const QByteArrayList l = informe();
    ASSERT_EQ(l.size(), 7 + 1 + 2 + 10 * 3 + 1 + 2 + 1 + 4 * 3 + 1 + 1 + 4 + 1 + 1);
    EXPECT_EQ(l[7], "<P><FONT SIZE=\"2\">Cartera : Mu\xf1oz a 15/03/2024&nbsp;</FONT></P>");
    EXPECT_EQ(l[41], " </TABLE><P>");
    EXPECT_EQ(l[46], "SIZE=\"2\">Coste Inversi&oacute;n</FONT></B><FONT SIZE=\"2\"></FONT></P></TH>");
    EXPECT_EQ(l[52], "SIZE=\"2\">Plusvalias Latentes</FONT></B><FONT SIZE=\"2\"></FONT></P></TH>");
    EXPECT_EQ(l[57], "<TR>");
    EXPECT_EQ(l[58], "<TD ALIGN=\"RIGHT\" VALIGN=\"TOP\"><P>,00 &nbsp;</P></TD>");
    EXPECT_EQ(l.back(), "</TABLE></BODY></HTML>");
    ASSERT_EQ(ui.opened.size(), 1u);
    EXPECT_TRUE(ui.opened[0].endsWith("cartera.htm"));
}

TEST_F(InformeCartera, CopiesTheCellsInTheCurrencyOnShow)
{
    posicion(1, 100, 10, 1006, QDate(2024, 3, 1));
    cotizacion(1, kDia, 9);
    ventana.Form_Load();
    ventana.setMoneda("P");
    const QByteArrayList l = informe();
    const QByteArrayList fila = l.mid(41, 12);
    const QByteArrayList esperado = {
        "<TR>",
        "<TD ALIGN = \"CENTER\"  VALIGN=\"TOP\"><P>&nbsp;01/03/24</P></TD>",
        "<TD ALIGN = \"RIGHT\" VALIGN=\"TOP\"><P>100  &nbsp;&nbsp; </P></TD>",
        "<TD VALIGN=\"TOP\"><P>&nbsp;ALFA  </P></TD>",
        "<TD ALIGN=\"RIGHT\"  VALIGN=\"TOP\"><P>100 %  &nbsp <//P></TD>",
        "<TD ALIGN=\"RIGHT\" VALIGN=\"TOP\"><P>  1.664 &nbsp;</P></TD>",
        "<TD ALIGN=\"RIGHT\" VALIGN=\"TOP\"><P>  1.497 &nbsp;</P></TD>",
        "<TD ALIGN=\"RIGHT\" VALIGN=\"TOP\"><P>  167.384 &nbsp;</P></TD>",
        "<TD ALIGN=\"RIGHT\" VALIGN=\"TOP\"><P>  149.747 &nbsp;</P></TD>",
        "<TD ALIGN=\"RIGHT\" VALIGN=\"TOP\"><P>  -17.637 &nbsp;</P></TD>",
        "<TD ALIGN=\"RIGHT\" VALIGN=\"TOP\"><P>-10 %&nbsp;</P></TD>",
        "</TR>",
    };
    for (int i = 0; i < esperado.size(); ++i)
        EXPECT_EQ(fila.value(i), esperado[i]) << i;
    EXPECT_TRUE(l.contains("SIZE=\"2\">Minusvalias Latentes</FONT></B><FONT SIZE=\"2\"></FONT></P></TH>"));
    // A shorter report written over this one is what it is in a new file.
    Query(db, "delete from cartera").exec();
    ventana.Form_Load();
    const QByteArrayList encima = informe();
    ASSERT_TRUE(QFile::remove(s.carpeta + "/cartera.htm"));
    EXPECT_EQ(informe(), encima);
}

// The position editor opened on BETA.
struct Editor : Valoracion {
    int cierres = 0;
    ModifCartera editor{s, [this] { ++cierres; }};
    void SetUp() override
    {
        Valoracion::SetUp();
        posicion(1, 100, 10, 1006, QDate(2024, 3, 1));
        posicion(2, 5, 20, 101, QDate(2024, 3, 2));
        apunte(2, QDate(2024, 3, 2), 5, 101);
        s.Valor_Cartera_Edicion = 2;
    }
};

TEST_F(Editor, OpensOnThePositionBrowsesAndSaves)
{
    editor.Form_Load();
    EXPECT_EQ(editor.Valor, "BETA");
    EXPECT_EQ(editor.Cantidad, "5");
    EXPECT_EQ(editor.FechaCompra, "02/03/2024");
    editor.Label5_Click();
    EXPECT_EQ(editor.Valor, "ALFA");
    editor.Label5_Click(); // before the first: zeros
    EXPECT_EQ(editor.Cantidad, "0");
    editor.Label4_Click();
    editor.Label4_Click();
    editor.Cantidad = "7";
    editor.PrecioCompra = "19,5";
    editor.FechaCompra = "05/03/2024";
    editor.Aceptar_Click();
    EXPECT_EQ(cierres, 1);
    EXPECT_EQ(numero("select Cantidad from cartera where valor = 2"), 7);
    EXPECT_EQ(numero("select Precio_Compra from cartera where valor = 2"), 19.5);
    EXPECT_EQ(numero("select count(*) from cartera where valor = 2 and Fecha_Compra = '2024-03-05'"), 1);
    EXPECT_EQ(numero("select Cantidad from historico where valor = 2"), 5) << "the ledger is not touched";
}

TEST_F(Editor, DeletesOnlyWhenConfirmed)
{
    editor.Form_Load();
    struct Caso {
        int respuesta;
        double quedan;
    } casos[] = {{mb::No, 2}, {mb::Yes, 1}};
    for (const auto &c : casos) {
        ui.answers.push_back(c.respuesta);
        editor.Eliminar_Click();
        EXPECT_EQ(numero("select count(*) from cartera"), c.quedan);
    }
    EXPECT_EQ(ui.messages[0].prompt, "¿Desea Eliminar BETA de su Cartera?");
    EXPECT_EQ(numero("select count(*) from historico"), 1);
}

} // namespace
} // namespace tesorel::testing
