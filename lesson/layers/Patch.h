#pragma once

#include "lesson/Export.h"

#include <QtCore/QPoint>
#include <QtGui/QImage>

#include <vector>

namespace InkLesson {

// The pixels that two states of an image differ in, in tiles.
class INKLESSON_EXPORT Patch
{
public:
    Patch() = default;

    // From `before`, a copy of what `now` has been from `origin` on.
    Patch(const QImage &before, const QImage &now, const QPoint &origin);

    bool isEmpty() const { return m_tiles.empty(); }
    qint64 bytes() const; // of memory

    // Gives the image its other state.
    void exchange(QImage &image);

private:
    struct Tile
    {
        QPoint origin;
        QImage pixels; // of the state that the image is not in
    };
    std::vector<Tile> m_tiles;
};

} // namespace InkLesson
