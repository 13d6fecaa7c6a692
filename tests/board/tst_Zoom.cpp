#include "CanvasProbe.h"
#include "Paper.h"
#include "Patience.h"
#include "board/editors/TextEditor.h"
#include "board/look/Style.h"
#include "board/window/MainWindow.h"

#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QToolButton>

using namespace Board;

class tst_Zoom : public QObject, private CanvasProbe
{
    Q_OBJECT

private slots:
    void initTestCase() { m_screen = QTest::createTouchDevice(); }
    void init() { showCanvas(); }
    void cleanup() { m_canvas.reset(); }

    void zoomsWithTheWheelAboutThePointer();
    void stopsAtItsLimits();
    void movesThePageWithTheWheel();
    void drawsWhereThePointerIs();
    void repaintsNoMoreThanTheEventChanged();
    void showsASurround();
    void dragsThePageWithTheSpaceBar();
    void dragsThePageWithTheMiddleButton();
    void pinches();
    void movesThePageWithTwoFingers();
    void isSharpAgainNearOne();
    void drawsNothingAfterAPinch();
    void aRestingFingerDraws();
    void circlesTheTrueSizeOfTheEraser();
    void meetsTheHandles();
    void picksWithinThreePixelsOfTheScreen();
    void rendersTheSameTextAtAnyZoom();
    void putsAPictureInTheMiddleOfWhatIsSeen();
    void zoomsByKey();

private:
    void wheel(const QPoint &pos, const QPoint &delta, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWheelEvent event(pos, pos, {}, delta, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_canvas.get(), &event);
    }
    void zoomTo2() { wheel({100, 75}, {0, 480}, Qt::ControlModifier); } // corner (-100,-75)
    // To be sent by commit(false): with other events, a finger would rest for as long as the machine is busy.
    QTest::QTouchEventSequence touch() { return QTest::touchEvent(m_canvas.get(), m_screen, false); }
    QPoint corner() { return m_canvas->view().corner(); }
    double zoom() { return m_canvas->view().zoom(); }
    bool isUntouched() { return !isBusy() && m_canvas->page().picture() == blankPaper(kSize); }

    QTouchDevice *m_screen{}; // owned by Qt
};

void tst_Zoom::zoomsWithTheWheelAboutThePointer()
{
    for (int i = 0; i < 4; ++i)
        wheel({100, 75}, {0, 120}, Qt::ControlModifier);
    QVERIFY(qAbs(zoom() - 2) < 1e-9);
    QCOMPARE(corner(), QPoint(-100, -75));
    QCOMPARE(m_canvas->page().rect(), QRect(0, 0, 400, 300)); // as before
    for (int i = 0; i < 4; ++i)
        wheel({300, 200}, {0, -120}, Qt::ControlModifier);
    QVERIFY(zoom() == 1.0); // exactly
    QCOMPARE(corner(), QPoint(0, 0));
}

// A notch is a fourth of a doubling.
void tst_Zoom::stopsAtItsLimits()
{
    for (int i = 0; i < 7; ++i)
        wheel({100, 75}, {0, -120}, Qt::ControlModifier);
    QVERIFY(qAbs(zoom() - 0.29730) < 1e-5);
    wheel({100, 75}, {0, -120}, Qt::ControlModifier);
    QVERIFY(qAbs(zoom() - 0.25) < 1e-9);
    wheel({100, 75}, {0, -120}, Qt::ControlModifier);
    QVERIFY(zoom() == 0.25);
    wheel({100, 75}, {0, 19 * 120}, Qt::ControlModifier);
    QVERIFY(qAbs(zoom() - 6.72717) < 1e-5);
    wheel({100, 75}, {0, 120}, Qt::ControlModifier);
    QVERIFY(qAbs(zoom() - 8) < 1e-9);
    wheel({100, 75}, {0, 120}, Qt::ControlModifier);
    QVERIFY(zoom() == 8.0);
}

// 60 pixels a notch.
void tst_Zoom::movesThePageWithTheWheel()
{
    wheel({100, 75}, {0, -120});
    QCOMPARE(corner(), QPoint(0, 0)); // all of it is seen
    zoomTo2();
    wheel({100, 75}, {0, -120});
    QCOMPARE(corner(), QPoint(-100, -135));
    wheel({100, 75}, {0, 60}, Qt::ShiftModifier);
    QCOMPARE(corner(), QPoint(-70, -135));
    wheel({100, 75}, {-120, 0});
    QCOMPARE(corner(), QPoint(-130, -135));
    QCOMPARE(zoom(), 2.0);
    mouse(QEvent::MouseButtonPress, {20, 25});
    wheel({20, 25}, {0, 120}); // not under a pointer that draws
    QCOMPARE(corner(), QPoint(-130, -135));
}

