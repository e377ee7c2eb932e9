#include "core/spanish_names.h"

#include <array>

namespace tesorel::spanish
{

namespace
{

const std::array<QString, 7> &weekdays()
{
    static const std::array<QString, 7> names = {QStringLiteral("lunes"),     QStringLiteral("martes"),
                                                 QStringLiteral("miércoles"), QStringLiteral("jueves"),
                                                 QStringLiteral("viernes"),   QStringLiteral("sábado"),
                                                 QStringLiteral("domingo")};
    return names;
}

const std::array<QString, 12> &months()
{
    static const std::array<QString, 12> names = {
        QStringLiteral("enero"),   QStringLiteral("febrero"),   QStringLiteral("marzo"),
        QStringLiteral("abril"),   QStringLiteral("mayo"),      QStringLiteral("junio"),
        QStringLiteral("julio"),   QStringLiteral("agosto"),    QStringLiteral("septiembre"),
        QStringLiteral("octubre"), QStringLiteral("noviembre"), QStringLiteral("diciembre")};
    return names;
}

QString withoutAccents(const QString &text)
{
    QString out = text.toLower();
    out.replace(u'á', u'a');
    out.replace(u'é', u'e');
    out.replace(u'í', u'i');
    out.replace(u'ó', u'o');
    out.replace(u'ú', u'u');
    return out;
}

} // namespace

QString weekdayName(int weekday)
{
    return weekday >= 1 && weekday <= 7 ? weekdays()[weekday - 1] : QString();
}
QString monthName(int month)
{
    return month >= 1 && month <= 12 ? months()[month - 1] : QString();
}
QString weekdayShort(int weekday)
{
    return weekdayName(weekday).left(3);
}
QString monthShort(int month)
{
    return monthName(month).left(3);
}

int monthFromName(const QString &name)
{
    const QString wanted = withoutAccents(name);
    if (wanted.size() < 3)
        return 0;
    for (int m = 1; m <= 12; ++m) {
        const QString full = withoutAccents(monthName(m));
        if (wanted == full || wanted == full.left(3))
            return m;
    }
    return 0;
}

} // namespace tesorel::spanish
