#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QThread>

#include "online/download.h"
#include "online/soporte_online.h"

using namespace tesorel;

namespace
{

QCoreApplication &app()
{
    return aplicacionDePrueba(); // one application for every test file of the suite
}

// python3's http.server on a free loopback port, serving a folder.
class LocalHttpServer
{
  public:
    explicit LocalHttpServer(const QString &folder)
    {
        QTcpServer probe;
        probe.listen(QHostAddress::LocalHost, 0);
        port_ = probe.serverPort();
        probe.close();
        process_.setWorkingDirectory(folder);
        process_.start("python3", {"-m", "http.server", QString::number(port_), "--bind", "127.0.0.1"});
        process_.waitForStarted();
        for (int i = 0; i < 100; ++i) { // wait until it accepts
            QTcpSocket s;
            s.connectToHost(QHostAddress::LocalHost, port_);
            if (s.waitForConnected(100))
                return;
            QThread::msleep(50);
        }
    }
    ~LocalHttpServer()
    {
        process_.kill();
        process_.waitForFinished(3000);
    }
    QString url(const QString &path) const { return QString("http://127.0.0.1:%1/%2").arg(port_).arg(path); }

  private:
    QProcess process_;
    quint16 port_ = 0;
};

TEST(Descargar, FetchesAFileAndFailsWithoutOne)
{
    app();
    QTemporaryDir served, target;
    {
        QFile f(served.path() + "/cierres.csv");
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("SAN;4,25\nTEF;3,9\n");
    }
    LocalHttpServer server(served.path());

    const QString out = target.path() + "/dia.csv";
    EXPECT_TRUE(Descargar_Url(server.url("cierres.csv"), out, 10000));
    QFile got(out);
    ASSERT_TRUE(got.open(QIODevice::ReadOnly));
    EXPECT_EQ(got.readAll(), QByteArray("SAN;4,25\nTEF;3,9\n"));

    const QString missing = target.path() + "/nada.csv";
    EXPECT_FALSE(Descargar_Url(server.url("nada.csv"), missing, 10000));
    EXPECT_FALSE(QFileInfo::exists(missing));
}

TEST(Descargar, AServerThatNeverAnswersRunsIntoTheTimeLimit)
{
    app();
    QTcpServer silent; // accepts and says nothing
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost, 0));
    QTemporaryDir target;
    const QString out = target.path() + "/x";
    EXPECT_FALSE(Descargar_Url(QString("http://127.0.0.1:%1/x").arg(silent.serverPort()), out, 300));
    EXPECT_FALSE(QFileInfo::exists(out));
}

TEST(Descargar, NoServerAtAllIsAPlainFailure)
{
    app();
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    const quint16 port = probe.serverPort();
    probe.close();
    QTemporaryDir target;
    EXPECT_FALSE(Descargar_Url(QString("http://127.0.0.1:%1/x").arg(port), target.path() + "/x", 2000));
    EXPECT_FALSE(Descargar_Url("not an address", target.path() + "/y", 2000));
}

} // namespace
