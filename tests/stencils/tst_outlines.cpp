// Every outline, as it is stored and as it is stretched into a box.

#include "Canvas.h"
#include "Exact.h"
#include "Outlines.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

namespace {

void expectPoints(const QVector<QPointF> &actual, const QVector<QPointF> &expected)
{
    ASSERT_GE(actual.size(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(actual.at(i).x(), expected.at(i).x()) << "x of point " << i;
        EXPECT_EQ(actual.at(i).y(), expected.at(i).y()) << "y of point " << i;
    }
}

class Outlines : public ::testing::TestWithParam<Stencil>
{
protected:
    // The stored outline with a drag from `press` to `pointer` behind it.
    static QVector<QPointF> dragged(const QPointF &press, const QPointF &pointer)
    {
        return GetParam().stored + QVector<QPointF>{press, pointer};
    }

    const Stencil &row = GetParam();
    const std::unique_ptr<CInkSignGraph> tool = row.make();
};

std::string nameOf(const ::testing::TestParamInfo<Stencil> &info)
{
    return std::string("of") + info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Each, Outlines, ::testing::ValuesIn(kStencils.begin(), kStencils.end()), nameOf);

} // namespace

TEST_P(Outlines, isStoredWithRoomForTheDrag)
{
    const int count = row.stored.size();
    EXPECT_EQ(tool->m_nOutlinePointCount, count);
    EXPECT_EQ(tool->m_penStyle, Qt::SolidLine);
    EXPECT_EQ(tool->m_nWidth, 1);
    EXPECT_EQ(tool->GetPointCount(), 0);
    EXPECT_TRUE(tool->m_previewData.isEmpty());
    ASSERT_EQ(tool->m_graphData.size(), count + 2);
    expectPoints(tool->m_graphData, row.stored);
    EXPECT_POINT(tool->m_graphData[count], 0.0, 0.0);
    EXPECT_POINT(tool->m_graphData[count + 1], 0.0, 0.0);
}

TEST_P(Outlines, isWrittenAnewIntoTheFrontOfTheList)
{
    tool->m_graphData.fill(QPointF(-5, -6));
    row.writeTemplate(*tool);
    const int count = row.stored.size();
    ASSERT_EQ(tool->m_graphData.size(), count + 2);
    expectPoints(tool->m_graphData, dragged({-5, -6}, {-5, -6}));
    tool->m_graphData.resize(count);
    row.writeTemplate(*tool);
    EXPECT_EQ(tool->m_graphData.size(), count);
    expectPoints(tool->m_graphData, row.stored);
    for (const int size : {0, 1, count - 1}) {
        tool->m_graphData.resize(size);
        row.writeTemplate(*tool);
        EXPECT_EQ(tool->m_graphData.size(), size);
    }
}

TEST_P(Outlines, fillsTheBoxWhicheverWayItIsDragged)
{
    const int count = row.stored.size();
    for (const auto &[press, pointer] :
         {std::pair(QPoint(13, 29), QPoint(200, 142)), std::pair(QPoint(200, 142), QPoint(13, 29)),
          std::pair(QPoint(200, 29), QPoint(13, 142)), std::pair(QPoint(13, 142), QPoint(200, 29))}) {
        SCOPED_TRACE(testing::Message() << "from " << press.x() << ',' << press.y());
        const auto fresh = row.make();
        feed(*fresh, PT_DOWN, press.x(), press.y());
        feed(*fresh, PT_MOVE, 111, 17);
        feed(*fresh, PT_MOVE, pointer.x(), pointer.y());
        ASSERT_EQ(fresh->m_previewData.size(), count + 2);
        expectPoints(fresh->m_previewData, row.formed);
        EXPECT_POINT(fresh->m_previewData[count], double(press.x()), double(press.y()));
        EXPECT_POINT(fresh->m_previewData[count + 1], double(pointer.x()), double(pointer.y()));
        expectPoints(fresh->m_graphData, row.stored); // untouched by the preview

        feed(*fresh, PT_UP, pointer.x(), pointer.y());
        ASSERT_EQ(fresh->m_graphData.size(), count);
        expectPoints(fresh->m_graphData, row.formed);
        EXPECT_EQ(fresh->GetPointCount(), count);
        EXPECT_EQ(fresh->m_bEditMode, 1);
    }
}

TEST_P(Outlines, isScaledInSinglePrecision)
{
    for (int box = 0; box < 5; ++box) {
        SCOPED_TRACE(box);
        QVector<QPointF> points = dragged(kBoxes[box][0], kBoxes[box][1]);
        tool->NormalizeGraphData(points);
        ASSERT_EQ(points.size(), row.stored.size() + 2);
        EXPECT_EQ(points.at(row.left).x(), row.measured[box][0]);
        EXPECT_EQ(points.at(row.right).x(), row.measured[box][1]);
        EXPECT_EQ(points.at(row.top).y(), row.measured[box][2]);
        EXPECT_EQ(points.at(row.bottom).y(), row.measured[box][3]);
        const QPointF press = points.at(row.stored.size()), pointer = points.last();
        EXPECT_POINT(press, kBoxes[box][0].x(), kBoxes[box][0].y());
        EXPECT_POINT(pointer, kBoxes[box][1].x(), kBoxes[box][1].y());
    }
}

TEST_P(Outlines, pointerFarOutLosesItsLastBits)
{
    drag(*tool, {-50, 16'777'217}, {333, 16'777'299}); // kept as 16777216 and 16777300
    ASSERT_EQ(tool->m_graphData.size(), row.stored.size());
    EXPECT_EQ(tool->m_graphData.at(row.left).x(), row.measured[2][0]);
    EXPECT_EQ(tool->m_graphData.at(row.right).x(), row.measured[2][1]);
    EXPECT_EQ(tool->m_graphData.at(row.top).y(), row.measured[2][2]);
    EXPECT_EQ(tool->m_graphData.at(row.bottom).y(), row.measured[2][3]);
}

// The scale is 120 / 60 = 2 and 90 / 30 = 3 where the measured extents are made 60 and 30; nearly every other point is
// put far outside them.
TEST_P(Outlines, isMeasuredBetweenFourFixedCoordinates)
{
    QVector<QPointF> points = dragged({500, 700}, {620, 790});
    for (int i = 0; i < row.stored.size(); ++i)
        points[i] = QPointF(1000 + i, -1000 - i);
    points[row.left].rx() = 7;
    points[row.right].rx() = 67;
    points[row.top].ry() = 11;
    points[row.bottom].ry() = 41;
    const QVector<QPointF> before = points;
    tool->NormalizeGraphData(points);
    EXPECT_EQ(points[row.left].x(), 514.0);
    EXPECT_EQ(points[row.right].x(), 634.0);
    EXPECT_EQ(points[row.top].y(), 733.0);
    EXPECT_EQ(points[row.bottom].y(), 823.0);
    for (int i = 0; i < row.stored.size(); ++i) {
        if (i != row.left && i != row.right) {
            EXPECT_EQ(points[i].x(), 2500.0 + 2 * i) << i;
        }
        if (i != row.top && i != row.bottom) {
            EXPECT_EQ(points[i].y(), -2300.0 - 3 * i) << i;
        }
    }
}

TEST_P(Outlines, extentTurnedRoundMirrorsTheOutline)
{
    QVector<QPointF> points = dragged({500, 700}, {620, 790});
    points[row.left].rx() = 67;
    points[row.right].rx() = 7;
    points[row.top].ry() = 41;
    points[row.bottom].ry() = 11;
    tool->NormalizeGraphData(points);
    EXPECT_EQ(points[row.left].x(), 366.0);
    EXPECT_EQ(points[row.right].x(), 486.0);
    EXPECT_EQ(points[row.top].y(), 577.0);
    EXPECT_EQ(points[row.bottom].y(), 667.0);
}

TEST_P(Outlines, collapsesOntoAnUnmovedDrag)
{
    feed(*tool, PT_DOWN, 40, 50);
    feed(*tool, PT_MOVE, 40, 50);
    ASSERT_EQ(tool->m_previewData.size(), row.stored.size() + 2);
    const bool keepsItsSize = std::string(row.name) == "CInkUpArrow";
    QVector<QPointF> expected(row.stored.size(), QPointF(40, 50));
    if (keepsItsSize)
        expected = {{80, 50}, {40, 60}, {65, 60}, {65, 80}, {95, 80}, {95, 60}, {120, 60}};
    expectPoints(tool->m_previewData, expected);
}

TEST_P(Outlines, dragAlongOneAxisFlattensIt)
{
    feed(*tool, PT_DOWN, 40, 50);
    feed(*tool, PT_MOVE, 90, 50);
    for (int i = 0; i < row.stored.size(); ++i)
        EXPECT_EQ(tool->m_previewData.at(i).y(), 50.0) << i;
    EXPECT_NEAR(tool->m_previewData.at(row.right).x() - tool->m_previewData.at(row.left).x(), 50,
                1e-4); // single precision
    feed(*tool, PT_MOVE, 40, 120);
    for (int i = 0; i < row.stored.size(); ++i)
        EXPECT_EQ(tool->m_previewData.at(i).x(), 40.0) << i;
    EXPECT_NEAR(tool->m_previewData.at(row.bottom).y() - tool->m_previewData.at(row.top).y(), 70, 1e-4);
}

TEST_P(Outlines, listThatIsTooShortIsLeftAlone)
{
    const int count = row.stored.size();
    for (const int size : {0, 1, 2, count, count + 1}) {
        QVector<QPointF> points(size, QPointF(3, 4));
        for (int i = 0; i < size; ++i)
            points[i] = QPointF(3 + 10 * i, 4 + 20 * i);
        const QVector<QPointF> before = points;
        tool->NormalizeGraphData(points);
        ASSERT_EQ(points.size(), size);
        expectPoints(points, before);
    }
}

TEST_P(Outlines, outlineWithoutExtentIsLeftAlone)
{
    QVector<QPointF> narrow = dragged({500, 700}, {620, 790});
    narrow[row.left].rx() = narrow[row.right].x();
    QVector<QPointF> low = dragged({500, 700}, {620, 790});
    low[row.top].ry() = low[row.bottom].y();
    for (QVector<QPointF> points : {narrow, low}) {
        const QVector<QPointF> before = points;
        tool->NormalizeGraphData(points);
        expectPoints(points, before);
    }
}

TEST_P(Outlines, pointsBehindTheDragAreLeftAlone)
{
    QVector<QPointF> points = dragged({13, 29}, {200, 142});
    points.append({QPointF(1, 2), QPointF(3, 4)});
    tool->NormalizeGraphData(points);
    const int count = row.stored.size();
    ASSERT_EQ(points.size(), count + 4);
    expectPoints(points, row.formed);
    expectPoints(points.mid(count), {{13, 29}, {200, 142}, {1, 2}, {3, 4}});
}

TEST_P(Outlines, toolMadeWithAPenStyleNeverForms)
{
    for (const Qt::PenStyle style : {Qt::NoPen, Qt::SolidLine, Qt::DashLine, Qt::DotLine}) {
        const auto styled = row.makeStyled(style);
        EXPECT_EQ(styled->m_penStyle, style);
        EXPECT_EQ(styled->m_nOutlinePointCount, 0);
        EXPECT_EQ(styled->m_nWidth, 1);
        EXPECT_TRUE(styled->m_graphData.isEmpty());
        EXPECT_TRUE(styled->m_previewData.isEmpty());

        for (const int code : {5, 1, 5, 99, 2, 1}) {
            styled->m_bSparePoint = 1;
            QRect update(7, 8, 9, 10);
            styled->AddPoint(code, QPoint(150, 120), update);
            EXPECT_EDGES(update, 7, 8, 15, 17);
            EXPECT_EQ(styled->IsSparePoint(), 0);
            EXPECT_EQ(styled->GetPointCount(), 0);
            EXPECT_TRUE(styled->m_graphData.isEmpty());
            EXPECT_TRUE(styled->m_previewData.isEmpty());
            EXPECT_TRUE(isBlank(drawn(*styled)));
        }
        EXPECT_FALSE(styled->FinishGraph());
        EXPECT_EQ(styled->m_bFinished, 0);
        EXPECT_EQ(styled->m_bHideHotShape, 0);
        EXPECT_EQ(styled->m_bEditMode, 0);
        EXPECT_NULL_RECT(styled->GetUpdateRect());
    }
}

TEST_P(Outlines, onlyTheBurstsCountTheirOwnPoints)
{
    const auto styled = row.makeStyled(Qt::DashLine);
    QVector<QPointF> points = dragged({13, 29}, {200, 142});
    styled->NormalizeGraphData(points);
    const bool burst = std::string(row.name).rfind("CInkBoom", 0) == 0;
    expectPoints(points, burst ? row.stored : row.formed);

    tool->m_nOutlinePointCount = 3;
    points = dragged({13, 29}, {200, 142});
    tool->NormalizeGraphData(points);
    expectPoints(points, burst ? row.formed.mid(0, 3) + row.stored.mid(3) : row.formed);
}

TEST_P(Outlines, hostileCountsAndCoordinatesAreTakenWithoutHarm)
{
    for (const int count : {INT_MIN, -1, 0, 1000, INT_MAX}) {
        const auto fresh = row.make();
        fresh->m_nOutlinePointCount = count;
        drag(*fresh, {INT_MIN, 10}, {INT_MAX, INT_MIN});
        fresh->SetWidth(count);
        drawn(*fresh);
        fresh->FinishGraph();
        drawn(*fresh);
    }
    const double infinite = std::numeric_limits<double>::infinity();
    for (const double odd : {std::nan(""), infinite, -infinite, 1e300}) {
        QVector<QPointF> points = dragged({odd, 1}, {2, odd});
        tool->NormalizeGraphData(points);
        points = dragged({1, 2}, {3, 4});
        points[row.left] = points[row.top] = QPointF(odd, odd);
        tool->NormalizeGraphData(points);
    }
}

TEST(OutlineCatalogue, holdsEighteenStencils)
{
    EXPECT_EQ(kStencils.size(), 18);
}

TEST(OutlineCatalogue, starDraggedUpwardsEndsAPixelShort)
{
    CInk4Stars star;
    drag(star, {300, 200}, {100, 50});
    EXPECT_POINT(star.m_graphData[0], 199.99999904632568, 50.0);
    EXPECT_POINT(star.m_graphData[6], 299.99999809265137, 125.00000095367432);
    EXPECT_EDGES(star.m_rcHot, 90, 40, 309, 210);
}

TEST(OutlineCatalogue, aspectRatioIsNotKept)
{
    CInk4Stars star;
    drag(star, {50, 60}, {60, 160});
    EXPECT_POINT(star.m_graphData[2], 50.0, 109.99999952316284);
    EXPECT_POINT(star.m_graphData[6], 60.00000023841858, 109.99999952316284);
    EXPECT_POINT(star.m_graphData[4], 55.00000011920929, 159.99999904632568);
}

TEST(OutlineCatalogue, pentagonAndHexagonKeepTheirInset)
{
    CInk5Side pentagon;
    drag(pentagon, {0, 0}, {187, 113});
    EXPECT_NEAR(pentagon.m_graphData[1].x(), 0.0366, 5e-5); // 0.013023 x 2.80890
    EXPECT_GT(pentagon.m_graphData[4].x(), 187.03);         // and sticks out as far on the right
    CInk6Side hexagon;
    drag(hexagon, {0, 0}, {187, 113});
    EXPECT_NEAR(hexagon.m_graphData[0].y(), 0.3525, 5e-5); // 0.189107 x 1.86401
    EXPECT_GT(hexagon.m_graphData[3].y(), 113.35);
}

TEST(OutlineCatalogue, upArrowIsUnscaledOnlyWhereTheDragIsExactlyNothing)
{
    CInkUpArrow arrow;
    QVector<QPointF> points = arrow.m_graphData;
    points[7] = QPointF(100.3, 200.7);
    points[8] = QPointF(100.3, 200.7);
    arrow.NormalizeGraphData(points);
    EXPECT_POINT(points[0], 140.30000305175781, 200.6999969482422); // the origin goes through single precision
    EXPECT_POINT(points[6], 180.30000305175781, 210.6999969482422);
    EXPECT_POINT(points[7], 100.3, 200.7);

    points = arrow.m_graphData;
    points[7] = QPointF(100, 200);
    points[8] = QPointF(100, 200.00000000001); // equal to QPointF's own comparison
    arrow.NormalizeGraphData(points);
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(points[i].x(), 100.0) << i;
    EXPECT_LT(points[3].y(), 200.001);

    points = arrow.m_graphData;
    points[7] = QPointF(100, 200);
    points[8] = QPointF(180, 200); // equal on one axis only
    arrow.NormalizeGraphData(points);
    EXPECT_POINT(points[3], 125.0, 200.0);
}

TEST(OutlineCatalogue, upArrowOfAnUnmovedDragNeedsNoExtent)
{
    CInkUpArrow arrow;
    QVector<QPointF> points(9, QPointF(1, 2));
    points[7] = points[8] = QPointF(40, 50);
    arrow.NormalizeGraphData(points);
    for (int i = 0; i < 7; ++i)
        EXPECT_POINT(points[i], 41.0, 52.0);
}

TEST(OutlineCatalogue, upArrowMadeWithAPenStyleIsMovedToo)
{
    CInkUpArrow arrow, styled(Qt::DotLine);
    QVector<QPointF> points = arrow.m_graphData;
    points[7] = points[8] = QPointF(40, 50);
    styled.NormalizeGraphData(points);
    EXPECT_POINT(points[0], 80.0, 50.0);
    EXPECT_POINT(points[4], 95.0, 80.0);
    points.resize(8);
    const QVector<QPointF> before = points;
    styled.NormalizeGraphData(points);
    expectPoints(points, before);
}
