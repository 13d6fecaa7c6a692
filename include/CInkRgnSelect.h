#pragma once

#include "CInkRectangle.h"

// Lifts the pixels inside a dragged box into m_pImage.
//
// Released over a box larger than 6.0 pixels from corner to corner, with some width and height, it is committed and
// editable at once; a smaller one is committed and does nothing. Each layered Draw of a valid selection takes the
// pixels from the ink `p4`, leaves a transparent hole there and shows the background `p3` on the page `p1`. The host
// paints the lifted pixels.
class INK_EXPORT CInkRgnSelect : public CInkRectangle
{
public:
    CInkRgnSelect();
    ~CInkRgnSelect() override;

    using CInkRectangle::Draw;

    // Reads neither `reserved` nor `skip`.
    void Draw(QPainter &p1, QPainter &p2, QPainter &p3, QPainter &p4, QRect rc, int reserved, int skip) override;

    // Goes on moving the second corner after the release.
    void AddPoint(int code, QPoint pt, QRect &update) override;

    // Copies the area of m_rcHot out of `source`, which stays the caller's.
    void FormSelBmp(QImage *source);

    // Clears the area of m_rcHot on `ink` and paints the picture of `background` over it on `layer`.
    void DrawRng2theBk(QPainter &ink, QPainter &layer, QPainter &background);
    void DrawDisInfo(QPainter &painter);

    QColor m_selColor; // for the host
};
