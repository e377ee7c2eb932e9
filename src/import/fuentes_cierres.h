#pragma once
#include <QDate>
#include <QString>
#include <array>

namespace tesorel
{

// Where the day's closes come from: the scheme, host and port of the three
// sources, tried in this order, and the time limit of each request. The
// paths after them are fixed by each source. No host is built in: the
// program asks nobody until fuentes.ini names the sources (1: the closes
// server of the installation, 2: the market-data site, 3: the Megabolsa site).
struct FuentesCierres {
    std::array<QString, 3> bases;
    int limiteMs = 10000;
    // The chart endpoint whose price table lists trading days ("graficos=").
    QString graficos;

    // The defaults, with what "fuentes.ini" in the data folder changes:
    //   [cierres]  fuente1=http://host:port  fuente2=...  fuente3=...  limite_ms=10000  graficos=...
    static FuentesCierres leer(const QString &carpeta);

    // The address of the day's file at source 1..3; "" for a source without a host.
    QString direccion(int fuente, const QDate &dia) const;
};

} // namespace tesorel
