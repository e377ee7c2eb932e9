// Booking on a base of its own: the lots panel of a value with a ledger of
// 1,000 records, the commission of a broker with a link and six bands, and
// a purchase booked in both tables, each beside the raw engine doing the
// reads or writes underneath.
#include "portfolio/apunte.h"
#include "portfolio/comisiones.h"
#include "portfolio/panel_lotes.h"
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

constexpr int kValor = 10, kOtroValor = 11;

struct Base {
    ScriptedUi ui;
    Session s{ui, QString()};

    Base()
    {
        s.Base_Datos = Database::open(bench::emptyBasePath());
        s.Usuario_Numero = 1;
        Database &db = *s.Base_Datos;
        Query e(db, "insert into Codigo_Empresas (codigo, NOMBRE, ABREVIATURA11) values (?, ?, ?)");
        e.bind(1, kValor)
            .bind(2, QStringLiteral("TELEFONICA SA"))
            .bind(3, QStringLiteral("TELEFONICA"))
            .exec();
        e.bind(1, kOtroValor).bind(2, QStringLiteral("REPSOL SA")).bind(3, QStringLiteral("REPSOL")).exec();
        Query o(db, "insert into operadores (codigo, NOMBRE) values (?, ?)");
        o.bind(1, 1).bind(2, QStringLiteral("Banco")).exec();
        o.bind(1, 2).bind(2, QStringLiteral("Canones")).exec();
        Query b(db, "insert into comisiones (Entidad, NOMBRE, Tanto, minimo, desde, Hasta) values (?, ?, ?, "
                    "?, ?, ?)");
        // A link row and six bands, four of which cover 2,500.
        b.bind(1, 1)
            .bind(2, QStringLiteral("Canones"))
            .bind(3, 0.0)
            .bind(4, 0.0)
            .bind(5, 0.0)
            .bind(6, 1e9)
            .exec();
        b.bind(1, 1)
            .bind(2, QStringLiteral("Corretaje"))
            .bind(3, 0.2)
            .bind(4, 6.0)
            .bind(5, 0.0)
            .bind(6, 3000.0)
            .exec();
        b.bind(1, 1)
            .bind(2, QStringLiteral("Corretaje alto"))
            .bind(3, 0.15)
            .bind(4, 9.0)
            .bind(5, 3000.01)
            .bind(6, 1e9);
        b.exec();
        b.bind(1, 1)
            .bind(2, QStringLiteral("Canon"))
            .bind(3, 0.0)
            .bind(4, 2.5)
            .bind(5, 0.0)
            .bind(6, 1e9)
            .exec();
        b.bind(1, 2)
            .bind(2, QStringLiteral("Contratacion"))
            .bind(3, 0.0)
            .bind(4, 2.45)
            .bind(5, 300.01)
            .bind(6, 3000.0);
        b.exec();
        b.bind(1, 2).bind(2, QStringLiteral("Contratacion alta")).bind(3, 0.0).bind(4, 4.65).bind(5, 3000.01);
        b.bind(6, 35000.0).exec();
        b.bind(1, 2)
            .bind(2, QStringLiteral("Liquidacion"))
            .bind(3, 0.0024)
            .bind(4, 0.36)
            .bind(5, 0.0)
            .bind(6, 1e9);
        b.exec();
        Abrir_Empresas(s);

        // 600 purchases of 10 shares and 400 sales of 5, a day each.
        Transaction t(db);
        Query h(db,
                "insert into historico (Usuario, Cantidad, Valor, operacionNum, Operacion, Entidad, "
                "precio_operacion, Fecha_operacion, Total_operacion) values (1, ?, ?, ?, 'x', 1, ?, ?, ?)");
        for (int i = 0; i < 1000; ++i) {
            const bool venta = i % 5 == 2 || i % 5 == 4;
            const double precio = 10 + (i % 37) * 0.25;
            h.bind(1, venta ? -5.0 : 10.0).bind(2, kValor).bind(3, venta ? 4 : 2).bind(4, precio);
            h.bind(5, QDate(2020, 1, 1).addDays(i)).bind(6, venta ? -5 * precio + 6 : 10 * precio + 6).exec();
        }
        t.commit();
        crudo.open(s.Base_Datos->path());
    }

    // The raw references go through a connection of their own.
    bench::RawSqlite crudo;
};

Base &base()
{
    static Base b;
    return b;
}

void lotes()
{
    PanelLotes panel;
    Recalcular_Lotes(base().s, kValor, {QStringLiteral("23/11/26"), "100", "12", "1194"}, panel);
    benchmark::DoNotOptimize(panel.total.resultado);
}