// At zoom 2 the widget's (20,25) is the page's (60,50).
void tst_Zoom::drawsWhereThePointerIs()
{
    zoomTo2();
    drag({20, 25}, {140, 25});
    QCOMPARE(m_canvas->page().picture(),
             paper(kSize, [](QPainter &painter) { drawLine(painter, Qt::red, 4, QPoint(60, 50), QPoint(120, 50)); }));
    const QImage shown = m_canvas->grab().toImage();
    QCOMPARE(shown.pixel(80, 25), 0xFFFF0000U);
    QCOMPARE(shown.pixel(80, 22), 0xFFFF0000U);
    QCOMPARE(shown.pixel(80, 27), 0xFFFF0000U);
    QCOMPARE(shown.pixel(80, 19), 0xFFFFFFFFU);
    QCOMPARE(shown.pixel(80, 30), 0xFFFFFFFFU);
}

// At zoom 1 it would be (0,30)-(100,74); three more pixels to each side are mixed with it.
void tst_Zoom::repaintsNoMoreThanTheEventChanged()
{
    wheel({0, 0}, {0, 480}, Qt::ControlModifier);
    mouse(QEvent::MouseButtonPress, {40, 100});
    QCoreApplication::processEvents();
    PaintWatch watch(*m_canvas);
    mouse(QEvent::MouseMove, {160, 100});
    QTRY_COMPARE_WITH_TIMEOUT(watch.painted, QRegion(0, 57, 205, 96), kPatience);
}

void tst_Zoom::showsASurround()
{
    wheel({0, 0}, {0, -480}, Qt::ControlModifier);
    QCOMPARE(corner(), QPoint(100, 75));
    const QImage shown = m_canvas->grab().toImage();
    QCOMPARE(shown.pixel(99, 150), kSurroundColor);
    QCOMPARE(shown.pixel(100, 150), 0xFFFFFFFFU);
    QCOMPARE(shown.pixel(299, 150), 0xFFFFFFFFU);
    QCOMPARE(shown.pixel(300, 150), kSurroundColor);
    QCOMPARE(shown.pixel(200, 74), kSurroundColor);
    QCOMPARE(shown.pixel(200, 225), kSurroundColor);
}

void tst_Zoom::dragsThePageWithTheSpaceBar()
{
    zoomTo2();
    QTest::keyPress(m_canvas.get(), Qt::Key_Space);
    QCOMPARE(m_canvas->cursor().shape(), Qt::OpenHandCursor);
    hover({50, 50});
    QCOMPARE(m_canvas->cursor().shape(), Qt::OpenHandCursor);
    mouse(QEvent::MouseButtonPress, {200, 100});
    QCOMPARE(m_canvas->cursor().shape(), Qt::ClosedHandCursor);
    mouse(QEvent::MouseMove, {170, 110});
    QCOMPARE(corner(), QPoint(-130, -65));
    mouse(QEvent::MouseMove, {-230, 110}); // to the edge
    QCOMPARE(corner(), QPoint(-400, -65));
    QTest::keyRelease(m_canvas.get(), Qt::Key_Space); // the drag goes on
    mouse(QEvent::MouseMove, {-230, 100});
    QCOMPARE(corner(), QPoint(-400, -75));
    mouse(QEvent::MouseButtonRelease, {-230, 100});
    QCOMPARE(m_canvas->cursor().shape(), Qt::CrossCursor);
    mouse(QEvent::MouseMove, {0, 0});
    QCOMPARE(corner(), QPoint(-400, -75));
    QVERIFY(isUntouched());
    drag({20, 25}, {140, 25});
    QVERIFY(!isUntouched());
}

void tst_Zoom::dragsThePageWithTheMiddleButton()
{
    zoomTo2();
    mouse(QEvent::MouseButtonPress, {200, 100}, Qt::MiddleButton);
    mouse(QEvent::MouseButtonPress, {200, 100}); // draws nothing meanwhile
    mouse(QEvent::MouseMove, {210, 120});
    mouse(QEvent::MouseButtonRelease, {210, 120});
    mouse(QEvent::MouseMove, {215, 120});
    mouse(QEvent::MouseButtonRelease, {215, 120}, Qt::MiddleButton);
    QCOMPARE(corner(), QPoint(-85, -55));
    QVERIFY(isUntouched());
}

