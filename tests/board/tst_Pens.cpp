#include "Paper.h"
#include "Patience.h"
#include "board/canvas/Canvas.h"

#include <QtGui/QMouseEvent>
#include <QtTest/QtTest>

using namespace Board;

namespace {

const QSize kSize(400, 300);

int coloredPixels(const QImage &image, const QRect &area)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            count += image.pixel(x, y) != 0xFFFFFFFF;
    }
    return count;
}

} // namespace

// Every pen, drawn on the canvas with the mouse.
class tst_Pens : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void replaysTheSamePixels_data() { eachPen(); }
    void replaysTheSamePixels();
    void losesNothingWhenTheToolChanges_data() { eachPen(); }
    void losesNothingWhenTheToolChanges();
    void leavesNothingOfAFlatBrushBehind();
    void spraysWhileThePointerIsHeld();
    void spraysTheSameWithTheSameSeed();
    void stopsSpraying();
    void erasesToTheBackground();
    void erasesWithATap();
    void takesBackAnErasure();
    void erasesOnAPageThatHasGrown();
    void showsTheSizeOfTheEraser();
    void forgetsWhatLeavesNoMark();

private:
    static void eachPen();
    void choose(const QString &name) { m_canvas->setTool(*findTool(name)); }
    void press(const QPoint &at) { QTest::mousePress(m_canvas.get(), Qt::LeftButton, Qt::NoModifier, at); }
    void move(const QPoint &to);
    void release(const QPoint &at) { QTest::mouseRelease(m_canvas.get(), Qt::LeftButton, Qt::NoModifier, at); }
    void stroke(const QPoint &from, const QPoint &to);
    void drawBand();
    const InkLesson::Page &page() { return m_canvas->page(); }
    bool isBusy() const { return m_document->author().hand() != nullptr; }
    bool isForming() const { return isBusy() && m_document->author().hand()->isForming(); }
    bool canUndo() const { return m_document->author().canUndo(); }
    CInkGraph *object() const { return m_document->author().object(); }

    std::unique_ptr<Document> m_document;
    std::unique_ptr<Canvas> m_canvas;
};

void tst_Pens::init()
{
    m_canvas.reset();
    m_document = std::make_unique<Document>(kSize);
    m_canvas = std::make_unique<Canvas>(*m_document);
    m_canvas->setColor(Qt::red);
    m_canvas->setInkWidth(10);
    m_canvas->resize(kSize);
    m_canvas->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_canvas.get(), kPatience));
}

void tst_Pens::eachPen()
{
    QTest::addColumn<QString>("name");
    for (const Tool &tool : tools()) {
        const QString name = QString::fromLatin1(tool.name);
        if (groupTitle(tool) == QLatin1String("Pens") && name != QLatin1String("water-color-pen"))
            QTest::newRow(tool.name) << name;
    }
}

// Delivered at once; QTest moves the pointer of the window system.
void tst_Pens::move(const QPoint &to)
{
    QMouseEvent event(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_canvas.get(), &event);
}

void tst_Pens::stroke(const QPoint &from, const QPoint &to)
{
    press(from);
    for (int i = 1; i <= 8; ++i)
        move(from + (to - from) * i / 8);
    release(to);
}

// Rows 90 to 109.
void tst_Pens::drawBand()
{
    choose(QStringLiteral("pencil"));
    m_canvas->setInkWidth(20);
    stroke({50, 100}, {350, 100});
}

// Undoing the last of three objects draws the others anew.
void tst_Pens::replaysTheSamePixels()
{
    QFETCH(QString, name);
    drawBand();
    m_canvas->setInkWidth(10);
    m_canvas->setColor(Qt::blue);
    choose(name);
    stroke({60, 90}, {300, 130});
    stroke({300, 80}, {90, 120});
    QVERIFY(!isBusy());
    const QImage picture = page().picture().copy();
    const QImage ink = page().ink().copy();

    choose(QStringLiteral("line"));
    press({20, 20});
    release({390, 290});
    m_canvas->finish();
    QVERIFY(page().picture() != picture);
    m_canvas->undo();
    QCOMPARE(page().picture(), picture);
    QCOMPARE(page().ink(), ink);
    QCOMPARE(page().surface(), picture);

    m_canvas->undo();
    m_canvas->undo();
    QCOMPARE(page().picture(), paper(kSize, [](QPainter &painter) {
                 drawLine(painter, Qt::red, 20, QPoint(50, 100), QPoint(350, 100));
             }));
}

// The spray gun can only be ended by a release.
void tst_Pens::losesNothingWhenTheToolChanges()
{
    QFETCH(QString, name);
    drawBand();
    m_canvas->setColor(Qt::blue);
    const QImage before = page().picture().copy();
    choose(name);
    press({60, 100});
    move({150, 100});
    move({200, 105});
    choose(QStringLiteral("line"));
    QVERIFY(!isBusy());
    QVERIFY(page().picture() != before);
    release({200, 105});
    QVERIFY(!isBusy());
}

// Its strokes turn about a corner that moves as they grow. Coming back to a shape shows the same.
void tst_Pens::leavesNothingOfAFlatBrushBehind()
{
    choose(QStringLiteral("flat-brush"));
    press({200, 100});
    for (int x = 210; x <= 300; x += 10)
        move({x, 110});
    move({100, 110}); // moves the corner by 100
    QTRY_COMPARE_WITH_TIMEOUT(object()->m_graphData.constLast(), QPointF(100, 110),
                              kPatience); // it is told a little later
    const QImage shown = page().surface().copy();
    m_canvas->resize(kSize + QSize(1, 0)); // paints all anew
    QTRY_COMPARE_WITH_TIMEOUT(page().rect().width(), 401, kPatience);
    QCOMPARE(page().surface().copy(QRect(QPoint(), kSize)), shown);
    release({100, 110});
}

