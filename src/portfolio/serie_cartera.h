#pragma once
#include <functional>

#include "core/int16.h"

namespace tesorel
{

class Session;

// What a run tells the window while it works: the hourglass on and off,
// and how many dates of how many are done (a line on a terminal).
struct AvisosSerie {
    std::function<void(bool ocupado)> relojDeArena;
    std::function<void(int hechas, int total)> progreso;
};

// The user's whole portfolio as a value of its own in bolsa (code 34000 +
// user), rebuilt from the ledger and valued at each day's quotes, in
// thousands. Mode 0 rebuilds the series; mode 1 adds the days after its
// last one, and returns at once when this session has already seen it
// reach the last stored day. Yields to the interface at each date.
void Generar_Serie_Cartera(Session &s, Int16 modo, const AvisosSerie &avisos = {});

// How many values a portfolio may hold at once while its series is made.
inline constexpr int MaximoValoresSerie = 50;

} // namespace tesorel
