// What polygon and curve share once they are drawn: how they are finished, edited and let go, and what they cover.

#include "GestureShape.h"

namespace {

template <typename Facts>
class GestureShape : public ::testing::Test
{
};
TYPED_TEST_SUITE(GestureShape, GestureShapes, GestureShapeName);

} // namespace

TYPED_TEST(GestureShape, shapeIsEditedWithItsFrame)
{
    typename TypeParam::Edited shape;
    expectPoints(shape, TypeParam::points());
    EXPECT_EQ(shape.m_bEditMode, 1);
    EXPECT_EQ(shape.m_bFinished, 0);
    EXPECT_EQ(shape.IsSparePoint(), 0);
    EXPECT_EDGES(shape.m_rcHot, 90, 90, 210, 160);
    EXPECT_POINT(shape.m_ptCenter, 150.0, 125.0);
    EXPECT_POINT(shape.m_hotPts[8], 150.0, 60.0);
}

TYPED_TEST(GestureShape, finishEndsTheShapeInEachPhase)
{
    typename TypeParam::Fresh fresh;
    EXPECT_EQ(fresh.FinishGraph(), 0);
    EXPECT_EQ(fresh.m_bFinished, 0);
    EXPECT_EQ(fresh.m_bHideHotShape, 0);

    typename TypeParam::Fresh pressed;
    feed(pressed, PT_DOWN, 100, 80);
    EXPECT_EQ(pressed.FinishGraph(), 1);
    EXPECT_EDGES(pressed.m_rcHot, 90, 70, 110, 90);
    typename TypeParam::Growing growing;
    EXPECT_EQ(growing.FinishGraph(), 1);
    EXPECT_EDGES(growing.m_rcHot, 90, 90, 210, 160);
    EXPECT_EQ(growing.m_bEditMode, 0);
    expectPoints(growing, TypeParam::grownPoints());
    typename TypeParam::Edited edited;
    EXPECT_EQ(edited.FinishGraph(), 1);
    EXPECT_EQ(edited.m_bEditMode, 1);
    for (CInkGraph *shape : std::initializer_list<CInkGraph *>{&pressed, &growing, &edited}) {
        shape->m_bSparePoint = 0;
        EXPECT_EQ(shape->m_bFinished, 1);
        EXPECT_EQ(shape->m_bHideHotShape, 1);
        EXPECT_NULL_RECT(feed(*shape, PT_MOVE, 10, 10));
        EXPECT_EQ(shape->IsSparePoint(), 0);
    }
    expectPoints(growing, TypeParam::grownPoints());
}

TYPED_TEST(GestureShape, editedShapeCoversItsFrameAndName)
{
    typename TypeParam::Edited shape;
    EXPECT_EDGES(shape.GetUpdateRect(), 59, 34, 237, 212);
    shape.SetWidth(16);
    EXPECT_EDGES(shape.GetUpdateRect(), 53, 28, 243, 218);
    shape.SetWidth(4);
    shape.m_fRotateAngle = 90;
    EXPECT_EDGES(shape.GetUpdateRect(), 59, 34, 237, 212);

    shape.m_sizeName = QSize(60, 200);
    shape.m_rcIcon = QRect(500, 500, 30, 30);
    shape.ShowDrawerName(1);
    shape.ShowDrawerIcon(1);
    EXPECT_EDGES(shape.GetUpdateRect(), 59, 34, 237, 289);
    EXPECT_EDGES(shape.m_rcName, 90, 90, 149, 289);
    EXPECT_EDGES(shape.m_rcIcon, 500, 500, 529, 529);
    shape.ShowDrawerName(0);
    EXPECT_EDGES(shape.GetUpdateRect(), 59, 34, 237, 212);
    EXPECT_NULL_RECT(shape.m_rcName);
}

TYPED_TEST(GestureShape, editedShapeIsMoved)
{
    typename TypeParam::Edited shape;
    const int count = shape.GetPointCount();
    EXPECT_EDGES(feed(shape, PT_DOWN, 150, 125), 59, 34, 237, 212);
    EXPECT_EQ(shape.m_modifyType, MT_MOVE);
    EXPECT_EDGES(feed(shape, PT_MOVE, 155, 127), 59, 34, 242, 214);
    EXPECT_EQ(shape.IsSparePoint(), 1);
    expectPoints(shape, TypeParam::pointsMovedBy5And2());
    feed(shape, PT_UP, 145, 120);
    EXPECT_EQ(shape.IsSparePoint(), 0);
    expectPoints(shape, TypeParam::pointsMovedByMinus5And5());
    EXPECT_EDGES(shape.m_rcHot, 85, 85, 205, 155);
    EXPECT_EQ(shape.GetPointCount(), count);
}

TYPED_TEST(GestureShape, editedShapeIsStretchedAndTurned)
{
    typename TypeParam::Edited stretched;
    drag(stretched, {210, 160}, {330, 230});
    expectPoints(stretched, TypeParam::doubledPoints());
    EXPECT_EDGES(stretched.m_rcHot, 90, 90, 330, 230);

    typename TypeParam::Edited turned;
    drag(turned, {150, 60}, {250, 125});
    EXPECT_EQ(turned.GetRotateAngle(), 90.0f);
    expectPoints(turned, TypeParam::points());
}

TYPED_TEST(GestureShape, otherCodesWhileEditedDoNothing)
{
    for (const int code : {0, 3, int(PT_DBLCLK), 6, 99, -1}) {
        SCOPED_TRACE(code);
        typename TypeParam::Edited shape;
        EXPECT_EDGES(feed(shape, code, 150, 125), 59, 34, 237, 212);
        expectPoints(shape, TypeParam::points());
        EXPECT_EQ(shape.IsSparePoint(), 0);
        EXPECT_EQ(shape.m_bFinished, 0);
        EXPECT_EQ(shape.m_modifyType, MT_NONE);
    }
}

TYPED_TEST(GestureShape, pressElsewhereLetsGo)
{
    typename TypeParam::Growing growing;
    EXPECT_EQ(growing.AroundHotPts(QPoint(150, 60)), MT_NONE);
    EXPECT_EQ(growing.AroundHotPts(QPoint(150, 125)), MT_NONE);
    for (const QPoint &at : {QPoint(300, 250), QPoint(350, 250)}) {
        typename TypeParam::Edited shape;
        EXPECT_EQ(shape.AroundHotPts(QPoint(150, 60)), MT_ROTATE);
        EXPECT_EDGES(feed(shape, PT_DOWN, at.x(), at.y()), 59, 34, 237, 212);
        EXPECT_EQ(shape.m_bFinished, 1);
        EXPECT_EQ(shape.m_bHideHotShape, 1);
        EXPECT_EQ(shape.m_modifyType, MT_NONE);
        EXPECT_EDGES(shape.GetUpdateRect(), 59, 34, 237, 212);
        EXPECT_NULL_RECT(feed(shape, PT_DOWN, 150, 125));
    }
}
