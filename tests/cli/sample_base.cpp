#include "sample_base.h"

#include "store/recordset.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QVariant>
#include <gtest/gtest.h>

namespace tesorel::testing
{

SampleBase &SampleBase::instance()
{
    static SampleBase base;
    return base;
}

SampleBase::SampleBase()
{
    path_ = dir_.filePath("base1.mdb");
    // Through the program: the demo user's ledger is booked by the portfolio.
    const SalidaCli o = correrCli({"makebase", path_, "--sample", "--data", dataDir()});
    EXPECT_EQ(o.codigo, 0) << o.err.toStdString();
}

QVariant scalar(Database &db, const QString &statement)
{
    const auto rs = db.openRecordset(statement);
    return rs->Eof() ? QVariant() : rs->field(0);
}

QString rutaCli()
{
    return QStringLiteral(TESOREL_BINARY_DIR "/app/tesorel-cli");
}

SalidaCli correrCli(const QStringList &args, int limiteMs)
{
    SalidaCli o;
    QProcess p;
    p.start(rutaCli(), args);
    if (!p.waitForFinished(limiteMs)) {
        ADD_FAILURE() << "tesorel-cli did not finish: " << args.join(' ').toStdString();
        p.kill();
        p.waitForFinished();
        return o;
    }
    o.codigo = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    o.out = QString::fromUtf8(p.readAllStandardOutput());
    o.err = QString::fromUtf8(p.readAllStandardError());
    return o;
}

CopiaDeMuestra::CopiaDeMuestra()
{
    EXPECT_TRUE(QFile::copy(SampleBase::instance().path(), base));
    QFile::setPermissions(base, QFile::ReadOwner | QFile::WriteOwner);
}

void escribirArchivo(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate)) << path.toStdString();
    f.write(bytes);
}

ServidorHttp::ServidorHttp(const QString &carpeta)
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

ServidorHttp::~ServidorHttp()
{
    proceso.closeWriteChannel();
    if (!proceso.waitForFinished(3000))
        proceso.kill();
    proceso.waitForFinished(3000);
}

} // namespace tesorel::testing
