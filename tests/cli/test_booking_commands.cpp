#include "sample_base.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

QString ejecutar(const QStringList &args, int *rc = nullptr)
{
    QProcess p;
    p.start(QStringLiteral(TESOREL_BINARY_DIR "/app/tesorel-cli"), args);
    p.waitForFinished(120000);
    if (rc)
        *rc = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    return QString::fromUtf8(p.readAllStandardOutput());
}

// A copy of the sample base for one test, in a folder of its own.
QString copiaDeLaBase(const QString &nombre)
{
    const QString dir = SampleBase::instance().tempFile(nombre);
    QDir().mkpath(dir);
    const QString ruta = dir + "/base1.mdb";
    QFile::remove(ruta);
    EXPECT_TRUE(QFile::copy(SampleBase::instance().path(), ruta));
    return ruta;
}

TEST(BookingCommands, CommissionLinesOfBothWindows)
{
    const QString b = SampleBase::instance().path();
    struct Caso {
        QStringList args;
        QString salida;
    };
    const Caso casos[] = {
        {{"Bankinter", "1000"},
         "Corretaje hasta 3.000\t0,200 %\t6,000\t6,00\t6,00\nCanon Bolsa\t0,000 %\t2,500\t2,50\t8,50\n"
         "\t\t\t\t\n\t\t\t\t\ntotal\t8.5\n"},
        {{"Renta 4", "10000,5", "--sell"},
         "Corretaje\t0,1   %\t5\t10,00\t10,\nCanon de contratación hasta 35.000\t0   %\t4,65\t4,65\t14,65\n"
         "Liquidación Iberclear\t0,0024   %\t0,36\t0,36\t15,01\n\t\t\t\t\ntotal\t15.01\n"},
        {{"Nadie", "1000"}, "\t\t\t\t\n\t\t\t\t\n\t\t\t\t\n\t\t\t\t\ntotal\t0\n"},
    };
    for (const Caso &c : casos) {
        int rc = -1;
        EXPECT_EQ(ejecutar(QStringList{"commission", b} + c.args, &rc), c.salida)
            << c.args.join(' ').toStdString();
        EXPECT_EQ(rc, 0);
    }
}

TEST(BookingCommands, BuySellAndTheLotsBetween)
{
    const QString b = copiaDeLaBase("compraventa");
    const QStringList sesion{"--user", "1", "--today", "2026-11-23"};
    int rc = -1;
    // Choosing the broker before any amount: the commission's conversions fail, as in the window.
    EXPECT_EQ(ejecutar(QStringList{"buy", b, "--value", "TELEFONICA", "--broker", "Bankinter", "--price",
                                   "4,5", "--qty", "100"} +
                           sesion,
                       &rc),
              "error\t3075\tError de sintaxis en la expresión de consulta '(desde <= )'.\n"
              "error\t13\tNo coinciden los tipos\n");
    EXPECT_EQ(rc, 0);
    auto db = Database::open(b);
    EXPECT_EQ(scalar(*db, "select Operacion from historico where Fecha_operacion = '2026-11-23'").toString(),
              "23/11/26: Compra de 100 TELEFONICA por 408,5");

    const QString lotes = ejecutar(
        QStringList{"lots", b, "--value", "TELEFONICA", "--sale", "23/11/26", "1050", "5", "5241,5"} +
        sesion);
    // The total "5241,5" reads as 5241 (point rule): 4.99142857 a share, spread first in first out.
    EXPECT_EQ(lotes, "fecha\tcompradas\tprecio\ttotalcompra\tresultado\tvendidas\ttanto\n"
                     "2025-04-07\t1000\t11.676\t11699.35\t-6707.92\t-1000\t-134.39\n"
                     "2026-11-23\t100\t4.5\t408.5\t45.32\t-50\t18.16\n"
                     "total\t1100\t11.02\t12107.85\t-6316.49\t-1050\t-120.52\n");

    const QString masDeLoQueHay = ejecutar(QStringList{"sell", b, "--value", "TELEFONICA", "--broker",
                                                       "Bankinter", "--price", "5", "--qty", "2000"} +
                                           sesion);
    EXPECT_TRUE(
        masDeLoQueHay.endsWith("mensaje\tSólo constan 1100 acciones de TELEFONICA, apunte rechazado\n"));
    // Without --qty the whole position is sold and the row goes.
    ejecutar(QStringList{"sell", b, "--value", "TELEFONICA", "--broker", "Bankinter", "--price", "5"} +
             sesion);
    EXPECT_EQ(scalar(*db, "select count(*) from cartera where valor = 108").toInt(), 0);
    EXPECT_EQ(scalar(*db, "select Cantidad from historico where operacionNum = 4 and valor = 108").toDouble(),
              -1100);
}

} // namespace
} // namespace tesorel::testing
