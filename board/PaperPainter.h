#pragma once

#include "Record.h"

#include <QtGui/QImage>

class QPainter;

namespace Board {

// The lines or the picture of the paper, on white.
void paintPaper(QPainter &painter, const Paper &paper, const QSize &size);

// The same as an opaque image.
QImage paintedPaper(const Paper &paper, const QSize &size);

} // namespace Board