void tst_Pens::spraysWhileThePointerIsHeld()
{
    choose(QStringLiteral("spray-gun"));
    press({200, 150});
    const QRect disc(170, 120, 61, 61);
    QTRY_VERIFY_WITH_TIMEOUT(coloredPixels(page().surface(), disc) > 100, kPatience);
    QCOMPARE(page().picture(), blankPaper(kSize));
    release({200, 150});
    QVERIFY(!isBusy());
    const int dots = coloredPixels(page().picture(), disc);
    QVERIFY(dots > 100);
    QCOMPARE(coloredPixels(page().picture(), page().rect()), dots); // none beside it
    QCOMPARE(page().surface(), page().picture());
}

void tst_Pens::spraysTheSameWithTheSameSeed()
{
    const auto spray = [this](quint32 seed) {
        m_canvas->clear();
        m_canvas->setSeed(seed);
        choose(QStringLiteral("spray-gun"));
        press({100, 150});
        for (int x = 110; x < 300; x += 10)
            move({x, 150});
        release({300, 150});
        return page().picture().copy();
    };
    // No event is processed in between, so no tick of the clock adds to the moves.
    const QImage first = spray(5);
    QVERIFY(first != blankPaper(kSize));
    QCOMPARE(spray(5), first);
    QVERIFY(spray(6) != first);
}

void tst_Pens::stopsSpraying()
{
    choose(QStringLiteral("spray-gun"));
    press({200, 150});
    move({210, 150});
    m_canvas->finish();
    const QImage picture = page().picture().copy();
    QTest::qWait(60);
    move({220, 150});
    QCOMPARE(page().surface(), picture);
    release({220, 150});
    QCOMPARE(page().picture(), picture);
}

// A vertical stroke of 20 pixels through the band around x = 200: columns 190 to 209.
void tst_Pens::erasesToTheBackground()
{
    drawBand();
    choose(QStringLiteral("eraser"));
    press({200, 60});
    move({200, 100});
    QCOMPARE(page().surface().pixel(200, 95), 0xFFFFFFFF);
    QCOMPARE(page().picture().pixel(200, 95), 0xFFFF0000);
    move({200, 140});
    release({200, 140});
    QVERIFY(!isBusy());
    for (const int x : {190, 200, 209}) {
        QCOMPARE(page().picture().pixel(x, 100), 0xFFFFFFFF);
        QCOMPARE(page().ink().pixel(x, 100), 0u);
    }
    for (const int x : {188, 211}) {
        QCOMPARE(page().picture().pixel(x, 100), 0xFFFF0000);
        QCOMPARE(page().ink().pixel(x, 100), 0xFFFF0000);
    }
    QCOMPARE(page().surface(), page().picture());
}

void tst_Pens::erasesWithATap()
{
    drawBand();
    choose(QStringLiteral("eraser"));
    press({200, 100});
    move({200, 100}); // a pen is never quite still
    release({200, 100});
    QVERIFY(!isBusy());
    QCOMPARE(page().picture().pixel(200, 100), 0xFFFFFFFF);
    QCOMPARE(page().ink().pixel(200, 100), 0u);
    QCOMPARE(page().picture().pixel(188, 100), 0xFFFF0000);
    m_canvas->undo();
    QCOMPARE(page().picture().pixel(200, 100), 0xFFFF0000);
}

void tst_Pens::takesBackAnErasure()
{
    drawBand();
    const QImage picture = page().picture().copy();
    const QImage ink = page().ink().copy();
    choose(QStringLiteral("eraser"));
    stroke({100, 50}, {300, 150});
    QVERIFY(page().ink() != ink);
    m_canvas->undo();
    QCOMPARE(page().picture(), picture);
    QCOMPARE(page().ink(), ink);
}

void tst_Pens::erasesOnAPageThatHasGrown()
{
    drawBand();
    choose(QStringLiteral("eraser"));
    stroke({200, 60}, {200, 140});
    const QImage picture = page().picture().copy();
    m_canvas->resize(600, 500);
    QTRY_COMPARE_WITH_TIMEOUT(page().rect(), QRect(0, 0, 600, 500), kPatience);
    QCOMPARE(page().picture().copy(0, 0, 400, 300), picture);
    QCOMPARE(page().ink().pixel(200, 100), 0u);
}

void tst_Pens::showsTheSizeOfTheEraser()
{
    QCOMPARE(m_canvas->cursor().shape(), Qt::CrossCursor);
    choose(QStringLiteral("eraser"));
    QCOMPARE(m_canvas->cursor().shape(), Qt::BitmapCursor);
    m_canvas->setInkWidth(20);
    const QSize size = m_canvas->cursor().pixmap().size();
    m_canvas->setInkWidth(36);
    QCOMPARE(m_canvas->cursor().pixmap().size(), size + QSize(16, 16));
    move({50, 50}); // nothing lies under the pointer
    QCOMPARE(m_canvas->cursor().shape(), Qt::BitmapCursor);
    choose(QStringLiteral("pencil"));
    QCOMPARE(m_canvas->cursor().shape(), Qt::CrossCursor);
}

void tst_Pens::forgetsWhatLeavesNoMark()
{
    choose(QStringLiteral("water-color-pen"));
    stroke({50, 50}, {300, 200});
    QVERIFY(!isBusy());
    QVERIFY(!canUndo());
    QCOMPARE(page().surface(), blankPaper(kSize));
}

QTEST_MAIN(tst_Pens)
#include "tst_Pens.moc"
