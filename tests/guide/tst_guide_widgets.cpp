// What the guide says of events and of text, with the mouse, a pen, a finger and the keyboard.

#include "GuideTools.h"
#include "Pad.h"
#include "Sharing.h"
#include "TextBox.h"

#include "CInkPencil.h"
#include "CInkPolygon.h"
#include "CInkRectangle.h"
#include "CInkText.h"
#include "Patience.h"

#include <QtGui/QWindow>
#include <QtTest/QtTest>

#include <algorithm>
#include <cstdlib>

using Guide::Page;

namespace {

constexpr QRgb kWhite = 0xFFFFFFFF, kRed = 0xFFFF0000, kGreen = 0xFF00FF00;

Page::Object redPencil()
{
    return made<CInkPencil>(Qt::red, 10);
}

Page::Object redBox()
{
    return made<CInkRectangle>(Qt::red, 10);
}

Page::Object redPolygon()
{
    return made<CInkPolygon>(Qt::red, 10);
}

// A page without a window that shows it.
struct ShownPage : QWidget
{
    ShownPage() { setFixedSize(kPage); }
    void paintEvent(QPaintEvent * /*event*/) override { QPainter(this).drawImage(0, 0, page.layers().surface); }

    Page page{kPage};
};

QImage shown(QWidget &widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

int largestDifference(const QImage &first, const QImage &second)
{
    int largest = 0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x)
            largest = std::max(largest, std::abs(qGreen(first.pixel(x, y)) - qGreen(second.pixel(x, y))));
    }
    return largest;
}

} // namespace

class tst_guide_widgets : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules("default.debug=false"); }

    void quickStrokesAreAllDrawn();
    void doubleClickCompletesAPolygon();
    void doubleClickOnABoxIsAPress();
    void plainWindowIsSentThePressAndTheDoubleClick();
    void mouseEventsMadeFromOthersAreNotTakenTwice();
    void penDraws();
    void firstFingerDraws();
    void takenFingerCancelsWhatItWasDrawing();
    void takenFingerLeavesAnEditedObjectWhereItIs();
    void escapeCancelsAndReturnCommits();

    void textStaysWhereItWasWritten();
    void movedFrameTakesItsEditorAlong();
    void pressInsideTheFrameCountsAsOutside();
    void emptyTextIsDropped();
    void flagOfAPressOutsideStays();
    void finishingWithoutAnImageMovesTheFrame();
    void finishingAfterTheImageMovesThePicture();

    void labelIsPaintedWhereTheObjectHasLaidItOut();

private:
    void show(Page::Object (*tool)())
    {
        m_pad = std::make_unique<Guide::Pad>(kPage, tool);
        m_pad->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_pad.get(), kPatience));
    }

    // As the window system tells of it, so that Qt makes double clicks of what is quick enough.
    static void send(QWindow *window, QEvent::Type type, const QPoint &at, int time)
    {
        const bool held = type != QEvent::MouseButtonRelease;
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        qt_handleMouseEvent(window, at, window->mapToGlobal(at), held ? Qt::LeftButton : Qt::NoButton, button, type,
                            Qt::NoModifier, time);
        QCoreApplication::processEvents();
    }

    void drag(const QPoint &from, const QPoint &to, int time)
    {
        send(m_pad->windowHandle(), QEvent::MouseButtonPress, from, time);
        if (from != to)
            send(m_pad->windowHandle(), QEvent::MouseMove, to, time + 20);
        send(m_pad->windowHandle(), QEvent::MouseButtonRelease, to, time + 40);
    }

    void sendTablet(QEvent::Type type, const QPoint &at)
    {
        const bool held = type != QEvent::TabletRelease;
        QTabletEvent event(type, at, m_pad->mapToGlobal(at), QTabletEvent::Stylus, QTabletEvent::Pen, 0.5, 0, 0, 0, 0,
                           0, Qt::NoModifier, 1, Qt::LeftButton, held ? Qt::LeftButton : Qt::NoButton);
        event.ignore();
        QCoreApplication::sendEvent(m_pad.get(), &event);
        QVERIFY(event.isAccepted());
    }

    QRgb pixel(int x, int y) { return shown(*m_pad).pixel(x, y); }
    const Guide::Layers &layers() { return m_pad->page().layers(); }
    std::size_t objects() { return m_pad->page().committed().size(); }

    std::unique_ptr<Guide::Pad> m_pad;
};

