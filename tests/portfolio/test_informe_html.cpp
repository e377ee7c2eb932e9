#include "core/runtime_error.h"
#include "core/texto_1252.h"
#include "portfolio/informe_html.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tesorel;

TEST(InformeHtml, Windows1252WithCrLf)
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

    QTemporaryDir dir;
    const QString ruta = dir.path() + "/r.htm";
    {
        InformeHtml f(ruta);
        f.linea(QStringLiteral("un informe anterior, más largo"));
    }
    InformeHtml f(ruta);
    Cabecera(f, QStringLiteral("Operaci&oacute;n"), QStringLiteral("4%"));
    celda(f, Celda::Tanto, QStringLiteral("vendí"));
    f.cerrar();
    QFile leido(ruta);
    ASSERT_TRUE(leido.open(QIODevice::ReadOnly));
    EXPECT_EQ(leido.readAll(),
              QByteArray("<TH WIDTH=\"4%\" VALIGN=\"Top\" BGCOLOR=\"#FFFFCC\">\r\n"
                         "<P ALIGN=\"CENTER\"><B><FONT \r\n"
                         "SIZE=\"2\">Operaci&oacute;n</FONT></B><FONT SIZE=\"2\"></FONT></P></TH>\r\n"
                         "<TD ALIGN=\"RIGHT\"  VALIGN=\"TOP\"><P>vend\xed&nbsp <//P></TD>\r\n"));
}

TEST(InformeHtml, AnUnwritableFolderFailsAtOpenAndAtEachWrite)
{
    QTemporaryDir dir;
    const QString ruta = dir.path() + "/no/existe/r.htm";
    try {
        InformeHtml f(ruta);
        ADD_FAILURE() << "opened";
    } catch (const RuntimeError &e) {
        EXPECT_EQ(e.number(), 75);
    }
    InformeHtml cerrado;
    try {
        cerrado.linea(QStringLiteral("x"));
        ADD_FAILURE() << "written";
    } catch (const RuntimeError &e) {
        EXPECT_EQ(e.number(), 52);
    }
}
