#pragma once

// The shapes that take several gestures, in each way in which one may be completed, and what tells them apart.

#include "CInkBeZier.h"
#include "CInkPolygon.h"
#include "Canvas.h"
#include "Exact.h"

#include <QtGui/QPainterPath>

#include <gtest/gtest.h>

#include <string>
#include <vector>

struct Spot
{
    int x, y;
};
using Spots = std::vector<Spot>;

inline void expectPoints(const CInkGraph &graph, const Spots &expected)
{
    ASSERT_EQ(graph.m_graphData.size(), int(expected.size()));
    int i = 0;
    for (const Spot &spot : expected) {
        SCOPED_TRACE(::testing::Message() << "point " << i);
        EXPECT_POINT(graph.m_graphData[i], double(spot.x), double(spot.y));
        ++i;
    }
}

// Two vertices, (100,100) and (200,110), with the rubber band drawn to (150,150).
class GrowingPolygon : public CInkPolygon
{
public:
    GrowingPolygon()
    {
        drag(*this, {100, 100}, {200, 110});
        feed(*this, PT_MOVE, 150, 150);
    }
};

inline QPainterPath trianglePath(bool isClosed)
{
    QPainterPath path(QPointF(100, 100));
    path.lineTo(200, 110);
    path.lineTo(150, 150);
    if (isClosed)
        path.lineTo(100, 100);
    return path;
}

// Closed by a release at its start: frame (90,90) to (210,160), centre (150,125). That of the others is the same.
struct ClosedPolygon
{
    static constexpr const char *kName = "ClosedPolygon";

    using Fresh = CInkPolygon;
    using Growing = GrowingPolygon;
    class Edited : public Growing
    {
    public:
        Edited()
        {
            feed(*this, PT_UP, 150, 150);
            feed(*this, PT_UP, 100, 100);
        }
    };
    static Spots grownPoints() { return {{100, 100}, {200, 110}, {150, 150}}; }
    static Spots points() { return {{100, 100}, {200, 110}, {150, 150}, {100, 100}}; }
    static Spots pointsMovedBy5And2() { return {{105, 102}, {205, 112}, {155, 152}, {105, 102}}; }
    static Spots pointsMovedByMinus5And5() { return {{95, 95}, {195, 105}, {145, 145}, {95, 95}}; }
    static Spots doubledPoints() { return {{110, 110}, {310, 130}, {210, 210}, {110, 110}}; }

    static QPen pen(const QColor &color, int width)
    {
        return {QBrush(color), double(width), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
    }
    static QPainterPath growingPath() { return trianglePath(false); }
    static QPainterPath editedPath() { return trianglePath(true); }
};

// Completed by a double click, the third vertex still on the rubber band.
struct DoubleClickedPolygon : ClosedPolygon
{
    static constexpr const char *kName = "DoubleClickedPolygon";

    class Edited : public Growing
    {
    public:
        Edited()
        {
            feed(*this, PT_DBLCLK, 150, 150);
            feed(*this, PT_UP, 150, 150);
        }
    };
    static Spots points() { return {{100, 100}, {200, 110}, {150, 150}}; }
    static Spots pointsMovedBy5And2() { return {{105, 102}, {205, 112}, {155, 152}}; }
    static Spots pointsMovedByMinus5And5() { return {{95, 95}, {195, 105}, {145, 145}}; }
    static Spots doubledPoints() { return {{110, 110}, {310, 130}, {210, 210}}; }
};

class Curve : public CInkBeZier
{
public:
    Curve()
        : CInkBeZier(Qt::FlatCap, Qt::RoundCap, Qt::SolidLine)
    {
    }
};

// From (100,100) to (200,150), with both control points still to come.
class StraightCurve : public Curve
{
public:
    StraightCurve() { drag(*this, {100, 100}, {200, 150}); }
};

// The first control point is (130,150), the second drawn to (170,100).
class BentCurve : public StraightCurve
{
public:
    BentCurve()
    {
        drag(*this, {200, 150}, {130, 150});
        feed(*this, PT_DOWN, 130, 150);
        feed(*this, PT_MOVE, 170, 100);
    }
};

struct DraggedCurve
{
    static constexpr const char *kName = "DraggedCurve";

    using Fresh = Curve;
    using Growing = BentCurve;
    class Edited : public Growing
    {
    public:
        Edited() { feed(*this, PT_UP, 170, 100); }
    };
    static Spots grownPoints() { return {{100, 100}, {130, 150}, {170, 100}, {200, 150}}; }
    static Spots points() { return {{100, 100}, {130, 150}, {170, 100}, {200, 150}}; }
    static Spots pointsMovedBy5And2() { return {{105, 102}, {135, 152}, {175, 102}, {205, 152}}; }
    static Spots pointsMovedByMinus5And5() { return {{95, 95}, {125, 145}, {165, 95}, {195, 145}}; }
    static Spots doubledPoints() { return {{110, 110}, {170, 210}, {250, 110}, {310, 210}}; }

    static QPen pen(const QColor &color, int width)
    {
        return {QBrush(color), double(width), Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin};
    }
    static QPainterPath growingPath() { return editedPath(); }
    static QPainterPath editedPath()
    {
        QPainterPath path(QPointF(100, 100));
        path.cubicTo(QPointF(130, 150), QPointF(170, 100), QPointF(200, 150));
        return path;
    }
};

using GestureShapes = ::testing::Types<ClosedPolygon, DoubleClickedPolygon, DraggedCurve>;

// Names the cases of a typed suite by their shape.
struct GestureShapeName
{
    template <typename Facts>
    static std::string GetName(int)
    {
        return Facts::kName;
    }
};