void tst_guide_widgets::quickStrokesAreAllDrawn()
{
    show(redPencil);
    drag({50, 50}, {54, 50}, 1000); // no farther: Qt would not take the next press for a second one
    drag({52, 52}, {52, 150}, 1080);
    QCOMPARE(objects(), std::size_t(2));
    QCOMPARE(pixel(51, 50), kRed);
    QCOMPARE(pixel(52, 120), kRed);
    for (const auto &object : m_pad->page().committed())
        QCOMPARE(object->m_graphData.size(), 3); // press, move, release; the double click is no point of its own
}

void tst_guide_widgets::doubleClickCompletesAPolygon()
{
    show(redPolygon);
    drag({100, 100}, {300, 100}, 100000);
    drag({200, 200}, {200, 200}, 110000);
    QCOMPARE(pixel(150, 150), kWhite);
    drag({200, 200}, {200, 200}, 110080);
    QCOMPARE(pixel(150, 150), kRed); // the edge that closes it
    QCOMPARE(objects(), std::size_t(0));
    drag({20, 280}, {20, 280}, 120000);
    QCOMPARE(objects(), std::size_t(1));
}

void tst_guide_widgets::doubleClickOnABoxIsAPress()
{
    show(redBox);
    drag({100, 100}, {200, 180}, 200000);
    drag({20, 280}, {20, 280}, 210000);
    QCOMPARE(objects(), std::size_t(1));
    drag({20, 280}, {90, 200}, 210080); // the double click begins the next one
    QCOMPARE(pixel(20, 240), kRed);
}

// Windows without widgets, and items of Qt Quick in them, hear of both.
void tst_guide_widgets::plainWindowIsSentThePressAndTheDoubleClick()
{
    struct Heard : QWindow
    {
        bool event(QEvent *event) override
        {
            if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick)
                types.append(event->type());
            return QWindow::event(event);
        }
        QVector<int> types;
    };
    Heard window;
    window.resize(100, 100);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window, kPatience));
    for (const int time : {300000, 300080}) {
        send(&window, QEvent::MouseButtonPress, {50, 50}, time);
        send(&window, QEvent::MouseButtonRelease, {50, 50}, time + 20);
    }
    QCOMPARE(window.types,
             (QVector<int>{QEvent::MouseButtonPress, QEvent::MouseButtonPress, QEvent::MouseButtonDblClick}));
}

void tst_guide_widgets::mouseEventsMadeFromOthersAreNotTakenTwice()
{
    show(redPencil);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick}) {
        QMouseEvent event(type, {50, 50}, {50, 50}, {50, 50}, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier,
                          Qt::MouseEventSynthesizedByQt);
        QCoreApplication::sendEvent(m_pad.get(), &event);
    }
    sendTablet(QEvent::TabletMove, {150, 50});
    QCOMPARE(layers().surface.pixel(100, 50), kWhite);
}

void tst_guide_widgets::penDraws()
{
    show(redPencil);
    sendTablet(QEvent::TabletMove, {20, 20});
    sendTablet(QEvent::TabletPress, {50, 50});
    sendTablet(QEvent::TabletMove, {150, 50});
    sendTablet(QEvent::TabletRelease, {150, 50});
    QCOMPARE(pixel(100, 50), kRed);
    QCOMPARE(pixel(35, 35), kWhite);
    QCOMPARE(objects(), std::size_t(1));
}

void tst_guide_widgets::firstFingerDraws()
{
    show(redPencil);
    QTouchDevice *screen = QTest::createTouchDevice();
    QTest::touchEvent(m_pad.get(), screen).press(7, {50, 50}, m_pad.get());
    QTest::touchEvent(m_pad.get(), screen).stationary(7).press(8, {50, 200}, m_pad.get());
    QTest::touchEvent(m_pad.get(), screen).move(7, {150, 50}, m_pad.get()).move(8, {150, 200}, m_pad.get());
    QTest::touchEvent(m_pad.get(), screen).release(7, {150, 50}, m_pad.get()).release(8, {150, 200}, m_pad.get());
    QCOMPARE(pixel(100, 50), kRed);
    QCOMPARE(pixel(100, 200), kWhite);
    QCOMPARE(objects(), std::size_t(1));
}

