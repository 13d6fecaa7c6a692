#pragma once

#include "CInkRectangle.h"

// A text frame. The host edits and renders the text; the object keeps its frame and, from SetTextImage on, paints the
// image.
//
// A drag of at most 2.0 pixels, or without width or height, is committed and paints nothing; a smaller frame is widened
// to 120 x 90, see ink-text-corner-as-size. The frame is moved by a tab below it and stretched by its bottom right
// corner, never below 56 x 61.
class INK_EXPORT CInkText : public CInkRectangle
{
public:
    // As a CInkRectangle; no image yet.
    CInkText();
    ~CInkText() override;

    using CInkGraph::Draw;
    using CInkGraph::MoveGraph;
    void Draw(QPainter &painter, QRect &rect) override;

    // See ink-text-label-kept.
    QRect GetUpdateRect() override;

    // `box` becomes the whole frame, tab included. See ink-text-frame-shrinks.
    void ResetHotData(QRect box) override;

    // A press outside both handles only sets m_bClickOutside; see ink-text-outside and ink-text-release.
    void AddPoint(int code, QPoint pt, QRect &update) override;
    bool IsPtInModifyZone(QPoint pt) override;
    ModifyType DecideModiFyType(QPoint pt) override;

    // See ink-text-stretch-reference.
    void StretchGraph(QPoint pt) override;
    void MoveGraph(float dx, float dy) override;
    void SetHotData(int mx, int my) override;
    void DrawHotShape(QPainter &painter) override;
    QRect FormGraphData(int code, QPoint pt, QRect &update) override;

    // Hands over the rendered text as an image file of `length` bytes, which stay the caller's, and commits. A null
    // pointer is ignored, and so is a second image.
    void SetTextImage(void *data, int length);

    // The same with an image, which is copied and stays the caller's; it takes the place of one that is held. A null
    // pointer is ignored.
    void SetTextImage(QImage *image);

    // Null before SetTextImage; stays the object's.
    QImage *GetTextImage();

    QRect m_rcText;                // the whole frame, tab included
    QRect m_rcImage;               // where the image goes, 5 pixels in from its top left
    QRect m_rcMoveTab;             // a press in it moves the object
    QRect m_rcStretchCorner;       // a press in it stretches the frame
    int m_bClickOutside{0};        // for the host
    QString m_strText;             // for the host
    QImage *m_pTextImage{nullptr}; // owned
};