void lecturaCruda()
{
    static const bench::RawStmt st = base().crudo.prepare(
        "select Cantidad, VALOR, operacionNum, Operacion, Entidad, precio_operacion, "
        "Fecha_operacion, Total_operacion from historico where Usuario = 1 and VALOR = ? "
        "order by Fecha_operacion");
    sqlite3_stmt *q = st.get();
    sqlite3_bind_int(q, 1, kValor);
    double suma = 0;
    while (sqlite3_step(q) == SQLITE_ROW) {
        suma += sqlite3_column_double(q, 0) + sqlite3_column_double(q, 5) + sqlite3_column_double(q, 7);
        benchmark::DoNotOptimize(sqlite3_column_text(q, 3));
        benchmark::DoNotOptimize(sqlite3_column_text(q, 6));
    }
    sqlite3_reset(q);
    benchmark::DoNotOptimize(suma);
}

void comision()
{
    LineasComision l;
    benchmark::DoNotOptimize(
        Cargar_comisiones(base().s, 1, QStringLiteral("2500"), l, EstiloComision::compra()));
}

void bandasCrudas()
{
    static const bench::RawStmt st = base().crudo.prepare(
        "select NOMBRE, Tanto, minimo from comisiones where (Entidad = 1 or Entidad = 2) "
        "and desde <= 2500 and Hasta >= 2500");
    sqlite3_stmt *q = st.get();
    double suma = 0;
    while (sqlite3_step(q) == SQLITE_ROW)
        suma += sqlite3_column_double(q, 1) + sqlite3_column_double(q, 2);
    sqlite3_reset(q);
    benchmark::DoNotOptimize(suma);
}

void compra()
{
    apuntarCompra(base().s, {QStringLiteral("REPSOL"), "10", "31,5", "23/11/26", "323,5", 1},
                  ReglasApunte::compraVentana());
}

void dosInserciones()
{
    static const bench::RawStmt cs =
        base().crudo.prepare("insert into cartera (Usuario, Cantidad, VALOR, Precio_Compra, Fecha_Compra, "
                             "Total_Compra) values (2, "
                             "10, 11, 31.5, '2026-11-23', 323.5)");
    static const bench::RawStmt hs =
        base().crudo.prepare("insert into historico (Usuario, Cantidad, VALOR, operacionNum, Operacion, "
                             "Entidad, precio_operacion, "
                             "Fecha_operacion, Total_operacion) values (2, 10, 11, 2, '23/11/26: Compra de "
                             "10 REPSOL por 323,5', 1, "
                             "31.5, '2026-11-23', 323.5)");
    sqlite3_stmt *c = cs.get(), *h = hs.get();
    sqlite3_step(c);
    sqlite3_reset(c);
    sqlite3_step(h);
    sqlite3_reset(h);
}

void BM_LotsPanel1000Records(benchmark::State &state)
{
    for (auto _ : state)
        lotes();
}
BENCHMARK(BM_LotsPanel1000Records)->Unit(benchmark::kMicrosecond);

void BM_RawReadOfTheSameRows(benchmark::State &state)
{
    for (auto _ : state)
        lecturaCruda();
}
BENCHMARK(BM_RawReadOfTheSameRows)->Unit(benchmark::kMicrosecond);

void BM_CommissionLinkAndSixBands(benchmark::State &state)
{
    for (auto _ : state)
        comision();
}
BENCHMARK(BM_CommissionLinkAndSixBands)->Unit(benchmark::kMicrosecond);

void BM_PurchaseBookedBothTables(benchmark::State &state)
{
    for (auto _ : state)
        compra();
}
BENCHMARK(BM_PurchaseBookedBothTables)->Unit(benchmark::kMicrosecond);

void BM_TwoRawPreparedInserts(benchmark::State &state)
{
    for (auto _ : state)
        dosInserciones();
}
BENCHMARK(BM_TwoRawPreparedInserts)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    // The medians first: the benchmarks below add thousands of purchases.
    const double l = 1000 * bench::medianaDe(301, lotes), lc = 1000 * bench::medianaDe(301, lecturaCruda);
    const double c = 1000 * bench::medianaDe(1001, comision),
                 cc = 1000 * bench::medianaDe(1001, bandasCrudas);
    const double p = 1000 * bench::medianaDe(501, compra), pc = 1000 * bench::medianaDe(501, dosInserciones);
    std::printf("lots panel, a ledger of 1000 records:     median %8.1f us (target <= 300 us)\n", l);
    std::printf("  raw SQLite read of the same rows:         median %8.1f us   ratio %.2f\n", lc, l / lc);
    std::printf("Cargar_comisiones, a link and six bands:  median %8.1f us (target <= 50 us)\n", c);
    std::printf("  raw SQLite read of the bands:             median %8.1f us   ratio %.2f\n", cc, c / cc);
    std::printf("a purchase booked in both tables (WAL):   median %8.1f us (target <= 1000 us)\n", p);
    std::printf("  two raw prepared inserts:                 median %8.1f us   ratio %.2f\n", pc, p / pc);
    std::fflush(stdout);
    bench::correrBenchmarks(argc, argv);
    return 0;
}
