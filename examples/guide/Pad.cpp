#include "Pad.h"

#include <QtGui/QPainter>

namespace Guide {

Pad::Pad(const QSize &size, Tool tool)
    : m_page(size)
    , m_tool(tool)
{
    setFixedSize(size);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setFocusPolicy(Qt::StrongFocus);
}

void Pad::paintEvent(QPaintEvent * /*event*/)
{
    QPainter(this).drawImage(0, 0, m_page.layers().surface);
}

//! [pointer]
void Pad::press(const QPoint &pt, bool isDouble)
{
    const bool takesSeveralGestures = m_object && !m_object->m_bEditMode; // a polygon or a curve that has been begun
    if (!m_object)
        m_object = &m_page.begin(m_tool());
    m_isDown = true;
    m_last = pt;
    feed(PT_DOWN, pt);
    if (isDouble && takesSeveralGestures)
        feed(PT_DBLCLK, pt);
}

void Pad::move(const QPoint &pt)
{
    if (!m_isDown)
        return;
    m_last = pt;
    feed(PT_MOVE, pt);
}

void Pad::release(const QPoint &pt)
{
    if (m_isDown)
        feed(PT_UP, pt);
    m_isDown = false;
}

// Something else has taken the pointer.
void Pad::interrupt()
{
    if (!m_isDown)
        return;
    if (m_object && m_object->m_bEditMode)
        release(m_last); // it stays as it was left
    else
        cancel();
}

void Pad::cancel()
{
    if (m_object)
        update(m_page.cancel(*m_object));
    m_object = nullptr;
    m_isDown = false;
}

void Pad::feed(int code, const QPoint &pt)
{
    if (!m_object) // the press has committed it
        return;
    update(m_page.feed(*m_object, code, pt));
    if (m_object->m_bFinished)
        m_object = nullptr;
}
//! [pointer]

//! [mouse]
// Pens and fingers come as themselves; what Qt makes of them for widgets that do not know them is not wanted again.
bool isMouse(const QMouseEvent &event)
{
    return event.source() == Qt::MouseEventNotSynthesized;
}

void Pad::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && isMouse(*event))
        press(event->pos());
}

void Pad::mouseMoveEvent(QMouseEvent *event)
{
    if (isMouse(*event))
        move(event->pos());
}

void Pad::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && isMouse(*event))
        release(event->pos());
}

// A widget is sent this instead of the second press.
void Pad::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && isMouse(*event))
        press(event->pos(), /*isDouble*/ true);
}
//! [mouse]

//! [tablet]
void Pad::tabletEvent(QTabletEvent *event)
{
    event->accept(); // or a mouse event follows
    if (event->type() == QEvent::TabletPress && event->button() == Qt::LeftButton)
        press(event->pos());
    else if (event->type() == QEvent::TabletMove)
        move(event->pos());
    else if (event->type() == QEvent::TabletRelease && event->button() == Qt::LeftButton)
        release(event->pos());
}
//! [tablet]

//! [touch]
bool Pad::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        return touch(static_cast<QTouchEvent &>(*event));
    case QEvent::TouchCancel: // the window system has taken the fingers, for a gesture of its own
    case QEvent::Hide:
        interrupt();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

// The first finger draws.
bool Pad::touch(const QTouchEvent &event)
{
    if (event.type() == QEvent::TouchBegin)
        m_finger = event.touchPoints().constFirst().id();
    for (const QTouchEvent::TouchPoint &point : event.touchPoints()) {
        if (point.id() != m_finger)
            continue;
        if (point.state() == Qt::TouchPointPressed)
            press(point.pos().toPoint());
        else if (point.state() == Qt::TouchPointMoved)
            move(point.pos().toPoint());
        else if (point.state() == Qt::TouchPointReleased)
            release(point.pos().toPoint());
    }
    return true; // accepted: no mouse events follow
}
//! [touch]

//! [keys]
void Pad::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        cancel();
    } else if (event->key() == Qt::Key_Return && m_object) {
        update(m_page.finish(*m_object));
        m_object = nullptr;
        m_isDown = false;
    } else {
        QWidget::keyPressEvent(event);
    }
}
//! [keys]

} // namespace Guide
