// The quotes table on the full-size base: dibujar for a day of the whole
// market sorted by the change, and for a one-year interval, each beside a
// raw SQLite read of the same rows; then the program's start-up up to the
// main window drawn, as a whole process (time and peak resident memory).
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <functional>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "market/cotizaciones.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"
#include "store/usuario.h"
#include "support/full_base.h"
#include "support/medianas.h"
#include "support/raw_sqlite.h"
#include "support/run_benchmarks.h"

using namespace tesorel;

namespace
{

const char *const kDia =
    "SELECT VALOR, ANTERIOR, ULTIMO, DIF, VOLUMEN, MAXIMO, MINIMO, EFECT, FECHA FROM bolsa "
    "WHERE FECHA = ?1 AND VALOR < 34000 ORDER BY DIF DESC";
const char *const kIntervalo = "SELECT VALOR, ANTERIOR, ULTIMO, DIF, VOLUMEN, MAXIMO, MINIMO, EFECT "
                               "FROM Valores_intervalo WHERE VALOR < 34000 ORDER BY DIF DESC";

// A session on the full base with a company row per value, the last day as
// the current date and the last year as the user's interval.
struct Mercado {
    ScriptedUi ui;
    std::unique_ptr<Session> s;
    QByteArray ultimoDia;
    bench::RawSqlite crudoDb; // the raw reference's own connection

    Mercado()
    {
        const QString ruta = bench::fullBasePath();
        s = std::make_unique<Session>(ui, QFileInfo(ruta).absolutePath());
        s->Base_Datos = Database::open(ruta);
        const QDate ultimo = bench::fullBaseDays().last();
        ultimoDia = ultimo.toString(Qt::ISODate).toLatin1();
        s->Base_Datos->executeNative(
            QStringLiteral("DELETE FROM Codigo_Empresas;"
                           "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 400)"
                           " INSERT INTO Codigo_Empresas (Codigo, NOMBRE, ABREVIATURA3, ABREVIATURA11)"
                           " SELECT i, 'EMPRESA ' || i, 'E' || i, 'EMP ' || i FROM n;"
                           "DELETE FROM intervalo; DELETE FROM Usuario;"
                           "INSERT INTO Usuario (clave, NOMBRE, Password) VALUES (1, 'demo', 'demo');"));
        Abrir_Empresas(*s);
        s->Usuario_Numero = 1;
        s->Usuario_Sesion = std::make_unique<Usuario>(*s);
        s->Usuario_Sesion->setFechaInicial(ultimo.addYears(-1));
        s->Usuario_Sesion->setFechaFinal(ultimo);
        s->Base_Datos->executeNative(QStringLiteral("UPDATE Usuario_Actual SET USUARIO_ACTUAL = 1;"));
        crudoDb.open(ruta);
    }

    // The window on the last day, sorted by the change, descending.
    std::unique_ptr<Cotizaciones> ventana(bool intervalo)
    {
        auto c = std::make_unique<Cotizaciones>(*s);
        c->Form_Load(QString());
        c->Option2 = 4;
        c->Option2_Click(4);
        c->Check1 = 1;
        c->Check1_Click();
        c->setText1(c->Fecha);
        if (intervalo)
            c->menu_intervalo_Click();
        return c;
    }

