#include "PageProbe.h"

#include <QtTest/QtTest>

using namespace Board;

class tst_Fill : public QObject
{
    Q_OBJECT

private slots:
    void fillsBetweenStrokes();
    void replaysAFillInItsOrder();
    void keepsAFillOnThePageOfItsTime();
    void forgetsAFillThatChangesNothing();
};

// A line across the page parts it at y = 100; the fill takes what is above.
void tst_Fill::fillsBetweenStrokes()
{
    Page page(kSize);
    drawLineOn(page, Qt::red, QPoint(0, 100), QPoint(400, 100));
    page.begin(object("fill", Qt::blue));
    page.feed(PT_DOWN, QPoint(30, 30));
    QVERIFY(!page.isBusy());
    for (const QImage *layer : {&page.picture(), &page.surface()}) {
        QCOMPARE(layer->pixel(30, 30), 0xFF0000FFU);
        QCOMPARE(layer->pixel(399, 0), 0xFF0000FFU);
        QCOMPARE(layer->pixel(200, 100), 0xFFFF0000U);
        QCOMPARE(layer->pixel(200, 200), 0xFFFFFFFFU);
    }
    QCOMPARE(page.ink().pixel(30, 30), 0xFF0000FFU);
    QCOMPARE(page.ink().pixel(200, 200), 0U);
}

// Each fill sees the strokes below it only: the box over the first fill is no border to it when it is replayed.
void tst_Fill::replaysAFillInItsOrder()
{
    Page page(kSize);
    const auto fill = [&](const QColor &color, const QPoint &pt) {
        page.begin(object("fill", color));
        page.feed(PT_DOWN, pt);
    };
    drawLineOn(page, Qt::red, QPoint(0, 100), QPoint(400, 100));
    fill(Qt::blue, QPoint(30, 30));
    drawLineOn(page, Qt::black, QPoint(200, 0), QPoint(200, 300));
    fill(Qt::green, QPoint(30, 30));
    const QImage picture = page.picture().copy();
    const QImage ink = page.ink().copy();
    fill(Qt::yellow, QPoint(30, 200));
    QCOMPARE(page.picture().pixel(30, 200), 0xFFFFFF00U);

    page.undo();
    QCOMPARE(page.picture(), picture);
    QCOMPARE(page.surface(), picture);
    QCOMPARE(page.ink(), ink);
    QCOMPARE(picture.pixel(30, 30), 0xFF00FF00U);
    QCOMPARE(picture.pixel(300, 30), 0xFF0000FFU);
    page.undo();
    QCOMPARE(page.picture().pixel(30, 30), 0xFF0000FFU);
}

void tst_Fill::keepsAFillOnThePageOfItsTime()
{
    Page page(kSize);
    page.begin(object("fill", Qt::blue));
    page.feed(PT_DOWN, QPoint(30, 30));
    page.grow(QSize(500, 350));
    QCOMPARE(page.picture().pixel(399, 299), 0xFF0000FFU);
    QCOMPARE(page.picture().pixel(400, 299), 0xFFFFFFFFU);
    QCOMPARE(page.picture().pixel(399, 300), 0xFFFFFFFFU);
}

void tst_Fill::forgetsAFillThatChangesNothing()
{
    Page page(kSize);
    page.begin(object("fill", Qt::white));
    page.feed(PT_DOWN, QPoint(30, 30));
    QVERIFY(!page.isBusy());
    QVERIFY(!page.canUndo());
    QVERIFY(isBlank(page));
}

QTEST_MAIN(tst_Fill)
#include "tst_Fill.moc"
