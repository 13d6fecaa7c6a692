#pragma once

#include "CInkGraph.h"

// Base of the freehand pens: collects the positions of one stroke and commits it at the release.
//
// While the stroke grows, only its newest segment is reported for repainting.
class INK_EXPORT CInkPenGraph : public CInkGraph
{
public:
    // Width 1, without points.
    CInkPenGraph();
    ~CInkPenGraph() override;

    bool FinishGraph() override;

    // The newest segment until the commit, then the whole stroke. See ink-pen-name-doubled and
    // ink-pen-finished-no-icon.
    QRect GetUpdateRect() override;
    void AddPoint(int code, QPoint pt, QRect &update) override;

    // Where the drawer's icon is shown beside the stroke, in canvas pixels.
    virtual QRect GetDisIconRect() = 0;

    // Appends the position `pt`, in canvas pixels, whatever the code; PT_UP also commits the stroke. Returns `update`.
    virtual QRect FormGraphData(int code, QPoint pt, QRect &update);
};
