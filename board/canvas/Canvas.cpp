#include "board/canvas/Canvas.h"

#include "board/document/Document.h"
#include "board/look/Cursors.h"
#include "board/look/Style.h"
#include "board/view/ViewPainter.h"

#include "lesson/paper/PageSize.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

#include <utility>

namespace Board {

using namespace InkLesson;

namespace {

constexpr int kRingWidth = 2;         // of the focus, widget pixels
constexpr QPoint kCopyOffset{16, 16}; // of a duplicate; pixels of a plain screen

} // namespace

Canvas::Canvas(Document &document, QWidget *parent)
    : QWidget(parent)
    , m_sizeHint(document.page().rect().size() / document.density())
    , m_desk(document, *this)
    , m_pinch(m_desk.navigator)
{
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAcceptDrops(true);
    setMouseTracking(true);
    setTabletTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setAccessibleName(tr("Page"));
    m_desk.nameTag.setDensity(document.density());
    m_desk.otherTags.setDensity(document.density());
    m_desk.heldElsewhere = [this](int author) { emit heldElsewhere(author); };
    connect(&document, &Document::pageLost, this, &Canvas::leavePage);
    connect(&document, &Document::painted, this, &Canvas::showPainted);
    connect(&document, &Document::currentChanged, this, &Canvas::showDocument);
    connect(&m_desk.laser, &LaserPen::changed, this, [this](const QRect &area) { update(view().covering(area)); });
    connect(&m_desk.navigator, &Navigator::moved, this, &Canvas::showView);
    connect(&m_desk.selection, &Selection::changed, this, &Canvas::showSelection);
    connect(&m_desk.selection, &Selection::shifted, this, QOverload<>::of(&Canvas::update));
    connect(&m_desk.inHand, &InHand::letGo, this, [this] { setCursor(m_cursor); });
    connect(&m_pen, &PenWatch::came, this, &Canvas::takePalm);
    connect(&m_fingers, &Fingers::pressed, this, [this](const QPointF &pos) { press(Device::Finger, pos); });
    connect(&m_fingers, &Fingers::moved, this, [this](const QPointF &pos) { move(Device::Finger, pos); });
    connect(&m_fingers, &Fingers::released, this, [this](const QPointF &pos) { release(Device::Finger, pos); });
    connect(&m_fingers, &Fingers::pinchBegun, this,
            [this](const QPointF &first, const QPointF &second) { m_pinch.begin(first, second); });
    connect(&m_fingers, &Fingers::pinched, this,
            [this](const QPointF &first, const QPointF &second) { m_pinch.move(first, second); });
}

void Canvas::setTool(const Tool &tool)
{
    endDrawing(); // as a drawing of the tool before
    m_desk.tool = &tool;
    takeCursor();
    finish();
}

void Canvas::setColor(const QColor &color)
{
    m_desk.ink.color = color;
    m_desk.inHand.setColor(color);
    restyle(ColorAct{color}, {{}, color});
}

void Canvas::setInkWidth(int width)
{
    m_desk.ink.width = width;
    const int inPage = m_desk.pageInk().width;
    restyle(WidthAct{inPage}, {{}, {}, inPage});
    takeCursor();
    if (!m_desk.inHand.author().hand())
        setCursor(m_cursor);
}

void Canvas::setDash(Qt::PenStyle dash)
{
    m_desk.ink.dash = dash;
    const Hand *hand = m_desk.inHand.author().hand();
    if (hand && hand->tool && hand->tool->takesDash)
        restyle(DashAct{dash}, {});
}

Ink Canvas::shownInk() const
{
    Ink ink = m_desk.ink;
    const Hand *hand = m_desk.inHand.hand();
    const Item *picked = page().item(m_desk.selection.object());
    const CInkGraph *object = nullptr;
    if (picked && picked->tool) // a picture has neither
        object = picked->object.get();
    else if (hand && hand->held != kNothing && hand->tool)
        object = hand->object.get();
    if (object) {
        ink.color = object->m_color;
        ink.width = qRound(object->m_nWidth / m_desk.document.density());
    }
    return ink;
}

void Canvas::setDrawer(const Drawer &drawer)
{
    m_desk.nameTag.setDrawer(drawer);
    followName();
}

void Canvas::takeCursor()
{
    const double ratio = view().ratio();
    m_cursor = m_desk.tool->cursorShowsWidth ? circleCursor(m_desk.pageInk().width * view().scale() / ratio, ratio)
                                             : QCursor(Qt::CrossCursor);
}

// To what the whole widget shows at zoom 1.
void Canvas::growPage()
{
    const QSize size = InkLesson::pageSizeAt(this->size(), m_desk.document.density());
    if (InkLesson::pageSizeProblem(size.expandedTo(page().rect().size())).isEmpty())
        m_desk.inHand.author().grow(size);
}

void Canvas::finish()
{
    endDrawing();
    m_desk.selection.clear();
    m_desk.inHand.author().finish();
    setCursor(m_cursor);
    emit changed();
}

ObjectId Canvas::chosen() const
{
    const Hand *hand = m_desk.inHand.hand();
    return m_desk.selection.isEmpty() && hand ? hand->held : m_desk.selection.object();
}

void Canvas::showSelection()
{
    update();
    emit changed();
}

// Another page, or another document.
void Canvas::showDocument()
{
    m_desk.selection.clear();
    growPage();
    m_desk.nameTag.setDensity(m_desk.document.density());
    m_desk.otherTags.setDensity(m_desk.document.density());
    takeCursor(); // of a width at another density
    showPainted(page().rect());
    setCursor(m_cursor);
    followView();
}

// Another part of the page, or another screen.
void Canvas::showView()
{
    m_desk.inHand.followView();
    followView();
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
    const ObjectId copy = m_desk.inHand.author().duplicate(original, kCopyOffset * m_desk.document.density());
    if (copy != kNothing && !m_desk.inHand.author().reopen(copy))
        m_desk.selection.pick(copy);
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
        m_desk.inHand.author().order(id, up ? page().items().back()->id : kNothing);
}

// The object that was picked, or taken in hand again, not one that is new.
void Canvas::restyle(const Act &act, const Change &change)
{
    const Hand *hand = m_desk.inHand.author().hand();
    if (hand && hand->held != kNothing)
        m_desk.inHand.author().act(act);
    if (m_desk.selection.isEmpty())
        return;
    Change other = change;
    other.object = m_desk.selection.object();
    m_desk.inHand.author().change(other);
}

bool Canvas::mayDiscard() const
{
    return !m_desk.selection.isEmpty() || m_desk.inHand.hand();
}

void Canvas::discard()
{
    m_desk.inHand.closeEditor(false);
    const ObjectId picked = m_desk.selection.object();
    m_desk.selection.clear();
    if (picked != kNothing)
        m_desk.inHand.author().remove({picked});
    else
        m_desk.inHand.author().discard();
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
    m_desk.inHand.setEdit(nullptr);
    Life life{kPictureTool};
    life.canvas = page().rect().size();
    life.picture = exactImage(shown);
    life.position = center.value_or(seen.topLeft() + QPoint(seen.width() / 2, seen.height() / 2)) -
                    QPoint(shown.width() / 2, shown.height() / 2);
    m_desk.inHand.author().insert(std::move(life));
}

void Canvas::undo()
{
    endDrawing();
    m_desk.selection.clear();
    m_desk.inHand.tellMoves();
    m_desk.document.undo();
    setCursor(m_cursor);
}

void Canvas::redo()
{
    endDrawing();
    m_desk.selection.clear();
    m_desk.inHand.tellMoves();
    m_desk.document.redo();
    setCursor(m_cursor);
}

void Canvas::clear()
{
    endDrawing();
    if (m_mayClear && !m_mayClear())
        return;
    m_desk.selection.clear();
    m_desk.inHand.author().clear();
}

// Never during a drag: asking an object what lies under the pointer moves the point that its drag starts from.
void Canvas::showHandle(const QPoint &pt)
{
    if (m_desk.navigator.isKeyHeld())
        return;
    CInkGraph *object = m_desk.inHand.author().object();
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
    const QRect tagged = m_desk.nameTag.follow(m_desk.document.author().object());
    if (!tagged.isEmpty())
        update(view().covering(tagged));
    for (const QRect &part : m_desk.otherTags.follow(page()))
        update(view().covering(part));
    emit changed();
}

void Canvas::setOthers(const std::map<int, Drawer> &others)
{
    m_desk.otherTags.setPeople(others);
    followName();
}

void Canvas::setPointers(const QList<OtherPointer> &pointers)
{
    update(m_others.setPointers(pointers));
}

void Canvas::showPointers(bool isShown)
{
    update(m_others.setShown(isShown));
}

void Canvas::followView()
{
    update(m_others.setView([this](const QPointF &pt) { return view().fromPage(pt); }, rect()));
}

// What is in the hand goes with the page.
void Canvas::leavePage()
{
    endDrawing();
    m_desk.selection.clear();
    m_desk.inHand.author().finish();
    setCursor(m_cursor);
}

void Canvas::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    paintView(painter, view(), page().surface(), event->region());
    if (const Item *item = page().item(m_desk.selection.object())) {
        painter.setPen(QPen(QColor(kAccentColor), 1, Qt::DashLine));
        painter.drawRect(view().fromPage(item->object->m_rcHot.translated(m_desk.selection.offset())));
    }
    if (m_ringed) {
        painter.setPen(QPen(QColor(kAccentColor), kRingWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(rect().adjusted(kRingWidth / 2, kRingWidth / 2, -kRingWidth / 2, -kRingWidth / 2));
    }
    m_others.paint(painter);
    painter.setTransform(view().transform(), true);
    m_desk.nameTag.paint(painter);
    m_desk.otherTags.paint(painter);
    paintLaser(painter);
    m_desk.inHand.painted();
}

void Canvas::resizeEvent(QResizeEvent * /*event*/)
{
    growPage();
    followView();
}

} // namespace Board
