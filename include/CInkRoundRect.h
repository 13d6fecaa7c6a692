#pragma once

#include "CInkRectangle.h"

// Box with rounded corners. Width 4, whichever constructor made it.
class INK_EXPORT CInkRoundRect : public CInkRectangle
{
public:
    CInkRoundRect();
    explicit CInkRoundRect(Qt::PenStyle style);
    ~CInkRoundRect() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;

    // Strokes `box` with corners of a quarter of half its width and height, with the painter's pen.
    void DrawRoundRect(QPainter &painter, QRect box);
};
