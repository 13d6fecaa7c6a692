#pragma once

#include "lesson/Export.h"
#include "lesson/pages/PixelRows.h"

#include <QtCore/QRect>
#include <QtGui/QColor>
#include <QtGui/QImage>

#include <optional>
#include <vector>

namespace InkLesson {

class Difference;

// What an object has painted, kept as runs of pixels, so that it can be painted again without the object, in a small
// part of the time and in any area alone.
//
// It gives the object's own pixels wherever the object has painted each pixel at most once: then over any pixel comes
// what it gives over a transparent one.
class INKLESSON_EXPORT Sprite
{
public:
    static constexpr std::size_t kMostBytes = 1 << 18;

    // Of what `picture` shows within `area`: ARGB32_Premultiplied, on transparency. Parts of pixels that are covered in
    // `color` take least memory. Nothing where it would be larger than kMostBytes.
    static std::optional<Sprite> of(const QImage &picture, const QRect &area, const QColor &color);

    // Paints it over the pixels of both within `area`, which lies in them: `page` is RGB32, `ink` ARGB32_Premultiplied.
    void paint(const PixelRows &page, const PixelRows &ink, const QRect &area) const;
    void paint(const PixelRows &page, const QRect &area) const; // over that alone

    // The same over what is told by `where`, which is as high as the page, in the rows of `area`.
    void paint(const PixelRows &page, const Difference &where, const QRect &area) const;

    // Whether there is anything of it in that area.
    bool paintsIn(const QRect &area) const;

    // The least rectangle that holds all of it.
    const QRect &rect() const { return m_rect; }

    std::size_t bytes() const { return m_runs.capacity() + m_rows.capacity() * sizeof(m_rows[0]); }

private:
    template <typename Lay>
    void visitRow(int y, int left, int right, Lay lay) const; // the runs of a row that reach into these pixels
    template <typename Lay>
    void visit(const QRect &area, Lay lay) const; // the runs of pixels there

    QRgb m_color{}; // premultiplied
    QRect m_rect;
    std::vector<quint32> m_rows; // where the runs of each row begin; one more
    std::vector<uchar> m_runs;
};

} // namespace InkLesson
