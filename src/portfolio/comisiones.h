#pragma once
#include <QString>
#include <QStringList>
#include <array>

namespace tesorel
{

class Session;

// The commission lines of the buy and sell windows: control arrays whose
// element 0 is the heading and elements 1 to 4 the lines.
struct LineasComision {
    static constexpr int kLineas = 4;
    std::array<QString, kLineas + 1> Concepto{QStringLiteral("  Concepto")};
    std::array<QString, kLineas + 1> porciento{};
    std::array<QString, kLineas + 1> Min{QStringLiteral("  Min.")};
    std::array<QString, kLineas + 1> Importe{QStringLiteral("  Importe")};
    std::array<QString, kLineas + 1> totalcomision{QStringLiteral("  Total")};
};

// What the buy and the sell window do differently with the same schedule.
struct EstiloComision {
    bool informarFallos;    // the buy window reports each failing step; the sell window goes on silently
    bool textoComoGuardado; // rate and minimum shown as stored, not through a mask
    QString mascaraTotal;   // the running total's mask
    int ultimaEnBlanco;     // the last line blanked after the lines used

    static const EstiloComision &compra();
    static const EstiloComision &venta();
};

// The commission of an operation of `importe` (the text of the gross
// amount) with the broker `operador`: its bands and those of the first
// broker that one of its band names links to (one step only), both limits
// inclusive, each band's charge lifted to its minimum, the total summed
// from the two-decimal amounts shown. Bands with neither rate nor minimum
// show no line; a fifth band has no line and is not charged. Returns the
// commission total; fills `lineas`.
double Cargar_comisiones(Session &s, double operador, const QString &importe, LineasComision &lineas,
                         const EstiloComision &estilo);

// The code of the broker named exactly so (any case), 0 when there is
// none. A name with an apostrophe breaks the search as it always has: the
// engine's failure is thrown.
double codigoOperador(Session &s, const QString &nombre);

// The broker names in order, for the combo of the buy and sell windows.
QStringList nombresOperadores(Session &s);

} // namespace tesorel
