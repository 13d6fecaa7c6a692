// Short lines with round ends, painted many at once: the same pixels as those of QPainter::drawLine().

#include "Exact.h"

#include "core/coverage_p.h"
#include "pens/roundlines_p.h"

#include <QtGui/QPainterPathStroker>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <random>
#include <tuple>

using namespace InkInternal;

namespace {

constexpr QSize kSize(200, 160);

std::vector<QPen> pens(const std::vector<double> &widths, const QColor &color = QColor(10, 200, 100, 60))
{
    std::vector<QPen> pens;
    for (const double width : widths)
        pens.emplace_back(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    return pens;
}

QImage blank(QImage::Format format = QImage::Format_ARGB32)
{
    QImage image(kSize, format);
    image.fill(Qt::transparent);
    return image;
}

void paintByQt(QImage &image, const QPointF &from, const QPointF &to, const std::vector<QPen> &pens)
{
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const QPen &pen : pens) {
        painter.setPen(pen);
        painter.drawLine(from, to);
    }
}

// How many of the lines are painted at once, on `image`.
int painted(const QVector<QPointF> &points, const std::vector<QPen> &pens, QImage &image)
{
    return RoundLines(image, pens).paint(points, 0);
}

int painted(const QVector<QPointF> &points, double width)
{
    QImage image = blank();
    return painted(points, pens({width}), image);
}

double between(std::mt19937 &random, double low, double high)
{
    return low + double(random()) / 4294967296.0 * (high - low);
}

QVector<QPointF> wanderings(std::mt19937 &random, double most)
{
    QVector<QPointF> points{{between(random, 0, kSize.width()), between(random, 0, kSize.height())}};
    const double step = between(random, 0.02, most);
    double direction = between(random, 0, 7);
    for (int i = 0; i < 60; ++i) {
        if (random() % 8 == 0)
            direction = random() % 3 == 0 ? double(random() % 8) * std::atan(1.0) : between(random, 0, 7);
        points.append(points.last() + step * QPointF(std::cos(direction), std::sin(direction)));
        if (random() % 16 == 0)
            points.last() = QPointF(points.last().toPoint());
    }
    return points;
}

using Ends = std::vector<std::tuple<int, int, int, int>>;

Ends sorted(const std::vector<Edge> &edges)
{
    Ends ends;
    for (const Edge &edge : edges)
        ends.emplace_back(edge.x1, edge.y1, edge.x2, edge.y2);
    std::sort(ends.begin(), ends.end());
    return ends;
}

} // namespace

TEST(RoundLines, pixelsAreQts)
{
    const quint32 seed = std::random_device()();
    std::cout << "seed " << seed << std::endl;
    std::mt19937 random(seed);
    int lines = 0, linesAtOnce = 0;
    for (int i = 0; i < 300; ++i) {
        const QColor color{int(random() % 256), int(random() % 256), int(random() % 256), int(random() % 256)};
        const double width = int(random() % 24);
        const std::vector<QPen> allPens = pens({width, 0.6 * width, std::floor(0.4 * width)}, color);
        const QVector<QPointF> points = wanderings(random, i % 2 == 0 ? 2 : 20);
        QImage expected = blank(), image = blank();
        RoundLines atOnce(image, allPens);
        for (int j = 0; j < points.size() - 1;) {
            const int end = atOnce.paint(points, j);
            linesAtOnce += end - j;
            if (end == j)
                paintByQt(image, points.at(j), points.at(j + 1), allPens);
            j = std::max(end, j + 1);
        }
        for (int j = 0; j < points.size() - 1; ++j, ++lines)
            paintByQt(expected, points.at(j), points.at(j + 1), allPens);
        ASSERT_TRUE(samePixels(image, expected)) << i;
    }
    EXPECT_GT(linesAtOnce, lines / 3);
}

TEST(RoundLines, sixteenArePaintedAtOnce)
{
    QVector<QPointF> points;
    for (int i = 0; i < 20; ++i)
        points.append({50.3 + i, 60.7 + 0.5 * i});
    QImage image = blank();
    RoundLines lines(image, pens({5}));
    EXPECT_EQ(lines.paint(points, 0), 16);
    EXPECT_EQ(lines.paint(points, 16), 19);
    EXPECT_EQ(lines.paint(points, 19), 19);
}

TEST(RoundLines, onlyThoseThatTheTileHoldsArePaintedAtOnce)
{
    QVector<QPointF> points;
    for (int i = 0; i < 10; ++i)
        points.append({10.25 + 30 * i, 60.7});
    EXPECT_EQ(painted(points, 5), 3); // 4.5 pixels around 10.25 to 100.25; to 130.25 it were 130 pixels
}

TEST(RoundLines, lineMustHaveSomeLength)
{
    const QPointF from(50.3, 60.7);
    EXPECT_EQ(painted({from, from + QPointF(1. / 64 + 1e-9, 0)}, 5), 1);
    EXPECT_EQ(painted({from, from + QPointF(1. / 64 - 1e-9, 0)}, 5), 0);
    EXPECT_EQ(painted({from, {std::nan(""), 60}}, 5), 0);
}

