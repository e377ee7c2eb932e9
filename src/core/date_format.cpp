#include "core/format.h"

#include "core/spanish_names.h"

namespace tesorel
{

namespace
{

QString twoDigits(int n)
{
    return QStringLiteral("%1").arg(n, 2, 10, QChar(u'0'));
}

QString formatDateMask(const QDate &date, const QString &mask);

// A run of one mask letter ("dddd", "yy") as text.
QString formatRun(const QDate &date, QChar letter, int length)
{
    switch (letter.unicode()) {
    case u'd':
        switch (length) {
        case 1:
            return QString::number(date.day());
        case 2:
            return twoDigits(date.day());
        case 3:
            return spanish::weekdayShort(date.dayOfWeek());
        case 4:
            return spanish::weekdayName(date.dayOfWeek());
        case 5:
            return formatDateMask(date, QStringLiteral("dd/mm/yyyy"));
        default:
            return formatDateMask(date, QStringLiteral("dddd, d \"de\" mmmm \"de\" yyyy"));
        }
    case u'm':
        switch (length) {
        case 1:
            return QString::number(date.month());
        case 2:
            return twoDigits(date.month());
        case 3:
            return spanish::monthShort(date.month());
        default:
            return spanish::monthName(date.month());
        }
    case u'y':
        switch (length) {
        case 1:
            return QString::number(date.dayOfYear());
        case 2:
            return twoDigits(date.year() % 100);
        default:
            return QStringLiteral("%1").arg(date.year(), 4, 10, QChar(u'0'));
        }
    case u'w':
        // weekday counted from Sunday = 1, as the language numbers it
        if (length == 1)
            return QString::number(date.dayOfWeek() % 7 + 1);
        return QString::number(date.weekNumber());
    case u'q':
        return QString::number((date.month() - 1) / 3 + 1);
    case u'h':
    case u'n':
    case u's':
        // a date holds no time: midnight
        return length == 1 ? QStringLiteral("0") : QStringLiteral("00");
    }
    return {};
}

int maxRun(QChar letter)
{
    switch (letter.unicode()) {
    case u'd':
        return 6;
    case u'm':
        return 4;
    case u'y':
        return 4;
    case u'w':
        return 2;
    case u'q':
        return 1;
    default:
        return 2;
    }
}

QString formatDateMask(const QDate &date, const QString &mask)
{
    QString out;
    for (qsizetype i = 0; i < mask.size();) {
        const QChar c = mask[i];
        const QChar lower = c.toLower();
        if (lower == u'd' || lower == u'm' || lower == u'y' || lower == u'w' || lower == u'q' ||
            lower == u'h' || lower == u'n' || lower == u's') {
            int length = 0;
            while (i < mask.size() && mask[i].toLower() == lower && length < maxRun(lower)) {
                ++length;
                ++i;
            }
            // "yyy" reads as "yy" followed by "y"
            if (lower == u'y' && length == 3) {
                length = 2;
                --i;
            }
            out += formatRun(date, lower, length);
        } else if (lower == u'c') {
            out += formatRun(date, u'd', 5);
            ++i;
        } else if (c == u'\\' && i + 1 < mask.size()) {
            out += mask[i + 1];
            i += 2;
        } else if (c == u'"') {
            const qsizetype close = mask.indexOf(u'"', i + 1);
            const qsizetype end = close < 0 ? mask.size() : close;
            out += mask.mid(i + 1, end - i - 1);
            i = end + 1;
        } else {
            out += c; // "/" is the date separator, which on Spanish settings is "/"
            ++i;
        }
    }
    return out;
}

} // namespace

QString Format(const QDate &date, const QString &mask)
{
    if (date.isNull() || !date.isValid())
        return {};
    return formatDateMask(date, mask);
}

} // namespace tesorel
