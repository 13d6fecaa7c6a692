#include "board/canvas/Canvas.h"

#include "board/editors/ObjectEditor.h"
#include "board/look/Cursors.h"
#include "board/look/Style.h"
#include "board/pictures/PictureFile.h"
#include "board/view/ViewPainter.h"

#include "lesson/paper/PageSize.h"

#include "PointerEvent.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace Board {

using namespace InkLesson;

namespace {

constexpr int kRingWidth = 2;         // of the focus, widget pixels
constexpr int kScatterInterval = 16;  // milliseconds, about sixty times a second
constexpr int kCheapPause = 4;        // milliseconds
constexpr double kSnapAngle = 15.0;   // degrees
constexpr double kPickReach = 3.0;    // widget pixels around the pointer that an object is met in
constexpr QPoint kCopyOffset{16, 16}; // of a duplicate; pixels of a plain screen

// The line from the press turns to the nearest multiple of 15 degrees, or its box becomes a square.
QPoint snappedTo(Snap snap, const QPoint &from, const QPoint &to)
{
    const QPoint by = to - from;
    if (snap == Snap::Angle) {
        const QLineF line(from, to);
        return QLineF::fromPolar(line.length(), qRound(line.angle() / kSnapAngle) * kSnapAngle)
            .translated(from)
            .p2()
            .toPoint();
    }
    if (snap == Snap::Square) {
        const int side = std::max(std::abs(by.x()), std::abs(by.y()));
        return from + QPoint(by.x() < 0 ? -side : side, by.y() < 0 ? -side : side);
    }
    return to;
}

} // namespace

Canvas::Canvas(Document &document, QWidget *parent)
    : QWidget(parent)
    , m_sizeHint(document.page().rect().size() / document.density())
    , m_document(document)
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
    m_nameTag.setDensity(m_document.density());
    m_scattering.setInterval(kScatterInterval);
    connect(&m_laser, &LaserPen::changed, this, [this](const QRect &area) { update(view().covering(area)); });
    connect(&m_scattering, &QTimer::timeout, this, &Canvas::scatter);
    connect(&m_document, &Document::painted, this, &Canvas::showPainted);
    connect(&m_document, &Document::currentChanged, this, &Canvas::showDocument);
    connect(&m_navigator, &Navigator::moved, this, &Canvas::showView);
    connect(&m_moves, &Moves::due, this, &Canvas::paintMoves);
    connect(&m_pen, &PenWatch::came, this, &Canvas::takePalm);
    connect(&m_fingers, &Fingers::pressed, this, [this](const QPointF &pos) { press(Device::Finger, pos); });
    connect(&m_fingers, &Fingers::moved, this, [this](const QPointF &pos) { move(Device::Finger, pos); });
    connect(&m_fingers, &Fingers::released, this, [this](const QPointF &pos) { release(Device::Finger, pos); });
    connect(&m_fingers, &Fingers::pinchBegun, &m_navigator, &Navigator::beginPinch);
    connect(&m_fingers, &Fingers::pinched, &m_navigator, &Navigator::pinch);
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
    restyle(ColorAct{color}, {{}, color});
}

void Canvas::setInkWidth(int width)
{
    m_ink.width = width;
    restyle(WidthAct{pageInk().width}, {{}, {}, pageInk().width});
    takeCursor();
    if (!author().hand())
        setCursor(m_cursor);
}

void Canvas::setDash(Qt::PenStyle dash)
{
    m_ink.dash = dash;
    const Hand *hand = author().hand();
    if (hand && hand->tool && hand->tool->takesDash)
        restyle(DashAct{dash}, {});
}

void Canvas::setDrawer(const Drawer &drawer)
{
    m_nameTag.setDrawer(drawer);
    followName();
}

void Canvas::takeCursor()
{
    const double ratio = view().ratio();
    m_cursor = m_tool->cursorShowsWidth ? circleCursor(pageInk().width * view().scale() / ratio, ratio)
                                        : QCursor(Qt::CrossCursor);
}

Author &Canvas::author()
{
    paintMoves();
    return m_document.author();
}

