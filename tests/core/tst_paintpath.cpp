// Crowded paths, painted with an own coverage: the same pixels as those of QPainter::drawPath().

#include "core/paintpath_p.h"

#include <QtGui/QImage>
#include <QtGui/QPaintEngine>
#include <QtGui/QPicture>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <random>

using namespace InkInternal;

namespace {

constexpr QSize kSize(120, 90);

using Prepare = std::function<void(QPainter &)>;

// To and fro over the whole image, a hundred times.
QPainterPath scribble(quint32 seed = 1, double reach = 20)
{
    std::mt19937 random(seed);
    const auto place = [&](int size) { return double(random()) / 4294967296.0 * (size + 2 * reach) - reach; };
    QPainterPath path({place(kSize.width()), place(kSize.height())});
    for (int i = 0; i < 100; ++i)
        path.lineTo(place(kSize.width()), place(kSize.height()));
    return path;
}

QPen roundPen(double width, const QBrush &brush = QColor(200, 30, 90, 120))
{
    return {brush, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

// No two neighbouring pixels alike, some transparent, some translucent.
QImage motley(QImage::Format format = QImage::Format_ARGB32_Premultiplied)
{
    QImage image(kSize, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgba(37 * x + y, 11 * x + 53 * y, x * y, x % 3 == 0 ? 255 : (x + 7 * y) % 256));
    }
    return image.convertToFormat(format);
}

QImage painted(const QPainterPath &path, const Prepare &prepare, bool byQt, QImage image = motley(),
               const QRegion &system = {})
{
    image.detach(); // or the painter takes another engine
    image.paintEngine()->setSystemClip(system);
    QPainter painter(&image);
    EXPECT_EQ(painter.paintEngine()->systemClip(), system);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(roundPen(5));
    prepare(painter);
    if (byQt)
        painter.drawPath(path);
    else
        paintPath(painter, path);
    painter.end();
    return image;
}

void expectAlike(const char *what, const QPainterPath &path, const Prepare &prepare, const QImage &image = motley(),
                 const QRegion &system = {})
{
    const QImage expected = painted(path, prepare, true, image, system);
    EXPECT_EQ(painted(path, prepare, false, image, system), expected) << what;
    EXPECT_NE(expected, image) << what;
}

QBrush texture(QImage::Format format)
{
    return QBrush(motley(format).copy(3, 5, 17, 13));
}

// What is painted on it comes into another image, at a place there.
class Child : public QImage
{
public:
    Child(QImage &window, const QPoint &place)
        : QImage(window.size(), QImage::Format_ARGB32_Premultiplied)
        , m_window(window)
        , m_place(place)
    {
    }

protected:
    QPaintDevice *redirected(QPoint *offset) const override
    {
        *offset = -m_place;
        return &m_window;
    }

private:
    QImage &m_window;
    const QPoint m_place;
};

} // namespace

TEST(PaintPath, crowdedPathsAreThoseOfQt)
{
    const quint32 seed = std::random_device()();
    std::cout << "seed " << seed << std::endl;
    std::mt19937 random(seed);
    for (quint32 i = 0; i < 60; ++i) {
        const double width = 1.5 + double(random() % 400) / 10;
        const auto cap = Qt::PenCapStyle((random() % 3) * 0x10);
        constexpr Qt::PenJoinStyle kJoins[] = {Qt::MiterJoin, Qt::BevelJoin, Qt::RoundJoin, Qt::SvgMiterJoin};
        const Qt::PenJoinStyle join = kJoins[random() % 4];
        const int alpha = random() % 2 ? 255 : int(random() % 256);
        const QRect part(int(random() % 60), int(random() % 40), 30 + int(random() % 90), 30 + int(random() % 60));
        const bool isClipped = random() % 2;
        const auto prepare = [&](QPainter &painter) {
            painter.setPen(QPen(QColor(20, 130, 90, std::max(alpha, 9)), width, Qt::SolidLine, cap, join));
            if (isClipped)
                painter.setClipRect(10, 10, 70, 60);
        };
        expectAlike("random", scribble(seed + i), prepare);
        expectAlike("random, in a part", scribble(seed + i), prepare, motley(), part);
    }
}

// Qt would tell where the clip lies by the transform that the painter had before.
TEST(PaintPath, painterThatIsBegunAnewPaintsAsAFreshOne)
{
    const QRect clip(10, 10, 80, 60);
    QImage other = motley(), image = motley();
    QPainter painter(&other);
    painter.translate(7, 30);
    painter.clipBoundingRect();
    painter.end();

    painter.begin(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(roundPen(5));
    painter.setClipRect(clip);
    paintPath(painter, scribble());
    painter.end();
    EXPECT_EQ(image, painted(
                         scribble(), [&](QPainter &fresh) { fresh.setClipRect(clip); }, true));
}

TEST(PaintPath, curvesAndPartsAreThoseOfQt)
{
    std::mt19937 random(7);
    QPainterPath path;
    for (int i = 0; i < 60; ++i) {
        const auto place = [&] { return QPointF(int(random() % 160) - 20, int(random() % 130) - 20); };
        if (i % 10 == 0)
            path.moveTo(place());
        path.cubicTo(place(), place(), place());
        if (i % 20 == 19)
            path.closeSubpath();
    }
    expectAlike("curves", path, [](QPainter &) {});
}

TEST(PaintPath, worldsAreThoseOfQt)
{
    const QTransform worlds[] = {QTransform::fromTranslate(7, -9),
                                 QTransform::fromTranslate(0.3, 11.7),
                                 QTransform::fromScale(0.5, 2),
                                 QTransform::fromScale(-1, 1) * QTransform::fromTranslate(120, 0),
                                 QTransform().rotate(31),
                                 QTransform(1, 0.3, -0.7, 0.8, 20, 5),
                                 QTransform(0.8, 0.1, 0.001, 0, 0.9, 0.002, 5, 5, 1),
                                 QTransform::fromScale(0.2, 0.2),   // a pen one pixel wide
                                 QTransform::fromScale(0.21, 0.2)}; // and a little wider
    for (const QTransform &world : worlds) {
        expectAlike("world", scribble(), [&](QPainter &painter) { painter.setWorldTransform(world); });
        expectAlike("clip in a world", scribble(), [&](QPainter &painter) {
            painter.setWorldTransform(world);
            painter.setClipRect(10, 8, 61, 43);
        });
        expectAlike("clip outside of it", scribble(), [&](QPainter &painter) {
            painter.setClipRect(10, 8, 61, 43);
            painter.setWorldTransform(world);
        });
        expectAlike("texture", scribble(), [&](QPainter &painter) {
            painter.setWorldTransform(world);
            painter.setPen(roundPen(5, texture(QImage::Format_ARGB32_Premultiplied)));
        });
    }
}

TEST(PaintPath, brushesAreThoseOfQt)
{
    QBrush moved = texture(QImage::Format_ARGB32_Premultiplied);
    moved.setTransform(QTransform::fromTranslate(3, 4));
    QBrush between = moved;
    between.setTransform(QTransform::fromTranslate(3.5, 4));
    QBrush turned = moved;
    turned.setTransform(QTransform().rotate(20));
    QLinearGradient gradient(0, 0, 120, 90);
    gradient.setColorAt(0, Qt::red);
    gradient.setColorAt(1, QColor(0, 0, 255, 50));
    for (const QBrush &brush :
         {QBrush(Qt::black), QBrush(QColor(9, 99, 199, 1)), texture(QImage::Format_ARGB32_Premultiplied),
          texture(QImage::Format_RGB32), texture(QImage::Format_ARGB32), texture(QImage::Format_RGB16),
          texture(QImage::Format_Mono), moved, between, turned, QBrush(gradient),
          QBrush(Qt::red, Qt::DiagCrossPattern)}) {
        for (const auto mode : {QPainter::CompositionMode_SourceOver, QPainter::CompositionMode_SourceIn}) {
            expectAlike("brush", scribble(), [&](QPainter &painter) {
                painter.setPen(roundPen(5, brush));
                painter.setCompositionMode(mode);
            });
        }
        expectAlike("brush with an origin", scribble(), [&](QPainter &painter) {
            painter.setPen(roundPen(5, brush));
            painter.translate(2, -3);
            painter.setBrushOrigin(5, 6);
        });
    }
}

TEST(PaintPath, modesAreThoseOfQt)
{
    for (int mode = QPainter::CompositionMode_SourceOver; mode <= QPainter::RasterOp_SourceAndNotDestination; ++mode) {
        if (mode == QPainter::CompositionMode_Destination)
            continue; // leaves no mark
        expectAlike("mode", scribble(),
                    [&](QPainter &painter) { painter.setCompositionMode(QPainter::CompositionMode(mode)); });
    }
}

TEST(PaintPath, formatsAreThoseOfQt)
{
    for (const auto format : {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_RGB16, QImage::Format_RGB888,
                              QImage::Format_Alpha8, QImage::Format_Grayscale8, QImage::Format_RGBA8888_Premultiplied,
                              QImage::Format_A2RGB30_Premultiplied, QImage::Format_Mono})
        expectAlike(
            "format", scribble(), [](QPainter &) {}, motley(format));
    QImage dense = motley();
    dense.setDevicePixelRatio(2);
    expectAlike(
        "density", scribble(), [](QPainter &) {}, dense);
}

TEST(PaintPath, painterStatesAreThoseOfQt)
{
    const QPainterPath path = scribble();
    expectAlike("no antialiasing", path,
                [](QPainter &painter) { painter.setRenderHint(QPainter::Antialiasing, false); });
    expectAlike("opacity", path, [](QPainter &painter) { painter.setOpacity(0.6); });
    expectAlike("brush", path, [](QPainter &painter) { painter.setBrush(Qt::yellow); });
    expectAlike("dashes", path, [](QPainter &painter) {
        QPen pen = roundPen(4);
        pen.setStyle(Qt::DashLine);
        painter.setPen(pen);
    });
    expectAlike("cosmetic pen", path, [](QPainter &painter) {
        QPen pen = roundPen(4);
        pen.setCosmetic(true);
        painter.setPen(pen);
        painter.scale(0.7, 0.7);
    });
    expectAlike("window", path, [](QPainter &painter) {
        painter.setWindow(5, 5, 60, 90);
        painter.setClipRect(10, 8, 41, 43);
        painter.setViewport(0, 10, 120, 60);
    });
    for (const double width : {0.0, 0.5, 1.0, 1.01, 2.0})
        expectAlike("thin pen", path, [width](QPainter &painter) { painter.setPen(roundPen(width)); });
}

TEST(PaintPath, clipsAreThoseOfQt)
{
    const QPainterPath path = scribble();
    expectAlike("two rectangles", path,
                [](QPainter &painter) { painter.setClipRegion(QRegion(5, 5, 90, 70) - QRect(30, 30, 9, 9)); });
    expectAlike("cut pixels", path, [](QPainter &painter) { painter.setClipRect(QRectF(5.5, 6, 50, 50)); });
    expectAlike("round", path, [](QPainter &painter) {
        QPainterPath ellipse;
        ellipse.addEllipse(10, 10, 80, 60);
        painter.setClipPath(ellipse);
    });
    expectAlike("intersected", path, [](QPainter &painter) {
        painter.setClipRect(5, 5, 70, 60);
        painter.setClipRect(30, -10, 200, 40, Qt::IntersectClip);
    });
    expectAlike("beyond the image", path, [](QPainter &painter) { painter.setClipRect(-50, -60, 130, 900); });
    const auto none = [](QPainter &) {};
    const auto clip = [](QPainter &painter) { painter.setClipRect(0, 0, 60, 60); };
    expectAlike("the system's", path, clip, motley(), QRect(20, 10, 50, 60));
    expectAlike("the system's alone", path, none, motley(), QRect(20, 10, 50, 60));
    expectAlike("the system's, beyond the image", path, none, motley(), QRect(-20, 50, 500, 600));
    expectAlike("the system's, of two rectangles", path, clip, motley(), QRegion(5, 5, 90, 70) - QRect(30, 30, 9, 9));
    const QImage before = motley();
    EXPECT_EQ(painted(
                  path, [](QPainter &painter) { painter.setClipRect(QRect()); }, false),
              before);
    const auto clipTooWideForAnInt = [](QPainter &painter) {
        painter.setClipRect(QRect(QPoint(-72, 5), QPoint(std::numeric_limits<int>::max(), 60)));
    };
    EXPECT_EQ(painted(path, clipTooWideForAnInt, false), painted(path, clipTooWideForAnInt, true));
    // Qt's regions of these take seconds, or leak.
    for (const int reach : {34'000, 90'000}) {
        expectAlike("turned and high", path, [reach](QPainter &painter) {
            painter.rotate(45);
            painter.setClipRect(QRect(-reach, -reach, 2 * reach, 2 * reach));
            painter.resetTransform();
        });
    }
    EXPECT_EQ(painted(
                  path, [](QPainter &painter) { painter.setClipRect(500, 0, 5, 5); }, false),
              before);
}

TEST(PaintPath, farOutlinesAreThoseOfQt)
{
    for (const double reach : {16'000.0, 16'380.0, 17'000.0, 33'000.0, 1e6}) {
        const QPainterPath near = scribble(), far = scribble(2, reach);
        QPainterPath path(near.elementAt(0));
        for (int i = 1; i < near.elementCount(); ++i) {
            path.lineTo(far.elementAt(i));
            path.lineTo(near.elementAt(i));
        }
        expectAlike("far", path, [](QPainter &painter) { painter.setPen(roundPen(40)); });
    }
    const QPainterPath beside = scribble().translated(500, 0);
    EXPECT_EQ(painted(
                  beside, [](QPainter &) {}, false),
              motley());
}

// As that of a widget is to the picture of its window.
TEST(PaintPath, redirectedPainterPaintsWhereQtDoes)
{
    const auto redirected = [](bool byQt) {
        QImage window = motley();
        Child child(window, {30, 20});
        QPainter painter(&child);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(5));
        if (byQt)
            painter.drawPath(scribble());
        else
            paintPath(painter, scribble());
        painter.end();
        return window;
    };
    EXPECT_NE(redirected(true), motley());
    EXPECT_EQ(redirected(false), redirected(true));
}

TEST(PaintPath, painterIsGivenBack)
{
    QImage image = motley();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(roundPen(5));
    painter.setWindow(0, 0, 60, 90);
    painter.translate(10, 20);
    painter.setClipRect(1, 2, 30, 40);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    paintPath(painter, scribble());
    EXPECT_EQ(painter.window(), QRect(0, 0, 60, 90));
    EXPECT_EQ(painter.worldTransform(), QTransform::fromTranslate(10, 20));
    EXPECT_EQ(painter.clipBoundingRect(), QRectF(1, 2, 30, 40));
    EXPECT_EQ(painter.compositionMode(), QPainter::CompositionMode_SourceIn);
    EXPECT_EQ(painter.pen(), roundPen(5));
}

TEST(PaintPath, otherDevicesGetThePath)
{
    QPicture picture;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(roundPen(5));
    paintPath(painter, scribble());
    painter.end();
    const auto replay = [&picture](QPainter &player) { player.drawPicture(0, 0, picture); };
    EXPECT_EQ(painted(QPainterPath(), replay, false), painted(
                                                          scribble(), [](QPainter &) {}, true));

    QPainter idle;
    paintPath(idle, scribble()); // Qt warns, and nothing happens
}
