#include "lesson/authoring/Pour.h"

#include "CInkFloodFillEx.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace InkLesson {

namespace {

// Of the pixels that are not transparent.
QRect inkBounds(const QImage &bitmap)
{
    QRect bounds;
    for (int y = 0; y < bitmap.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(bitmap.constScanLine(y));
        const auto *end = row + bitmap.width();
        const auto isInk = [](QRgb pixel) { return pixel != 0; };
        const auto *first = std::find_if(row, end, isInk);
        if (first == end)
            continue;
        const auto last = std::find_if(std::make_reverse_iterator(end), std::make_reverse_iterator(first), isInk);
        bounds |= QRect(QPoint(int(first - row), y), QPoint(int(last.base() - row) - 1, y));
    }
    return bounds;
}

} // namespace

std::optional<Life> poured(const QImage &page, const QPoint &seed, const QColor &color)
{
    if (page.isNull())
        return std::nullopt;
    CInkFloodFillEx fill(page.size());
    setDrawnHere(fill);
    fill.SetColor(color);
    QRect update;
    fill.AddPoint(PT_DOWN, seed, update);
    QImage filled = page.copy();
    QImage unseen(1, 1, QImage::Format_RGB32);
    {
        QPainter layer(&filled), other(&unseen);
        fill.Draw(layer, other, other, other, filled.rect(), 0, 0);
    }
    const QRect bounds = fill.m_bFilled && fill.m_pImage ? inkBounds(*fill.m_pImage) : QRect();
    if (bounds.isEmpty())
        return std::nullopt;
    Life life{QLatin1String(kAreaTool)};
    life.ink.color = QColor(color.rgb());
    life.canvas = page.size();
    life.picture = exactImage(fill.m_pImage->copy(bounds));
    life.position = bounds.topLeft();
    life.acts.emplace_back(FinishAct());
    return life;
}

} // namespace InkLesson
