#include "board/view/Navigator.h"

#include "lesson/pages/Page.h"

#include <QtGui/QCursor>
#include <QtGui/QKeyEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QWidget>

#include <cmath>

namespace Board {

namespace {

constexpr double kNotch = 120.0;         // of a wheel
constexpr double kNotchesToDouble = 4.0; // the zoom
constexpr double kNotchMoves = 60.0;     // pixels

} // namespace

Navigator::Navigator(QWidget &widget)
    : m_widget(widget)
{
}

const View &Navigator::view(const InkLesson::Page &page)
{
    m_view.setPage(page.rect().size(), page.density());
    m_view.setWidget(m_widget.size(), m_widget.devicePixelRatioF());
    return m_view;
}

void Navigator::zoomIn()
{
    zoomTo(zoomAbove(m_view.zoom()));
}

void Navigator::zoomOut()
{
    zoomTo(zoomBelow(m_view.zoom()));
}

void Navigator::zoomToOne()
{
    zoomTo(1);
}

void Navigator::zoomTo(double zoom)
{
    const QPoint middle = m_widget.rect().center();
    m_view.zoomTo(zoom, m_widget.underMouse() ? m_widget.mapFromGlobal(QCursor::pos()) : middle);
    emit moved();
}

void Navigator::turnWheel(const QWheelEvent &event)
{
    const QPointF notches = QPointF(event.angleDelta()) / kNotch;
    if (event.modifiers().testFlag(Qt::ControlModifier)) {
        m_view.zoomTo(m_view.zoom() * std::exp2(notches.y() / kNotchesToDouble), event.position());
    } else {
        QPointF by = event.pixelDelta().isNull() ? notches * kNotchMoves : QPointF(event.pixelDelta());
        if (event.modifiers().testFlag(Qt::ShiftModifier) && by.x() == 0)
            by = by.transposed();
        m_view.panBy(by);
    }
    emit moved();
}

bool Navigator::pressKey(const QKeyEvent &event)
{
    if (event.key() != Qt::Key_Space)
        return false;
    m_isKeyHeld = true;
    return true;
}

bool Navigator::releaseKey(const QKeyEvent &event)
{
    if (event.key() != Qt::Key_Space)
        return false;
    m_isKeyHeld = m_isKeyHeld && event.isAutoRepeat();
    return true;
}

void Navigator::panBy(const QPointF &by)
{
    m_view.panBy(by);
    emit moved();
}

void Navigator::place(const QPointF &pt, const QPointF &pos, double zoom)
{
    m_view.place(pt, pos, zoom);
    emit moved();
}

} // namespace Board
