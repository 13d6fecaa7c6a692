#pragma once

// The shapes that one drag makes from two points, and what tells them apart.

#include "BoxFrame.h"
#include "CInk1ArrowLine.h"
#include "CInkLine.h"
#include "CInkRectangle.h"
#include "CInkRoundRect.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

struct Edges
{
    int left, top, right, bottom;
};

inline void expectEdges(const QRect &rect, const Edges &edges)
{
    EXPECT_EDGES(rect, edges.left, edges.top, edges.right, edges.bottom);
}

// An event, what it alone asks to repaint, and what is covered after it.
struct Step
{
    int code;
    QPoint pt;
    Edges reported, covered;
};

// An event of which the rectangle that it is united into is known.
struct UnitedStep
{
    int code;
    QPoint pt;
    Edges united;
};

template <typename Shape>
struct TwoPointFacts;

// Edited, a line from (100,80) to (200,140), width 10 and handles of radius 3.
template <>
struct TwoPointFacts<CInkLine>
{
    static constexpr const char *kName = "CInkLine";
    static constexpr QPoint kFrom{100, 80}, kTo{200, 140};
    static constexpr Edges kFreshlyCovered{-60, -60, 60, 60};
    static constexpr Edges kFrame{90, 70, 210, 150}; // its region
    static constexpr Edges kCovered{40, 20, 260, 200};
    static constexpr QPoint kGrip{100, 80};
    static constexpr int kGripType = 2;
    static constexpr bool kHandlesLieOver = true;
    static constexpr bool kFreshOneSetsTheClip = false;

    static QRect frame(const CInkLine &line) { return line.m_rcRegion; }

    // Releases of a press at (100,80), the last one 1.41 away.
    static std::vector<QPoint> tooNear() { return {{101, 80}, {99, 80}, {100, 81}, {100, 79}}; }
    static std::vector<QPoint> farEnough() { return {{101, 81}}; }

    static std::vector<Step> steps()
    {
        return {
            {PT_DOWN, {100, 80}, {-60, -60, 160, 140}, {40, 20, 160, 140}},
            {PT_MOVE, {150, 120}, {40, 20, 210, 180}, {40, 20, 210, 180}},
            {PT_MOVE, {110, 90}, {40, 20, 210, 180}, {40, 20, 170, 150}},
            {PT_UP, {130, 100}, {40, 20, 190, 160}, {40, 20, 190, 160}},
        };
    }
    static std::vector<Step> abandonedSteps()
    {
        return {
            {PT_DOWN, {100, 80}, {-60, -60, 160, 140}, {40, 20, 160, 140}},
            {PT_MOVE, {150, 120}, {40, 20, 210, 180}, {40, 20, 210, 180}},
            {PT_UP, {100, 80}, {40, 20, 210, 180}, {40, 20, 160, 140}},
        };
    }
    static std::vector<UnitedStep> unitedSteps()
    {
        return {
            {PT_DOWN, {100, 80}, {-60, -60, 510, 410}},
            {PT_MOVE, {-100, 80}, {-160, -60, 510, 410}},
            {PT_UP, {30, 40}, {-160, -60, 510, 410}},
        };
    }
    static constexpr Edges kUnitedWhileEdited{-5, 20, 260, 310};

