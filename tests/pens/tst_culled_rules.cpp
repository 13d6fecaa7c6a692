// Which segments of a stroke the pens hand over, and when they hand over all of them. Each rule on both of its sides.

#include "CInkBrush.h"
#include "CInkEraser.h"
#include "CInkFlatBrush.h"
#include "CInkHighLightPen.h"
#include "CInkPencil.h"
#include "PathLog.h"

#include <QtGui/QPicture>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using Points = QVector<QPointF>;

// A pen of the given points whose clip is `own`.
template <typename Pen>
class Clipped : public Pen
{
public:
    Clipped(const Points &points, int width, const QRect &clip)
        : own(clip)
    {
        this->m_graphData = points;
        this->m_nWidth = width;
        this->m_bFinished = 1;
    }
    QRect GetUpdateRect() override { return own; }

    QRect own;
};

using Pencil = Clipped<CInkPencil>;

// All that the pen hands over.
QStringList handedOver(CInkGraph &pen, const QTransform &world = {}, QPaintEngine::Type type = QPaintEngine::Raster)
{
    PathLog log(type);
    QPainter painter(&log);
    painter.setWorldTransform(world);
    QRect nothing;
    pen.Draw(painter, nothing);
    painter.end();
    return log.outlines;
}

QString pencilled(const Points &points, int width, const QRect &clip, const QTransform &world = {})
{
    Pencil pencil(points, width, clip);
    const QStringList paths = handedOver(pencil, world);
    EXPECT_EQ(paths.size(), 1);
    return paths.value(0);
}

class Eraser : public Clipped<CInkEraser>
{
public:
    explicit Eraser(const Points &points, int width = 10)
        : Clipped(points, width, QRect(241, 0, 18, 100))
    {
        m_bEditMode = 1; // the clip is `own`, a pixel larger on each side
    }

    // What it hands over on page, surface and ink.
    QStringList handedOver(const QTransform &world = {})
    {
        PathLog page, surface, ink;
        QImage background(50, 50, QImage::Format_RGB32);
        {
            QPainter p1(&page), p2(&surface), p3(&background), p4(&ink);
            for (QPainter *painter : {&p1, &p2, &p4})
                painter->setWorldTransform(world);
            Draw(p1, p2, p3, p4, QRect(), 0, 0);
        }
        return page.outlines + surface.outlines + ink.outlines;
    }
};

// A hundred pixels from point to point.
const Points kRow{{0, 50}, {100, 50}, {200, 50}, {300, 50}, {400, 50}, {500, 50}};
const QString kWholeRow = "0,50~100,50~200,50~300,50~400,50~500,50";
const QRect kMiddle(240, 0, 20, 100);
const QString kMiddleOfRow = "200,50~300,50";

// Goes out of P (100,100) into the clip x >= 200 and comes back to it.
const Points kRound{{100, 100}, {300, 50}, {300, 150}, {100, 100}};
const QString kRoundOutline = "100,100~300,50~300,150~100,100";
const QRect kRight(200, 0, 400, 400);

} // namespace

TEST(CulledRules, segmentsOutOfReachAreLeftOut)
{
    EXPECT_EQ(pencilled(kRow, 10, kMiddle), kMiddleOfRow);
    EXPECT_EQ(pencilled(kRow, 10, QRect(0, 0, 600, 100)), kWholeRow);
    EXPECT_EQ(pencilled(kRow, 10, QRect(0, 200, 600, 100)), QString());
}

TEST(CulledRules, reachIsHalfTheWidthAndAMargin)
{
    // 5 * 1.01 + 1.5 = 6.55 pixels around a pen of width 10.
    EXPECT_EQ(pencilled(kRow, 10, QRect(206, 0, 20, 100)), QString("100,50~200,50~300,50"));
    EXPECT_EQ(pencilled(kRow, 10, QRect(207, 0, 20, 100)), kMiddleOfRow);
    EXPECT_EQ(pencilled(kRow, 10, QRect(240, 0, 54, 100)), QString("200,50~300,50~400,50"));
    EXPECT_EQ(pencilled(kRow, 10, QRect(240, 0, 53, 100)), kMiddleOfRow);
    EXPECT_EQ(pencilled(kRow, 10, QRect(240, 56, 20, 100)), kMiddleOfRow);
    EXPECT_EQ(pencilled(kRow, 10, QRect(240, 57, 20, 100)), QString());
    EXPECT_EQ(pencilled(kRow, 40, QRect(221, 0, 10, 100)), QString("100,50~200,50~300,50")); // 21.7
    EXPECT_EQ(pencilled(kRow, 40, QRect(222, 0, 10, 100)), kMiddleOfRow);
}