void tst_guide_widgets::takenFingerCancelsWhatItWasDrawing()
{
    show(redBox);
    QTouchDevice *screen = QTest::createTouchDevice();
    QTest::touchEvent(m_pad.get(), screen).press(7, {50, 50}, m_pad.get());
    QTest::touchEvent(m_pad.get(), screen).move(7, {150, 150}, m_pad.get());
    QCOMPARE(pixel(50, 100), kRed);
    QTouchEvent taken(QEvent::TouchCancel, screen);
    QCoreApplication::sendEvent(m_pad.get(), &taken);
    QCOMPARE(shown(*m_pad), Guide::Layers(kPage).page);
    QTest::touchEvent(m_pad.get(), screen).release(7, {150, 150}, m_pad.get());
    QCOMPARE(objects(), std::size_t(0));
}

void tst_guide_widgets::takenFingerLeavesAnEditedObjectWhereItIs()
{
    show(redBox);
    drag({50, 50}, {150, 150}, 400000);
    QTouchDevice *screen = QTest::createTouchDevice();
    QTest::touchEvent(m_pad.get(), screen).press(7, {100, 100}, m_pad.get());
    QTest::touchEvent(m_pad.get(), screen).move(7, {160, 100}, m_pad.get());
    QTouchEvent taken(QEvent::TouchCancel, screen);
    QCoreApplication::sendEvent(m_pad.get(), &taken);
    QCOMPARE(pixel(110, 100), kRed);
    QTest::keyClick(m_pad.get(), Qt::Key_Return);
    QCOMPARE(layers().page.pixel(110, 100), kRed);
    QTest::touchEvent(m_pad.get(), screen).release(7, {160, 100}, m_pad.get());
}

void tst_guide_widgets::escapeCancelsAndReturnCommits()
{
    show(redBox);
    drag({50, 50}, {150, 150}, 500000);
    QTest::keyClick(m_pad.get(), Qt::Key_Escape);
    QCOMPARE(shown(*m_pad), Guide::Layers(kPage).page);
    drag({50, 50}, {150, 150}, 510000);
    QTest::keyClick(m_pad.get(), Qt::Key_Return);
    QCOMPARE(objects(), std::size_t(1));
    QCOMPARE(shown(*m_pad), layers().page);
    QCOMPARE(layers().page.pixel(50, 100), kRed);
}

namespace {

// A text object on a page, its frame dragged from (100,100) to (300,220).
struct Written
{
    Written()
    {
        widget.show();
        for (const QPoint &pt : {QPoint(100, 100), QPoint(300, 220)})
            feed(pt.x() == 100 ? PT_DOWN : PT_MOVE, pt);
        feed(PT_UP, {300, 220});
    }

    void feed(int code, const QPoint &pt) { Guide::feedText(widget.page, text, box, &widget, code, pt); }

    ShownPage widget;
    CInkText &text = static_cast<CInkText &>(widget.page.begin(made<CInkText>(Qt::black, 4)));
    std::unique_ptr<Guide::TextBox> box;
};

} // namespace

// What is seen between the frame's edges while it is edited is what is seen once it is committed. Qt corrects the gamma
// of text on opaque pixels alone, so the image's greys differ by up to 4 of 255; a text that jumps differs by all of
// them.
void tst_guide_widgets::textStaysWhereItWasWritten()
{
    Written it;
    it.feed(PT_MOVE, {300, 220});
    QVERIFY(it.box);
    QCOMPARE(it.text.m_rcImage, QRect(QPoint(100, 100), QPoint(300, 204)));
    QCOMPARE(it.box->geometry(), QRect(QPoint(105, 105), QPoint(295, 199)));
    it.box->setPlainText("Several words that take more than one line of the frame");
    const QRect inside(101, 101, 180, 100);
    const QImage written = shown(it.widget).copy(inside);
    it.feed(PT_DOWN, {20, 280});
    QVERIFY(!it.box);
    QVERIFY(largestDifference(shown(it.widget).copy(inside), written) <= 4);
    QCOMPARE(shown(it.widget), it.widget.page.layers().page);
    QVERIFY(written != Guide::Layers(inside.size()).page);
}

