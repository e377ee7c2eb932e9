// The closes file as text: line ends, fields, and where the reading stops.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "import/cierres_csv.h"
#include "import/fuentes_cierres.h"

using namespace tesorel;

TEST(WebCierres, ReadsTheLinesOfTheDayAndStopsAtTheFirstThatIsNot)
{
    const QDate dia(2024, 3, 5);
    const QByteArray san = "SAN,20240305,1,2,1,1.5,9", tef = "TEF,20240305,1,2,1,1.5,9";
    struct Caso {
        const char *nombre;
        QByteArray bytes;
        QStringList tickers;
        bool completa;
    } casos[] = {
        {"CR LF, last line without its end", san + "\r\n TEF ,20240305,1,2,1,1.5,9", {"SAN", "TEF"}, true},
        {"CR alone ends a line", san + "\r" + tef + "\r", {"SAN", "TEF"}, true},
        {"a lone LF does not", san + "\n" + tef + "\n", {}, false},
        {"five commas stop it", san + "\r\nTEF,20240305,1,2,1,1.5\r\n" + san + "\r\n", {"SAN"}, false},
        {"another day stops it", "SAN,20240304,1,2,1,1.5,9\r\n", {}, false},
        {"a page", "<html>\r\n<body>404</body>\r\n", {}, false},
        {"an empty line at the end", san + "\r\n\r\n", {"SAN"}, false},
        {"nothing at all", "", {}, true},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nombre);
        const LecturaCierres r = leerCierres(c.bytes, dia);
        QStringList tickers;
        for (const auto &f : r.filas)
            tickers << f.ticker;
        EXPECT_EQ(tickers, c.tickers);
        EXPECT_EQ(r.completa, c.completa);
    }
    const LecturaCierres r = leerCierres("X,20240305,9,4.25abc,4,4.2,1e3\r\n", dia);
    ASSERT_EQ(r.filas.size(), 1u);
    EXPECT_EQ(r.filas[0].maximo, 4.25); // the point rule stops at the first other character
    EXPECT_EQ(r.filas[0].volumen, 1000);
    EXPECT_DOUBLE_EQ(r.filas[0].efect(), 4.2);
}

TEST(WebCierres, FieldsAndTheSourcesAddresses)
{
    EXPECT_EQ(Enlacolumna("a,b,c", "2"), "b");
    EXPECT_EQ(Enlacolumna("a,b,c", "9"), "c"); // past the end: the last field
    QTemporaryDir carpeta;
    QFile ini(carpeta.path() + "/fuentes.ini");
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write("[cierres]\nfuente1=http://127.0.0.1:81/\nfuente2=http://127.0.0.1:82\nlimite_ms=1500\n");
    ini.close();
    const FuentesCierres f = FuentesCierres::leer(carpeta.path());
    const QDate d(2024, 3, 5);
    EXPECT_EQ(f.limiteMs, 1500);
    EXPECT_EQ(f.direccion(1, d), "http://127.0.0.1:81/cierres/240305.txt"); // one slash
    EXPECT_EQ(f.direccion(3, d), "");                                       // no host built in
}
