#pragma once

#include "CInkRectangle.h"

// Box with rounded corners. Width 4, whichever constructor made it. Always solid, and never filled; see
// ink-round-rect-unfilled.
class INK_EXPORT CInkRoundRect : public CInkRectangle
{
public:
    // Both points at the origin.
    CInkRoundRect();

    // The style is stored only.
    explicit CInkRoundRect(Qt::PenStyle style);
    ~CInkRoundRect() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;

    // Strokes `box`, in the painter's frame, with corners of a quarter of half its width and height, with the painter's
    // pen.
    void DrawRoundRect(QPainter &painter, QRect box);
};