void tst_guide_widgets::movedFrameTakesItsEditorAlong()
{
    Written it;
    it.box->setPlainText("word");
    it.feed(PT_DOWN, it.text.m_rcMoveTab.center());
    it.feed(PT_MOVE, it.text.m_rcMoveTab.center() + QPoint(30, 20));
    it.feed(PT_UP, it.text.m_rcMoveTab.center());
    QCOMPARE(it.box->geometry(), QRect(QPoint(135, 125), QPoint(325, 219)));
}

// Tab and corner alone are inside: whatever the editor leaves uncovered ends the editing.
void tst_guide_widgets::pressInsideTheFrameCountsAsOutside()
{
    Written it;
    it.box->setPlainText("word");
    it.feed(PT_DOWN, {102, 102});
    QVERIFY(!it.box);
    QCOMPARE(it.widget.page.committed().size(), std::size_t(1));
}

void tst_guide_widgets::emptyTextIsDropped()
{
    Written it;
    it.feed(PT_DOWN, {20, 280});
    QVERIFY(!it.box);
    QVERIFY(it.widget.page.committed().empty());
    QCOMPARE(shown(it.widget), Guide::Layers(kPage).page);
}

void tst_guide_widgets::flagOfAPressOutsideStays()
{
    CInkText text;
    ::drag(text, {100, 100}, {300, 220});
    feed(text, PT_DOWN, 310, 230);
    feed(text, PT_UP, 310, 230);
    QCOMPARE(text.m_bClickOutside, 1);
    QCOMPARE(text.m_bFinished, 0);
    QCOMPARE(int(text.GetModifyType()), int(MT_NONE));
    feed(text, PT_DOWN, text.m_rcMoveTab.center().x(), text.m_rcMoveTab.center().y());
    QCOMPARE(text.m_bClickOutside, 1);
}

void tst_guide_widgets::finishingWithoutAnImageMovesTheFrame()
{
    CInkText text;
    ::drag(text, {100, 100}, {300, 220});
    QVERIFY(text.FinishGraph());
    QCOMPARE(text.m_bFinished, 1);
    QVERIFY(isBlank(drawn(text)));
    QCOMPARE(text.m_rcImage.topLeft(), QPoint(90, 90));
}

void tst_guide_widgets::finishingAfterTheImageMovesThePicture()
{
    QImage image(20, 10, QImage::Format_ARGB32);
    image.fill(Qt::green);
    CInkText text;
    ::drag(text, {100, 100}, {300, 220});
    text.SetTextImage(&image);
    QCOMPARE(drawn(text).pixel(105, 105), kGreen);
    QCOMPARE(drawn(text).pixel(104, 105), 0U);
    QVERIFY(text.FinishGraph());
    QCOMPARE(drawn(text).pixel(95, 95), kGreen);
}

void tst_guide_widgets::labelIsPaintedWhereTheObjectHasLaidItOut()
{
    CInkPencil pencil;
    Guide::setPeople(pencil, {1, QString(40, QChar('A'))}, {2, "Bob"});
    feed(pencil, PT_DOWN, 50, 50);
    feed(pencil, PT_MOVE, 100, 100);
    const QImage label = painted([&](QPainter &painter) { Guide::paintLabel(painter, pencil); });
    QCOMPARE(pencil.m_rcName.topLeft(), QPoint(50, 50)); // the last but one point
    QCOMPARE(label.pixel(50, 50), kWhite);
    QCOMPARE(label.pixel(129, 69), kWhite);
    QCOMPARE(label.pixel(130, 70), 0U);
    feed(pencil, PT_UP, 100, 100);
    QVERIFY(isBlank(painted([&](QPainter &painter) { Guide::paintLabel(painter, pencil); })));
}

QTEST_MAIN(tst_guide_widgets)

#include "tst_guide_widgets.moc"
