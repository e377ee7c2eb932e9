#pragma once

namespace tesorel
{

class Database;

// The demo user's ledger in a sample base: a few purchases and a sale,
// each at the first close on or after its day, charged by the broker's
// bands, then the positions they leave in `cartera`. Needs the quotes and
// the brokers in place; writes in one transaction.
void apuntarLibroDemo(Database &db, double usuario);

// The commission of `importe` at `operador`: its bands and those of the
// broker its first link row names, each charge (rate of the amount, at
// least the minimum) rounded to cents.
double comisionDeBandas(Database &db, double operador, double importe);

} // namespace tesorel
