#pragma once

#include "Record.h"

#include <QtGui/QImage>

class QPainter;

namespace Board {

// The lines or the picture of the paper, on white. The lines are `density` times as far apart as on a plain screen.
void paintPaper(QPainter &painter, const Paper &paper, const QSize &size, double density = 1);

// The same as an opaque image.
QImage paintedPaper(const Paper &paper, const QSize &size, double density = 1);

} // namespace Board
