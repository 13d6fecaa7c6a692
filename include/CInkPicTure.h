#pragma once

#include "CInkRectangle.h"

// An image placed on the canvas, scaled into its handle box.
//
// It is editable from the start. An image that cannot be taken from memory, or a null pointer, commits it; a file that
// cannot be read leaves an empty image. Neither paints anything. Images of more than 256 megapixels are not decoded.
// See ink-picture-one-short.
class INK_EXPORT CInkPicTure : public CInkRectangle
{
public:
    // The image in a file; `pos` is its top left corner, in canvas pixels.
    CInkPicTure(QString path, QPoint pos);

    // An image file of `length` bytes in memory, which stay the caller's.
    CInkPicTure(void *data, int length, QPoint pos);

    // An image, which is copied and stays the caller's.
    CInkPicTure(QImage *image, QPoint pos);
    ~CInkPicTure() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    bool FinishGraph() override;
    QRect GetUpdateRect() override;

    // Takes an image file of `length` bytes in memory, which stay the caller's. Where an image is held already, or none
    // can be decoded, commits instead. Place it anew with InitGraphData.
    void InitPicture(void *data, int length);

    // Takes the image file at `path`; one that cannot be read leaves an empty image.
    void InitPicture(QString path);

    // Takes a copy of an image, which stays the caller's; a null pointer empties the picture and commits.
    void InitPicture(QImage *image);

    // Places the image, in its own size, with its top left corner at (x, y), in canvas pixels. It is editable then.
    void InitGraphData(int x, int y);

    // The same, by its centre, in canvas pixels.
    void InitGraphData(QPoint center);

    QImage *m_pPicture{nullptr}; // owned
    int m_nImageWidth{0};        // pixels, when it was set
    int m_nImageHeight{0};       // pixels, when it was set
};
