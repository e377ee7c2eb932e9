#include "core/dates.h"
#include "core/runtime_error.h"
#include "fallo.h"

#include <gtest/gtest.h>

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

struct DateText {
    const char *text;
    QDate expected;
};

TEST(CDate, DayFirstOnSpanishSettings)
{
    const int thisYear = QDate::currentDate().year();
    const DateText cases[] = {
        {"15/03/2024", QDate(2024, 3, 15)},
        {"05/03/2024", QDate(2024, 3, 5)}, // day first: the 5th of March
        {"15-03-24", QDate(2024, 3, 15)},
        {"1.2.2024", QDate(2024, 2, 1)},
        {"2024-03-15", QDate(2024, 3, 15)},
        {"2024/3/5", QDate(2024, 3, 5)},
        {"03/25/2024", QDate(2024, 3, 25)}, // the 25th cannot be a month
        {"15/03/2024 10:30", QDate(2024, 3, 15)},
        {"15/03/2024 10:30:15", QDate(2024, 3, 15)},
        {"  15/03/2024  ", QDate(2024, 3, 15)},
        {"15/03/29", QDate(2029, 3, 15)},
        {"15/03/30", QDate(1930, 3, 15)},
        {"29/02/2024", QDate(2024, 2, 29)},
        {"15 marzo 2024", QDate(2024, 3, 15)},
        {"15 de marzo de 2024", QDate(2024, 3, 15)},
        {"15-mar-2024", QDate(2024, 3, 15)},
        {"15/03", QDate(thisYear, 3, 15)},
        {"03/2024", QDate(2024, 3, 1)},
    };
    for (const auto &c : cases) {
        const QString text = QString::fromUtf8(c.text);
        EXPECT_TRUE(IsDate(text)) << c.text;
        EXPECT_EQ(CDate(text), c.expected) << c.text;
    }
}

TEST(CDate, TextThatIsNoDate)
{
    const char *cases[] = {
        "",         "abc",     "32/13/2024",       "31/02/2024",     "29/02/2023", "10:30", "15/03/2024/1",
        "15//2024", "1/2/3/4", "15/03/2024 25:00", "15 marzoo 2024", "12345/1/1"};
    for (const char *text : cases) {
        const QString q = QString::fromUtf8(text);
        EXPECT_FALSE(IsDate(q)) << text;
        EXPECT_EQ(falloDe([&] { CDate(q); }).numero, err::TypeMismatch) << text;
    }
}

TEST(DateFromJetLiteral, MonthFirst)
{
    const DateText cases[] = {
        {"03/15/24", QDate(2024, 3, 15)},
        {"03-15-2024", QDate(2024, 3, 15)},
        {"3/5/2024", QDate(2024, 3, 5)}, // month first: the 5th of March
        {"05/03/2024", QDate(2024, 5, 3)},
        {"2024-03-15", QDate(2024, 3, 15)},
        {"#03/05/24#", QDate(2024, 3, 5)},
        {"12-31-99", QDate(1999, 12, 31)},
        {"abc", QDate()},
        {"", QDate()},
        {"13/45/2024", QDate()},
    };
    for (const auto &c : cases)
        EXPECT_EQ(DateFromJetLiteral(QString::fromUtf8(c.text)), c.expected) << c.text;
}

TEST(Names, MonthsAndWeekdays)
{
    const struct {
        double month;
        const char *name;
    } months[] = {{1, "Enero"}, {9, "Septiembre"}, {12, "Diciembre"}, {0, ""}, {13, ""}, {1.5, ""}, {-1, ""}};
    for (const auto &m : months)
        EXPECT_EQ(Nombre_Mes(m.month), QString::fromUtf8(m.name)) << m.month;

    const struct {
        int day;
        const char *name;
    } days[] = {{1, "lunes"}, {3, "miércoles"}, {6, "sábado"}, {7, "domingo"}, {0, ""}, {8, ""}};
    for (const auto &d : days)
        EXPECT_EQ(Nombre_Dia(d.day), QString::fromUtf8(d.name)) << d.day;
}

} // namespace
