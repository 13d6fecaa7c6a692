#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtCore/QSize>
#include <QtGui/QTransform>

namespace Board {

// Which part of a page a widget shows, and how large.
//
// Page pixels are those of the page's layers; one is `density` times as fine as a pixel of a plain screen. Positions
// in the widget are Qt's, and `ratio` pixels of the device lie along each. At zoom 1 a page that was made for this
// device has one pixel of the device for each of its own.
//
// A page that is larger than the widget fills it; a smaller one lies in its middle.
class View
{
public:
    static constexpr double kMinZoom = 0.25;
    static constexpr double kMaxZoom = 8;

    // Both keep zoom and upper left corner as far as the sizes allow. False when nothing has changed.
    bool setPage(const QSize &size, double density);
    bool setWidget(const QSize &size, double ratio);

    double zoom() const { return m_zoom; }
    double density() const { return m_density; }
    double ratio() const { return m_ratio; }

    // Pixels of the device for each of the page.
    double scale() const { return m_zoom * m_ratio / m_density; }

    // Where the page begins, in pixels of the device from the widget's corner.
    QPoint corner() const;

    // From page pixels to positions in the widget.
    QTransform transform() const;

    QPointF toPage(const QPointF &pos) const;
    QPointF fromPage(const QPointF &pt) const;
    QRect fromPage(const QRect &area) const; // the nearest pixels of the widget

    // What has to be repainted of the widget when `area` of the page has changed.
    QRect covering(const QRect &area) const;

    // The page pixels that are seen, in part at least.
    QRect seen() const;

    // How many page pixels lie along a distance in the widget; at least one.
    int pageLength(double distance) const;

    // Zooms as far as the limits allow; what is at `anchor` in the widget stays there while the page fills it.
    void zoomTo(double zoom, const QPointF &anchor);

    // Shows the page's point `pt` at `pos` of the widget.
    void place(const QPointF &pt, const QPointF &pos, double zoom);

    void panBy(const QPointF &by);

private:
    void moveTo(const QPointF &corner);

    QSize m_page;
    double m_density{1};
    QSize m_widget;
    double m_ratio{1};
    double m_zoom{1};
    QPointF m_corner; // as corner(), with the fractions that zooming back needs
};

// The next of the usual zooms; the limit where there is none.
double zoomAbove(double zoom);
double zoomBelow(double zoom);

} // namespace Board
