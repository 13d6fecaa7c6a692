#include "CanvasProbe.h"
#include "Paper.h"
#include "Patience.h"

#include "PointerEvent.h"

#include <QtCore/QMimeData>
#include <QtCore/QTemporaryDir>
#include <QtCore/QUrl>
#include <QtGui/QDropEvent>
#include <QtGui/QTabletEvent>

using namespace Board;

namespace {

// An object that is drawn with two gestures, and what it was told.
class TwoGestures : public CInkGraph
{
public:
    using CInkGraph::Draw;
    bool FinishGraph() override { return false; }
    QRect GetUpdateRect() override { return {}; }
    void AddPoint(int code, QPoint /*pt*/, QRect & /*update*/) override { s_codes.push_back(code); }
    ModifyType AroundHotPts(QPoint /*pt*/) override
    {
        s_codes.push_back(0);
        return MT_TOP;
    }

    static std::vector<int> s_codes; // 0 for a question about the handles
};

std::vector<int> TwoGestures::s_codes;

const InkLesson::Tool kTwoGestures{
    "two", [](const QSize & /*canvas*/) -> std::unique_ptr<CInkGraph> { return std::make_unique<TwoGestures>(); }};

Tool twoGestures()
{
    Tool tool{"two", "Two gestures", "", {}};
    tool.kind = &kTwoGestures;
    return tool;
}

const Tool kTwoGesturesTool = twoGestures();

QImage plainPicture(const QSize &size)
{
    QImage picture(size, QImage::Format_ARGB32);
    picture.fill(Qt::green);
    return picture;
}

QImage paperWithGreen(const QRect &area)
{
    return paper({400, 300}, [&](QPainter &painter) { painter.fillRect(area, Qt::green); });
}

} // namespace

class tst_Canvas : public QObject, private CanvasProbe
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void drawsAndEditsALineWithTheMouse();
    void stretchesTurnsAndMovesARectangle();
    void theLettingGoPressStartsNothing();
    void drawsWithAPen();
    void drawsWithAFinger();
    void ignoresASecondFinger();
    void aCancelledTouchKeepsTheInk();
    void ignoresTheOtherButtons();
    void ignoresMouseEventsMadeFromTouches();
    void oneDeviceAtATime();
    void drawsTwoFastStrokes();
    void tellsOnlyAnObjectInTheMakingOfADoubleClick();
    void neverAsksForHandlesDuringADrag();
    void showsWhatAPressWouldDo();
    void cursorsTurnWithTheObject();
    void letsGoWhenTheToolChanges();
    void repaintsNoMoreThanTheEventChanged();
    void showsTheSurface();
    void keepsInkInASmallerWindow();
    void insertsAPictureInTheMiddle();
    void makesALargePictureFit();
    void takesADroppedPicture();
    void takesADroppedFile();
    void refusesADroppedText();

private:
    void drop(const QMimeData &data, const QPoint &pos);
    void pen(QEvent::Type type, const QPointF &pos, Qt::MouseButton button = Qt::LeftButton);
    // To be sent by commit(false): with other events, a finger would rest for as long as the machine is busy.
    QTest::QTouchEventSequence touch() { return QTest::touchEvent(m_canvas.get(), m_screen, false); }

    QTouchDevice *m_screen{}; // owned by Qt
};

void tst_Canvas::initTestCase()
{
    m_screen = QTest::createTouchDevice();
}

void tst_Canvas::init()
{
    showCanvas();
    TwoGestures::s_codes.clear();
}

void tst_Canvas::cleanup()
{
    m_canvas.reset();
}

void tst_Canvas::pen(QEvent::Type type, const QPointF &pos, Qt::MouseButton button)
{
    QTabletEvent event(type, pos, pos, QTabletEvent::Stylus, QTabletEvent::Pen, 0.5, 0, 0, 0, 0, 0, Qt::NoModifier, 1,
                       button, button);
    event.ignore();
    QCoreApplication::sendEvent(m_canvas.get(), &event);
    QVERIFY(event.isAccepted()); // or a mouse event would follow
}

