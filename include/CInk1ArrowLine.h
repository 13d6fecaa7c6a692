#pragma once

#include "CInkLine.h"

// Offered as the line with one arrow head; looks exactly like CInkLine. See ink-arrow-unbalanced for the two
// painter states that each Draw leaves behind, and ink-arrow-headless.
class INK_EXPORT CInk1ArrowLine : public CInkLine
{
public:
    // As CInkLine.
    CInk1ArrowLine();
    ~CInk1ArrowLine() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
};
