#pragma once

// Canvas-sized pixels that a tool renders into as it goes, kept in CInkGraph::m_pImage.

#include "CInkGraph.h"

#include <QtGui/QImage>

#include <cstddef>

class QPainter;

namespace InkInternal {

// (0, 0) to (width - 1, height - 1).
QRect canvasRect(const QSize &size);

// Zeroed pages of the system's, which take up memory only once they are written; null when there are none to be had.
void *mapPages(std::size_t bytes);

// Transparent, of the canvas's size; null for a canvas of no size or of more than 256 megapixels. A large image lies
// on pages from `map`, in its ordinary layout: a stroke that covers little of the canvas takes up little memory. Where
// `map` gives none, all of the image is made at once.
QImage blankPixels(const QRect &canvas, void *(*map)(std::size_t bytes) = mapPages);

// Makes m_pImage, transparent, unless it is there. False when there is no image: a canvas of no or of an impossible
// size.
bool ensureCache(CInkGraph &graph, const QRect &canvas);

// Lays `pixels` over the painter: its part `source`, at `canvas`. Squares of it that are all zero are left out where
// that cannot change a pixel; reading them is several times cheaper than compositing them.
void layOver(QPainter &painter, const QImage &pixels, const QRect &canvas, const QRectF &source);

} // namespace InkInternal