TEST(CulledRules, segmentsOfEveryBlockAreFound)
{
    Points points;
    for (int i = 0; i <= 70; ++i)
        points.append({i * 100.0, 50.0});
    for (const int i : {1, 2, 15, 16, 17, 18, 32, 33, 64, 65, 69}) {
        const QString outline = QString("%1,50~%2,50").arg(i * 100).arg((i + 1) * 100);
        EXPECT_EQ(pencilled(points, 10, QRect(i * 100 + 40, 0, 20, 100)), outline);
    }
}

TEST(CulledRules, separateRunsAreOnePath)
{
    const Points points{{0, 0}, {300, 0}, {300, 100}, {0, 100}, {0, 200}, {300, 200}, {310, 300}};
    EXPECT_EQ(pencilled(points, 10, QRect(40, 0, 20, 400)), QString("0,0~300,0 | 300,100~0,100 | 0,200~300,200"));
}

TEST(CulledRules, everyPenHandsOverLess)
{
    Clipped<CInkBrush> brush(kRow, 10, kMiddle);
    Clipped<CInkHighLightPen> highLight(kRow, 10, kMiddle);
    EXPECT_EQ(handedOver(brush), QStringList(kMiddleOfRow));
    EXPECT_EQ(handedOver(highLight), QStringList(kMiddleOfRow));
}

TEST(CulledRules, flatBrushIsCulledInItsNib)
{
    // Turned by 90 degrees about (0,50) the row runs down from there, and is squashed to a fifth of its length.
    Clipped<CInkFlatBrush> brush(kRow, 10, QRect(-50, 94, 100, 1));
    brush.m_fNibAngle = 90;
    EXPECT_EQ(handedOver(brush), QStringList("200,50~300,50"));
    brush.own = QRect(-50, 50, 100, 200);
    EXPECT_EQ(handedOver(brush), QStringList(kWholeRow));
    brush.own = QRect(20, 50, 100, 200);
    EXPECT_EQ(handedOver(brush), QStringList(QString()));
}

TEST(CulledRules, closedStrokeIsWhole)
{
    Points points = kRow;
    points.append({0, 50});
    EXPECT_EQ(pencilled(points, 10, kMiddle), kWholeRow + "~0,50");
    points.last() = {0.00005, 50};
    EXPECT_EQ(pencilled(points, 10, kMiddle), kWholeRow + "~5e-05,50");
    points.last() = {0.001, 50};
    EXPECT_EQ(pencilled(points, 10, kMiddle), QString("200,50~300,50 | 500,50~0.001,50"));
}

TEST(CulledRules, strokeOfTwoPointsIsWhole)
{
    EXPECT_EQ(pencilled({{0, 0}, {10, 0}}, 10, kMiddle), QString("0,0~10,0"));
    EXPECT_EQ(pencilled({{0, 0}, {10, 0}, {20, 0}}, 10, kMiddle), QString());
}

TEST(CulledRules, runThatWouldBeClosedIsWidened)
{
    const Points before{{0, 0}}, after{{0, 200}, {0, 300}};
    EXPECT_EQ(pencilled(before + kRound + after, 10, kRight), "0,0~" + kRoundOutline);
    EXPECT_EQ(pencilled(kRound + after, 10, kRight), kRoundOutline + "~0,200");
    // Not closed, not widened.
    const Points open{{0, 0}, {100, 100}, {300, 50}, {300, 150}, {100, 101}, {0, 200}};
    EXPECT_EQ(pencilled(open, 10, kRight), QString("100,100~300,50~300,150~100,101"));
}

TEST(CulledRules, widenedRunJoinsTheRunsThatItMeets)
{
    const Points before{{300, 10}, {0, 10}}, after{{100, 200}, {300, 200}, {10, 300}, {10, 400}};
    EXPECT_EQ(pencilled(before + kRound, 10, kRight), "300,10~0,10~" + kRoundOutline);
    EXPECT_EQ(pencilled(kRound + after, 10, kRight), kRoundOutline + "~100,200~300,200~10,300");
    // Whose join is closed in its turn.
    const Points back{{50, 0}, {0, 10}, {300, 10}, {50, 10}};
    EXPECT_EQ(pencilled(back + kRound + Points{{0, 10}, {0, 400}}, 10, kRight), "0,10~300,10~50,10~" + kRoundOutline);
    const Points round{{50, 0}, {100, 100}, {300, 10}, {50, 10}};
    EXPECT_EQ(pencilled(round + kRound + Points{{0, 400}}, 10, kRight), "50,0~100,100~300,10~50,10~" + kRoundOutline);
}