void tst_Canvas::drawsAndEditsALineWithTheMouse()
{
    choose("line");
    drag({50, 50}, {150, 100});
    QVERIFY(isBusy());
    drag({150, 100}, {200, 150}); // its second end
    drag({100, 80}, {130, 90});   // anywhere between: moves it by (30,10)
    QVERIFY(isBusy());
    QCOMPARE(m_canvas->page().picture(), blankPaper(kSize));

    drag({300, 20}, {300, 20});
    QVERIFY(!isBusy());
    QCOMPARE(m_canvas->page().picture(),
             paper(kSize, [](QPainter &painter) { drawLine(painter, Qt::red, 4, QPoint(80, 60), QPoint(230, 160)); }));
}

// Frame (90,90)-(210,170) around the box (100,100)-(200,160). Dragging its corner (210,170) to (330,250) doubles it
// seen from (90,90): frame (90,90)-(330,250), box (110,110)-(310,230).
void tst_Canvas::stretchesTurnsAndMovesARectangle()
{
    choose("rectangle");
    drag({100, 100}, {200, 160});
    drag({210, 170}, {330, 250});
    QCOMPARE(m_canvas->page().surface().pixel(310, 170), 0xFFFF0000);

    // Each drag is a step, after which the frame lies 10 around the box again: (100,100)-(320,240). The knob stands 30
    // above the middle of its upper edge, at (210,70), the centre is (210,170). Straight down is 180 degrees, which
    // maps (x,y) to (420-x, 340-y).
    drag({210, 70}, {210, 270});
    QCOMPARE(object()->GetRotateAngle(), 180.0f);
    QCOMPARE(m_canvas->page().surface().pixel(210, 270), 0xFF4040FF); // the knob
    drag({210, 170}, {220, 165});
    drag({390, 10}, {390, 10});
    QVERIFY(!isBusy());

    // An outline of a box reaches one pixel beyond its far corner, (120,105)-(321,226), and is turned about (220,165).
    const QImage &picture = m_canvas->page().picture();
    for (const QPoint &ink : {QPoint(119, 165), QPoint(319, 165), QPoint(220, 104), QPoint(220, 224)})
        QCOMPARE(picture.pixel(ink), 0xFFFF0000);
    for (const QPoint &blank :
         {QPoint(115, 165), QPoint(323, 165), QPoint(220, 100), QPoint(220, 228), QPoint(220, 165)})
        QCOMPARE(picture.pixel(blank), 0xFFFFFFFF);
    QCOMPARE(m_canvas->page().surface(), picture);
}

void tst_Canvas::theLettingGoPressStartsNothing()
{
    choose("rectangle");
    drag({100, 100}, {200, 160});
    drag({250, 50}, {380, 200});
    QVERIFY(!isBusy());
    const QImage box =
        paper(kSize, [](QPainter &painter) { drawBox(painter, Qt::red, 4, QPoint(100, 100), QPoint(200, 160)); });
    QCOMPARE(m_canvas->page().picture(), box);
    QCOMPARE(m_canvas->page().surface(), box);

    drag({250, 50}, {380, 200}); // the next one does
    QVERIFY(isBusy());
}

// Rows 48 to 51. Positions between pixels are cut, never rounded.
void tst_Canvas::drawsWithAPen()
{
    pen(QEvent::TabletPress, {20.9, 50.9});
    pen(QEvent::TabletMove, {80.9, 50.9});
    QCOMPARE(m_canvas->page().surface().pixel(50, 48), 0xFFFF0000);
    pen(QEvent::TabletRelease, {80.9, 50.9});
    QVERIFY(!isBusy());
    QCOMPARE(m_canvas->page().picture().pixel(50, 47), 0xFFFFFFFF);
    QCOMPARE(m_canvas->page().picture().pixel(50, 48), 0xFFFF0000);
    QCOMPARE(m_canvas->page().picture().pixel(50, 51), 0xFFFF0000);
    QCOMPARE(m_canvas->page().picture().pixel(50, 52), 0xFFFFFFFF);

    pen(QEvent::TabletPress, {20, 200}, Qt::RightButton); // the button on the barrel
    pen(QEvent::TabletMove, {80, 200}, Qt::RightButton);
    pen(QEvent::TabletRelease, {80, 200}, Qt::RightButton);
    QCOMPARE(m_canvas->page().picture().pixel(50, 200), 0xFFFFFFFF);
}

