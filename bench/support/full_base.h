#pragma once
#include <QDate>
#include <QString>

namespace tesorel::bench
{

// A full-size base: 160 values x 25 years of trading days (about a million
// `bolsa` rows) with the project's schema, made once per process into a
// temporary file.
QString fullBasePath();

constexpr int kFullBaseValues = 160;
// The trading days of the full base, oldest first.
const QList<QDate> &fullBaseDays();

// An empty base with the project's schema in a temporary file.
QString emptyBasePath();

} // namespace tesorel::bench
