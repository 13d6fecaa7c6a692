#include "CanvasProbe.h"
#include "Paper.h"
#include "Patience.h"

using namespace Board;

namespace {

QImage transparentInk()
{
    QImage image(400, 300, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

// A red line from (60,100) to (140,100), four pixels thick, and around it a frame from (40,80) to (160,120).
class tst_Selection : public QObject, private CanvasProbe
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_canvas.reset(); }

    void showsTheFrameOnTheSurfaceOnly();
    void liftsTheInk();
    void setsTheInkDownWhereItWas();
    void setsTheInkDownWithAPressBeside();
    void setsTheInkDownWithEnter();
    void stretchesTheInk();
    void turnsTheInk();
    void liftsInkFromAnywhere();
    void deletesTheInk();
    void deletesTheFrameBeingDragged();
    void takesTheMoveBackInOneStep();
    void takesTheMoveBackBeforeItIsSetDown();
    void aFrameAroundNothingIsForgotten();
    void aTapIsForgotten();
    void leavesTheRestOfTheLine();
    void anotherToolSetsTheInkDown();
    void keepsTheMoveWhenThePageGrows();

private:
    // The page with the line moved by (0, y).
    static QImage lineAt(int y)
    {
        return paper({400, 300}, [&](QPainter &painter) { drawLine(painter, Qt::red, 4, {60, y}, {140, y}); });
    }
    const QImage &picture() const { return m_canvas->page().picture(); }
    void select()
    {
        choose("select");
        drag({40, 80}, {160, 120});
    }
};

void tst_Selection::init()
{
    showCanvas();
    choose("line");
    drag({60, 100}, {140, 100});
    m_canvas->finish();
    QCOMPARE(picture(), lineAt(100));
}

void tst_Selection::showsTheFrameOnTheSurfaceOnly()
{
    choose("select");
    mouse(QEvent::MouseButtonPress, {40, 80});
    mouse(QEvent::MouseMove, {160, 120});
    QVERIFY(isForming());
    QCOMPARE(picture(), lineAt(100));
    QVERIFY(m_canvas->page().surface().pixel(41, 80) != 0xFFFFFFFF);
    QVERIFY(sameOutside(m_canvas->page().surface(), picture(), QRect(38, 78, 125, 45)));
    QCOMPARE(m_canvas->page().surface().copy(50, 90, 100, 20), picture().copy(50, 90, 100, 20));
}

void tst_Selection::liftsTheInk()
{
    select();
    QVERIFY(isBusy());
    QVERIFY(!isForming());
    QCOMPARE(picture(), blankPaper({400, 300}));
    QCOMPARE(m_canvas->page().ink(), transparentInk());
    QCOMPARE(m_canvas->page().surface().pixel(100, 100), 0xFFFF0000U); // shown in the handles
    hover({100, 110});
    QCOMPARE(m_canvas->cursor().shape(), Qt::SizeAllCursor);
    hover({160, 120});
    QCOMPARE(m_canvas->cursor().shape(), Qt::SizeFDiagCursor);
    hover({300, 30});
    QCOMPARE(m_canvas->cursor().shape(), Qt::CrossCursor);
}

void tst_Selection::setsTheInkDownWhereItWas()
{
    const QImage ink = m_canvas->page().ink();
    select();
    m_canvas->finish();
    QVERIFY(!isBusy());
    QCOMPARE(picture(), lineAt(100));
    QCOMPARE(m_canvas->page().ink(), ink);
    QCOMPARE(m_canvas->page().surface(), picture());
}

void tst_Selection::setsTheInkDownWithAPressBeside()
{
    select();
    drag({100, 110}, {100, 210});
    QVERIFY(isBusy());
    drag({300, 30}, {390, 60}); // only lets go
    QVERIFY(!isBusy());
    QCOMPARE(picture(), lineAt(200));
    QCOMPARE(m_canvas->page().surface(), picture());
}

void tst_Selection::setsTheInkDownWithEnter()
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        select();
        drag({100, 110}, {100, 210});
        QTest::keyClick(m_canvas.get(), key);
        QVERIFY(!isBusy());
        QCOMPARE(picture(), lineAt(200));
        m_canvas->undo();
    }
}

// The frame of 121 x 41 pixels becomes one of 121 x 121.
void tst_Selection::stretchesTheInk()
{
    select();
    drag({100, 120}, {100, 200});
    m_canvas->finish();
    const QImage &page = picture();
    QCOMPARE(page.pixel(100, 140), 0xFFFF0000U);
    QCOMPARE(page.pixel(100, 136), 0xFFFF0000U);
    QCOMPARE(page.pixel(100, 125), 0xFFFFFFFFU);
    QCOMPARE(page.pixel(100, 155), 0xFFFFFFFFU);
}

