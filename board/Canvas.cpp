#include "Canvas.h"

#include "Cursors.h"
#include "ObjectEditor.h"
#include "PictureFile.h"

#include "CInkPicTure.h"
#include "PointerEvent.h"

#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtGui/QTabletEvent>
#include <QtGui/QTouchDevice>
#include <QtGui/QTouchEvent>
#include <QtWidgets/QApplication>

#include <utility>

namespace Board {

namespace {

constexpr int kScatterInterval = 16; // milliseconds, about sixty times a second

// A mouse event that the window system made up from a pen or a finger, which has come as itself already.
bool isCopy(const QMouseEvent &event)
{
    return event.source() != Qt::MouseEventNotSynthesized;
}

QPoint pixelAt(const QPointF &pos)
{
    return {int(pos.x()), int(pos.y())};
}

} // namespace

Canvas::Canvas(const QSize &pageSize, QWidget *parent)
    : QWidget(parent)
    , m_pageSize(pageSize)
    , m_page(pageSize)
    , m_tool(&tools().front())
    , m_scatter(QRandomGenerator::global()->generate())
{
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAcceptDrops(true);
    setMouseTracking(true);
    setTabletTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setAccessibleName(tr("Page"));
    m_scattering.setInterval(kScatterInterval);
    connect(&m_scattering, &QTimer::timeout, this, &Canvas::scatter);
}

void Canvas::setTool(const Tool &tool)
{
    endDrawing(); // as a drawing of the tool before
    m_tool = &tool;
    takeCursor();
    finish();
}

void Canvas::setColor(const QColor &color)
{
    m_ink.color = color;
    if (m_editor)
        m_editor->setColor(color);
}

void Canvas::setInkWidth(int width)
{
    m_ink.width = width;
    takeCursor();
    if (!m_page.isBusy())
        setCursor(m_cursor);
}

void Canvas::takeCursor()
{
    m_cursor = m_tool->cursorShowsWidth ? circleCursor(m_ink.width) : QCursor(Qt::CrossCursor);
}

void Canvas::finish()
{
    endDrawing();
    repaintPage(m_page.finish());
    setCursor(m_cursor);
}

void Canvas::discard()
{
    m_scattering.stop();
    closeEditor(false);
    repaintPage(m_page.discard());
    setCursor(m_cursor);
}

void Canvas::insertPicture(const QImage &picture, const std::optional<QPoint> &center)
{
    finish();
    const bool fits = rect().contains(picture.rect());
    const QSize fitting = picture.size().scaled(size(), Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    QImage shown = fits ? picture : picture.scaled(fitting, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    m_edit = nullptr;
    auto object = std::make_unique<CInkPicTure>(&shown, QPoint());
    object->InitGraphData(center.value_or(QPoint(width() / 2, height() / 2)));
    object->SetCanvasSize(m_page.rect().size());
    setDrawnHere(*object);
    repaintPage(m_page.insert(std::move(object)));
}

// Lets go what is still being drawn as if the device did, for not every object can be finished without a release.
void Canvas::endDrawing()
{
    if (m_device != Device::None && m_page.isBusy())
        endGesture(m_last);
    closeEditor();
}

// The object has what was entered, if that is kept, and is then let go like any other.
void Canvas::closeEditor(bool keeps)
{
    if (!m_editor)
        return;
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    ObjectEditor *editor = std::exchange(m_editor, nullptr);
    if (keeps)
        editor->finish();
    editor->hide();
    editor->deleteLater(); // the key that ends it may be its own
    if (hadFocus)
        setFocus();
}

void Canvas::followObject()
{
    if (!m_edit || !m_page.isBusy() || m_page.isForming())
        return;
    if (m_editor) {
        m_editor->follow();
        if (m_editor->isLeft()) {
            closeEditor();
            repaintPage(m_page.finish());
            setCursor(m_cursor);
        }
    } else {
        m_editor = m_edit(*m_page.object(), this);
        m_editor->show();
        m_editor->setFocus();
    }
}

void Canvas::undo()
{
    endDrawing();
    repaintPage(m_page.undo());
}

void Canvas::clear()
{
    endDrawing();
    repaintPage(m_page.clear());
}

// Returns whether the device may draw now. The press that lets an object go does only that: the object is
// committed, so the rest of the gesture finds none and draws nothing.
bool Canvas::press(Device device, const QPointF &pos)
{
    if (m_device != Device::None)
        return false;
    m_device = device;
    m_last = pixelAt(pos);
    if (!m_page.isBusy()) {
        m_edit = m_tool->edit;
        m_page.begin(createObject(*m_tool, m_ink, m_page.rect().size()),
                     m_tool->movesAsItGrows ? Page::Reach::Everywhere : Page::Reach::Reported, m_tool->lift);
    }
    repaintPage(m_page.feed(PT_DOWN, m_last));
    followObject();
    m_tapping = true;
    if (m_tool->scatters) {
        m_scattering.start();
        scatter();
    }
    return true;
}

void Canvas::move(Device device, const QPointF &pos)
{
    if (m_device == Device::None)
        showHandle(pixelAt(pos));
    if (m_device != device)
        return;
    const QPoint pt = pixelAt(pos);
    m_tapping = m_tapping && pt == m_last;
    m_last = pt;
    if (m_tapping && m_tool->tapsWithOnePoint)
        return;
    if (m_tool->scatters)
        scatter();
    else
        repaintPage(m_page.feed(PT_MOVE, m_last));
    followObject();
}

void Canvas::scatter()
{
    repaintPage(m_page.feed(PT_MOVE, m_scatter.around(m_last, m_ink.width)));
}

void Canvas::endGesture(const QPoint &pt)
{
    m_scattering.stop();
    const bool tapped = m_tool->tapsWithOnePoint && m_tapping && pt == m_last;
    repaintPage(tapped ? m_page.finish() : m_page.feed(PT_UP, pt));
    followObject();
}

void Canvas::release(Device device, const QPointF &pos)
{
    if (m_device != device)
        return;
    m_device = Device::None;
    endGesture(pixelAt(pos));
    showHandle(pixelAt(pos));
}

// Never during a drag: asking an object what lies under the pointer moves the point that its drag starts from.
void Canvas::showHandle(const QPoint &pt)
{
    const ModifyType handle = m_page.handleAt(pt);
    setCursor(handle == MT_NONE ? m_cursor : cursorFor(handle, m_page.angle()));
}

void Canvas::repaintPage(const QRect &area)
{
    if (!area.isEmpty())
        update(area);
    emit changed();
}

void Canvas::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    for (const QRect &area : event->region())
        painter.drawImage(area.topLeft(), m_page.surface(), area);
}

void Canvas::resizeEvent(QResizeEvent * /*event*/)
{
    m_page.grow(size());
}

// Not while text is entered: there, it ends a line.
void Canvas::keyPressEvent(QKeyEvent *event)
{
    const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enters && !m_editor)
        finish();
    else
        QWidget::keyPressEvent(event);
}

void Canvas::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && !isCopy(*event))
        press(Device::Mouse, event->localPos());
}

