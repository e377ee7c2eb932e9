#include "../core/fallo.h"
#include "core/runtime_error.h"
#include "portfolio/beneficio.h"
#include "portfolio/paquete.h"

#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <vector>

using namespace tesorel;

namespace
{

struct Linea {
    int operacion;
    double cantidad, precio, total;
};

Paquete_ paquete(const Linea &l, int dia)
{
    Paquete_ p;
    p.Operacion = Int16(l.operacion);
    p.Cantidad = Int16(l.cantidad);
    p.Precio = Currency::fromDouble(l.precio);
    p.Total = Currency::fromDouble(l.total);
    p.Fecha = QDate(2005, 1, 1).addDays(dia);
    return p;
}

// compradas, vendidas, totalCompra, totalVenta, beneficio, tanto
using Lote = std::array<double, 6>;

struct Caso {
    const char *nombre;
    std::vector<Linea> historico;
    std::vector<Lote> lotes; // the lots the walk shows
    bool normalizar = false;
    std::optional<Linea> venta = {}; // the sale being typed, after the replay
};

std::vector<Lote> recorrer(Beneficio &b)
{
    std::vector<Lote> vistos;
    b.Fin();
    for (auto o = b.Operaciones(); o->Vacio.value() != op_::Marca; o = b.Operaciones())
        vistos.push_back({double(o->Compradas), double(o->Vendidas), o->TotalCompra.toDouble(),
                          o->TotalVenta.toDouble(), o->Beneficio().toDouble(), o->Tanto()});
    return vistos;
}

} // namespace

TEST(Beneficio, ReplaysLotsFirstInFirstOut)
{
    const std::vector<Caso> casos = {
        {"sale over two lots",
         {{2, 100, 10, 1000}, {2, 100, 20, 2000}, {4, -150, 20, -3000}},
         {{100, 100, 1000, 2000, 1000, 50}, {100, 50, 2000, 1000, 0, 0}}},
        {"the whole lot is tested, so Vendidas passes Compradas; the next sale passes that lot by",
         {{2, 100, 10, 1000}, {2, 100, 10, 1000}, {4, -50, 12, -600}, {4, -70, 12, -840}, {4, -30, 12, -360}},
         {{100, 120, 1000, 1440, 240, 16.67}, {100, 30, 1000, 360, 60, 16.67}}},
        {"a sale without lots changes nothing", {{4, -10, 5, -50}}, {}, true},
        {"a record of another kind leaves no trace",
         {{2, 10, 5, 50}, {5, 10, 5, 50}},
         {{10, 0, 50, 0, 0, 0}}},
        {"normalizar carries the gain into what is left",
         {{2, 100, 10, 1000}, {4, -40, 15, -600}},
         {{60, 0, 400, 0, 0, 0}},
         true},
        {"a lot of exactly the remainder's size; the next takes nothing",
         {{2, 100, 10, 1000}, {2, 50, 10, 500}, {4, -100, 11, -1100}},
         {{100, 100, 1000, 1100, 100, 9.09}, {50, 0, 500, 0, 0, 0}}},
        {"sold-out lot drops out after normalizar, the typed sale goes to the next",
         {{2, 100, 10, 1000}, {2, 50, 10, 500}, {4, -100, 11, -1100}},
         {{50, 25, 500, 290, 40, 13.79}},
         true,
         Linea{4, -25, 12, -290}},
        {"the sale's commission spread by shares, each part rounded apart",
         {{2, 1, 1, 1}, {2, 1, 1, 1}, {2, 1, 1, 1}, {4, -3, 1, -1}},
         {{1, 1, 1, 0.3333, -0.67, -201.02},
          {1, 1, 1, 0.3333, -0.67, -201.02},
          {1, 1, 1, 0.3333, -0.67, -201.02}}},
        {"lots beyond the sale are dropped without notice",
         {{2, 10, 1, 10}, {4, -30, 1, -30}},
         {{10, 10, 10, 10, 0, 0}}},
    };
    for (const Caso &c : casos) {
        Beneficio b;
        int dia = 0;
        for (const Linea &l : c.historico)
            b.Apuntar(paquete(l, dia++));
        if (c.normalizar)
            b.Normalizar();
        if (c.venta)
            b.Venta(QDate(2006, 1, 1), c.venta->cantidad, Currency::fromDouble(c.venta->precio),
                    Currency::fromDouble(c.venta->total));
        EXPECT_EQ(recorrer(b), c.lotes) << c.nombre;
    }
}

TEST(Beneficio, TotalAveragesThePriceAndComputesItsOwnGain)
{
    Beneficio b;
    b.Compra(QDate(2005, 1, 1), Int16(100), Currency::fromDouble(10.005), Currency::fromDouble(1010));
    b.Compra(QDate(2005, 2, 1), Int16(50), Currency::fromDouble(13.333), Currency::fromDouble(680));
    b.Venta(QDate(2005, 3, 1), -120, Currency::fromDouble(12), Currency::fromDouble(-1430));
    const op_ t = b.Total();
    EXPECT_EQ(double(t.Compradas), 150);
    EXPECT_EQ(double(t.Vendidas), 120);
    // (1000.5 + 666.65) / 150 = 11.1143 -> 11.11
    EXPECT_DOUBLE_EQ(t.Precio.toDouble(), 11.11);
    EXPECT_DOUBLE_EQ(t.TotalCompra.toDouble(), 1690);
    EXPECT_DOUBLE_EQ(t.TotalVenta.toDouble(), 1430);
    // 1690/150*120 = 1352 -> 1430 - 1352
    EXPECT_DOUBLE_EQ(t.Beneficio().toDouble(), 78);
    EXPECT_DOUBLE_EQ(t.Tanto(), 5.45);
}

TEST(Beneficio, RangeLimitsAreRunTimeErrors)
{
    struct Limite {
        const char *nombre;
        int numero;
        std::function<void()> paso;
    };
    const std::vector<Limite> limites = {
        {"a ledger line past 16 bits", err::Overflow,
         [] {
             paquete({2, 40000, 1, 40000}, 0);
         }},
        {"the sum of lots past 16 bits", err::Overflow,
         [] {
             Beneficio b;
             b.Compra({}, Int16(20000), Currency::fromDouble(1), Currency::fromDouble(20000));
             b.Compra({}, Int16(20000), Currency::fromDouble(1), Currency::fromDouble(20000));
             b.Total();
         }},
        {"shares sold past 16 bits", err::Overflow,
         [] {
             Beneficio b;
             b.Compra({}, Int16(32767), Currency::fromDouble(1), Currency::fromDouble(1));
             b.Venta({}, -32000, {}, Currency::fromDouble(-1));
             b.Venta({}, -32000, {}, Currency::fromDouble(-1));
         }},
        {"the 1001st lot", err::SubscriptOutOfRange,
         [] {
             Beneficio b;
             for (int i = 0; i < 1001; ++i)
                 b.Compra({}, Int16(1), Currency::fromDouble(1), Currency::fromDouble(1));
         }},
        {"a lot of no shares with shares sold", err::DivisionByZero,
         [] {
             op_ o;
             o.Vendidas = Int16(3);
             o.TotalCompra = Currency::fromDouble(5);
             o.Beneficio();
         }},
    };
    for (const Limite &l : limites) {
        EXPECT_EQ(tesorel::testing::falloDe(l.paso).numero, l.numero) << l.nombre;
    }
}