TEST(RoundLines, lineAndItsSurroundingsMustBeOnTheImage)
{
    constexpr double kAround = 4.5; // of a line 5 wide
    for (const double outside : {-0.01, 0.01}) {
        const int expected = outside < 0 ? 1 : 0;
        const double low = kAround - outside;
        const double right = kSize.width() - kAround + outside, bottom = kSize.height() - kAround + outside;
        EXPECT_EQ(painted({{low, 60.3}, {low + 3, 62.2}}, 5), expected);
        EXPECT_EQ(painted({{60.3, low + 3}, {62.2, low}}, 5), expected);
        EXPECT_EQ(painted({{right, 60.3}, {right - 3, 62.2}}, 5), expected);
        EXPECT_EQ(painted({{60.3, bottom - 3}, {62.2, bottom}}, 5), expected);
    }
}

TEST(RoundLines, longAndWideLinesAreLeftToQt)
{
    EXPECT_EQ(painted({{50.3, 60.7}, {50.3 + 37.9, 61.2}}, 5), 1); // 37.9 and 9 pixels are less than 47
    EXPECT_EQ(painted({{50.3, 60.7}, {50.3 + 38.1, 61.2}}, 5), 0);
    EXPECT_EQ(painted({{50.3, 60.7}, {51.2, 60.7 + 38.1}}, 5), 0);
    EXPECT_EQ(painted({{50.3, 60.7}, {51.2, 61.2}}, 42), 1);
    EXPECT_EQ(painted({{50.3, 60.7}, {51.4, 61.2}}, 42), 0);
}

TEST(RoundLines, farFromTheCornerOfTheImageIsLeftToQt)
{
    QImage image(16'500, 40, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    const auto line = [](double right) { return QVector<QPointF>{{right - 6.2, 20.3}, {right - 4.5, 20.9}}; };
    EXPECT_EQ(painted(line(16383.9), pens({5}), image), 1);
    EXPECT_EQ(painted(line(16384.1), pens({5}), image), 0);
}

TEST(RoundLines, coordinatesWhereRoundingDecidesAreLeftToQt)
{
    // Two pixels beside a level line there is a point of the outline: at y = 63 + 1 / 128, between two parts of a
    // pixel.
    const auto level = [](double y) { return QVector<QPointF>{{50.3, y}, {52.1, y}}; };
    EXPECT_EQ(painted(level(61 + 1. / 128), 4), 0);
    EXPECT_EQ(painted(level(61 + 1. / 128 + 1e-6), 4), 1);
    EXPECT_EQ(painted(level(61 + 1. / 128 - 1e-6), 4), 1);
    // Half of a quarter of the unit circle is 1 long from left to right and from top to bottom, where Qt looks at
    // lengths of more than 1 in another way.
    EXPECT_EQ(painted(level(61.3), 2), 0);
    EXPECT_EQ(painted({{50.3, 61.3}, {52.1, 61.4}}, 2), 1);
}

TEST(RoundLines, imagesOfAnotherKindAreLeftToQt)
{
    const QVector<QPointF> points{{50.3, 60.7}, {52.1, 61.2}};
    QImage premultiplied = blank(QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(painted(points, pens({5}), premultiplied), 0);
    QImage dense = blank();
    dense.setDevicePixelRatio(2);
    EXPECT_EQ(painted(points, pens({5}), dense), 0);
    EXPECT_EQ(dense, blank());
}

TEST(RoundLines, pixelThatWouldNotComeBackIsLeftAlone)
{
    constexpr QRgb kOdd = qRgba(9, 0, 0, 1); // premultiplied it is qRgba(0, 0, 0, 1)
    const QVector<QPointF> points{{50.3, 60.7}, {52.1, 61.2}};
    for (const QPoint &place : {QPoint(45, 60), QPoint(56, 65)}) { // the corners of what is converted
        QImage image = blank();
        image.setPixel(place, kOdd);
        EXPECT_EQ(painted(points, pens({5}), image), 0);
        EXPECT_EQ(image.pixel(place), kOdd);
    }
    QImage image = blank();
    image.setPixel(44, 60, kOdd);
    EXPECT_EQ(painted(points, pens({5}), image), 1);
    EXPECT_EQ(image.pixel(44, 60), kOdd);
}

TEST(RoundOutline, edgesAreThoseOfQtsStroker)
{
    const quint32 seed = std::random_device()();
    std::cout << "seed " << seed << std::endl;
    std::mt19937 random(seed);
    int certain = 0;
    for (int i = 0; i < 3000; ++i) {
        const QPointF from{between(random, 100, 16000), between(random, 100, 16000)};
        const QLineF line(from, from + QPointF{between(random, -9, 9), between(random, -9, 9)});
        const double width = 2 + int(random() % 44);
        std::vector<Edge> edges;
        if (!RoundOutline(width).trace(line, edges))
            continue;
        ++certain;
        QPainterPath path(line.p1());
        path.lineTo(line.p2());
        QPainterPathStroker stroker;
        stroker.setWidth(width);
        stroker.setCapStyle(Qt::RoundCap);
        ASSERT_EQ(sorted(edges), sorted(edgesOf(stroker.createStroke(path), QTransform()).value())) << i;
    }
    EXPECT_GT(certain, 2900);
}
