#include "board/canvas/Canvas.h"

#include "board/gestures/Gestures.h"
#include "board/gestures/Panning.h"
#include "board/pictures/PictureFile.h"

#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QTabletEvent>
#include <QtGui/QTouchDevice>
#include <QtGui/QTouchEvent>
#include <QtGui/QWheelEvent>

#include <utility>

// What the canvas makes of keys, mouse, pen and fingers: gestures.

namespace Board {

namespace {

// A mouse event that the window system made up from a pen or a finger, which has come as itself already.
bool isCopy(const QMouseEvent &event)
{
    return event.source() != Qt::MouseEventNotSynthesized;
}

} // namespace

// The press that begins a gesture goes to it, and then all that the same device does until its release. Returns whether
// one was begun.
bool Canvas::press(Device device, const QPointF &pos)
{
    if (m_device != Device::None)
        return false;
    begin(device, nextGesture(m_desk), pos);
    return true;
}

void Canvas::begin(Device device, std::unique_ptr<PointerGesture> gesture, const QPointF &pos)
{
    emit pointed(pageAt(pos));
    m_device = device;
    m_gesture = std::move(gesture);
    if (m_gesture->cursor())
        showCursor();
    m_gesture->press(spotAt(pos));
}

void Canvas::move(Device device, const QPointF &pos)
{
    emit pointed(pageAt(pos));
    if (m_device == Device::None)
        showHandle(pageAt(pos));
    else if (m_device == device)
        m_gesture->move(spotAt(pos));
}

void Canvas::release(Device device, const QPointF &pos)
{
    if (m_device != device)
        return;
    if (device == Device::Finger)
        emit pointed({});
    const auto gesture = takeGesture();
    gesture->release(spotAt(pos));
    if (gesture->cursor())
        showCursor();
    else
        showHandle(pageAt(pos));
}

std::unique_ptr<PointerGesture> Canvas::takeGesture()
{
    m_device = Device::None;
    return std::move(m_gesture);
}

PointerSpot Canvas::spotAt(const QPointF &pos)
{
    return {pos, pageAt(pos), m_snaps};
}

QPoint Canvas::pageAt(const QPointF &pos)
{
    const QPointF pt = view().toPage(pos);
    return {int(pt.x()), int(pt.y())};
}

// Lets go what is still being drawn as if the device did, for not every object can be finished without a release.
void Canvas::endDrawing()
{
    if (m_gesture)
        m_gesture->letGo();
    m_desk.inHand.closeEditor();
}

void Canvas::showCursor()
{
    if (m_gesture && m_gesture->cursor())
        setCursor(*m_gesture->cursor());
    else
        setCursor(m_desk.navigator.isKeyHeld() ? QCursor(Qt::OpenHandCursor) : m_cursor);
}

// Not while text is entered: there, it ends a line.
void Canvas::keyPressEvent(QKeyEvent *event)
{
    const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enters && !m_desk.inHand.isEdited())
        finish();
    else if (!m_desk.navigator.pressKey(*event))
        QWidget::keyPressEvent(event);
    else if (m_device == Device::None)
        showCursor();
}

void Canvas::keyReleaseEvent(QKeyEvent *event)
{
    if (!m_desk.navigator.releaseKey(*event))
        QWidget::keyReleaseEvent(event);
    else if (m_device == Device::None)
        showCursor();
}

// Only for the keyboard: whoever draws knows where the page is.
void Canvas::focusInEvent(QFocusEvent *event)
{
    m_ringed = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    QWidget::focusInEvent(event);
    update();
}

// The key is released elsewhere.
void Canvas::focusOutEvent(QFocusEvent *event)
{
    if (m_desk.navigator.isKeyHeld()) {
        m_desk.navigator.forgetKey();
        showCursor();
    }
    m_ringed = false;
    QWidget::focusOutEvent(event);
    update();
}

void Canvas::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    emit pointed({});
}

// Not under a pointer that draws: its point would leap.
void Canvas::wheelEvent(QWheelEvent *event)
{
    if (m_device == Device::None)
        m_desk.navigator.turnWheel(*event);
    event->accept();
}

void Canvas::mousePressEvent(QMouseEvent *event)
{
    if (isCopy(*event) || m_device != Device::None)
        return;
    m_button = event->button();
    if (m_button == Qt::LeftButton)
        press(Device::Mouse, event->localPos());
    else if (m_button == Qt::MiddleButton)
        begin(Device::Mouse, std::make_unique<Panning>(m_desk), event->localPos());
}

// A fast second press comes as a double click instead of as a press. It is a press to every tool, or the second of
// two fast strokes would be lost.
void Canvas::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || isCopy(*event))
        return;
    m_button = event->button();
    if (press(Device::Mouse, event->localPos()))
        m_gesture->pressTwice(spotAt(event->localPos()));
}

void Canvas::mouseMoveEvent(QMouseEvent *event)
{
    m_snaps = event->modifiers().testFlag(Qt::ShiftModifier);
    if (!isCopy(*event))
        move(Device::Mouse, event->localPos());
}

void Canvas::mouseReleaseEvent(QMouseEvent *event)
{
    m_snaps = event->modifiers().testFlag(Qt::ShiftModifier);
    if (event->button() == m_button && !isCopy(*event))
        release(Device::Mouse, event->localPos());
}

void Canvas::tabletEvent(QTabletEvent *event)
{
    event->accept(); // or Qt sends a mouse event after it
    m_snaps = event->modifiers().testFlag(Qt::ShiftModifier);
    if (event->type() == QEvent::TabletMove)
        move(Device::Pen, event->posF());
    else if (event->type() == QEvent::TabletPress && event->button() == Qt::LeftButton)
        press(Device::Pen, event->posF());
    else if (event->type() == QEvent::TabletRelease && event->button() == Qt::LeftButton)
        release(Device::Pen, event->posF());
}

void Canvas::dragEnterEvent(QDragEnterEvent *event)
{
    if (mayHoldPicture(*event->mimeData()))
        event->acceptProposedAction();
}

void Canvas::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    QString problem;
    if (const auto picture = readPicture(*event->mimeData(), problem))
        insertPicture(*picture, pageAt(event->pos()));
    else
        emit pictureRefused(problem);
}

bool Canvas::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel: {
        const auto &touchEvent = static_cast<const QTouchEvent &>(*event);
        if (touchEvent.device()->type() != QTouchDevice::TouchScreen)
            break; // the fingers on a touch pad move the mouse
        event->accept();
        touch(touchEvent);
        return true;
    }
    case QEvent::ScreenChangeInternal:
        showView();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void Canvas::touch(const QTouchEvent &event)
{
    if (m_pen.isNear())
        m_fingers.ignore(event);
    else
        m_fingers.take(event);
}

// A hand that lies down before its pen comes has drawn by then.
void Canvas::takePalm()
{
    m_fingers.ignore();
    if (m_device != Device::Finger)
        return;
    const auto gesture = takeGesture();
    gesture->cancel();
    if (gesture->cursor())
        showCursor();
}

} // namespace Board