// All at once, and then what follows from the last.
void Canvas::paintMoves()
{
    if (m_moves.isEmpty())
        return;
    m_document.author().feed(PT_MOVE, m_moves.take());
    followObject();
}

QPoint Canvas::pageAt(const QPointF &pos)
{
    const QPointF pt = view().toPage(pos);
    return {int(pt.x()), int(pt.y())};
}

Ink Canvas::pageInk() const
{
    Ink ink = m_ink;
    ink.width = std::max(qRound(ink.width * m_document.density()), 1);
    return ink;
}

// To what the whole widget shows at zoom 1.
void Canvas::growPage()
{
    const QSize size = InkLesson::pageSizeAt(this->size(), m_document.density());
    if (InkLesson::pageSizeProblem(size.expandedTo(page().rect().size())).isEmpty())
        author().grow(size);
}

void Canvas::finish()
{
    endDrawing();
    pick(kNothing);
    author().finish();
    setCursor(m_cursor);
    emit changed();
}

ObjectId Canvas::chosen() const
{
    const Hand *hand = m_document.author().hand();
    return m_picked == kNothing && hand ? hand->held : m_picked;
}

void Canvas::pick(const ObjectId &id)
{
    if (m_picked == id)
        return;
    m_picked = id;
    update();
    emit changed();
}

// Another page, or another document.
void Canvas::showDocument()
{
    pick(kNothing);
    growPage();
    m_nameTag.setDensity(m_document.density());
    takeCursor(); // of a width at another density
    showPainted(page().rect());
    setCursor(m_cursor);
}

// Another part of the page, or another screen.
void Canvas::showView()
{
    if (m_editor)
        m_editor->follow(view());
    const QCursor before = m_cursor;
    takeCursor();
    if (cursor() == before)
        setCursor(m_cursor);
    update();
}

void Canvas::duplicate()
{
    const ObjectId original = chosen();
    finish();
    const ObjectId copy = author().duplicate(original, kCopyOffset * m_document.density());
    if (copy != kNothing && !author().reopen(copy))
        pick(copy);
}

void Canvas::raise()
{
    reorder(true);
}

void Canvas::lower()
{
    reorder(false);
}

void Canvas::reorder(bool up)
{
    const ObjectId id = chosen();
    finish();
    if (id != kNothing)
        author().order(id, up ? page().items().back()->id : kNothing);
}

// The object that was picked, or taken in hand again, not one that is new.
void Canvas::restyle(const Act &act, const Change &change)
{
    const Hand *hand = author().hand();
    if (hand && hand->held != kNothing)
        author().act(act);
    if (m_picked == kNothing)
        return;
    Change other = change;
    other.object = m_picked;
    author().change(other);
}

// A tap picks, a drag moves too. What has handles then shows them.
void Canvas::endPicking(const QPoint &by)
{
    const ObjectId id = m_picked;
    if (!by.isNull())
        author().change({id, {}, {}, {}, {}, by});
    const Item *item = page().item(id);
    if (item && (!item->tool || item->tool->hasHandles)) {
        pick(kNothing);
        m_edit = nullptr;
        author().reopen(id);
    }
    update(); // of a frame that was dragged
}

ObjectId Canvas::topmostAt(const QPoint &pt)
{
    return page().topmostAt(pt, view().pageLength(kPickReach));
}

// A fast pointer leaps over objects. What one gesture removes is one step.
void Canvas::removeAlong(const QPoint &from, const QPoint &to)
{
    const QPoint by = to - from;
    const int steps = std::max(std::abs(by.x()), std::abs(by.y())) / (view().pageLength(kPickReach) + 1) + 1;
    for (int i = 1; i <= steps; ++i) {
        const ObjectId id = topmostAt(from + by * i / steps);
        if (id != kNothing)
            m_removing = author().remove({id}, m_removing);
    }
}

QPoint Canvas::snapped(const QPoint &pt) const
{
    const Hand *hand = m_document.author().hand();
    return m_snaps && hand && hand->isForming() ? snappedTo(m_tool->snap, m_press, pt) : pt;
}

