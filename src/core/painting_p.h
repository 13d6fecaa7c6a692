#pragma once

#include "CInkGraph.h"
#include "geometry_p.h"

#include <QtGui/QPainter>
#include <QtGui/QTransform>

namespace InkInternal {

// Keeps the painter's state for the length of a scope.
class PainterStateScope
{
public:
    explicit PainterStateScope(QPainter &painter)
        : m_painter(painter)
    {
        m_painter.save();
    }
    ~PainterStateScope() { m_painter.restore(); }

private:
    Q_DISABLE_COPY(PainterStateScope)
    QPainter &m_painter;
};

// From the object's unrotated frame to the canvas.
inline QTransform objectFrame(const CInkGraph &graph)
{
    return QTransform(turn(graph.m_ptCenter, graph.m_fRotateAngle));
}

inline bool drawnByAnother(const CInkGraph &graph)
{
    return graph.m_nOwnerIP != graph.m_nDrawerIP;
}

} // namespace InkInternal