// From 100 pixels apart to 200, around (200,150).
void tst_Zoom::pinches()
{
    touch().press(0, QPoint(150, 150), m_canvas.get()).commit(false);
    touch().stationary(0).press(1, QPoint(250, 150), m_canvas.get()).commit(false);
    touch().move(0, QPoint(125, 150), m_canvas.get()).move(1, QPoint(275, 150), m_canvas.get()).commit(false);
    QCOMPARE(zoom(), 1.5);
    touch().move(0, QPoint(100, 150), m_canvas.get()).move(1, QPoint(300, 150), m_canvas.get()).commit(false);
    QCOMPARE(zoom(), 2.0);
    QCOMPARE(corner(), QPoint(-200, -150));
    touch().move(0, QPoint(199, 150), m_canvas.get()).move(1, QPoint(201, 150), m_canvas.get()).commit(false);
    QCOMPARE(zoom(), 0.25); // 16 pixels are the least that count, and a quarter is the limit
    touch().release(0, QPoint(199, 150), m_canvas.get()).release(1, QPoint(201, 150), m_canvas.get()).commit(false);
    QVERIFY(isUntouched());
}

void tst_Zoom::movesThePageWithTwoFingers()
{
    zoomTo2();
    touch().press(0, QPoint(150, 150), m_canvas.get()).press(1, QPoint(250, 150), m_canvas.get()).commit(false);
    touch().move(0, QPoint(170, 160), m_canvas.get()).move(1, QPoint(270, 160), m_canvas.get()).commit(false);
    QCOMPARE(zoom(), 2.0);
    QCOMPARE(corner(), QPoint(-80, -65));
    touch().release(0, QPoint(170, 160), m_canvas.get()).release(1, QPoint(270, 160), m_canvas.get()).commit(false);
    QVERIFY(isUntouched());
}

// Within four percent.
void tst_Zoom::isSharpAgainNearOne()
{
    touch().press(0, QPoint(100, 150), m_canvas.get()).press(1, QPoint(300, 150), m_canvas.get()).commit(false);
    touch().stationary(0).move(1, QPoint(307, 150), m_canvas.get()).commit(false);
    QVERIFY(zoom() == 1.0);
    touch().stationary(0).move(1, QPoint(308, 150), m_canvas.get()).commit(false);
    QCOMPARE(zoom(), 1.04);
    touch().release(0, QPoint(100, 150), m_canvas.get()).release(1, QPoint(308, 150), m_canvas.get()).commit(false);
}

void tst_Zoom::drawsNothingAfterAPinch()
{
    touch().press(0, QPoint(150, 150), m_canvas.get()).press(1, QPoint(250, 150), m_canvas.get()).commit(false);
    touch().release(0, QPoint(150, 150), m_canvas.get()).stationary(1).commit(false);
    touch().move(1, QPoint(350, 200), m_canvas.get()).commit(false);
    touch().release(1, QPoint(350, 200), m_canvas.get()).commit(false);
    QVERIFY(isUntouched());
    QCOMPARE(zoom(), 1.0);
    touch().press(0, QPoint(20, 50), m_canvas.get()).commit(false); // another gesture
    touch().move(0, QPoint(80, 50), m_canvas.get()).commit(false);
    touch().release(0, QPoint(80, 50), m_canvas.get()).commit(false);
    QVERIFY(!isUntouched());
}

// Then a second one is too late.
void tst_Zoom::aRestingFingerDraws()
{
    touch().press(0, QPoint(20, 50), m_canvas.get()).commit(false);
    touch().move(0, QPoint(26, 50), m_canvas.get()).commit(false); // not yet
    QVERIFY(isUntouched());
    QTRY_VERIFY_WITH_TIMEOUT(isBusy(), kPatience);
    touch().stationary(0).press(1, QPoint(250, 150), m_canvas.get()).commit(false);
    touch().move(0, QPoint(80, 50), m_canvas.get()).move(1, QPoint(300, 250), m_canvas.get()).commit(false);
    touch().release(0, QPoint(80, 50), m_canvas.get()).release(1, QPoint(300, 250), m_canvas.get()).commit(false);
    QCOMPARE(zoom(), 1.0);
    QCOMPARE(m_canvas->page().picture(),
             paper(kSize, [](QPainter &painter) { drawLine(painter, Qt::red, 4, QPoint(20, 50), QPoint(80, 50)); }));
}

