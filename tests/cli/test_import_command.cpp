#include "sample_base.h"

#include "store/query.h"

#include <QDate>
#include <QFile>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace tesorel::testing
{
namespace
{

// The importer's reading rules are tested on the model: here the command
// drives it, prints a line a day and a beep a bad line, and obeys its flags.
TEST(ImportCommand, DaysBeepsAndOverwrite)
{
    CopiaDeMuestra b;
    const QString datos = b.dir.filePath("datos");
    escribirArchivo(datos + "/a.txt", "04/01/2027\r\nIBEX,10,11,10,100,12,10.5,1100\r\nmal\r\n");
    escribirArchivo(datos + "/b.TXT", "tx05/01/2027\r\nIGBM,10,11,10,100,0,0,1100\r\n");
    const QString dias = "importando\t2027-01-04\nbeep\nimportando\t2027-01-05\n";
    EXPECT_EQ(correrCli({"import", b.base, datos, "--user", "1"}).out, dias);
    EXPECT_EQ(b.valor("select count(*) from bolsa where FECHA >= '2027-01-01'").toInt(), 3);

    escribirArchivo(datos + "/b.TXT", "05/01/2027\r\nIGBM,10,13,10,100,14,12,1100\r\n");
    const SalidaCli sinTocar = correrCli({"import", b.base, datos});
    EXPECT_EQ(sinTocar.codigo, 0);
    EXPECT_EQ(sinTocar.out, "");
    EXPECT_EQ(correrCli({"import", b.base, datos, "--overwrite"}).out, dias);
    EXPECT_EQ(b.valor("select ULTIMO from bolsa where FECHA = '2027-01-05'").toDouble(), 13);
    EXPECT_EQ(correrCli({"import", b.base}).codigo, 2);
}

TEST(DepurarCommand, MergesAndPrintsItsLog)
{
    CopiaDeMuestra b;
    b.open()->executeNative(
        "insert into Codigo_Empresas (Codigo, NOMBRE, ABREVIATURA11, ABREVIATURA3) values "
        "(900, 'DOBLE UNO', 'DOBLE1', 'DBL'), (901, 'DOBLE DOS', 'DOBLE2', 'DBL');"
        "insert into bolsa (VALOR, FECHA, ULTIMO) values (901, '2027-01-04', 3)");
    const QStringList lineas = correrCli({"depurar", b.base}).lineas();
    ASSERT_FALSE(lineas.isEmpty());
    EXPECT_TRUE(lineas.contains("900 DOBLE UNO OK OK OK OK")) << lineas.join('\n').toStdString();
    EXPECT_EQ(lineas.last(), "ok ok ok");
    EXPECT_EQ(b.valor("select VALOR from bolsa where FECHA = '2027-01-04'").toInt(), 900);
}

// A full history killed half way: the base opens, is sound, and every day
// file finished before the kill is there whole; the one in course is whole or absent.
TEST(ImportCommand, KilledHalfWayKeepsEveryFinishedFile)
{
    CopiaDeMuestra b;
    const QString datos = b.dir.filePath("datos");
    constexpr int valores = 160;
    QDate dia(2027, 1, 1);
    for (int k = 0; k < 1500; dia = dia.addDays(1)) {
        if (dia.dayOfWeek() > 5)
            continue;
        QByteArray texto = dia.toString("dd/MM/yyyy").toLatin1() + "\r\n";
        for (int v = 0; v < valores; ++v)
            texto += "VAL" + QByteArray::number(v) + ",10,11,1,100,12,9,1000\r\n";
        escribirArchivo(datos + "/" + dia.toString("yyyyMMdd") + ".txt", texto);
        ++k;
    }
    QProcess p;
    p.start(rutaCli(), {"import", b.base, datos, "--user", "1"});
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
        EXPECT_EQ(b.valor("select count(*) from bolsa where FECHA = '" + dias[k] + "'").toInt(), valores)
            << dias[k].toStdString();
    const int ultimo = b.valor("select count(*) from bolsa where FECHA = '" + dias.last() + "'").toInt();
    EXPECT_TRUE(ultimo == 0 || ultimo == valores) << ultimo;
}

} // namespace
} // namespace tesorel::testing
