#pragma once

#include <QtCore/QPointF>

namespace Board {

class Navigator;

// Two fingers move and zoom the page: they keep to the points of it that they were put on. Positions are the widget's.
class Pinch
{
public:
    // The navigator outlives this object.
    explicit Pinch(Navigator &navigator);

    void begin(const QPointF &first, const QPointF &second);
    void move(const QPointF &first, const QPointF &second);

private:
    Navigator &m_navigator;

    // As it began.
    QPointF m_pinched; // page pixels
    double m_distance{1};
    double m_zoom{1};
};

} // namespace Board
