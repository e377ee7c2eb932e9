#include "core/dates.h"
#include "core/format.h"
#include "core/numbers.h"

#include <QLocale>
#include <gtest/gtest.h>

#include <clocale>

using namespace tesorel;

namespace
{

// Everything that depends on "the locale" answers as on Spanish settings,
// whatever the process or Qt believes the locale to be.
QStringList sample()
{
    return {
        Format(1234567.891, QStringLiteral("###,###,##0.00 ")),
        Format(0.1234, QStringLiteral("####,###.## %")),
        Format(12, QStringLiteral("##0.##")),
        Format(QDate(2024, 3, 5), QStringLiteral("dddd, dd-mmmm-yyyy")),
        Format(QDate(2024, 3, 5), QStringLiteral("mmm ddd")),
        Str(1234.5),
        CStr(1234.5),
        CStr(1.5e-7),
        QString::number(CDbl(QStringLiteral("1.234,5")), 'g', 17),
        QString::number(Numero_Val(QStringLiteral("1234.5")), 'g', 17),
        CDate(QStringLiteral("05/03/2024")).toString(Qt::ISODate),
        DateFromJetLiteral(QStringLiteral("05/03/2024")).toString(Qt::ISODate),
    };
}

TEST(Locale, ResultsDoNotFollowTheHostLocale)
{
    const QStringList expected = {"1.234.567,89 ", "12,34 %", "12,",        "martes, 05-marzo-2024",
                                  "mar mar",       " 1234.5", "1234,5",     "1,5E-07",
                                  "1234.5",        "1234.5",  "2024-03-05", "2024-05-03"};
    EXPECT_EQ(sample(), expected);

    const QLocale before;
    const std::string cBefore = std::setlocale(LC_ALL, nullptr);
    for (auto language : {QLocale::English, QLocale::German, QLocale::French}) {
        QLocale::setDefault(
            QLocale(language, language == QLocale::English ? QLocale::UnitedStates : QLocale::AnyTerritory));
        // Only some hosts have these; the C.UTF-8 fallback still changes the C library's state.
        if (!std::setlocale(LC_ALL, "de_DE.UTF-8") && !std::setlocale(LC_ALL, "en_US.UTF-8"))
            std::setlocale(LC_ALL, "C.UTF-8");
        EXPECT_EQ(sample(), expected) << QLocale().name().toStdString();
    }
    QLocale::setDefault(before);
    std::setlocale(LC_ALL, cBefore.c_str());
}

} // namespace
