// import-web against python3's http.server on loopback: source 1 and 3
// serve files, source 2 is a port where nothing listens.
#include "sample_base.h"

#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

TEST(WebImportCommand, SitesListsAndStateOfTheRun)
{
    CopiaDeMuestra trabajo;
    QTemporaryDir uno, tres;
    const QString &base = trabajo.base;
    const QString ultimo = trabajo.valor("select max(FECHA) from bolsa").toString();
    const QDate u = QDate::fromString(ultimo, Qt::ISODate);
    const QByteArray d1 = u.addDays(1).toString("yyyyMMdd").toLatin1(),
                     d2 = u.addDays(2).toString("yyyyMMdd").toLatin1();
    escribirArchivo(uno.filePath("cierres/" + u.addDays(1).toString("yyMMdd") + ".txt"),
                    "IBEX," + d1 + ",1,12000.5,11900,11950,100\r\nNOSUCH," + d1 + ",1,2,1,1.5,9\r\n");
    escribirArchivo(tres.filePath("cierres/" + u.addDays(2).toString("yyMMdd") + ".txt"),
                    "IBEX," + d2 + ",1,0,11800,11990,50\r\n");
    ServidorHttp s1(uno.path()), s3(tres.path());
    ASSERT_FALSE(s1.puerto.isEmpty() || s3.puerto.isEmpty());

    const SalidaCli o =
        correrCli({"import-web", base, "--sources", s1.base() + ",http://127.0.0.1:1," + s3.base(), "--today",
                   u.addDays(4).toString(Qt::ISODate)},
                  60000);
    EXPECT_EQ(o.codigo, 0);
    const auto dia = [&](int n) { return u.addDays(n).toString("dd/MM/yyyy"); };
    const QStringList esperado{
        "site\t1\t" + u.addDays(1).toString(Qt::ISODate),
        "site\t3\t" + u.addDays(2).toString(Qt::ISODate),
        "ok\t" + dia(1),
        "ok\t" + dia(2),
        "fallo\t" + dia(0),
        "fallo\t" + dia(3),
        QString::fromUtf8("estado\tI m p o r t a c i ó n    F i n a l i z a d a."),
    };
    // The last stored day is on no source: it fails in the download stage, as the day after the last file.
    EXPECT_EQ(o.lineas(), esperado);

    // How a line becomes a row is the web import's (tests/import): here the days reach the base.
    EXPECT_EQ(trabajo.valor("select count(*) from bolsa where FECHA > '" + ultimo + "'").toInt(), 2);
}

} // namespace
} // namespace tesorel::testing
