#pragma once

class QImage;
class QPainter;
class QRegion;

namespace Board {

class View;

// Paints what the view shows within a region of its widget: the page, on the pixels of the device, and what lies
// around it. `page` is opaque.
void paintView(QPainter &painter, const View &view, const QImage &page, const QRegion &region);

} // namespace Board
