#include "core/format.h"

#include <gtest/gtest.h>

using namespace tesorel;

namespace
{

struct DateMaskCase {
    QDate date;
    const char *mask;
    const char *expected;
};

TEST(DateMask, SpanishNamesAndNumbers)
{
    const QDate tuesday(2024, 3, 5);
    const QDate wednesday(2023, 11, 15);
    const QDate saturday(1999, 1, 16);
    const DateMaskCase cases[] = {
        {tuesday, "dd/mm/yyyy", "05/03/2024"},
        {tuesday, "dd-mm-yyyy", "05-03-2024"},
        {tuesday, "dd/mm/yy", "05/03/24"},
        {tuesday, "mm-dd-yy", "03-05-24"},
        {tuesday, "mm/dd/yy", "03/05/24"},
        {tuesday, "mm-dd-yyyy", "03-05-2024"},
        {tuesday, "ddmmyy", "050324"},
        {tuesday, "dddd, d", "martes, 5"},
        {tuesday, "mmmm", "marzo"},
        {tuesday, "dddd dd, mmmm d yyyy", "martes 05, marzo 5 2024"},
        {tuesday, "dddd, dd-mmmm-yyyy", "martes, 05-marzo-2024"},
        {tuesday, "yyyy", "2024"},
        {tuesday, "yy", "24"},
        {tuesday, "d", "5"},
        {tuesday, "m", "3"},
        {tuesday, "mmm", "mar"},
        {tuesday, "ddd", "mar"},
        {tuesday, "DD/MM/YYYY", "05/03/2024"},
        {tuesday, "ddddd", "05/03/2024"},
        {tuesday, "dddddd", "martes, 5 de marzo de 2024"},
        {wednesday, "dddd", "miércoles"},
        {wednesday, "ddd", "mié"},
        {wednesday, "mmm", "nov"},
        {wednesday, "d/m/yy", "15/11/23"},
        {saturday, "dddd", "sábado"},
        {saturday, "dd/mm/yy", "16/01/99"},
        {QDate(2005, 9, 1), "mmmm yyyy", "septiembre 2005"},
        {QDate(2024, 12, 29), "dddd dd mmm", "domingo 29 dic"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Format(c.date, QString::fromUtf8(c.mask)), QString::fromUtf8(c.expected)) << c.mask;
}

TEST(DateMask, NullDateIsEmpty)
{
    EXPECT_EQ(Format(QDate(), QStringLiteral("dd/mm/yyyy")), QString());
    EXPECT_EQ(Format(QDate(), QStringLiteral("mmmm")), QString());
}

} // namespace
