#pragma once

// The base class with the least that makes it concrete, and its nine handles compared at once.

#include "CInkGraph.h"

#include <gtest/gtest.h>

#include <initializer_list>

class PlainGraph : public CInkGraph
{
public:
    PlainGraph() = default;
    PlainGraph(std::initializer_list<QPointF> points) { m_graphData = QVector<QPointF>(points); }

    bool FinishGraph() override { return false; }
    QRect GetUpdateRect() override { return {}; }
    void AddPoint(int, QPoint, QRect &) override {}
};

// In the order of m_hotPts.
struct HandlePositions
{
    QPointF top, bottom, left, right, topLeft, bottomLeft, topRight, bottomRight, knob;
};

inline void expectHandles(const CInkGraph &graph, const HandlePositions &expected)
{
    const QPointF inOrder[] = {expected.top,      expected.bottom,      expected.left,
                               expected.right,    expected.topLeft,     expected.bottomLeft,
                               expected.topRight, expected.bottomRight, expected.knob};
    for (int i = 0; i < 9; ++i) {
        EXPECT_EQ(graph.m_hotPts[i].x(), inOrder[i].x()) << "x of handle " << i;
        EXPECT_EQ(graph.m_hotPts[i].y(), inOrder[i].y()) << "y of handle " << i;
    }
}
