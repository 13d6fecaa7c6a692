#pragma once

#include "CInkFloodFill.h"

// Fill on a shared canvas: only the participant whose owner's and drawer's addresses are equal computes it; the others
// get its bitmap as image bytes from the host and paint that. See ink-fill-ex-before-commit and ink-fill-ex-bounds.
class INK_EXPORT CInkFloodFillEx : public CInkFloodFill
{
public:
    // `canvas` in pixels.
    explicit CInkFloodFillEx(QSize canvas);
    ~CInkFloodFillEx() override;

    using CInkFloodFill::Draw;
    void Draw(QPainter &p1, QPainter &p2, QPainter &p3, QPainter &p4, QRect rc, int reserved, int skip) override;

    // Does not commit: FinishGraph or SetFloodFillBitmap do.
    void AddPoint(int code, QPoint pt, QRect &update) override;

    // The bitmap to hand to the other participants; null before the fill. It stays the object's and is the same image
    // as long as the object lives.
    QImage *GetBitmap();

    // 1 once GetBitmap has been called, otherwise 0.
    int IsBitmapGetted();

    // Takes an image file of `len` bytes as the bitmap, unless this object has computed its own. The buffer stays the
    // caller's; bytes that cannot be decoded leave an empty bitmap. A null pointer, or a bitmap of its
    // own, makes it commit only.
    void InitPicture(void *data, int len);

    // The same, and commits.
    void SetFloodFillBitmap(void *data, int len);

    int m_bBitmapGetted{0};          // see IsBitmapGetted
    QImage *m_pLocalBitmap{nullptr}; // m_pImage, where this object computed it; not owned
};
