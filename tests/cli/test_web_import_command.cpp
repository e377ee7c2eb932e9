// import-web against python3's http.server on loopback: source 1 and 3
// serve files, source 2 is a port where nothing listens.
#include "sample_base.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

// python3's http.server on a port of its choosing, read from its first
// line. It ends when its standard input closes, so that no server outlives
// the test even when python3 is a launcher that runs the interpreter as a child.
struct Servidor {
    QProcess proceso;
    QString puerto;
    explicit Servidor(const QString &carpeta)
    {
        proceso.setWorkingDirectory(carpeta);
        proceso.start("python3", {"-u", "-c",
                                  "import http.server, sys, threading\n"
                                  "s = http.server.ThreadingHTTPServer(('127.0.0.1', 0), "
                                  "http.server.SimpleHTTPRequestHandler)\n"
                                  "print('port', s.server_address[1])\n"
                                  "threading.Thread(target=s.serve_forever, daemon=True).start()\n"
                                  "sys.stdin.read()\n"});
        // The whole line, however it arrives, and time for a slow start on a busy machine.
        QElapsedTimer reloj;
        reloj.start();
        while (puerto.isEmpty() && reloj.elapsed() < 30000 && proceso.state() != QProcess::NotRunning) {
            if (!proceso.canReadLine()) {
                proceso.waitForReadyRead(500);
                continue;
            }
            const QString linea = QString::fromUtf8(proceso.readLine()).trimmed();
            if (linea.startsWith("port "))
                puerto = linea.mid(5);
        }
    }
    ~Servidor()
    {
        proceso.closeWriteChannel();
        if (!proceso.waitForFinished(3000))
            proceso.kill();
        proceso.waitForFinished(3000);
    }
    QString base() const { return "http://127.0.0.1:" + puerto; }
};

void escribir(const QString &ruta, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(ruta).absolutePath());
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

TEST(WebImportCommand, SitesListsAndStateOfTheRun)
{
    QTemporaryDir trabajo, uno, tres;
    const QString base = trabajo.filePath("base1.mdb");
    ASSERT_TRUE(QFile::copy(SampleBase::instance().path(), base));
    const QString ultimo = scalar(*Database::open(base), "select max(FECHA) from bolsa").toString();
    const QDate u = QDate::fromString(ultimo, Qt::ISODate);
    const QByteArray d1 = u.addDays(1).toString("yyyyMMdd").toLatin1(),
                     d2 = u.addDays(2).toString("yyyyMMdd").toLatin1();
    escribir(uno.filePath("cierres/" + u.addDays(1).toString("yyMMdd") + ".txt"),
             "IBEX," + d1 + ",1,12000.5,11900,11950,100\r\nNOSUCH," + d1 + ",1,2,1,1.5,9\r\n");
    escribir(tres.filePath("cierres/" + u.addDays(2).toString("yyMMdd") + ".txt"),
             "IBEX," + d2 + ",1,0,11800,11990,50\r\n");
    Servidor s1(uno.path()), s3(tres.path());
    ASSERT_FALSE(s1.puerto.isEmpty() || s3.puerto.isEmpty());

    QProcess p;
    p.start(QStringLiteral(TESOREL_BINARY_DIR "/app/tesorel-cli"),
            {"import-web", base, "--sources", s1.base() + ",http://127.0.0.1:1," + s3.base(), "--today",
             u.addDays(4).toString(Qt::ISODate)});
    ASSERT_TRUE(p.waitForFinished(60000));
    EXPECT_EQ(p.exitCode(), 0);
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
    EXPECT_EQ(QString::fromUtf8(p.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts), esperado);

    auto db = Database::open(base);
    EXPECT_EQ(
        scalar(*db, "select count(*) from bolsa where FECHA = '" + u.addDays(1).toString(Qt::ISODate) + "'")
            .toInt(),
        1);
    EXPECT_EQ(
        scalar(*db, "select MINIMO from bolsa where FECHA = '" + u.addDays(2).toString(Qt::ISODate) + "'")
            .toDouble(),
        11990);
    EXPECT_EQ(
        scalar(*db, "select EFECT from bolsa where FECHA = '" + u.addDays(1).toString(Qt::ISODate) + "'")
            .toDouble(),
        1195);
}

} // namespace
} // namespace tesorel::testing