void Canvas::discard()
{
    m_scattering.stop();
    closeEditor(false);
    if (m_picked != kNothing)
        author().remove({std::exchange(m_picked, kNothing)});
    else
        author().discard();
    setCursor(m_cursor);
    emit changed();
}

void Canvas::insertPicture(const QImage &picture, const std::optional<QPoint> &center)
{
    finish();
    const QRect seen = view().seen();
    const bool fits = QRect(QPoint(), seen.size()).contains(picture.rect());
    const QSize fitting = picture.size().scaled(seen.size(), Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    const QImage shown = fits ? picture : picture.scaled(fitting, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    m_edit = nullptr;
    Life life{kPictureTool};
    life.canvas = page().rect().size();
    life.picture = exactImage(shown);
    life.position = center.value_or(seen.topLeft() + QPoint(seen.width() / 2, seen.height() / 2)) -
                    QPoint(shown.width() / 2, shown.height() / 2);
    author().insert(std::move(life));
}

// Lets go what is still being drawn as if the device did, for not every object can be finished without a release.
void Canvas::endDrawing()
{
    if (m_device != Device::None && !m_navigator.isDragging() && author().hand())
        endGesture(m_last);
    closeEditor();
}

// The object has what was entered, if that is kept, and is then let go like any other.
void Canvas::closeEditor(bool keeps)
{
    paintMoves(); // which may close it, and must not open another below
    if (!m_editor)
        return;
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    ObjectEditor *editor = std::exchange(m_editor, nullptr);
    const auto entered = keeps ? editor->entered() : std::nullopt;
    if (entered)
        author().act(*entered);
    if (hadFocus)
        setFocus(); // before it is hidden, which would hand the focus on as the Tab key does
    editor->hide();
    editor->deleteLater(); // the key that ends it may be its own
}

void Canvas::followObject()
{
    const Hand *hand = m_edit ? author().hand() : nullptr;
    if (!hand || hand->isForming())
        return;
    if (m_editor) {
        m_editor->follow(view());
        if (m_editor->isLeft()) {
            closeEditor();
            author().finish();
            setCursor(m_cursor);
        }
    } else {
        m_editor = m_edit(*hand->object, this);
        m_editor->follow(view());
        m_editor->show();
        m_editor->setFocus();
    }
}

void Canvas::undo()
{
    endDrawing();
    pick(kNothing);
    paintMoves();
    m_document.undo();
    setCursor(m_cursor);
}

void Canvas::redo()
{
    endDrawing();
    pick(kNothing);
    paintMoves();
    m_document.redo();
    setCursor(m_cursor);
}

void Canvas::clear()
{
    endDrawing();
    pick(kNothing);
    author().clear();
}

// Returns whether the device may draw now. The press that lets an object go does only that: the object is
// committed, so the rest of the gesture finds none and draws nothing.
bool Canvas::press(Device device, const QPointF &pos)
{
    if (m_device != Device::None)
        return false;
    if (m_navigator.isKeyHeld())
        return beginPan(device, pos);
    m_device = device;
    m_last = m_press = pageAt(pos);
    if (!author().hand() && !beginGesture())
        return true;
    author().feed(PT_DOWN, m_last);
    followObject();
    m_moves.setPauses(kCheapPause, int(1000 / std::max(screen()->refreshRate(), 1.0)));
    m_moves.begin();
    m_tapping = true;
    if (m_tool->scatters()) {
        m_scattering.start();
        scatter();
    }
    return true;
}

// Whether an object was taken to draw with.
bool Canvas::beginGesture()
{
    switch (m_tool->use) {
    case Use::Picks:
        pick(topmostAt(m_last));
        return false;
    case Use::Removes:
        m_removing = 0;
        removeAlong(m_last, m_last);
        return false;
    case Use::Points:
        m_laser.press(m_last, pageInk());
        return false;
    case Use::Pours:
        author().pour(m_last, m_ink.color);
        return false;
    case Use::Draws:
        break;
    }
    m_edit = m_tool->edit;
    const QSize size = page().rect().size();
    const Ink ink = pageInk();
    auto object = createObject(*m_tool->kind, ink, size);
    m_nameTag.sign(*object);
    author().begin({QLatin1String(m_tool->name), ink, size}, std::move(object));
    return true;
}

void Canvas::move(Device device, const QPointF &pos)
{
    if (m_device == Device::None)
        showHandle(pageAt(pos));
    if (m_device != device)
        return;
    if (m_navigator.isDragging()) {
        m_navigator.dragTo(pos);
        return;
    }
    const QPoint pt = snapped(pageAt(pos));
    m_tapping = m_tapping && pt == m_last;
    if (m_tool->use == Use::Removes)
        removeAlong(m_last, pt);
    m_last = pt;
    if (m_picked != kNothing) {
        update(); // the frame follows
        return;
    }
    m_laser.move(pt);
    if (m_tapping && m_tool->tapsWithOnePoint())
        return;
    if (m_tool->scatters())
        scatter();
    else if (m_document.author().hand())
        m_moves.add({m_last});
}

void Canvas::scatter()
{
    if (m_document.author().hand())
        m_moves.add(m_scatter.around(m_last, pageInk().width));
}

void Canvas::endGesture(const QPoint &pt)
{
    m_scattering.stop();
    const bool tapped = m_tool->tapsWithOnePoint() && m_tapping && pt == m_last;
    if (tapped)
        author().finish();
    else
        author().feed(PT_UP, pt);
    followObject();
}

void Canvas::release(Device device, const QPointF &pos)
{
    if (m_device != device)
        return;
    if (m_navigator.isDragging()) {
        endPan();
        return;
    }
    const QPoint pt = snapped(pageAt(pos));
    m_device = Device::None;
    m_laser.release();
    if (m_picked != kNothing)
        endPicking(pt - m_press);
    else
        endGesture(pt);
    showHandle(pageAt(pos));
}

// The press draws nothing.
bool Canvas::beginPan(Device device, const QPointF &pos)
{
    m_device = device;
    m_navigator.beginDrag(pos);
    showCursor();
    return false;
}

void Canvas::endPan()
{
    m_device = Device::None;
    m_navigator.endDrag();
    showCursor();
}

void Canvas::showCursor()
{
    if (m_navigator.isDragging())
        setCursor(Qt::ClosedHandCursor);
    else
        setCursor(m_navigator.isKeyHeld() ? QCursor(Qt::OpenHandCursor) : m_cursor);
}

// Never during a drag: asking an object what lies under the pointer moves the point that its drag starts from.
void Canvas::showHandle(const QPoint &pt)
{
    if (m_navigator.isKeyHeld())
        return;
    CInkGraph *object = author().object();
    const ModifyType handle = object ? object->AroundHotPts(pt) : MT_NONE;
    setCursor(handle == MT_NONE ? m_cursor : cursorFor(handle, object->GetRotateAngle()));
}

void Canvas::showPainted(const QRegion &area)
{
    for (const QRect &part : area)
        update(view().covering(part));
    followName();
}

void Canvas::followName()
{
    const QRect tagged = m_nameTag.follow(m_document.author().object());
    if (!tagged.isEmpty())
        update(view().covering(tagged));
    emit changed();
}

void Canvas::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    paintView(painter, view(), page().surface(), event->region());
    if (const Item *item = page().item(m_picked)) {
        painter.setPen(QPen(QColor(kAccentColor), 1, Qt::DashLine));
        const QPoint dragged = m_device == Device::None ? QPoint() : m_last - m_press;
        painter.drawRect(view().fromPage(item->object->m_rcHot.translated(dragged)));
    }
    if (m_ringed) {
        painter.setPen(QPen(QColor(kAccentColor), kRingWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(rect().adjusted(kRingWidth / 2, kRingWidth / 2, -kRingWidth / 2, -kRingWidth / 2));
    }
    painter.setTransform(view().transform(), true);
    m_nameTag.paint(painter);
    paintLaser(painter);
    m_moves.painted();
}

void Canvas::resizeEvent(QResizeEvent * /*event*/)
{
    growPage();
}

} // namespace Board
