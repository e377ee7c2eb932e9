// Random ledgers replayed into lots: every failure must be one of the
// defined run-time errors (16-bit overflow, the 1001st lot, a lot of no
// shares with shares sold), never a crash.
#include "core/runtime_error.h"
#include "portfolio/beneficio.h"
#include "portfolio/paquete.h"
#include "store/historico_lectura.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

using namespace tesorel;

namespace
{

void comprobar(const RuntimeError &e)
{
    if (e.number() != err::Overflow && e.number() != err::SubscriptOutOfRange &&
        e.number() != err::DivisionByZero)
        std::abort();
}

std::int32_t leer(const std::uint8_t *&p)
{
    std::int32_t v;
    std::memcpy(&v, p, sizeof v);
    p += sizeof v;
    return v;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    constexpr std::size_t registro = 1 + 3 * sizeof(std::int32_t);
    Beneficio b;
    try {
        const std::uint8_t *p = data;
        // A small quantity most of the time, so that replays get deep;
        // a large one now and then reaches the 16-bit limit.
        for (std::size_t i = 0; i + registro <= size; i += registro) {
            const std::uint8_t tipo = *p++;
            LineaHistorico l;
            l.operacionNum = (tipo & 3) == 0 ? 2 : (tipo & 3) == 1 ? 4 : tipo;
            const std::int32_t cantidad = leer(p);
            l.cantidad = (tipo & 0x80) ? cantidad : cantidad % 2000;
            if (l.operacionNum == 4 && l.cantidad > 0)
                l.cantidad = -l.cantidad;
            l.precio = leer(p) / 100.0;
            l.total = leer(p) / 100.0;
            l.fecha = QDate(2000, 1, 1).addDays(std::int64_t(i / registro));
            b.Apuntar(Paquete_::de(l));
        }
        b.Fin();
        for (auto o = b.Operaciones(); o->Vacio.value() != op_::Marca; o = b.Operaciones()) {
            o->Beneficio();
            o->Tanto();
        }
        b.Normalizar();
        b.Fin();
        double compradas = 0;
        for (auto o = b.Operaciones(); o->Vacio.value() != op_::Marca; o = b.Operaciones()) {
            if (o->Compradas.value() < 1 || o->Vendidas.value() != 0)
                std::abort();
            compradas += double(o->Compradas);
            o->Beneficio();
            o->Tanto();
        }
        const op_ t = b.Total();
        if (double(t.Compradas) != compradas)
            std::abort();
        t.Beneficio();
        t.Tanto();
    } catch (const RuntimeError &e) {
        comprobar(e);
    }
    return 0;
}
