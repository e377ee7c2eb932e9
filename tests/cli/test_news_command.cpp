#include "sample_base.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

// tesorel-cli news against pages that python3's http.server serves from loopback.
TEST(NewsCommand, HeadlinesOfAServedPageAndTheFailedDownload)
{
    QTemporaryDir sitio;
    QDir(sitio.path()).mkpath("n/A");
    QFile pagina(sitio.filePath("n/A/ANA.mc.html"));
    ASSERT_TRUE(pagina.open(QIODevice::WriteOnly));
    pagina.write("<ul>\n<li><a href=\"http://x/1\">Uno <b>Noticias</b></a>\n<li><a "
                 "href=\"http://x/2\">Dos</a>\n</ul>\n");
    pagina.close();
    // Port 0: python picks one and says which once it listens.
    QProcess http;
    http.start("python3",
               {"-u", "-m", "http.server", "0", "--bind", "127.0.0.1", "--directory", sitio.path()});
    ASSERT_TRUE(http.waitForStarted());
    QByteArray anuncio;
    while (!anuncio.contains(" port ") && http.waitForReadyRead(10000))
        anuncio += http.readAllStandardOutput();
    const int puerto = anuncio.mid(anuncio.indexOf(" port ") + 6).split(' ').value(0).toInt();
    ASSERT_GT(puerto, 0) << anuncio.toStdString();
    SampleBase &b = SampleBase::instance();
    const QString copia = b.tempFile("news.mdb");
    QFile::remove(copia);
    QFile::copy(b.path(), copia);
    QFile::setPermissions(copia, QFile::ReadOwner | QFile::WriteOwner);

    struct Caso {
        QString nombre;
        QByteArray salida;
    };
    const Caso casos[] = {
        {"ACCIONA", "Uno Noticia\thttp://x/1\nDos\thttp://x/2\n"},
        {"ACERINOX", "Conectando...\nNo Disponible\n"}, // nothing served for ACX
    };
    for (const Caso &c : casos) {
        QProcess p;
        p.start(QStringLiteral(TESOREL_BINARY_DIR "/app/tesorel-cli"),
                {"news", copia, c.nombre, "--site", QStringLiteral("http://127.0.0.1:%1").arg(puerto)});
        ASSERT_TRUE(p.waitForFinished(60000));
        EXPECT_EQ(p.exitCode(), 0);
        EXPECT_EQ(p.readAllStandardOutput(), c.salida) << c.nombre.toStdString();
    }
    http.kill();
    http.waitForFinished(3000);
}

} // namespace
} // namespace tesorel::testing
