// The web import of 20 days of 160 values from a loopback server, beside a
// raw reference in the same run: the same 20 files fetched with the plain
// download and their rows written by a prepared insert. The target is the
// whole run in 2 s or less.
#include "import/importinet.h"
#include "online/download.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/session.h"
#include "store/ui.h"
#include "support/full_base.h"
#include "support/raw_sqlite.h"

#include <QCoreApplication>
#include <QFile>
#include <QHash>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <chrono>

using namespace tesorel;

namespace
{

constexpr int kDias = 20, kValores = 160;
const QDate kUltimo(2024, 1, 1);

// Serves the closes files by path, each on a connection of its own.
class Servidor
{
  public:
    Servidor()
    {
        servidor_.listen(QHostAddress::LocalHost, 0);
        QObject::connect(&servidor_, &QTcpServer::newConnection, [this] {
            while (QTcpSocket *c = servidor_.nextPendingConnection())
                QObject::connect(c, &QTcpSocket::readyRead, c, [this, c] {
                    pedido_[c] += c->readAll();
                    if (!pedido_[c].contains("\r\n\r\n"))
                        return;
                    const QByteArray cuerpo = rutas.value(pedido_.take(c).split(' ').value(1));
                    c->write((cuerpo.isEmpty() ? "HTTP/1.1 404 Not Found" : "HTTP/1.1 200 OK") +
                             QByteArray("\r\nConnection: close\r\nContent-Length: ") +
                             QByteArray::number(cuerpo.size()) + "\r\n\r\n" + cuerpo);
                    c->disconnectFromHost();
                });
        });
    }
    QString base() const { return QStringLiteral("http://127.0.0.1:%1").arg(servidor_.serverPort()); }
    QHash<QByteArray, QByteArray> rutas;

  private:
    QTcpServer servidor_;
    QHash<QTcpSocket *, QByteArray> pedido_;
};

QByteArray archivoDelDia(const QDate &d)
{
    QByteArray out;
    const QByteArray dia = d.toString("yyyyMMdd").toLatin1();
    for (int v = 1; v <= kValores; ++v)
        out += "V" + QByteArray::number(v) + "," + dia + ",10.5,11.25,10.1,10.9," +
               QByteArray::number(1000 + v) + "\r\n";
    return out;
}

Servidor &servidor()
{
    static Servidor s;
    if (s.rutas.isEmpty())
        for (int i = 1; i <= kDias; ++i) {
            const QDate d = kUltimo.addDays(i);
            s.rutas["/cierres/" + d.toString("yyMMdd").toLatin1() + ".txt"] = archivoDelDia(d);
        }
    return s;
}

// A fresh base that knows the values and holds the last day.
std::shared_ptr<Database> baseNueva(const QString &carpeta)
{
    const QString ruta = carpeta + "/base1.mdb";
    QFile::copy(bench::emptyBasePath(), ruta);
    auto db = Database::open(ruta);
    QString sql = "BEGIN;";
    for (int v = 1; v <= kValores; ++v)
        sql += QStringLiteral(
                   "insert into Codigo_Empresas (Codigo, NOMBRE, ABREVIATURA3) values (%1, 'V%1', 'V%1');")
                   .arg(v);
    sql += "insert into bolsa (VALOR, FECHA, ULTIMO) values (1, '2024-01-01', 1); COMMIT;";
    db->executeNative(sql);
    return db;
}

void BM_ImportWebVeinteDias(benchmark::State &state)
{
    double importSeconds = 0, rawSeconds = 0;
    int cargados = 0;
    for (auto _ : state) {
        QTemporaryDir carpeta;
        ScriptedUi ui;
        Session s(ui, carpeta.path());
        s.Base_Datos = baseNueva(carpeta.path());
        s.hoyFijo = kUltimo.addDays(kDias + 1);
        Abrir_Empresas(s);
        FuentesCierres f;
        f.bases = {servidor().base(), servidor().base(), servidor().base()};
        auto t0 = std::chrono::steady_clock::now();
        Importinet m(s, f, {});
        m.Form_Load();
        importSeconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
        cargados = int(m.Ok.size());

        // The reference: the plain download and a prepared insert per row.
        QTemporaryDir otra;
        baseNueva(otra.path()); // made and closed: the reference has a connection of its own
        bench::RawSqlite raw(otra.path() + "/base1.mdb");
        t0 = std::chrono::steady_clock::now();
        bench::RawStmt insercion =
            raw.prepare("INSERT INTO bolsa (VALOR, FECHA, ANTERIOR, ULTIMO, VOLUMEN, MAXIMO, MINIMO, EFECT) "
                        "VALUES (?1, ?2, 0, ?3, ?4, ?5, ?6, ?7)");
        sqlite3_stmt *insert = insercion.get();
        for (int i = 1; i <= kDias; ++i) {
            const QDate d = kUltimo.addDays(i);
            const QString ruta = otra.path() + "/dia.txt";
            Descargar_Url(f.direccion(1, d), ruta, f.limiteMs);
            QFile archivo(ruta);
            archivo.open(QIODevice::ReadOnly);
            const QByteArray dia = d.toString(Qt::ISODate).toLatin1();
            raw.exec("BEGIN");
            for (const QByteArray &linea : archivo.readAll().split('\n')) {
                const QList<QByteArray> c = linea.trimmed().split(',');
                if (c.size() != 7)
                    continue;
                sqlite3_bind_int(insert, 1, c[0].mid(1).toInt());
                sqlite3_bind_text(insert, 2, dia.constData(), int(dia.size()), SQLITE_TRANSIENT);
                sqlite3_bind_double(insert, 3, c[5].toDouble());
                sqlite3_bind_double(insert, 4, c[6].toDouble());
                sqlite3_bind_double(insert, 5, c[3].toDouble());
                sqlite3_bind_double(insert, 6, c[4].toDouble());
                sqlite3_bind_double(insert, 7, c[5].toDouble() * c[6].toDouble() / 1000);
                sqlite3_step(insert);
                sqlite3_reset(insert);
            }
            raw.exec("COMMIT");
            archivo.remove();
        }
        insercion.reset();
        rawSeconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    }
    const double n = double(state.iterations());
    state.counters["days_loaded"] = cargados;
    state.counters["import_s"] = importSeconds / n;
    state.counters["raw_s"] = rawSeconds / n;
    state.counters["import_over_raw"] = importSeconds / rawSeconds;
    state.counters["within_2s"] = importSeconds / n <= 2.0 ? 1 : 0;
}
BENCHMARK(BM_ImportWebVeinteDias)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5)
    ->Repetitions(3)
    ->ReportAggregatesOnly(true);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
