#include "sample_base.h"

#include "store/query.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace tesorel::testing
{
namespace
{

const QString Cli = QStringLiteral(TESOREL_BINARY_DIR "/app/tesorel-cli");

int cli(const QStringList &args, QString *out = nullptr)
{
    QProcess p;
    p.start(Cli, args);
    if (!p.waitForFinished(300000))
        return -1;
    if (out)
        *out = QString::fromUtf8(p.readAllStandardOutput());
    return p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
}

void escribir(const QString &ruta, const QByteArray &contenido)
{
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(contenido);
}

// A copy of the sample base in a folder of its own, with a folder of day files.
struct BaseDePrueba {
    QTemporaryDir dir;
    QString base = dir.filePath("base1.mdb"), datos = dir.filePath("datos");
    BaseDePrueba()
    {
        QFile::copy(SampleBase::instance().path(), base);
        QDir().mkpath(datos);
    }
    double numero(const QString &sql)
    {
        auto db = Database::open(base);
        Query q(*db, sql);
        return q.next() ? q.number(0) : -1;
    }
};

TEST(ImportCommand, DaysBeepsAndOverwrite)
{
    BaseDePrueba b;
    escribir(b.datos + "/a.txt", "04/01/2027\r\nIBEX,10,11,10,100,12,10.5,1100\r\nmal\r\n");
    escribir(b.datos + "/b.TXT", "tx05/01/2027\r\nIGBM,10,11,10,100,0,0,1100\r\n");
    escribir(b.datos + "/c.txt", "no es un dia\r\nIGBM,1,1,1,1,1,1,1\r\n");
    QString out;
    ASSERT_EQ(cli({"import", b.base, b.datos, "--user", "1"}, &out), 0);
    EXPECT_EQ(out, "importando\t2027-01-04\nbeep\nimportando\t2027-01-05\n");
    EXPECT_EQ(b.numero("select count(*) from bolsa where FECHA >= '2027-01-01'"), 3);
    EXPECT_EQ(b.numero("select MAXIMO from bolsa where FECHA = '2027-01-05'"), 11);
    EXPECT_EQ(b.numero("select count(*) from Usuario_Actual where fecha_Actual = '2027-01-05'"), 1);

    escribir(b.datos + "/b.TXT", "05/01/2027\r\nIGBM,10,13,10,100,14,12,1100\r\n");
    ASSERT_EQ(cli({"import", b.base, b.datos}, &out), 0);
    EXPECT_EQ(out, "");
    ASSERT_EQ(cli({"import", b.base, b.datos, "--overwrite"}, &out), 0);
    EXPECT_EQ(out, "importando\t2027-01-04\nbeep\nimportando\t2027-01-05\n");
    EXPECT_EQ(b.numero("select ULTIMO from bolsa where FECHA = '2027-01-05'"), 13);
    EXPECT_EQ(cli({"import", b.base}), 2);
}

TEST(DepurarCommand, MergesAndPrintsItsLog)
{
    BaseDePrueba b;
    {
        auto db = Database::open(b.base);
        db->executeNative("insert into Codigo_Empresas (Codigo, NOMBRE, ABREVIATURA11, ABREVIATURA3) values "
                          "(900, 'DOBLE UNO', 'DOBLE1', 'DBL'), (901, 'DOBLE DOS', 'DOBLE2', 'DBL');"
                          "insert into bolsa (VALOR, FECHA, ULTIMO) values (901, '2027-01-04', 3)");
    }
    QString out;
    ASSERT_EQ(cli({"depurar", b.base}, &out), 0);
    const QStringList lineas = out.split('\n', Qt::SkipEmptyParts);
    ASSERT_FALSE(lineas.isEmpty());
    EXPECT_TRUE(lineas.contains("900 DOBLE UNO OK OK OK OK")) << out.toStdString();
    EXPECT_EQ(lineas.last(), "ok ok ok");
    EXPECT_EQ(b.numero("select count(*) from Codigo_Empresas where Codigo = 901"), 0);
    EXPECT_EQ(b.numero("select VALOR from bolsa where FECHA = '2027-01-04'"), 900);
}

// A full history killed half way: the base opens, is sound, and every day
// file finished before the kill is there whole; the one in course is whole or absent.
TEST(ImportCommand, KilledHalfWayKeepsEveryFinishedFile)
{
    BaseDePrueba b;
    constexpr int valores = 160;
    QDate dia(2027, 1, 1);
    for (int k = 0; k < 1500; dia = dia.addDays(1)) {
        if (dia.dayOfWeek() > 5)
            continue;
        QByteArray texto = dia.toString("dd/MM/yyyy").toLatin1() + "\r\n";
        for (int v = 0; v < valores; ++v)
            texto += "VAL" + QByteArray::number(v) + ",10,11,1,100,12,9,1000\r\n";
        escribir(b.datos + "/" + dia.toString("yyyyMMdd") + ".txt", texto);
        ++k;
    }
    QProcess p;
    p.start(Cli, {"import", b.base, b.datos, "--user", "1"});
    ASSERT_TRUE(p.waitForStarted());
    QStringList dias;
    while (dias.size() < 60 && p.state() == QProcess::Running) {
        p.waitForReadyRead(1000);
        while (p.canReadLine()) {
            const QString linea = QString::fromUtf8(p.readLine()).trimmed();
            if (linea.startsWith("importando\t"))
                dias << linea.mid(11);
        }
    }
    p.kill();
    p.waitForFinished();
    EXPECT_EQ(p.exitStatus(), QProcess::CrashExit);
    ASSERT_GE(dias.size(), 2);

    sqlite3 *db = nullptr;
    ASSERT_EQ(sqlite3_open(QFile::encodeName(b.base).constData(), &db), SQLITE_OK);
    sqlite3_stmt *st = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &st, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_step(st), SQLITE_ROW);
    EXPECT_STREQ(reinterpret_cast<const char *>(sqlite3_column_text(st, 0)), "ok");
    sqlite3_finalize(st);
    sqlite3_close(db);

    for (int k = 0; k + 1 < dias.size(); ++k)
        EXPECT_EQ(b.numero("select count(*) from bolsa where FECHA = '" + dias[k] + "'"), valores)
            << dias[k].toStdString();
    const double ultimo = b.numero("select count(*) from bolsa where FECHA = '" + dias.last() + "'");
    EXPECT_TRUE(ultimo == 0 || ultimo == valores) << ultimo;
}

} // namespace
} // namespace tesorel::testing
