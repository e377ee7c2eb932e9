#include "core/dates.h"

#include "core/runtime_error.h"
#include "core/spanish_names.h"

#include <QStringList>
#include <optional>

namespace tesorel
{

namespace
{

// Two-digit years: 00..29 are this century, 30..99 the last one.
int fullYear(const QString &field)
{
    const int year = field.toInt();
    if (field.size() <= 2)
        return year < 30 ? 2000 + year : 1900 + year;
    return year;
}

bool isTime(const QString &token)
{
    const QString upper = token.toUpper();
    if (upper == u"AM" || upper == u"PM")
        return true;
    if (!token.contains(u':'))
        return false;
    const QStringList parts = token.split(u':');
    if (parts.size() > 3)
        return false;
    const int limits[] = {24, 60, 60};
    for (qsizetype i = 0; i < parts.size(); ++i) {
        bool ok = false;
        const int n = parts[i].toInt(&ok);
        if (!ok || parts[i].size() > 2 || n < 0 || n >= limits[i])
            return false;
    }
    return true;
}

bool allDigits(const QString &field)
{
    if (field.isEmpty() || field.size() > 4)
        return false;
    for (QChar c : field)
        if (c < u'0' || c > u'9')
            return false;
    return true;
}

QDate makeDate(int year, int month, int day)
{
    if (year < 100 || year > 9999)
        return {};
    return QDate(year, month, day);
}

// Day first on Spanish settings, month first in a statement's literal; the
// other order is taken when the first one cannot be a date, as the
// conversions of the platform have always done.
std::optional<QDate> readDate(QString text, bool monthFirst)
{
    text = text.trimmed();
    if (monthFirst && text.size() >= 2 && text.front() == u'#' && text.back() == u'#')
        text = text.mid(1, text.size() - 2).trimmed();

    QStringList fields;
    const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
    bool anyDatePart = false;
    for (const QString &word : words) {
        if (isTime(word))
            continue;
        if (word.compare(u"de", Qt::CaseInsensitive) == 0)
            continue;
        anyDatePart = true;
        QString piece;
        for (QChar c : word) {
            if (c == u'/' || c == u'-' || c == u'.' || c == u',') {
                fields << piece;
                piece.clear();
            } else {
                piece += c;
            }
        }
        fields << piece;
    }
    if (!anyDatePart)
        return std::nullopt;
    fields.removeIf([](const QString &f) { return f.isEmpty(); });
    if (fields.size() < 2 || fields.size() > 3)
        return std::nullopt;

    // A month written as a name settles the order at once.
    for (qsizetype i = 0; i < fields.size(); ++i) {
        if (allDigits(fields[i]))
            continue;
        const int month = spanish::monthFromName(fields[i]);
        if (month == 0)
            return std::nullopt;
        QStringList rest = fields;
        rest.removeAt(i);
        for (const QString &f : rest)
            if (!allDigits(f))
                return std::nullopt;
        int day = 1, year = QDate::currentDate().year();
        if (rest.size() == 2) {
            const bool yearFirst = rest[0].size() >= 3;
            day = rest[yearFirst ? 1 : 0].toInt();
            year = fullYear(rest[yearFirst ? 0 : 1]);
        } else if (rest[0].size() >= 3) {
            year = fullYear(rest[0]);
        } else {
            day = rest[0].toInt();
        }
        const QDate date = makeDate(year, month, day);
        return date.isValid() ? std::optional(date) : std::nullopt;
    }
    for (const QString &f : fields)
        if (!allDigits(f))
            return std::nullopt;

    const int a = fields[0].toInt(), b = fields[1].toInt();
    if (fields.size() == 2) {
        // "03/2024" is a month of a year; "15/03" a day of this year.
        if (fields[1].size() >= 3 || b > 31) {
            const QDate date = makeDate(fullYear(fields[1]), a, 1);
            return date.isValid() ? std::optional(date) : std::nullopt;
        }
        const int year = QDate::currentDate().year();
        QDate date = monthFirst ? makeDate(year, a, b) : makeDate(year, b, a);
        if (!date.isValid())
            date = monthFirst ? makeDate(year, b, a) : makeDate(year, a, b);
        return date.isValid() ? std::optional(date) : std::nullopt;
    }
    if (fields[0].size() >= 3) {
        const QDate date = makeDate(fields[0].toInt(), b, fields[2].toInt());
        return date.isValid() ? std::optional(date) : std::nullopt;
    }
    const int year = fullYear(fields[2]);
    QDate date = monthFirst ? makeDate(year, a, b) : makeDate(year, b, a);
    if (!date.isValid())
        date = monthFirst ? makeDate(year, b, a) : makeDate(year, a, b);
    return date.isValid() ? std::optional(date) : std::nullopt;
}

} // namespace

QString Nombre_Mes(double month)
{
    static const char *const names[] = {"Enero",      "Febrero", "Marzo",     "Abril",
                                        "Mayo",       "Junio",   "Julio",     "Agosto",
                                        "Septiembre", "Octubre", "Noviembre", "Diciembre"};
    for (int m = 1; m <= 12; ++m)
        if (month == m)
            return QString::fromLatin1(names[m - 1]);
    return {};
}

QString Nombre_Dia(int weekday)
{
    return spanish::weekdayName(weekday);
}

bool IsDate(const QString &text)
{
    return readDate(text, false).has_value();
}

QDate CDate(const QString &text)
{
    auto date = readDate(text, false);
    if (!date)
        throw RuntimeError(err::TypeMismatch, QStringLiteral("No coinciden los tipos"));
    return *date;
}

QDate DateFromJetLiteral(const QString &text)
{
    return readDate(text, true).value_or(QDate());
}

} // namespace tesorel
