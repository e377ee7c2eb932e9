#pragma once
#include <QString>

namespace tesorel
{

class Database;
class RecordSeto;

// The statement of a value's series, as the chart opens it.
QString sentenciaSerie(double codigo);

// Copies the rows of sentenciaSerie(codigo) into the cursor exactly as
// RecordSeto::fillFrom copies an open recordset of them (the same field
// rules, the same order), reading the engine's columns in place instead
// of through a field value and its text for every number. A chart of
// thousands of days is redrawn at every click, and this copy was most of
// its time.
void cargarSerie(Database &db, double codigo, RecordSeto &cursor);

} // namespace tesorel