void tst_Canvas::drawsWithAFinger()
{
    choose("rectangle");
    touch().press(0, QPoint(100, 100), m_canvas.get()).commit(false);
    touch().move(0, QPoint(150, 130), m_canvas.get()).commit(false);
    touch().move(0, QPoint(200, 160), m_canvas.get()).commit(false);
    touch().release(0, QPoint(200, 160), m_canvas.get()).commit(false);
    QVERIFY(isBusy());

    touch().press(0, QPoint(300, 20), m_canvas.get()).commit(false);
    touch().release(0, QPoint(300, 20), m_canvas.get()).commit(false);
    QVERIFY(!isBusy());
    QCOMPARE(m_canvas->page().picture(),
             paper(kSize, [](QPainter &painter) { drawBox(painter, Qt::red, 4, QPoint(100, 100), QPoint(200, 160)); }));
}

void tst_Canvas::ignoresASecondFinger()
{
    choose("line");
    touch().press(0, QPoint(50, 50), m_canvas.get()).commit(false);
    touch().move(0, QPoint(60, 50), m_canvas.get()).commit(false); // or both would move the page
    touch().stationary(0).press(1, QPoint(300, 200), m_canvas.get()).commit(false);
    touch().stationary(0).move(1, QPoint(300, 250), m_canvas.get()).commit(false);
    touch().stationary(0).release(1, QPoint(300, 250), m_canvas.get()).commit(false);
    touch().move(0, QPoint(100, 50), m_canvas.get()).commit(false);
    touch().stationary(0).press(2, QPoint(300, 200), m_canvas.get()).commit(false);
    touch().release(0, QPoint(150, 50), m_canvas.get()).stationary(2).commit(false);
    touch().move(2, QPoint(200, 280), m_canvas.get()).commit(false);
    touch().release(2, QPoint(200, 280), m_canvas.get()).commit(false);
    m_canvas->finish();
    QCOMPARE(m_canvas->page().picture(),
             paper(kSize, [](QPainter &painter) { drawLine(painter, Qt::red, 4, QPoint(50, 50), QPoint(150, 50)); }));
}

void tst_Canvas::aCancelledTouchKeepsTheInk()
{
    touch().press(0, QPoint(20, 50), m_canvas.get()).commit(false);
    touch().move(0, QPoint(80, 50), m_canvas.get()).commit(false);
    QTouchEvent cancel(QEvent::TouchCancel, m_screen);
    QCoreApplication::sendEvent(m_canvas.get(), &cancel);
    QVERIFY(!isBusy());
    QCOMPARE(m_canvas->page().picture().pixel(50, 50), 0xFFFF0000);
    touch().release(0, QPoint(80, 250), m_canvas.get()).commit(false);
    QCOMPARE(m_canvas->page().picture().pixel(80, 200), 0xFFFFFFFF);
}

void tst_Canvas::ignoresTheOtherButtons()
{
    mouse(QEvent::MouseButtonPress, {20, 50}, Qt::RightButton);
    mouse(QEvent::MouseMove, {80, 50}, Qt::RightButton);
    mouse(QEvent::MouseButtonRelease, {80, 50}, Qt::RightButton);
    QVERIFY(!canUndo());
}

void tst_Canvas::ignoresMouseEventsMadeFromTouches()
{
    mouse(QEvent::MouseButtonPress, {20, 50}, Qt::LeftButton, Qt::MouseEventSynthesizedBySystem);
    mouse(QEvent::MouseMove, {80, 50}, Qt::LeftButton, Qt::MouseEventSynthesizedBySystem);
    mouse(QEvent::MouseButtonRelease, {80, 50}, Qt::LeftButton, Qt::MouseEventSynthesizedBySystem);
    QVERIFY(!canUndo());
}

void tst_Canvas::oneDeviceAtATime()
{
    choose("line");
    pen(QEvent::TabletPress, {50, 50});
    drag({300, 200}, {350, 250});
    pen(QEvent::TabletMove, {100, 50});
    pen(QEvent::TabletRelease, {150, 50});
    m_canvas->finish();
    QCOMPARE(m_canvas->page().picture(),
             paper(kSize, [](QPainter &painter) { drawLine(painter, Qt::red, 4, QPoint(50, 50), QPoint(150, 50)); }));
}

// The window system turns the second press into a double click.
void tst_Canvas::drawsTwoFastStrokes()
{
    drag({20, 50}, {80, 50});
    mouse(QEvent::MouseButtonDblClick, {20, 100});
    mouse(QEvent::MouseMove, {80, 100});
    mouse(QEvent::MouseButtonRelease, {80, 100});
    QCOMPARE(m_canvas->page().picture().pixel(50, 50), 0xFFFF0000);
    QCOMPARE(m_canvas->page().picture().pixel(50, 100), 0xFFFF0000);
    m_canvas->undo();
    QCOMPARE(m_canvas->page().picture().pixel(50, 50), 0xFFFF0000);
    QCOMPARE(m_canvas->page().picture().pixel(50, 100), 0xFFFFFFFF);
}

