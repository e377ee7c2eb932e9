// The surface writes lines and boxes into the pixels itself; these cases
// hold its pixels against QPainter's non-antialiased drawing of the same
// shape: equal for lines along an axis and for boxes, within a pixel for
// slanted lines. Boxes are held against QPainter in OverlappingBarsAsPaintedInTurn.
#include "charts/painter_surface.h"

#include <QGuiApplication>
#include <QPainter>
#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

namespace tesorel
{
namespace
{

// Texts need fonts, and fonts the one application object of the program.
struct PixelDrawing : ::testing::Test {
    static void SetUpTestSuite()
    {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argc = 1;
        static char name[] = "test_charts";
        static char *argv[] = {name, nullptr};
        static QGuiApplication app(argc, argv);
    }
};

constexpr int kW = 40, kH = 30;
constexpr int kColour = 0x2288EE; // blue-green-red: red EE, green 88, blue 22
const QRgb kWhite = qRgb(255, 255, 255);

struct Case {
    const char *name;
    double x1, y1, x2, y2;
    int width;
    bool exact;
};

// QPainter as the surface used it before: flat caps, cosmetic 1-px pen.
QImage reference(const Case &c)
{
    QImage img(kW, kH, QImage::Format_RGB32);
    img.fill(Qt::white);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing, false);
    QPen pen(PainterSurface::toQColor(kColour));
    pen.setWidth(c.width <= 1 ? 0 : c.width);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::BevelJoin);
    p.setPen(pen);
    p.drawLine(QLineF(c.x1, c.y1, c.x2, c.y2));
    return img;
}

QImage drawn(const Case &c)
{
    PainterSurface s(kW, kH); // the default scale is one unit a pixel
    s.setDrawWidth(c.width);
    s.line(float(c.x1), float(c.y1), float(c.x2), float(c.y2), kColour);
    return s.image();
}

std::vector<QPoint> lit(const QImage &img)
{
    std::vector<QPoint> out;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            if (img.pixel(x, y) != kWhite)
                out.push_back(QPoint(x, y));
    return out;
}

// Every pixel of one picture has a pixel of the other at most one away.
bool within(const std::vector<QPoint> &a, const std::vector<QPoint> &b, int distance)
{
    for (const QPoint &p : a) {
        bool near = false;
        for (const QPoint &q : b)
            near = near || (std::abs(p.x() - q.x()) <= distance && std::abs(p.y() - q.y()) <= distance);
        if (!near)
            return false;
    }
    return true;
}

TEST_F(PixelDrawing, LinesMatchQPainter)
{
    const Case cases[] = {
        {"horizontal", 3.0, 5.0, 30.0, 5.0, 1, true},
        {"horizontal between pixels", 2.6, 7.6, 20.4, 7.6, 1, true},
        {"horizontal right to left", 33.0, 9.2, 4.0, 9.2, 1, true},
        {"vertical", 6.0, 2.0, 6.0, 25.0, 1, true},
        {"vertical between pixels", 8.6, 1.6, 8.6, 22.5, 1, true},
        {"clipped horizontal", -10.0, 12.3, 55.0, 12.3, 1, true},
        {"clipped vertical", 39.2, -8.0, 39.2, 80.0, 1, true},
        {"horizontal wide 2", 3.0, 10.0, 30.0, 10.0, 2, true},
        {"horizontal wide 2 past the middle", 3.0, 14.6, 30.0, 14.6, 2, true},
        {"vertical wide 2", 12.0, 3.0, 12.0, 20.0, 2, true},
        {"shallow", 1.0, 2.0, 37.0, 13.0, 1, false},
        {"steep", 5.0, 1.0, 14.0, 28.0, 1, false},
        {"steep upward", 20.3, 27.2, 24.8, 3.1, 1, false},
        {"clipped slanted", -20.0, -5.0, 60.0, 25.0, 1, false},
        {"slanted wide 2", 2.0, 3.0, 30.0, 17.0, 2, false},
    };
    for (const Case &c : cases) {
        const QImage want = reference(c), got = drawn(c);
        const std::vector<QPoint> w = lit(want), g = lit(got);
        ASSERT_FALSE(w.empty()) << c.name;
        for (const QPoint &p : g)
            EXPECT_EQ(got.pixel(p), PainterSurface::toQColor(kColour).rgb()) << c.name;
        if (c.exact) {
            EXPECT_EQ(g, w) << c.name;
        } else {
            EXPECT_TRUE(within(g, w, 1)) << c.name;
            EXPECT_TRUE(within(w, g, 1)) << c.name;
            EXPECT_NEAR(double(g.size()), double(w.size()), w.size() * 0.2) << c.name;
        }
    }
}

