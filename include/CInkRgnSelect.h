#pragma once

#include "CInkRectangle.h"

// Lifts the pixels inside a dragged box into m_pImage.
//
// Released over a box larger than 6.0 pixels from corner to corner, with some width and height, it is committed and
// editable at once; a smaller one is committed and does nothing. Each layered Draw of a valid selection takes the
// pixels from the ink `p4`, leaves a transparent hole there and shows the background `p3` on the page `p1`. The host
// paints the lifted pixels. See ink-select-clips-stay and ink-select-every-draw.
class INK_EXPORT CInkRgnSelect : public CInkRectangle
{
public:
    // Width 2.
    CInkRgnSelect();
    ~CInkRgnSelect() override;

    using CInkRectangle::Draw;

    // Reads neither `reserved` nor `skip`.
    void Draw(QPainter &p1, QPainter &p2, QPainter &p3, QPainter &p4, QRect rc, int reserved, int skip) override;

    // Goes on moving the second corner after the release; see ink-select-after-commit.
    void AddPoint(int code, QPoint pt, QRect &update) override;

    // Copies the area of m_rcHot out of `source`, which stays the caller's, into m_pImage. A null pointer or image
    // changes nothing.
    void FormSelBmp(QImage *source);

    // Clears the area of m_rcHot on `ink` and paints the picture of `background`, whose device must be a QImage, over
    // it on `layer`.
    void DrawRng2theBk(QPainter &ink, QPainter &layer, QPainter &background);

    // Where the drawer's name and icon would be painted while the box is dragged. Paints nothing.
    void DrawDisInfo(QPainter &painter);

    QColor m_selColor; // for the host
};