    // The same rows straight from SQLite, every column read.
    long crudo(const char *sql, bool conDia)
    {
        const bench::RawStmt st = crudoDb.prepare(sql);
        if (conDia)
            sqlite3_bind_text(st.get(), 1, ultimoDia.constData(), int(ultimoDia.size()), SQLITE_STATIC);
        long filas = 0;
        double suma = 0;
        while (sqlite3_step(st.get()) == SQLITE_ROW) {
            for (int i = 0; i < 8; ++i)
                suma += sqlite3_column_double(st.get(), i);
            ++filas;
        }
        benchmark::DoNotOptimize(suma);
        return filas;
    }
};

Mercado &mercado()
{
    static Mercado m;
    return m;
}

void BM_DibujarDia(benchmark::State &state)
{
    auto c = mercado().ventana(false);
    for (auto _ : state)
        c->dibujar();
    if (c->NumReg < bench::kFullBaseValues)
        state.SkipWithError("the day table is not full");
    state.counters["rows"] = c->NumReg;
}
BENCHMARK(BM_DibujarDia)->Unit(benchmark::kMillisecond);

void BM_DiaSqliteCrudo(benchmark::State &state)
{
    long filas = 0;
    for (auto _ : state)
        filas = mercado().crudo(kDia, true);
    state.counters["rows"] = double(filas);
}
BENCHMARK(BM_DiaSqliteCrudo)->Unit(benchmark::kMillisecond);

void BM_DibujarIntervaloUnAno(benchmark::State &state)
{
    auto c = mercado().ventana(true);
    for (auto _ : state)
        c->dibujar();
    if (c->NumReg < bench::kFullBaseValues)
        state.SkipWithError("the interval table is not full");
    state.counters["rows"] = c->NumReg;
}
BENCHMARK(BM_DibujarIntervaloUnAno)->Unit(benchmark::kMillisecond);

void BM_IntervaloSqliteCrudo(benchmark::State &state)
{
    long filas = 0;
    for (auto _ : state)
        filas = mercado().crudo(kIntervalo, false);
    state.counters["rows"] = double(filas);
}
BENCHMARK(BM_IntervaloSqliteCrudo)->Unit(benchmark::kMillisecond);

// The program from its start to the main window drawn on a copy of the full
// base, the login entered by the test hook: wall time and peak resident set.
struct Arranque {
    double ms = -1, megas = -1;
};
Arranque arrancar(const QString &programa, const QString &base)
{
    const QByteArray prog = programa.toLocal8Bit(), ruta = base.toLocal8Bit();
    Arranque r;
    const auto a = std::chrono::steady_clock::now();
    const pid_t pid = fork();
    if (pid == 0) {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        execl(prog.constData(), prog.constData(), "--base", ruta.constData(), "--entrar", "demo:demo",
              "--salir-al-dibujar", static_cast<char *>(nullptr));
        _exit(127);
    }
    int estado = 0;
    rusage uso{};
    if (pid < 0)
        return r;
    // A login that fails waits for a message box: twenty seconds at most.
    pid_t hecho = 0;
    while ((hecho = wait4(pid, &estado, WNOHANG, &uso)) == 0) {
        if (std::chrono::steady_clock::now() - a > std::chrono::seconds(20)) {
            kill(pid, SIGKILL);
            wait4(pid, &estado, 0, &uso);
            return r;
        }
        usleep(2000);
    }
    if (hecho != pid || !WIFEXITED(estado) || WEXITSTATUS(estado) != 0)
        return r;
    r.ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - a).count();
    r.megas = double(uso.ru_maxrss) / 1024.0; // kilobytes on Linux
    return r;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (bench::correrBenchmarks(argc, argv))
        return 0;

    Mercado &m = mercado();
    auto dia = m.ventana(false), intervalo = m.ventana(true);
    std::vector<double> tDia, tDiaCrudo, tIntervalo, tIntervaloCrudo;
    for (int i = 0; i < 31; ++i) {
        tDia.push_back(bench::milisegundos([&] { dia->dibujar(); }));
        tDiaCrudo.push_back(bench::milisegundos([&] { m.crudo(kDia, true); }));
        tIntervalo.push_back(bench::milisegundos([&] { intervalo->dibujar(); }));
        tIntervaloCrudo.push_back(bench::milisegundos([&] { m.crudo(kIntervalo, false); }));
    }
    const double d = bench::mediana(tDia), dc = bench::mediana(tDiaCrudo), iv = bench::mediana(tIntervalo),
                 ic = bench::mediana(tIntervaloCrudo);
    std::printf("dibujar, a day of %d values by Dif:  median %.3f ms (target <= 5 ms)\n", dia->NumReg, d);
    std::printf("  raw SQLite, the same rows:          median %.3f ms   ratio %.2f\n", dc, d / dc);
    std::printf("dibujar, a one-year interval:         median %.3f ms (target <= 50 ms)\n", iv);
    std::printf("  raw SQLite, Valores_intervalo:      median %.3f ms   ratio %.2f\n", ic, iv / ic);

    // The start-up on a copy, so that the program's writes leave the base as it was.
    QTemporaryDir carpeta;
    const QString copia = carpeta.filePath("base1.mdb");
    dia.reset();
    intervalo.reset();
    for (auto *rs : {&m.s->Tabla_Actual, &m.s->Fechas_rs, &m.s->Usuario_Actual_rs, &m.s->Tabla_Empresas})
        rs->reset();
    m.s->Base_Datos->executeNative(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE);"));
    QFile::copy(bench::fullBasePath(), copia);
    const QString programa = QCoreApplication::applicationDirPath() + "/../app/tesorel";
    std::vector<double> tiempos, megas;
    for (int i = 0; i < 5; ++i) {
        const Arranque r = arrancar(programa, copia);
        if (r.ms < 0) {
            std::printf("start-up: %s did not run to the main window\n", qPrintable(programa));
            return 1;
        }
        tiempos.push_back(r.ms);
        megas.push_back(r.megas);
    }
    std::printf(
        "start-up to the main window drawn:    median %.0f ms (target <= 1000 ms), peak %.0f MB resident "
        "(target <= 200 MB)\n",
        bench::mediana(tiempos), *std::max_element(megas.begin(), megas.end()));
    return 0;
}