TEST(CulledRules, restsAreNoNeighbours)
{
    const Points rest{{0, 0}, {100, 100}, {100, 100}};
    EXPECT_EQ(pencilled(rest + kRound + Points{{0, 9}}, 10, kRight), "0,0~" + kRoundOutline);
    // What is close enough for Qt to take it for the same is handed over with what comes before it.
    const Points points{{0, 0}, {100, 0}, {100.00001, 0}, {200, 0}, {300, 0}};
    EXPECT_EQ(pencilled(points, 10, QRect(140, 0, 20, 100)), QString("100,0~100.00001,0~200,0"));
    EXPECT_EQ(pencilled({{0, 0}, {100, 0}, {100.01, 0}, {200, 0}}, 10, QRect(140, 0, 20, 100)),
              QString("100.01,0~200,0"));
}

TEST(CulledRules, thinPensTakeANeighbourAtEachEnd)
{
    const QString withNeighbours = "100,50~200,50~300,50~400,50";
    EXPECT_EQ(pencilled(kRow, 1, kMiddle), withNeighbours);
    EXPECT_EQ(pencilled(kRow, 0, kMiddle), withNeighbours);
    EXPECT_EQ(pencilled(kRow, 2, kMiddle), kMiddleOfRow);
    EXPECT_EQ(pencilled(kRow, 1, QRect(0, 0, 50, 100)), QString("0,50~100,50~200,50"));
    EXPECT_EQ(pencilled(kRow, 1, QRect(450, 0, 50, 100)), QString("300,50~400,50~500,50"));
    // As wide as it is on the device, but for no width at all.
    const QTransform half = QTransform::fromScale(0.5, 0.5), twice = QTransform::fromScale(2, 2);
    EXPECT_EQ(pencilled(kRow, 3, kMiddle, half), withNeighbours);
    EXPECT_EQ(pencilled(kRow, 4, kMiddle, half), kMiddleOfRow);
    EXPECT_EQ(pencilled(kRow, 1, kMiddle, twice), kMiddleOfRow);
    EXPECT_EQ(pencilled(kRow, 0, kMiddle, twice), withNeighbours);
    EXPECT_EQ(pencilled(kRow, 3, kMiddle, QTransform::fromScale(0.5, 1)), withNeighbours);
}

TEST(CulledRules, neighboursOfThinPensHaveALength)
{
    const Points rests{{0, 0},   {100, 0}, {100, 0}, {200, 0}, {200, 0},
                       {300, 0}, {300, 0}, {400, 0}, {400, 0}, {500, 0}};
    EXPECT_EQ(pencilled(rests, 1, QRect(240, 0, 20, 100)), QString("100,0~200,0~300,0~400,0"));
    const Points ends{{200, 0}, {200, 0}, {300, 0}, {300, 0}, {300, 0.00001}};
    EXPECT_EQ(pencilled(ends, 1, QRect(240, 0, 20, 100)), QString("200,0~300,0~300,1e-05"));
    // Neighbours that meet are one run.
    const Points dip{{0, 0}, {300, 0}, {300, 100}, {0, 100}, {0, 200}, {0, 300}};
    EXPECT_EQ(pencilled(dip, 1, QRect(40, 0, 20, 400)), QString("0,0~300,0~300,100~0,100~0,200"));
}

TEST(CulledRules, worldTransformIsFollowed)
{
    EXPECT_EQ(pencilled(kRow, 10, kMiddle, QTransform::fromTranslate(-7.5, 3)), kMiddleOfRow);
    EXPECT_EQ(pencilled(kRow, 10, kMiddle, QTransform::fromScale(3, 0.5)), kMiddleOfRow);
    QTransform turned;
    turned.translate(500, 100);
    turned.rotate(90);
    EXPECT_EQ(pencilled(kRow, 10, kMiddle, turned), kMiddleOfRow);
    turned.shear(0.2, 0);
    EXPECT_EQ(pencilled(kRow, 10, kMiddle, turned), kMiddleOfRow);
}