// A fast second press comes as a double click instead of as a press. It is a press to every tool, or the second of
// two fast strokes would be lost. Only an object whose drawing takes several gestures is told of the double click
// as well: to all others it would be one more point of a stroke that has just begun.
void Canvas::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || isCopy(*event))
        return;
    const bool continues = m_page.isForming();
    if (press(Device::Mouse, event->localPos()) && continues)
        repaintPage(m_page.feed(PT_DBLCLK, m_last));
}

void Canvas::mouseMoveEvent(QMouseEvent *event)
{
    if (!isCopy(*event))
        move(Device::Mouse, event->localPos());
}

void Canvas::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && !isCopy(*event))
        release(Device::Mouse, event->localPos());
}

void Canvas::tabletEvent(QTabletEvent *event)
{
    event->accept(); // or Qt sends a mouse event after it
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
        insertPicture(*picture, event->pos());
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
    default:
        break;
    }
    return QWidget::event(event);
}

// The first finger draws; those that join it are ignored.
void Canvas::touch(const QTouchEvent &event)
{
    if (event.type() == QEvent::TouchCancel) {
        release(Device::Finger, m_last);
        return;
    }
    if (event.type() == QEvent::TouchBegin)
        m_finger = event.touchPoints().constFirst().id();
    for (const QTouchEvent::TouchPoint &point : event.touchPoints()) {
        if (point.id() != m_finger)
            continue;
        if (point.state() == Qt::TouchPointPressed)
            press(Device::Finger, point.pos());
        else if (point.state() == Qt::TouchPointMoved)
            move(Device::Finger, point.pos());
        else if (point.state() == Qt::TouchPointReleased)
            release(Device::Finger, point.pos());
    }
}

} // namespace Board