void tst_Canvas::tellsOnlyAnObjectInTheMakingOfADoubleClick()
{
    m_canvas->setTool(kTwoGesturesTool);
    mouse(QEvent::MouseButtonDblClick, {50, 50}); // the first press of an object
    mouse(QEvent::MouseButtonRelease, {50, 50});
    mouse(QEvent::MouseButtonPress, {90, 90});
    mouse(QEvent::MouseButtonRelease, {90, 90});
    mouse(QEvent::MouseButtonDblClick, {90, 90});
    mouse(QEvent::MouseButtonRelease, {90, 90});
    auto &codes = TwoGestures::s_codes;
    codes.erase(std::remove(codes.begin(), codes.end(), 0), codes.end());
    QCOMPARE(codes, (std::vector<int>{PT_DOWN, PT_UP, PT_DOWN, PT_UP, PT_DOWN, PT_DBLCLK, PT_UP}));
}

void tst_Canvas::neverAsksForHandlesDuringADrag()
{
    m_canvas->setTool(kTwoGesturesTool);
    hover({10, 10});
    drag({50, 50}, {90, 90});
    hover({95, 95});
    QCOMPARE(TwoGestures::s_codes, (std::vector<int>{PT_DOWN, PT_MOVE, PT_MOVE, PT_UP, 0, 0}));
}

void tst_Canvas::showsWhatAPressWouldDo()
{
    choose("rectangle");
    QCOMPARE(m_canvas->cursor().shape(), Qt::CrossCursor);
    drag({100, 100}, {200, 160}); // frame (90,90)-(210,170)
    const std::pair<QPointF, Qt::CursorShape> places[] = {
        {{90, 90}, Qt::SizeFDiagCursor}, {{150, 90}, Qt::SizeVerCursor},    {{210, 90}, Qt::SizeBDiagCursor},
        {{90, 130}, Qt::SizeHorCursor},  {{210, 130}, Qt::SizeHorCursor},   {{90, 170}, Qt::SizeBDiagCursor},
        {{150, 170}, Qt::SizeVerCursor}, {{210, 170}, Qt::SizeFDiagCursor}, {{150, 60}, Qt::BitmapCursor},
        {{130, 130}, Qt::SizeAllCursor}, {{300, 20}, Qt::CrossCursor},
    };
    for (const auto &[pos, shape] : places) {
        hover(pos);
        QCOMPARE(m_canvas->cursor().shape(), shape);
    }
    hover({130, 130});
    m_canvas->finish();
    QCOMPARE(m_canvas->cursor().shape(), Qt::CrossCursor);
}

// Turned by 90 degrees about (150,130) the corner (90,90) comes to (190,70), the upper edge's handle (150,90) to
// (190,130) and the knob (150,60) to (220,130).
void tst_Canvas::cursorsTurnWithTheObject()
{
    choose("rectangle");
    drag({100, 100}, {200, 160});
    drag({150, 60}, {250, 130});
    QCOMPARE(object()->GetRotateAngle(), 90.0f);
    hover({190, 70});
    QCOMPARE(m_canvas->cursor().shape(), Qt::SizeBDiagCursor);
    hover({190, 130});
    QCOMPARE(m_canvas->cursor().shape(), Qt::SizeHorCursor);
    hover({220, 130});
    QCOMPARE(m_canvas->cursor().shape(), Qt::BitmapCursor);
}

void tst_Canvas::letsGoWhenTheToolChanges()
{
    choose("rectangle");
    mouse(QEvent::MouseButtonPress, {100, 100});
    mouse(QEvent::MouseMove, {200, 160});
    choose("line"); // in the middle of the drag
    QVERIFY(!isBusy());
    mouse(QEvent::MouseMove, {300, 250});
    mouse(QEvent::MouseButtonRelease, {300, 250});
    QVERIFY(!isBusy());
    QCOMPARE(m_canvas->page().picture(),
             paper(kSize, [](QPainter &painter) { drawBox(painter, Qt::red, 4, QPoint(100, 100), QPoint(200, 160)); }));
}