TEST(CulledRules, worldThatIsSwitchedOffStaysOff)
{
    Pencil pencil(kRow, 10, kMiddle);
    PathLog log;
    QPainter painter(&log);
    painter.setWorldTransform(QTransform::fromScale(0.2, 1));
    painter.setWorldMatrixEnabled(false);
    QRect nothing;
    pencil.Draw(painter, nothing);
    EXPECT_EQ(log.outlines, QStringList(kMiddleOfRow));
    EXPECT_EQ(log.clips, QVector<QRect>({kMiddle}));
    EXPECT_FALSE(painter.worldMatrixEnabled());
}

TEST(CulledRules, perspectiveAndFlatTransformsPaintTheWhole)
{
    EXPECT_EQ(pencilled(kRow, 10, kMiddle, QTransform(1, 0, 0.001, 0, 1, 0, 0, 0, 1)), kWholeRow);
    EXPECT_EQ(pencilled(kRow, 10, kMiddle, QTransform(1, 2, 2, 4, 0, 0)), kWholeRow);
    EXPECT_EQ(pencilled(kRow, 10, kMiddle, QTransform(0, 0, 0, 0, 0, 0)), kWholeRow);
    EXPECT_EQ(pencilled(kRow, 10, kMiddle, QTransform::fromScale(1, 0.0009)), kWholeRow);
    EXPECT_EQ(pencilled(kRow, 10, kMiddle, QTransform::fromScale(1, 0.0011)), "100,50~" + kMiddleOfRow + "~400,50");
}

// Its path is in the world of its nib, here the device itself; only the clip is in the painter's.
TEST(CulledRules, flatBrushIsWholeWhereTheClipIsInPerspectiveOrFlat)
{
    Clipped<CInkFlatBrush> brush(kRow, 2, kMiddle);
    brush.m_fNibAngle = 0;
    EXPECT_EQ(handedOver(brush, QTransform::fromTranslate(100, 0)), QStringList("300,50~400,50"));
    EXPECT_EQ(handedOver(brush, QTransform(1, 0, 0.001, 0, 1, 0, 0, 0, 1)), QStringList(kWholeRow));
    EXPECT_EQ(handedOver(brush, QTransform(1, 2, 2, 4, 0, 0)), QStringList(kWholeRow));
    EXPECT_EQ(handedOver(brush, QTransform::fromScale(1, 0.0009)), QStringList(kWholeRow));
    EXPECT_EQ(handedOver(brush, QTransform::fromScale(2, 1)), QStringList("400,50~500,50")); // 480 to 520
}

TEST(CulledRules, otherEnginesAreGivenTheWhole)
{
    Pencil pencil(kRow, 10, kMiddle);
    for (const auto type : {QPaintEngine::User, QPaintEngine::SVG, QPaintEngine::Pdf, QPaintEngine::OpenGL2})
        EXPECT_EQ(handedOver(pencil, {}, type), QStringList(kWholeRow));
    EXPECT_EQ(handedOver(pencil), QStringList(kMiddleOfRow));
}

TEST(CulledRules, pictureHoldsTheWhole)
{
    Pencil pencil(kRow, 10, kMiddle);
    QPicture picture;
    QPainter painter(&picture);
    QRect nothing;
    pencil.Draw(painter, nothing);
    painter.end();
    PathLog log;
    painter.begin(&log);
    picture.play(&painter);
    painter.end();
    EXPECT_EQ(log.outlines, QStringList(kWholeRow));
}

TEST(CulledRules, brushOfTheHostFillsTheWhole)
{
    for (const Qt::BrushStyle style : {Qt::NoBrush, Qt::SolidPattern, Qt::Dense4Pattern}) {
        Pencil pencil(kRow, 10, kMiddle);
        PathLog log;
        QPainter painter(&log);
        painter.setBrush(QBrush(Qt::red, style));
        QRect nothing;
        pencil.Draw(painter, nothing);
        EXPECT_EQ(log.outlines, QStringList(style == Qt::NoBrush ? kMiddleOfRow : kWholeRow));
    }
}

TEST(CulledRules, pointsThatAreNoNumbersPaintTheWhole)
{
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double bad : {kNaN, kInfinity, -kInfinity}) {
        for (const int at : {1, 20, 39}) { // in a block and in the rest
            Points points;
            for (int i = 0; i < 40; ++i)
                points.append({i * 100.0, 50.0});
            points[at].ry() = bad;
            QPainterPath whole(points.first());
            for (int i = 1; i < points.size(); ++i)
                whole.quadTo(points.at(i - 1), points.at(i));
            EXPECT_EQ(pencilled(points, 10, kMiddle), outlineOf(whole));
            points[at].ry() = 50;
            EXPECT_EQ(pencilled(points, 10, kMiddle), kMiddleOfRow);
        }
    }
}

