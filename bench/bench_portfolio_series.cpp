// The portfolio series and valuation on the full-size base (160 values over
// 25 years): the whole series rebuilt for a user holding 20 values with 200
// ledger lines, one new day added to it, and the portfolio window valued
// with 50 positions, each beside the raw engine reading what it needs.
#include "portfolio/cartera_valoracion.h"
#include "portfolio/serie_cartera.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/query.h"
#include "store/session.h"
#include "store/ui.h"
#include "support/full_base.h"
#include "support/medianas.h"
#include "support/raw_sqlite.h"
#include "support/run_benchmarks.h"

#include <QCoreApplication>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <functional>
#include <sqlite3.h>
#include <vector>

using namespace tesorel;

namespace
{

constexpr int kUsuarioSerie = 1, kUsuarioCartera = 2, kValoresSerie = 20, kPosiciones = 50;

struct Base {
    ScriptedUi ui;
    Session s{ui, QString()};
    QList<QDate> dias = bench::fullBaseDays();

    Base()
    {
        s.Base_Datos = Database::open(bench::fullBasePath());
        Database &db = *s.Base_Datos;
        Transaction t(db);
        Query e(db, "insert into Codigo_Empresas (codigo, NOMBRE, ABREVIATURA11) values (?, ?, ?)");
        for (int v = 1; v <= bench::kFullBaseValues; ++v)
            e.bind(1, v).bind(2, QString("VALOR %1 SA").arg(v)).bind(3, QString("VALOR %1").arg(v)).exec();
        // 200 lines over the whole history: each of 20 values bought, partly
        // sold and bought again, five times.
        Query h(db,
                "insert into historico (Usuario, Cantidad, VALOR, operacionNum, Operacion, Entidad, "
                "precio_operacion, Fecha_operacion, Total_operacion) values (?, ?, ?, ?, 'x', 1, 10, ?, ?)");
        const int paso = int(dias.size()) / 200;
        for (int i = 0; i < 200; ++i) {
            const int valor = 1 + i % kValoresSerie;
            const bool venta = (i / kValoresSerie) % 2 == 1;
            const double cantidad = venta ? -50 : 100;
            h.bind(1, kUsuarioSerie).bind(2, cantidad).bind(3, valor).bind(4, venta ? 4 : 2);
            h.bind(5, dias[i * paso]).bind(6, cantidad * 10).exec();
        }
        Query c(db,
                "insert into cartera (Usuario, VALOR, Cantidad, Precio_Compra, Fecha_Compra, Total_Compra) "
                "values (?, ?, 100, 10, ?, 1006)");
        for (int v = 1; v <= kPosiciones; ++v)
            c.bind(1, kUsuarioCartera).bind(2, v).bind(3, dias[v * 100]).exec();
        Query(db, "update Usuario_Actual set USUARIO_ACTUAL = ?, fecha_Actual = ?")
            .bind(1, kUsuarioCartera)
            .bind(2, dias.last())
            .exec();
        t.commit();
        Abrir_Empresas(s);
        crudo.open(s.Base_Datos->path());
    }
    // The raw references read through a connection of their own.
    bench::RawSqlite crudo;
    sqlite3 *raw() const { return crudo.handle(); }
};

Base &base()
{
    static Base b;
    return b;
}

sqlite3_stmt *preparar(const char *sql)
{
    sqlite3_stmt *stmt = nullptr;
    sqlite3_prepare_v2(base().raw(), sql, -1, &stmt, nullptr);
    return stmt;
}

void serieCompleta()
{
    Base &b = base();
    b.s.Usuario_Numero = kUsuarioSerie;
    b.s.Fechas_Serie = {};
    Generar_Serie_Cartera(b.s, 0);
}

// The floor: the quotes of the 20 values over the whole history, read raw.
void cotizacionesCrudas()
{
    static sqlite3_stmt *q =
        preparar("select FECHA, ULTIMO, MAXIMO, MINIMO, VOLUMEN from bolsa where VALOR = ? "
                 "and FECHA >= ? order by FECHA");
    double suma = 0;
    for (int v = 1; v <= kValoresSerie; ++v) {
        sqlite3_bind_int(q, 1, v);
        sqlite3_bind_text(q, 2, "1900-01-01", -1, SQLITE_STATIC);
        while (sqlite3_step(q) == SQLITE_ROW) {
            suma += sqlite3_column_double(q, 1) + sqlite3_column_double(q, 2) + sqlite3_column_double(q, 3) +
                    sqlite3_column_double(q, 4);
            benchmark::DoNotOptimize(sqlite3_column_text(q, 0));
        }
        sqlite3_reset(q);
    }
    benchmark::DoNotOptimize(suma);
}

// Leaves the series one day short of the quotes, untimed.
void quitarUltimoDia()
{
    Base &b = base();
    static sqlite3_stmt *d = preparar("delete from bolsa where VALOR = 34001 and FECHA >= ?");
    static sqlite3_stmt *i =
        preparar("insert into bolsa (VALOR, FECHA, ANTERIOR, ULTIMO) values (34001, ?, 1, 1)");
    const QByteArray penultimo = b.dias[b.dias.size() - 2].toString(Qt::ISODate).toLatin1();
    sqlite3_bind_text(d, 1, penultimo.constData(), -1, SQLITE_TRANSIENT);
    sqlite3_step(d);
    sqlite3_reset(d);
    sqlite3_bind_text(i, 1, penultimo.constData(), -1, SQLITE_TRANSIENT);
    sqlite3_step(i);
    sqlite3_reset(i);
    b.s.Usuario_Numero = kUsuarioSerie;
    b.s.Fechas_Serie = {};
}

void unDiaMas()
{
    Generar_Serie_Cartera(base().s, 1);
}

// The floor of a day: the held values' quotes of the last two days, raw, and one row written.
void dosDiasCrudos()
{
    Base &b = base();
    static sqlite3_stmt *q =
        preparar("select ULTIMO, MAXIMO, MINIMO, VOLUMEN from bolsa where VALOR = ? and FECHA >= ?");
    static sqlite3_stmt *i =
        preparar("insert into bolsa (VALOR, FECHA, ANTERIOR, ULTIMO) values (34999, ?, 1, 1)");
    const QByteArray penultimo = b.dias[b.dias.size() - 2].toString(Qt::ISODate).toLatin1();
    double suma = 0;
    for (int v = 1; v <= kValoresSerie; ++v) {
        sqlite3_bind_int(q, 1, v);
        sqlite3_bind_text(q, 2, penultimo.constData(), -1, SQLITE_TRANSIENT);
        while (sqlite3_step(q) == SQLITE_ROW)
            suma += sqlite3_column_double(q, 0);
        sqlite3_reset(q);
    }
    sqlite3_bind_text(i, 1, penultimo.constData(), -1, SQLITE_TRANSIENT);
    sqlite3_step(i);
    sqlite3_reset(i);
    benchmark::DoNotOptimize(suma);
}

void valorarCartera()
{
    Base &b = base();
    b.s.Usuario_Numero = kUsuarioCartera;
    static cartera11 v(b.s, [](const QString &) {});
    v.rellenar2();
    benchmark::DoNotOptimize(v.filas.data());
}

// The floor of the window: the 50 positions and each one's quote of the day, raw.
void posicionesCrudas()
{
    static sqlite3_stmt *c =
        preparar("select VALOR, Cantidad, Precio_Compra, Fecha_Compra, Total_Compra from "
                 "cartera where Usuario = 2");
    static sqlite3_stmt *d = preparar("select ULTIMO, ANTERIOR from bolsa_de_un_dia where VALOR = ?");
    double suma = 0;
    while (sqlite3_step(c) == SQLITE_ROW) {
        sqlite3_bind_int(d, 1, sqlite3_column_int(c, 0));
        if (sqlite3_step(d) == SQLITE_ROW)
            suma += sqlite3_column_double(d, 0) * sqlite3_column_double(c, 1);
        sqlite3_reset(d);
        benchmark::DoNotOptimize(sqlite3_column_text(c, 3));
    }
    sqlite3_reset(c);
    benchmark::DoNotOptimize(suma);
}

void BM_SeriesRebuiltWholeHistory(benchmark::State &state)
{
    for (auto _ : state)
        serieCompleta();
}
BENCHMARK(BM_SeriesRebuiltWholeHistory)->Unit(benchmark::kMillisecond);

void BM_RawReadOfTheHeldValuesQuotes(benchmark::State &state)
{
    for (auto _ : state)
        cotizacionesCrudas();
}
BENCHMARK(BM_RawReadOfTheHeldValuesQuotes)->Unit(benchmark::kMillisecond);

void BM_PortfolioValued50Positions(benchmark::State &state)
{
    for (auto _ : state)
        valorarCartera();
}
BENCHMARK(BM_PortfolioValued50Positions)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    base();
    const double s0 = bench::medianaDe(15, serieCompleta), c0 = bench::medianaDe(15, cotizacionesCrudas);
    const double s1 = bench::medianaDe(101, quitarUltimoDia, unDiaMas),
                 c1 = bench::medianaDe(101, dosDiasCrudos);
    const double v = bench::medianaDe(101, valorarCartera), cv = bench::medianaDe(101, posicionesCrudas);
    std::printf("series, mode 0, %lld days, 20 values, 200 lines: median %8.2f ms (target <= 300 ms)\n",
                static_cast<long long>(base().dias.size()), s0);
    std::printf("  raw SQLite read of those values' quotes:       median %8.2f ms   ratio %.2f\n", c0,
                s0 / c0);
    std::printf("series, mode 1, one day added:                   median %8.3f ms (target <= 5 ms)\n", s1);
    std::printf("  raw read of two days' quotes and one insert:   median %8.3f ms   ratio %.2f\n", c1,
                s1 / c1);
    std::printf("rellenar2 + ver, 50 positions:                   median %8.3f ms (target <= 10 ms)\n", v);
    std::printf("  raw read of the positions and their quotes:    median %8.3f ms   ratio %.2f\n", cv,
                v / cv);
    std::fflush(stdout);
    bench::correrBenchmarks(argc, argv);
    return 0;
}