// The segment (20,50)-(80,50), made 4 pixels higher below and grown by 20: (0,30)-(100,74).
void tst_Canvas::repaintsNoMoreThanTheEventChanged()
{
    mouse(QEvent::MouseButtonPress, {20, 50});
    QCoreApplication::processEvents();
    PaintWatch watch(*m_canvas);
    mouse(QEvent::MouseMove, {80, 50});
    QTRY_COMPARE_WITH_TIMEOUT(watch.painted, QRegion(0, 30, 101, 45), kPatience);
}

void tst_Canvas::showsTheSurface()
{
    choose("rectangle");
    drag({100, 100}, {200, 160});
    QCOMPARE(m_canvas->grab().toImage().convertToFormat(QImage::Format_RGB32), m_canvas->page().surface());
}

void tst_Canvas::keepsInkInASmallerWindow()
{
    drag({200, 250}, {380, 250});
    const QImage picture = m_canvas->page().picture().copy();
    m_canvas->resize(100, 80);
    QTRY_COMPARE_WITH_TIMEOUT(m_canvas->size(), QSize(100, 80), kPatience);
    QCOMPARE(m_canvas->page().picture(), picture);
    m_canvas->resize(500, 320);
    QTRY_COMPARE_WITH_TIMEOUT(m_canvas->page().rect(), QRect(0, 0, 500, 320), kPatience);
    QCOMPARE(m_canvas->page().picture().copy(0, 0, 400, 300), picture);
}

// 100 x 60 pixels around (200,150), moved by (30,10).
void tst_Canvas::insertsAPictureInTheMiddle()
{
    m_canvas->insertPicture(plainPicture({100, 60}));
    QVERIFY(isBusy());
    QVERIFY(!isForming());
    QCOMPARE(m_canvas->page().surface().pixel(170, 130), 0xFF00FF00U);
    QCOMPARE(m_canvas->page().picture(), blankPaper(kSize));

    drag({200, 150}, {230, 160});
    m_canvas->finish();
    QCOMPARE(m_canvas->page().picture(), paperWithGreen({180, 130, 100, 60}));
    QCOMPARE(m_canvas->page().surface(), m_canvas->page().picture());
    m_canvas->undo();
    QCOMPARE(m_canvas->page().picture(), paperWithGreen({150, 120, 100, 60}));
    m_canvas->undo();
    QCOMPARE(m_canvas->page().picture(), blankPaper(kSize));
}

void tst_Canvas::makesALargePictureFit()
{
    m_canvas->insertPicture(plainPicture({800, 300}));
    m_canvas->finish();
    QCOMPARE(m_canvas->page().picture(), paperWithGreen({0, 75, 400, 150}));
}

void tst_Canvas::drop(const QMimeData &data, const QPoint &pos)
{
    QDragEnterEvent enter(pos, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_canvas.get(), &enter);
    if (!enter.isAccepted())
        return;
    QDropEvent event(pos, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_canvas.get(), &event);
}

void tst_Canvas::takesADroppedPicture()
{
    QMimeData data;
    data.setImageData(plainPicture({40, 20}));
    drop(data, {100, 110});
    QVERIFY(isBusy());
    m_canvas->finish();
    QCOMPARE(m_canvas->page().picture(), paperWithGreen({80, 100, 40, 20}));
}

void tst_Canvas::takesADroppedFile()
{
    const QTemporaryDir folder;
    const QString good = folder.filePath(QStringLiteral("good.png"));
    QVERIFY(plainPicture({40, 20}).save(good));
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(good)});
    drop(data, {100, 110});
    m_canvas->finish();
    QCOMPARE(m_canvas->page().picture(), paperWithGreen({80, 100, 40, 20}));

    QSignalSpy refused(m_canvas.get(), &Canvas::pictureRefused);
    const QString missing = folder.filePath(QStringLiteral("missing.png"));
    data.setUrls({QUrl::fromLocalFile(missing)});
    drop(data, {100, 110});
    QVERIFY(!isBusy());
    QCOMPARE(refused.count(), 1);
    QVERIFY(refused.constFirst().constFirst().toString().startsWith(missing + QStringLiteral(": cannot be shown: ")));
}

void tst_Canvas::refusesADroppedText()
{
    QMimeData data;
    data.setText(QStringLiteral("words"));
    drop(data, {100, 110});
    QVERIFY(!isBusy());
}

QTEST_MAIN(tst_Canvas)
#include "tst_Canvas.moc"
