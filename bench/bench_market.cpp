// Filling the "Todos" list: 200 companies quoted on the current day, one
// company lookup per row. Prints the fill time and the per-row cost of
// Abreviatura11_De next to the search of the table it replaces.
#include <benchmark/benchmark.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "market/value_lists.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"

using namespace tesorel;

namespace
{

constexpr int Companies = 200;

struct Market {
    QTemporaryDir dir;
    ScriptedUi ui;
    Session s{ui, dir.path()};

    Market()
    {
        auto db = Database::create(dir.path() + "/base1.mdb");
        QFile schema(QFileInfo(QStringLiteral(__FILE__)).absolutePath() + "/../data/schema.sql");
        if (!schema.open(QIODevice::ReadOnly))
            throw std::runtime_error("data/schema.sql not found");
        db->executeNative(QString::fromUtf8(schema.readAll()));
        db->beginTransaction();
        for (int i = 1; i <= Companies; ++i) {
            const QString n = QString::number(i);
            db->execute("insert into codigo_empresas values (" + n + ", 'EMPRESA " + n + "', 'E" + n +
                        "', 'EMP " + n + "', 'RV" + n + "')");
            db->execute("insert into bolsa (valor, fecha, anterior, ultimo, dif, volumen) values (" + n +
                        ", #03-15-2024#, 10, 10.5, 5, 1000)");
        }
        db->execute("update usuario_actual set usuario_actual = 1, fecha_actual = #03-15-2024#");
        db->commit();
        s.Base_Datos = db;
        Abrir_Empresas(s);
        s.Usuario_Numero = 1;
    }
};

Market &market()
{
    static Market m;
    return m;
}

void BM_FillTodos(benchmark::State &state)
{
    Market &m = market();
    ListaValores lista(m.s);
    for (auto _ : state) {
        lista.todos();
        benchmark::DoNotOptimize(lista.List1.entradas.data());
    }
    if (lista.List1.ListCount() != Companies)
        state.SkipWithError("the list is not full");
    state.counters["rows"] = lista.List1.ListCount();
    state.counters["per_row"] =
        benchmark::Counter(static_cast<double>(Companies),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_FillTodos)->Unit(benchmark::kMillisecond);

void BM_Abreviatura11De(benchmark::State &state)
{
    Market &m = market();
    double code = 1;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Abreviatura11_De(m.s, code));
        code = code >= Companies ? 1 : code + 1;
    }
}
BENCHMARK(BM_Abreviatura11De)->Unit(benchmark::kNanosecond);

// The lookup as a search of the open companies recordset, for the ratio.
void BM_FindFirstOnTheTable(benchmark::State &state)
{
    Market &m = market();
    Recordset &rs = *m.s.Tabla_Empresas;
    int code = 1;
    for (auto _ : state) {
        rs.FindFirst("codigo = " + QString::number(code));
        benchmark::DoNotOptimize(rs.field("ABREVIATURA11"));
        code = code >= Companies ? 1 : code + 1;
    }
}
BENCHMARK(BM_FindFirstOnTheTable)->Unit(benchmark::kNanosecond);

} // namespace

BENCHMARK_MAIN();
