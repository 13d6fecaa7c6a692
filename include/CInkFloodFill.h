#pragma once

#include "CInkGraph.h"

// Paint bucket: floods the 4-connected region of exactly the seed's colour in the page `p1` with the object's colour.
//
// One press sets the seed and commits; the next Draw fills. The filled pixels are kept in m_pImage, which is painted
// onto the surface, the page and the ink. A fill is painted on layers only: the painter of `p1` must paint into a
// QImage, which should be opaque, since colours are compared without their alpha. See ink-fill-every-draw,
// ink-fill-drops-alpha and ink-fill-same-color.
class INK_EXPORT CInkFloodFill : public CInkGraph
{
public:
    // Without a canvas: SetCanvasSize has to follow.
    CInkFloodFill();

    // `canvas` in pixels.
    explicit CInkFloodFill(QSize canvas);
    ~CInkFloodFill() override;

    using CInkGraph::Draw;
    void Draw(QPainter &p1, QPainter &p2, QPainter &p3, QPainter &p4, QRect rc, int reserved, int skip) override;
    void SetCanvasSize(QSize size) override;
    int GetPointCount() override;
    bool FinishGraph() override;
    QRect GetUpdateRect() override;

    // Only PT_DOWN does anything: it moves the seed and assigns `update`; see ink-fill-assigns-update.
    void AddPoint(int code, QPoint pt, QRect &update) override;

    // The opaque colour of a pixel of `img`; invalid outside the image.
    QColor GetPixel(int x, int y, QImage *img);

    // Writes an opaque colour into `img` and m_pImage and widens m_rcFillBounds. Pixels that an image does not have are
    // passed over.
    void SetPixel(int x, int y, QColor color, QImage *img);

    // Floods the image that `layer` paints into. m_bFilled tells afterwards whether anything was to be filled.
    void FormFloodFillBmp(QPainter &layer);

    QRect m_rcFillBounds; // of every pixel filled so far
    QRect m_rcCanvas;     // (0, 0) to (width - 1, height - 1)
    int m_bFilled{0};     // FormFloodFillBmp has found something to fill
};