// The knob stands 40 pixels above the frame; to the right of it is a quarter turn about (100,100).
void tst_Selection::turnsTheInk()
{
    select();
    drag({100, 50}, {200, 100});
    m_canvas->finish();
    const QImage &page = picture();
    QCOMPARE(page.pixel(100, 70), 0xFFFF0000U);
    QCOMPARE(page.pixel(100, 130), 0xFFFF0000U);
    QCOMPARE(page.pixel(70, 100), 0xFFFFFFFFU);
    QCOMPARE(page.pixel(130, 100), 0xFFFFFFFFU);
}

void tst_Selection::liftsInkFromAnywhere()
{
    choose("select");
    drag({160, 120}, {40, 80}); // from the lower right corner
    QCOMPARE(picture(), blankPaper({400, 300}));
    m_canvas->finish();
    QCOMPARE(picture(), lineAt(100));
    drag({-20, -20}, {420, 320}); // beyond the page
    QCOMPARE(picture(), blankPaper({400, 300}));
    m_canvas->finish();
    QCOMPARE(picture(), lineAt(100));
}

void tst_Selection::deletesTheInk()
{
    select();
    m_canvas->discard();
    QVERIFY(!isBusy());
    QCOMPARE(picture(), blankPaper({400, 300}));
    QCOMPARE(m_canvas->page().surface(), picture());
    m_canvas->undo();
    QCOMPARE(picture(), lineAt(100));
    QCOMPARE(m_canvas->page().surface(), picture());
}

void tst_Selection::deletesTheFrameBeingDragged()
{
    choose("select");
    mouse(QEvent::MouseButtonPress, {40, 80});
    mouse(QEvent::MouseMove, {160, 120});
    m_canvas->discard();
    mouse(QEvent::MouseMove, {170, 130});
    mouse(QEvent::MouseButtonRelease, {170, 130});
    QVERIFY(!isBusy());
    QCOMPARE(picture(), lineAt(100));
    QCOMPARE(m_canvas->page().surface(), picture());
}

void tst_Selection::takesTheMoveBackInOneStep()
{
    select();
    drag({100, 110}, {100, 210});
    m_canvas->finish();
    m_canvas->undo();
    QCOMPARE(picture(), lineAt(100));
    QVERIFY(!isBusy());
    m_canvas->undo();
    QCOMPARE(picture(), blankPaper({400, 300}));
    QVERIFY(!canUndo());
}

void tst_Selection::takesTheMoveBackBeforeItIsSetDown()
{
    select();
    drag({100, 110}, {100, 210});
    m_canvas->undo();
    QVERIFY(!isBusy());
    QCOMPARE(picture(), lineAt(100));
    QCOMPARE(m_canvas->page().surface(), picture());
}

void tst_Selection::aFrameAroundNothingIsForgotten()
{
    choose("select");
    drag({200, 200}, {300, 280});
    QVERIFY(!isBusy());
    QCOMPARE(m_canvas->page().surface(), lineAt(100));
    m_canvas->undo(); // takes the line back, so there was no step
    QCOMPARE(picture(), blankPaper({400, 300}));
}

void tst_Selection::aTapIsForgotten()
{
    choose("select");
    drag({100, 100}, {100, 100});
    QVERIFY(!isBusy());
    QCOMPARE(picture(), lineAt(100));
    QCOMPARE(m_canvas->page().surface(), picture());
}

// The frame ends at x = 100: the pixels up to that column move.
void tst_Selection::leavesTheRestOfTheLine()
{
    choose("select");
    drag({40, 80}, {100, 120});
    drag({70, 110}, {70, 210});
    m_canvas->finish();
    const QImage &page = picture();
    QCOMPARE(page.pixel(100, 100), 0xFFFFFFFFU);
    QCOMPARE(page.pixel(101, 100), 0xFFFF0000U);
    QCOMPARE(page.pixel(100, 200), 0xFFFF0000U);
    QCOMPARE(page.pixel(101, 200), 0xFFFFFFFFU);
}

void tst_Selection::anotherToolSetsTheInkDown()
{
    select();
    drag({100, 110}, {100, 210});
    choose("pencil");
    QVERIFY(!isBusy());
    QCOMPARE(picture(), lineAt(200));
}

void tst_Selection::keepsTheMoveWhenThePageGrows()
{
    select();
    drag({100, 110}, {100, 210});
    m_canvas->finish();
    m_canvas->resize(500, 400);
    QTRY_COMPARE_WITH_TIMEOUT(m_canvas->page().rect(), QRect(0, 0, 500, 400), kPatience);
    QCOMPARE(picture().copy(0, 0, 400, 300), lineAt(200));
}

QTEST_MAIN(tst_Selection)
#include "tst_Selection.moc"
