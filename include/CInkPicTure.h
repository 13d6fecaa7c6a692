#pragma once

#include "CInkRectangle.h"

// An image placed on the canvas, scaled into its handle box.
//
// It is editable from the start. An image that cannot be taken from memory, or a null pointer, commits it; a file that
// cannot be read leaves an empty image. Neither paints anything. Images of more than 256 megapixels are not decoded.
class INK_EXPORT CInkPicTure : public CInkRectangle
{
public:
    // `pos` is the image's top left corner, in canvas pixels.
    CInkPicTure(QString path, QPoint pos);
    CInkPicTure(void *data, int length, QPoint pos);
    CInkPicTure(QImage *image, QPoint pos);
    ~CInkPicTure() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    bool FinishGraph() override;
    QRect GetUpdateRect() override;

    // An image file in memory, at `path`, or decoded already. Buffer and image stay the caller's.
    void InitPicture(void *data, int length);
    void InitPicture(QString path);
    void InitPicture(QImage *image);

    // Places the image by its top left corner, or by its centre.
    void InitGraphData(int x, int y);
    void InitGraphData(QPoint center);

    QImage *m_pPicture{nullptr}; // owned
    int m_nImageWidth{0};        // pixels, when it was set
    int m_nImageHeight{0};
};