// Two pixels around the circle.
void tst_Zoom::circlesTheTrueSizeOfTheEraser()
{
    m_canvas->setInkWidth(20);
    choose("eraser");
    QCOMPARE(m_canvas->cursor().pixmap().size(), QSize(24, 24));
    zoomTo2();
    QCOMPARE(m_canvas->cursor().pixmap().size(), QSize(44, 44));
    QCOMPARE(m_canvas->cursor().hotSpot(), QPoint(22, 22));
}

// The frame of the box (70,60)-(120,90) begins at (60,50), which is shown at (20,25).
void tst_Zoom::meetsTheHandles()
{
    zoomTo2();
    choose("rectangle");
    drag({40, 45}, {140, 105});
    hover({20, 25});
    QCOMPARE(m_canvas->cursor().shape(), Qt::SizeFDiagCursor);
    hover({160, 125}); // (130,100)
    QCOMPARE(m_canvas->cursor().shape(), Qt::SizeFDiagCursor);
    hover({90, 75});
    QCOMPARE(m_canvas->cursor().shape(), Qt::SizeAllCursor);
    hover({300, 200});
    QCOMPARE(m_canvas->cursor().shape(), Qt::CrossCursor);
}

// At a quarter of the size those are twelve of the page.
void tst_Zoom::picksWithinThreePixelsOfTheScreen()
{
    drag({100, 100}, {300, 100}); // rows 98 to 101
    choose("remove");
    drag({200, 106}, {200, 106});
    QVERIFY(m_canvas->page().items().size() == 1);
    wheel({0, 0}, {0, -960}, Qt::ControlModifier); // the page's (200,y) is at (200,113+y/4)
    drag({200, 142}, {200, 142});                  // 116
    QVERIFY(m_canvas->page().items().size() == 1);
    drag({200, 141}, {200, 141}); // 112
    QVERIFY(m_canvas->page().items().empty());
}

void tst_Zoom::rendersTheSameTextAtAnyZoom()
{
    QImage pictures[2];
    for (QImage &picture : pictures) {
        const bool zooms = &picture == &pictures[1];
        showCanvas();
        choose("text");
        drag({50, 60}, {250, 200});
        auto *editor = m_canvas->findChild<TextEditor *>();
        QVERIFY(editor);
        QCOMPARE(editor->geometry(), QRect(50, 60, 201, 125));
        if (zooms) {
            wheel({0, 0}, {0, 480}, Qt::ControlModifier);
            QCOMPARE(editor->geometry(), QRect(100, 120, 402, 250));
        }
        QTest::keyClicks(editor->findChild<QTextEdit *>(), QStringLiteral("Some words"));
        m_canvas->finish();
        picture = m_canvas->page().picture().copy();
    }
    QVERIFY(pictures[0] != blankPaper(kSize));
    QCOMPARE(pictures[1], pictures[0]);
}

// At zoom 2 that is the page's (50,37)-(249,187), where 300 pixels find no room.
void tst_Zoom::putsAPictureInTheMiddleOfWhatIsSeen()
{
    QImage green(300, 30, QImage::Format_ARGB32);
    green.fill(Qt::green);
    zoomTo2();
    m_canvas->insertPicture(green);
    m_canvas->finish();
    QCOMPARE(m_canvas->page().picture(),
             paper(kSize, [](QPainter &painter) { painter.fillRect(50, 102, 200, 20, Qt::green); }));
}

void tst_Zoom::zoomsByKey()
{
    MainWindow window(QSize(600, 400));
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window, kPatience));
    const auto zoom = [&] { return window.canvas().view().zoom(); };
    auto *control = window.findChild<QToolButton *>(QStringLiteral("zoom"));
    QCOMPARE(control->text(), QStringLiteral("100 %"));
    QTest::keyClick(&window, Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(zoom(), 1.25);
    QCOMPARE(control->text(), QStringLiteral("125 %"));
    QTest::keyClick(&window, Qt::Key_Equal, Qt::ControlModifier);
    QCOMPARE(zoom(), 1.5);
    QTest::keyClick(&window, Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(zoom(), 1.0);
    QTest::keyClick(&window, Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(zoom(), 0.75);
    QCOMPARE(control->text(), QStringLiteral("75 %"));
    control->click();
    QCOMPARE(zoom(), 1.0);
}

QTEST_MAIN(tst_Zoom)
#include "tst_Zoom.moc"
