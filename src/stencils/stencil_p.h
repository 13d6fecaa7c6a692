#pragma once

// What the stencils share below the event protocol.

#include "CInkSignGraph.h"
#include "core/painting_p.h"

#include <QtGui/QPen>

namespace InkInternal {

// False before the press, and for a drag that was abandoned or finished on the way.
inline bool isShown(const CInkSignGraph &stencil)
{
    return stencil.m_nPointCount > 0 && !(stencil.m_bFinished && stencil.m_nPointCount != stencil.m_nOutlinePointCount);
}

// The formed outline, or the one in the box that is being dragged; empty before the pointer has moved.
inline const QVector<QPointF> &shownPoints(const CInkSignGraph &stencil)
{
    return stencil.m_bEditMode ? stencil.m_graphData : stencil.m_previewData;
}

inline QPen styledPen(const CInkSignGraph &stencil)
{
    const QPen pen(stencil.m_color, qreal(stencil.m_nWidth), stencil.m_penStyle, Qt::SquareCap, Qt::RoundJoin);
    return endingPen(pen, shownPoints(stencil));
}

} // namespace InkInternal