TEST(CulledRules, strokeThatQtWouldCutOffIsWhole)
{
    Points points = kRow;
    points.append({31'993, 50}); // reaches 31999.55
    EXPECT_EQ(pencilled(points, 10, kMiddle), kMiddleOfRow);
    points.last().rx() = 31'994;
    EXPECT_EQ(pencilled(points, 10, kMiddle), kWholeRow + "~31994,50");
    points.last() = {0, -31'993};
    EXPECT_EQ(pencilled(points, 10, kMiddle), kMiddleOfRow + " | 500,50~0,-31993");
    points.last() = {0, -31'994};
    EXPECT_EQ(pencilled(points, 10, kMiddle), kWholeRow + "~0,-31994");
}

TEST(CulledRules, clipOfNoSizeDoesNoHarm)
{
    EXPECT_EQ(pencilled(kRow, 10, QRect(10, 10, -1, 5)), kWholeRow);
    EXPECT_EQ(pencilled(kRow, 10, QRect()), QString()); // a point at the origin
}

TEST(CulledRules, oddWidthPaintsTheWhole)
{
    EXPECT_EQ(pencilled(kRow, -1, kMiddle), kWholeRow);
}

TEST(CulledRules, eraserHandsOverLines)
{
    const QString middle = "200,50>300,50";
    EXPECT_EQ(Eraser(kRow).handedOver(), QStringList({middle, middle, middle}));
    EXPECT_EQ(Eraser(kRow).handedOver(QTransform::fromTranslate(3.5, 7)), QStringList({middle, middle, middle}));
    const Points there{{0, 0}, {0, 50}, {0, 50}, {0.00001, 50}, {300, 50}, {300, 90}};
    const QString withRest = "0,50>1e-05,50>300,50";
    EXPECT_EQ(Eraser(there).handedOver().value(0), withRest);
}

TEST(CulledRules, texturedPenIsWholeUnlessItIsMovedOnly)
{
    const QString middle = "200,50>300,50", whole = "0,50>100,50>200,50>300,50>400,50>500,50";
    for (const QTransform &world : {QTransform::fromScale(1.5, 1), QTransform().rotate(20), QTransform().shear(0.1, 0)})
        EXPECT_EQ(Eraser(kRow).handedOver(world).mid(0, 2), QStringList({whole, whole}));
    EXPECT_EQ(Eraser(kRow).handedOver(QTransform::fromScale(1.5, 1)).value(2), middle); // the ink's pen has no texture

    Eraser eraser(kRow);
    eraser.handedOver();
    QBrush turned = *eraser.m_pEraseBrush;
    turned.setTransform(QTransform().rotate(20));
    eraser.m_pErasePen->setBrush(turned);
    EXPECT_EQ(eraser.handedOver(), QStringList({whole, whole, middle}));
    eraser.m_pErasePen->setBrush(QBrush(Qt::red, Qt::Dense4Pattern));
    EXPECT_EQ(eraser.handedOver(), QStringList({whole, whole, middle}));
    eraser.m_pErasePen->setBrush(Qt::red);
    EXPECT_EQ(eraser.handedOver(), QStringList({middle, middle, middle}));
}

TEST(CulledRules, oddPensOfTheHostPaintTheWhole)
{
    const QString middle = "200,50>300,50", whole = "0,50>100,50>200,50>300,50>400,50>500,50";
    const auto with = [](auto change) {
        Eraser eraser(kRow);
        eraser.handedOver();
        change(*eraser.m_pErasePen);
        return eraser.handedOver().value(0);
    };
    EXPECT_EQ(with([](QPen &) {}), middle);
    EXPECT_EQ(with([](QPen &pen) { pen.setCapStyle(Qt::FlatCap); }), whole);
    EXPECT_EQ(with([](QPen &pen) { pen.setCapStyle(Qt::SquareCap); }), whole);
    EXPECT_EQ(with([](QPen &pen) { pen.setJoinStyle(Qt::RoundJoin); }), middle);
    EXPECT_EQ(with([](QPen &pen) { pen.setJoinStyle(Qt::MiterJoin); }), whole);
    EXPECT_EQ(with([](QPen &pen) { pen.setStyle(Qt::DashLine); }), whole);
    EXPECT_EQ(with([](QPen &pen) { pen.setCosmetic(true); }), whole);
    EXPECT_EQ(with([](QPen &pen) { pen.setWidth(3); }), middle);
}