// Bars overlap: each is a fill and an outline in other colours, some
// wider, some taller, some off the image. Boxes wait and trim one another;
// the picture must still be the one of painting them in turn.
TEST_F(PixelDrawing, OverlappingBarsAsPaintedInTurn)
{
    QImage want(kW, kH, QImage::Format_RGB32);
    want.fill(Qt::white);
    PainterSurface s(kW, kH);
    {
        QPainter p(&want);
        p.setPen(QPen(PainterSurface::toQColor(0x112233), 0));
        quint32 seed = 11;
        for (int i = 0; i < 60; ++i) {
            seed = seed * 1664525u + 1013904223u;
            const int l = int(seed >> 8) % 44 - 2, w = int(seed >> 16) % 5, top = int(seed >> 20) % 34 - 2;
            const int bottom = i % 7 == 0 ? top + 3 : 26;
            const int fill = int(seed & 0xFFFFFF), edge = fill / 3;
            const QRect r(QPoint(l, std::min(top, bottom)), QPoint(l + w, std::max(top, bottom)));
            p.fillRect(r.adjusted(0, 0, 1, 1), PainterSurface::toQColor(fill));
            s.filledBox(float(l), float(top), float(l + w), float(bottom), fill);
            if (i % 5 != 0) { // some bars have no outline
                p.setPen(QPen(PainterSurface::toQColor(edge), 0));
                p.drawRect(r);
                s.box(float(l), float(top), float(l + w), float(bottom), edge);
            }
        }
    }
    const QImage &got = s.image();
    int differing = 0;
    for (int y = 0; y < kH; ++y)
        for (int x = 0; x < kW; ++x)
            differing += got.pixel(x, y) != want.pixel(x, y);
    EXPECT_EQ(differing, 0);
}

// Lines, boxes and texts anywhere, through any scale, never touch memory
// outside the image (the sanitizers watch) and leave only the drawing's
// colours on it.
TEST_F(PixelDrawing, WildCoordinatesStayInTheImage)
{
    const float wild[] = {0.f,   0.5f, -0.5f, 7.3f,  -1.f, 39.5f, 40.f,
                          29.5f, 30.f, 1e4f,  -1e4f, 1e9f, -1e9f, 3e38f};
    constexpr int kCount = sizeof(wild) / sizeof(wild[0]);
    PainterSurface s(kW, kH);
    quint32 seed = 5;
    auto pick = [&] {
        seed = seed * 1664525u + 1013904223u;
        return wild[(seed >> 10) % kCount] + float((seed >> 20) % 7) - 3.f;
    };
    for (int round = 0; round < 3; ++round) {
        s.setScaleLeft(round == 1 ? -65.f : 0.f);
        s.setScaleWidth(round == 1 ? 1100.f : float(kW));
        s.setScaleTop(round == 2 ? 100.f : 0.f);
        s.setScaleHeight(round == 2 ? -200.f : float(kH));
        for (int i = 0; i < 2000; ++i) {
            s.setDrawWidth(1 + i % 3);
            switch (i % 4) {
            case 0:
            case 1:
                s.line(pick(), pick(), pick(), pick(), kColour);
                break;
            case 2:
                s.filledBox(pick(), pick(), pick(), pick(), kColour);
                break;
            default:
                s.box(pick(), pick(), pick(), pick(), kColour);
            }
            if (i % 500 == 0) {
                s.setCurrentX(pick());
                s.setCurrentY(pick());
                s.print(QStringLiteral("9,99"));
            }
        }
    }
    const QImage &img = s.image();
    EXPECT_EQ(img.size(), QSize(kW, kH));
    bool drawn = false;
    for (const QPoint &p : lit(img))
        drawn = drawn || img.pixel(p) == PainterSurface::toQColor(kColour).rgb();
    EXPECT_TRUE(drawn);
}

// Texts wait for the end of the drawing: a line drawn after a text over the
// same place still comes out on top, and a clear wipes the texts not painted.
TEST_F(PixelDrawing, WaitingTextGoesUnderLaterLinesAndAClearDropsIt)
{
    PainterSurface s(120, 40);
    s.setForeColor(0);
    s.setCurrentX(2);
    s.setCurrentY(2);
    s.print(QStringLiteral("WWWWWWWW"));
    s.line(0, 9, 119, 9, kColour);
    const QImage &img = s.image();
    bool text = false;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            text = text || (y != 9 && img.pixel(x, y) != kWhite);
    EXPECT_TRUE(text);
    for (int x = 0; x < 119; ++x)
        EXPECT_EQ(img.pixel(x, 9), PainterSurface::toQColor(kColour).rgb()) << x;

    s.print(QStringLiteral("WWWW"));
    s.setBackColor(0x00FF00);
    s.clear();
    EXPECT_TRUE(lit(s.image()).size() == std::size_t(120 * 40));
    for (const QPoint &p : lit(s.image()))
        ASSERT_EQ(s.image().pixel(p), qRgb(0, 255, 0));
}

// The user scale covers the whole image, whatever its origin and direction;
// texts are measured in the same units.
TEST_F(PixelDrawing, ScaleAndTextMetrics)
{
    PainterSurface box(100, 50);
    box.setScaleLeft(-50);
    box.setScaleWidth(100);
    box.setScaleTop(10);
    box.setScaleHeight(-20);
    box.filledBox(0, 10, 50, 0, kColour); // the upper right quarter
    const QRgb on = PainterSurface::toQColor(kColour).rgb();
    EXPECT_EQ(box.image().pixel(75, 12), on);
    EXPECT_EQ(box.image().pixel(25, 12), kWhite);
    EXPECT_EQ(box.image().pixel(75, 37), kWhite);

    const QString t = QStringLiteral("123,45");
    EXPECT_GT(box.textWidth(t), 0);
    EXPECT_LT(box.textHeight(t), 0); // y grows upward
    box.setCurrentX(0);
    box.setCurrentY(5);
    box.print(t);
    EXPECT_EQ(box.currentX(), -50.f);
    EXPECT_FLOAT_EQ(box.currentY(), 5 + box.textHeight(t));
}

} // namespace
} // namespace tesorel
