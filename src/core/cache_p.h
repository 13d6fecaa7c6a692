#pragma once

// Canvas-sized pixels that a tool renders into as it goes, kept in CInkGraph::m_pImage.

#include "CInkGraph.h"

#include <QtGui/QImage>

namespace InkInternal {

// (0, 0) to (width - 1, height - 1).
QRect canvasRect(const QSize &size);

// Transparent, of the canvas's size; null for a canvas of no size or of more than 256 megapixels.
QImage blankPixels(const QRect &canvas);

// Makes m_pImage, transparent, unless it is there. False when there is no image: a canvas of no or of an impossible
// size.
bool ensureCache(CInkGraph &graph, const QRect &canvas);

} // namespace InkInternal
