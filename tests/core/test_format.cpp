#include "core/format.h"

#include <gtest/gtest.h>

using namespace tesorel;

namespace
{

TEST(NumberMask, Cases)
{
    const struct {
        double value;
        const char *mask;
        const char *expected;
    } cases[] = {
        // optional decimals keep the comma
        {12, "##0.##", "12,"},
        {12.345, "##0.##", "12,35"},
        {0.5, "##0.##", "0,5"},
        {0.0004, "#0.###", "0,"},
        {1234.567, "#####.## ", "1234,57 "},
        // hashes show no leading zero
        {0, "#", ""},
        {0.5, "#.##", ",5"},
        {0, "###,###.##", ","},
        {0.5, "###,###,###.00 ", ",50 "},
        {0.4, "########", ""},
        {0, "##,##", ""},
        {0.4, "#####0", "0"},
        // fixed decimals
        {3.14159, "#0.00", "3,14"},
        {-2.5, "#0.00", "-2,50"},
        {0.004, "##0.00", "0,00"},
        {12.3456, "#0.000", "12,346"},
        {2.55, "#0.0", "2,6"},
        {-1.25, "#0.0", "-1,3"},
        {9.999, "0.00", "10,00"},
        {0, "0.00", "0,00"},
        // grouping by thousands
        {1234.5, "###,###.##", "1.234,5"},
        {1234567, "###,###.##", "1.234.567,"},
        {0, "###,##0.00  ", "0,00  "},
        {1234567.891, "###,###,##0.00 ", "1.234.567,89 "},
        {-1234567.891, "###,###,##0.00 ", "-1.234.567,89 "},
        {999, "###,###,###", "999"},
        {1000, "###,###,###", "1.000"},
        {1234, "####,###  ", "1.234  "},
        {123456789012.0, "###,###", "123.456.789.012"},
        {12345.6, "##,##", "12.346"}, // the comma lies in the integer part: grouping, not decimals
        // whole numbers
        {1234567.4, "########", "1234567"},
        {1234567.5, "########", "1234568"},
        {99.5, "#0", "100"},
        {0.5, "#", "1"},
        {1e20, "0", "100000000000000000000"},
        // percent multiplies by a hundred
        {0.1234, "####,###.## %", "12,34 %"},
        {0.5, "####,###.## %", "50, %"},
        {-0.0525, "####,###.## %", "-5,25 %"},
        {12.5, "####,###.## %", "1.250, %"},
        {0.25, "0%", "25%"},
        // half away from zero on the decimal text
        {1.005, "0.00", "1,01"}, // 1.00499999999999989... in binary
        {0.125, "0.00", "0,13"},
        {-0.5, "0", "-1"},
        {2.5, "0", "3"},
        {-0.001, "0.00", "-0,00"}, // the sign stays though the digits round to zero
        {-0.4, "0", "-0"},
        // sections, literals and scaling
        {5, "0;(0)", "5"},
        {-5, "0;(0)", "(5)"},
        {0, "0;(0);\"cero\"", "cero"},
        {-5, "0;;\"cero\"", "-5"},
        {5, "\"€ \"0.00", "€ 5,00"},
        {5, "\\#0", "#5"},
        {1234567, "#,##0,", "1.235"},
        {12.5, ".##", "12,5"},
        {12.5, "", "12,5"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Format(c.value, QString::fromUtf8(c.mask)), QString::fromUtf8(c.expected))
            << c.value << " through \"" << c.mask << "\"";
}

TEST(DateMask, SpanishNamesAndNumbers)
{
    const QDate tuesday(2024, 3, 5);
    const QDate wednesday(2023, 11, 15);
    const struct {
        QDate date;
        const char *mask;
        const char *expected;
    } cases[] = {
        {tuesday, "dd/mm/yyyy", "05/03/2024"},
        {tuesday, "dd/mm/yy", "05/03/24"},
        {tuesday, "mm-dd-yy", "03-05-24"},
        {tuesday, "ddmmyy", "050324"},
        {tuesday, "dddd dd, mmmm d yyyy", "martes 05, marzo 5 2024"},
        {tuesday, "dddd, dd-mmmm-yyyy", "martes, 05-marzo-2024"},
        {tuesday, "DD/MM/YYYY", "05/03/2024"},
        {tuesday, "ddddd", "05/03/2024"},
        {tuesday, "dddddd", "martes, 5 de marzo de 2024"},
        {wednesday, "dddd", "miércoles"},
        {wednesday, "ddd", "mié"},
        {wednesday, "mmm", "nov"},
        {wednesday, "d/m/yy", "15/11/23"},
        {QDate(1999, 1, 16), "dddd", "sábado"},
        {QDate(2005, 9, 1), "mmmm yyyy", "septiembre 2005"},
        {QDate(2024, 12, 29), "dddd dd mmm", "domingo 29 dic"},
        {QDate(), "dd/mm/yyyy", ""},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Format(c.date, QString::fromUtf8(c.mask)), QString::fromUtf8(c.expected)) << c.mask;
}

} // namespace
