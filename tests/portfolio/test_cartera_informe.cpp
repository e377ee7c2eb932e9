#include "cartera_fixture.h"

#include <QFile>

#include "portfolio/cartera_valoracion.h"

namespace tesorel::testing
{
namespace
{

const QDate kDia(2024, 3, 15);

struct InformeCartera : CarteraBase {
    cartera11 ventana{s, [](const QString &) {}};
    void SetUp() override
    {
        CarteraBase::SetUp();
        empresa(1, "ALFA");
        diaActual(kDia);
        s.hoyFijo = kDia;
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
    ASSERT_EQ(t.ui.opened.size(), 1u);
    EXPECT_TRUE(t.ui.opened[0].endsWith("cartera.htm"));
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
    // A second report replaces the first.
    EXPECT_EQ(informe().size(), l.size());
}

} // namespace
} // namespace tesorel::testing
