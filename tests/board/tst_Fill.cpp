#include "PageProbe.h"

#include <QtTest/QtTest>

using namespace InkLesson;

class tst_Fill : public QObject
{
    Q_OBJECT

private slots:
    void fillsBetweenStrokes();
    void keepsItsPixels();
    void replaysAnOldFillInItsOrder();
    void keepsAFillOnThePageOfItsTime();
    void forgetsAFillThatChangesNothing();
};

// A line across the page parts it at y = 100; the fill takes what is above.
void tst_Fill::fillsBetweenStrokes()
{
    Drawing drawing;
    const Page &page = drawing.page();
    drawLineOn(drawing.author, Qt::red, QPoint(0, 100), QPoint(400, 100));
    QVERIFY(drawing.author.pour(QPoint(30, 30), Qt::blue));
    QVERIFY(!drawing.author.hand());
    for (const QImage *layer : {&page.picture(), &page.surface()}) {
        QCOMPARE(layer->pixel(30, 30), 0xFF0000FFU);
        QCOMPARE(layer->pixel(399, 0), 0xFF0000FFU);
        QCOMPARE(layer->pixel(200, 100), 0xFFFF0000U);
        QCOMPARE(layer->pixel(200, 200), 0xFFFFFFFFU);
    }
    QCOMPARE(page.ink().pixel(30, 30), 0xFF0000FFU);
    QCOMPARE(page.ink().pixel(200, 200), 0U);
}

// Each fill is what was filled when it was made, whatever comes and goes above and below it.
void tst_Fill::keepsItsPixels()
{
    Drawing drawing;
    const Page &page = drawing.page();
    drawLineOn(drawing.author, Qt::red, QPoint(0, 100), QPoint(400, 100));
    const ObjectId border = page.items().back()->id;
    drawing.author.pour(QPoint(30, 30), Qt::blue);
    drawLineOn(drawing.author, Qt::black, QPoint(200, 0), QPoint(200, 300));
    drawing.author.pour(QPoint(30, 30), Qt::green);
    const QImage picture = page.picture().copy();
    const QImage ink = page.ink().copy();
    drawing.author.pour(QPoint(30, 200), Qt::yellow);
    QCOMPARE(page.picture().pixel(30, 200), 0xFFFFFF00U);

    drawing.author.undo();
    QCOMPARE(page.picture(), picture);
    QCOMPARE(page.surface(), picture);
    QCOMPARE(page.ink(), ink);
    QCOMPARE(picture.pixel(30, 30), 0xFF00FF00U);
    QCOMPARE(picture.pixel(300, 30), 0xFF0000FFU);
    drawing.author.remove({border}); // computed anew, the fill would run over the page
    QCOMPARE(page.picture().pixel(30, 30), 0xFF00FF00U);
    QCOMPARE(page.picture().pixel(30, 200), 0xFFFFFFFFU);
    drawing.author.undo();
    drawing.author.undo();
    QCOMPARE(page.picture().pixel(30, 30), 0xFF0000FFU);
}

// In lessons of version 1 a fill is computed anew whenever it is painted, from the strokes below it only: the box over
// the first fill is no border to it when it is replayed.
void tst_Fill::replaysAnOldFillInItsOrder()
{
    Drawing drawing;
    const Page &page = drawing.page();
    const auto fill = [&](const QColor &color, const QPoint &pt) {
        drawing.author.begin(lifeOf("fill", color));
        drawing.author.feed(PT_DOWN, pt);
    };
    drawLineOn(drawing.author, Qt::red, QPoint(0, 100), QPoint(400, 100));
    fill(Qt::blue, QPoint(30, 30));
    drawLineOn(drawing.author, Qt::black, QPoint(200, 0), QPoint(200, 300));
    fill(Qt::green, QPoint(30, 30));
    const QImage picture = page.picture().copy();
    fill(Qt::yellow, QPoint(30, 200));
    drawing.author.undo();
    QCOMPARE(page.picture(), picture);
    QCOMPARE(picture.pixel(30, 30), 0xFF00FF00U);
    QCOMPARE(picture.pixel(300, 30), 0xFF0000FFU);
    drawing.author.undo();
    QCOMPARE(page.picture().pixel(30, 30), 0xFF0000FFU);
}

void tst_Fill::keepsAFillOnThePageOfItsTime()
{
    Drawing drawing;
    const Page &page = drawing.page();
    drawing.author.pour(QPoint(30, 30), Qt::blue);
    drawing.author.grow(QSize(500, 350));
    QCOMPARE(page.picture().pixel(399, 299), 0xFF0000FFU);
    QCOMPARE(page.picture().pixel(400, 299), 0xFFFFFFFFU);
    QCOMPARE(page.picture().pixel(399, 300), 0xFFFFFFFFU);
}

void tst_Fill::forgetsAFillThatChangesNothing()
{
    Drawing drawing;
    QVERIFY(!drawing.author.pour(QPoint(30, 30), Qt::white));
    QVERIFY(!drawing.author.canUndo());
    QVERIFY(isBlank(drawing.page()));
}

QTEST_MAIN(tst_Fill)
#include "tst_Fill.moc"
