#pragma once
#include <QDate>
#include <QString>
#include <functional>
#include <optional>
#include <vector>

namespace tesorel
{

class Database;

// One line of a user's ledger as stored: amounts as the store keeps
// them (doubles), so that readers decide themselves how narrow to go.
struct LineaHistorico {
    double usuario = 0;
    double cantidad = 0;
    double valor = 0;
    double operacionNum = 0;
    QString operacion; // the sentence written at booking
    double entidad = 0;
    double precio = 0;
    QDate fecha;
    double total = 0;
};

// Whether the sentence of each line is read: a replay of the lots does
// without it, and reads a long ledger faster.
enum class FraseDeLinea { Leer, Omitir };

// The user's ledger (or one value's part of it) by date of operation,
// lines of one day in the order they were written: the order in which
// the lots are replayed and the operation marks are drawn.
std::vector<LineaHistorico> leerHistorico(Database &db, double usuario, std::optional<double> valor = {},
                                          FraseDeLinea frase = FraseDeLinea::Leer);

// The same lines handed one by one to `cada`, for a reader that keeps none
// of them (a long ledger then costs no list in memory).
void recorrerHistorico(Database &db, double usuario, std::optional<double> valor, FraseDeLinea frase,
                       const std::function<void(const LineaHistorico &)> &cada);

} // namespace tesorel
