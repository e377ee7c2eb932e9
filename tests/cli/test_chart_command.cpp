#include "sample_base.h"

#include <QFile>
#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

TEST(ChartCommand, PngAndCsvOfAWindow)
{
    SampleBase &b = SampleBase::instance();
    const QString png = b.tempFile("itx.png"), csv = b.tempFile("itx.csv");
    ASSERT_EQ(
        correrCli({"chart", b.path(), QStringLiteral("INDUSTRIA DE DISEÑO TEXTIL"), "--png", png, "--csv",
                   csv, "--days", "100", "--splits", "--indicator", "2", "--mediat", "20,5", "--candle"})
            .codigo,
        0);
    // The PNG header: its signature, then the width and height of IHDR.
    QFile image(png);
    ASSERT_TRUE(image.open(QIODevice::ReadOnly));
    const QByteArray head = image.read(24);
    ASSERT_EQ(head.size(), 24);
    EXPECT_TRUE(head.startsWith("\x89PNG"));
    auto be32 = [&](int at) {
        return (uchar(head[at]) << 24) | (uchar(head[at + 1]) << 16) | (uchar(head[at + 2]) << 8) |
               uchar(head[at + 3]);
    };
    EXPECT_EQ(be32(16), 1200);
    EXPECT_GT(be32(20), 800);
    QFile f(csv);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(f.readAll()).split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 1 + 101); // a window of 100 reads and writes 101 points
    EXPECT_EQ(lines[0], QStringLiteral("punto,fecha,p1,p2,p3,p4,p5,p6,p7,p8,vol,i1,i2,i3,i4"));
    const QStringList first = lines[1].split(',');
    ASSERT_EQ(first.size(), 15);
    EXPECT_EQ(first[0], QStringLiteral("1"));
    EXPECT_TRUE(QDate::fromString(first[1], Qt::ISODate).isValid());
}

TEST(ChartCommand, SplitNoteOfTheWholeSeries)
{
    SampleBase &b = SampleBase::instance();
    const SalidaCli o = correrCli({"chart", b.path(), QStringLiteral("INDUSTRIA DE DISEÑO TEXTIL"), "--png",
                                   b.tempFile("s.png"), "--splits"});
    ASSERT_EQ(o.codigo, 0);
    EXPECT_TRUE(o.out.startsWith(QStringLiteral("lunes, 2 de junio de 2025 : Split x  ")))
        << o.out.toStdString();
    EXPECT_EQ(correrCli({"chart", b.path(), "X", "--png"}).codigo, 2);
}

} // namespace
} // namespace tesorel::testing