    static QPen pen(const QColor &color) { return {QBrush(color), 10, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin}; }
    static void paintShape(QPainter &painter) { painter.drawLine(QPointF(kFrom), QPointF(kTo)); }
    static void paintHandles(QPainter &painter)
    {
        for (const QRectF &circle : {QRectF(97, 77, 6, 6), QRectF(197, 137, 6, 6)}) {
            painter.setPen(QPen(QBrush(QColor(0, 0, 255)), 3.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
            painter.drawEllipse(circle);
            QPainterPath disc;
            disc.addEllipse(circle);
            painter.fillPath(disc, QColor(255, 255, 255));
        }
    }
};

template <>
struct TwoPointFacts<CInk1ArrowLine> : TwoPointFacts<CInkLine>
{
    static constexpr const char *kName = "CInk1ArrowLine";
};

// Edited, a box from (100,100) to (200,150), which is 101 x 51 pixels; width 4.
template <>
struct TwoPointFacts<CInkRectangle>
{
    static constexpr const char *kName = "CInkRectangle";
    static constexpr QPoint kFrom{100, 100}, kTo{200, 150};
    static constexpr Edges kFreshlyCovered{-8, -8, 7, 7};
    static constexpr Edges kFrame{90, 90, 210, 160};
    static constexpr Edges kCovered{51, 26, 245, 220};
    static constexpr QPoint kGrip{210, 160};
    static constexpr int kGripType = 9;
    static constexpr bool kHandlesLieOver = true;
    static constexpr bool kFreshOneSetsTheClip = true;

    static QRect frame(const CInkRectangle &box) { return box.m_rcHot; }

    // Releases of a press at (100,80); those far enough are 7, 7, 7, 7 and 6.4 pixels away.
    static std::vector<QPoint> tooNear() { return {{106, 80}, {94, 80}, {100, 86}, {100, 74}, {104, 84}, {104, 80}}; }
    static std::vector<QPoint> farEnough() { return {{107, 80}, {93, 80}, {100, 87}, {100, 73}, {104, 85}}; }

    static std::vector<Step> steps()
    {
        return {
            {PT_DOWN, {100, 80}, {-8, -8, 111, 91}, {88, 68, 111, 91}},
            {PT_MOVE, {150, 130}, {88, 68, 162, 142}, {88, 68, 162, 142}},
            {PT_MOVE, {120, 90}, {88, 68, 162, 142}, {88, 68, 132, 102}},
            {PT_MOVE, {150, 130}, {88, 68, 162, 142}, {88, 68, 162, 142}},
            {PT_UP, {150, 130}, {26, 6, 220, 200}, {26, 6, 220, 200}},
        };
    }
    static std::vector<Step> abandonedSteps()
    {
        return {
            {PT_DOWN, {100, 80}, {-8, -8, 111, 91}, {88, 68, 111, 91}},
            {PT_MOVE, {150, 130}, {88, 68, 162, 142}, {88, 68, 162, 142}},
            {PT_UP, {106, 80}, {88, 68, 162, 142}, {88, 68, 118, 92}},
        };
    }
    static std::vector<UnitedStep> unitedSteps()
    {
        return {
            {PT_DOWN, {100, 80}, {-8, -8, 510, 410}},
            {PT_MOVE, {-100, 80}, {-112, -8, 510, 410}},
            {PT_UP, {101, 80}, {-112, -8, 510, 410}},
        };
    }
    static constexpr Edges kUnitedWhileEdited{-5, 26, 245, 310};

    static QPen pen(const QColor &color) { return {QBrush(color), 4, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin}; }
    static void paintShape(QPainter &painter) { painter.drawRect(QRect(100, 100, 101, 51)); }
    static void paintHandles(QPainter &painter) { paintFrame(painter); }
};

template <>
struct TwoPointFacts<CInkRoundRect> : TwoPointFacts<CInkRectangle>
{
    static constexpr const char *kName = "CInkRoundRect";
    static constexpr bool kHandlesLieOver = false;
    static constexpr bool kFreshOneSetsTheClip = false;

    static QPen pen(const QColor &color) { return {QBrush(color), 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin}; }
    static void paintShape(QPainter &painter)
    {
        painter.drawRoundedRect(QRectF(100, 100, 101, 51), 25, 25, Qt::RelativeSize);
    }
};

// Names the cases of a typed suite by their class.
struct TwoPointName
{
    template <typename Shape>
    static std::string GetName(int)
    {
        return TwoPointFacts<Shape>::kName;
    }
};

// The shape of the facts, dragged and released.
template <typename Shape>
class EditedTwoPointShape : public Shape
{
public:
    EditedTwoPointShape() { drag(*this, TwoPointFacts<Shape>::kFrom, TwoPointFacts<Shape>::kTo); }
};

// The same, not released yet.
template <typename Shape>
class DraggedTwoPointShape : public Shape
{
public:
    DraggedTwoPointShape()
    {
        using Facts = TwoPointFacts<Shape>;
        feed(*this, PT_DOWN, Facts::kFrom.x(), Facts::kFrom.y());
        feed(*this, PT_MOVE, Facts::kTo.x(), Facts::kTo.y());
    }
};
