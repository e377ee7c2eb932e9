#pragma once
#include <QString>

namespace tesorel::spanish
{

// The names as the Spanish locale writes them: lower case, Monday first.
QString weekdayName(int weekday);  // 1 = lunes .. 7 = domingo, "" otherwise
QString monthName(int month);      // 1 = enero .. 12 = diciembre, "" otherwise
QString weekdayShort(int weekday); // "lun", "mar", "mié", ...
QString monthShort(int month);     // "ene", "feb", ...

// The month whose full or three-letter name this is (any case, with or
// without accents), 0 when none.
int monthFromName(const QString &name);

} // namespace tesorel::spanish
