// A folder of text day files (25 years x 160 values, about a million rows)
// imported into an empty base by the quote-file window's run, against the
// same rows put in by raw prepared inserts in one transaction, in the same run.
// The import runs twice: committing each file at its end, and committing the
// finished files every half second.
#include "import/importar.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/session.h"
#include "store/ui.h"
#include "support/full_base.h"
#include "support/medianas.h"
#include "support/raw_sqlite.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace tesorel;

namespace
{

struct Fila {
    int valor;
    double anterior, ultimo, dif, volumen, maximo, minimo, efect;
};

// The folder, written once, and the same rows in memory for the raw inserts.
struct Carpeta {
    QTemporaryDir dir;
    std::vector<std::pair<QByteArray, std::vector<Fila>>> dias; // ISO day, rows
    long filas = 0;

    Carpeta()
    {
        quint32 semilla = 777;
        // TESOREL_BENCH_DAYS=N takes the first N days only (a short run to profile).
        QList<QDate> calendario = bench::fullBaseDays();
        if (const char *n = std::getenv("TESOREL_BENCH_DAYS"))
            calendario = calendario.mid(0, std::atoi(n));
        for (const QDate &dia : std::as_const(calendario)) {
            QByteArray texto = dia.toString(QStringLiteral("dd/MM/yyyy")).toLatin1() + "\r\n";
            std::vector<Fila> filasDelDia;
            for (int v = 1; v <= bench::kFullBaseValues; ++v) {
                semilla = semilla * 1664525u + 1013904223u;
                const double anterior = 5.0 + v % 40, ultimo = anterior * (0.95 + (semilla % 1000) / 10000.0);
                const Fila f{v,
                             anterior,
                             ultimo,
                             (ultimo - anterior) * 100 / anterior,
                             double(semilla % 100000),
                             ultimo * 1.01,
                             ultimo * 0.99,
                             double(semilla % 100000) * ultimo};
                texto += QStringLiteral("V%1,%2,%3,%4,%5,%6,%7,%8\r\n")
                             .arg(v, 3, 10, QChar('0'))
                             .arg(f.anterior, 0, 'f', 3)
                             .arg(f.ultimo, 0, 'f', 3)
                             .arg(f.dif, 0, 'f', 2)
                             .arg(f.volumen, 0, 'f', 0)
                             .arg(f.maximo, 0, 'f', 3)
                             .arg(f.minimo, 0, 'f', 3)
                             .arg(f.efect, 0, 'f', 2)
                             .toLatin1();
                filasDelDia.push_back(f);
            }
            QFile archivo(dir.filePath(dia.toString(QStringLiteral("yyyyMMdd")) + QStringLiteral(".txt")));
            archivo.open(QIODevice::WriteOnly);
            archivo.write(texto);
            filas += long(filasDelDia.size());
            dias.emplace_back(dia.toString(Qt::ISODate).toLatin1(), std::move(filasDelDia));
        }
    }
};

Carpeta &carpeta()
{
    static Carpeta c;
    return c;
}

// An empty base file with the 160 companies the files name by ticker.
QString baseVacia()
{
    const QString ruta = bench::emptyBasePath();
    bench::RawSqlite db(ruta);
    db.exec("BEGIN");
    for (int v = 1; v <= bench::kFullBaseValues; ++v)
        db.exec(QStringLiteral("INSERT INTO Codigo_Empresas VALUES (%1, 'VALOR %1', 'V%2', 'VALOR %1', NULL)")
                    .arg(v)
                    .arg(v, 3, 10, QChar('0'))
                    .toLatin1()
                    .constData());
    db.exec("COMMIT");
    return ruta;
}

class UiSinVentanas : public ScriptedUi
{
  public:
    void DoEvents() override {}
};

void BM_ImportFolderVersusRawInsert(benchmark::State &state)
{
    Carpeta &c = carpeta();
    std::vector<double> importacion, agrupada, crudo;
    for (auto _ : state) {
        // Each file committed at its end, then finished files committed every half second.
        for (int agruparMs : {0, 500}) {
            UiSinVentanas ui;
            Session s(ui, QDir::tempPath());
            const QString ruta = baseVacia();
            // For profiling the commit cost: XP_PAGE=N rebuilds the empty base with
            // pages of N bytes, XP_PRAGMAS runs pragmas on the import's connection.
            if (const char *pg = std::getenv("XP_PAGE")) {
                bench::RawSqlite r(ruta);
                r.exec("PRAGMA journal_mode=DELETE");
                r.exec((QByteArray("PRAGMA page_size=") + pg).constData());
                r.exec("VACUUM");
                r.exec("PRAGMA journal_mode=WAL");
            }
            s.Base_Datos = Database::open(ruta);
            if (const char *px = std::getenv("XP_PRAGMAS"))
                s.Base_Datos->executeNative(QString::fromLatin1(px));
            s.Usuario_Numero = 1;
            Abrir_Empresas(s);
            Importar m(s);
            m.agruparMs = agruparMs;
            m.Text1 = c.dir.path();
            const auto t0 = std::chrono::steady_clock::now();
            m.Importar_(m.Text1, QStringLiteral("TXT"));
            (agruparMs ? agrupada : importacion)
                .push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count());
            if (bench::RawSqlite(ruta).scalar("SELECT count(*) FROM bolsa") != c.filas)
                state.SkipWithError("the import did not file every row");
        }

        bench::RawSqlite raw(baseVacia());
        const auto t0 = std::chrono::steady_clock::now();
        raw.exec("BEGIN");
        bench::RawStmt insercion = raw.prepare(
            "INSERT INTO bolsa (VALOR, ANTERIOR, ULTIMO, DIF, VOLUMEN, MAXIMO, MINIMO, EFECT, FECHA) "
            "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)");
        sqlite3_stmt *insert = insercion.get();
        for (const auto &[dia, filas] : c.dias)
            for (const Fila &f : filas) {
                sqlite3_bind_int(insert, 1, f.valor);
                sqlite3_bind_double(insert, 2, f.anterior);
                sqlite3_bind_double(insert, 3, f.ultimo);
                sqlite3_bind_double(insert, 4, f.dif);
                sqlite3_bind_double(insert, 5, f.volumen);
                sqlite3_bind_double(insert, 6, f.maximo);
                sqlite3_bind_double(insert, 7, f.minimo);
                sqlite3_bind_double(insert, 8, f.efect);
                sqlite3_bind_text(insert, 9, dia.constData(), int(dia.size()), SQLITE_STATIC);
                sqlite3_step(insert);
                sqlite3_reset(insert);
            }
        insercion.reset();
        raw.exec("COMMIT");
        crudo.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count());
    }
    const double filas = double(c.filas);
    state.counters["rows"] = filas;
    state.counters["import_rows_per_s"] = filas / bench::mediana(importacion);
    state.counters["raw_rows_per_s"] = filas / bench::mediana(crudo);
    state.counters["import_over_raw"] = bench::mediana(crudo) / bench::mediana(importacion);
    state.counters["grouped_rows_per_s"] = filas / bench::mediana(agrupada);
    state.counters["grouped_over_raw"] = bench::mediana(crudo) / bench::mediana(agrupada);
    std::printf("raw inserts, one transaction: median %.2f s (%.0f rows/s)\n", bench::mediana(crudo),
                filas / bench::mediana(crudo));
    std::printf("import, a commit per file:    median %.2f s (%.0f rows/s), ratio to raw %.2f\n",
                bench::mediana(importacion), filas / bench::mediana(importacion),
                bench::mediana(crudo) / bench::mediana(importacion));
    std::printf("import, commits every 500 ms: median %.2f s (%.0f rows/s), ratio to raw %.2f\n",
                bench::mediana(agrupada), filas / bench::mediana(agrupada),
                bench::mediana(crudo) / bench::mediana(agrupada));
}
BENCHMARK(BM_ImportFolderVersusRawInsert)->Unit(benchmark::kSecond)->Iterations(3);

} // namespace

int main(int argc, char **argv)
{
    carpeta(); // the files are written before anything is timed
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
