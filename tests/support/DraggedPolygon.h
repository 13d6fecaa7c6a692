#pragma once

// The tools that turn a dragged box into a polygon, and what tells them apart.

#include "CInkDiamond.h"
#include "CInkITriangle.h"
#include "CInkLTriangle.h"

#include <gtest/gtest.h>

#include <string>

using DraggedPolygons = ::testing::Types<CInkITriangle, CInkLTriangle, CInkDiamond>;

template <typename Polygon>
struct PolygonFacts;

// The outlines: of a drag from (100,100) to (200,150), and that one stretched to twice its size about (90,90).
template <>
struct PolygonFacts<CInkITriangle>
{
    static constexpr const char *kName = "CInkITriangle";
    static constexpr int kVertices = 3;
    static constexpr Qt::PenCapStyle kCap = Qt::SquareCap;
    static QVector<QPointF> outline() { return {{150, 100}, {100, 150}, {200, 150}}; }
    static QVector<QPointF> doubledOutline() { return {{210, 110}, {110, 210}, {310, 210}}; }
};

template <>
struct PolygonFacts<CInkLTriangle>
{
    static constexpr const char *kName = "CInkLTriangle";
    static constexpr int kVertices = 3;
    static constexpr Qt::PenCapStyle kCap = Qt::RoundCap;
    static QVector<QPointF> outline() { return {{100, 100}, {200, 150}, {100, 150}}; }
    static QVector<QPointF> doubledOutline() { return {{110, 110}, {310, 210}, {110, 210}}; }
};

template <>
struct PolygonFacts<CInkDiamond>
{
    static constexpr const char *kName = "CInkDiamond";
    static constexpr int kVertices = 4;
    static constexpr Qt::PenCapStyle kCap = Qt::SquareCap;
    static QVector<QPointF> outline() { return {{100, 125}, {150, 100}, {200, 125}, {150, 150}}; }
    static QVector<QPointF> doubledOutline() { return {{110, 160}, {210, 110}, {310, 160}, {210, 210}}; }
};

// Names the cases of a typed suite by their class.
struct PolygonName
{
    template <typename Polygon>
    static std::string GetName(int)
    {
        return PolygonFacts<Polygon>::kName;
    }
};
