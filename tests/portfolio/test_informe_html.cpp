#include "../core/fallo.h"
#include "core/runtime_error.h"
#include "core/texto_1252.h"
#include "portfolio/informe_html.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tesorel;

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
    EXPECT_EQ(tesorel::testing::falloDe([&] { InformeHtml f(ruta); }).numero, 75);
    InformeHtml cerrado;
    EXPECT_EQ(tesorel::testing::falloDe([&] { cerrado.linea(QStringLiteral("x")); }).numero, 52);
}
