#include "board/view/View.h"

#include "board/look/Style.h"
#include "board/view/ViewPainter.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QtTest>

#include <cmath>

using namespace Board;

namespace {

constexpr QSize kWidget{400, 300};

// Of a page that fills the widget at zoom 1.
View viewOf(double density, double ratio, const QSize &page)
{
    View view;
    view.setPage(page, density);
    view.setWidget(kWidget, ratio);
    return view;
}

View plainView()
{
    return viewOf(1, 1, kWidget);
}

// What `view` shows of the page, one pixel of the image for each of the device.
QImage shown(const View &view, const QImage &page, const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::green);
    QPainter painter(&image);
    paintView(painter, view, page, QRect(QPoint(), size));
    painter.end();
    return image;
}

QImage whitePage(const QSize &size)
{
    QImage page(size, QImage::Format_RGB32);
    page.fill(Qt::white);
    return page;
}

} // namespace

class tst_View : public QObject
{
    Q_OBJECT

private slots:
    void showsAPlainPageAsItIs();
    void hasAPagePixelForEachOfTheDevice();
    void hitsEveryPixelOfAFractionalScreen();
    void showsAPlainPageTwiceAsLargeOnADenseScreen();
    void showsADensePageHalfAsLargeOnAPlainScreen();
    void keepsWhatItShowsOnAnotherScreen();
    void zoomsAboutAPoint();
    void returnsToTheSameZoom();
    void centresASmallPage();
    void zoomsWithinItsLimits_data();
    void zoomsWithinItsLimits();
    void stepsThroughTheUsualZooms();
    void pansToTheEdgesOfThePage();
    void repaintsWhatAnAreaCovers();
    void measuresInPagePixels();
    void paintsEveryPixelAtZoomOne();
    void paintsTheSurround();
    void losesNoThinLine();
    void isTheSameInParts();
};

void tst_View::showsAPlainPageAsItIs()
{
    const View view = plainView();
    QCOMPARE(view.scale(), 1.0);
    QCOMPARE(view.corner(), QPoint(0, 0));
    QCOMPARE(view.toPage({12.5, 7.25}).toPoint(), QPoint(13, 7));
    QCOMPARE(view.fromPage(QPointF(12.5, 7.25)), QPointF(12.5, 7.25));
    QCOMPARE(view.covering({10, 20, 30, 40}), QRect(10, 20, 30, 40));
    QCOMPARE(view.covering({-10, 290, 30, 40}), QRect(0, 290, 20, 10));
    QCOMPARE(view.seen(), QRect(0, 0, 400, 300));
}

void tst_View::hasAPagePixelForEachOfTheDevice()
{
    const View view = viewOf(2, 2, {800, 600});
    QCOMPARE(view.scale(), 1.0);
    QCOMPARE(int(view.toPage({10.5, 20}).x()), 21);
    QCOMPARE(int(view.toPage({10.5, 20}).y()), 40);
    QCOMPARE(view.covering({21, 40, 3, 3}), QRect(10, 20, 2, 2));
    QCOMPARE(view.seen(), QRect(0, 0, 800, 600));
}

// Of a position in the widget, which is a device pixel divided by 1.5 or the like.
void tst_View::hitsEveryPixelOfAFractionalScreen()
{
    for (const double ratio : {1.25, 1.5, 1.75, 4.0 / 3}) {
        const View view = viewOf(ratio, ratio, {800, 600});
        for (int x = 0; x < 400; ++x)
            QCOMPARE(int(view.toPage({x / ratio, 0}).x()), x);
    }
    const View view = viewOf(1.5, 1.5, {600, 450});
    QCOMPARE(view.corner(), QPoint(0, 0));
    QCOMPARE(view.covering({150, 150, 3, 3}), QRect(99, 99, 4, 4)); // one more to each side
}

void tst_View::showsAPlainPageTwiceAsLargeOnADenseScreen()
{
    const View view = viewOf(1, 2, kWidget);
    QCOMPARE(view.scale(), 2.0);
    QCOMPARE(int(view.toPage({10.5, 20}).x()), 10);
    QCOMPARE(view.seen(), QRect(0, 0, 400, 300));
    QCOMPARE(view.covering({10, 10, 5, 5}), QRect(8, 8, 9, 9)); // device pixels 17 to 32
}

void tst_View::showsADensePageHalfAsLargeOnAPlainScreen()
{
    const View view = viewOf(2, 1, {800, 600});
    QCOMPARE(view.scale(), 0.5);
    QCOMPARE(int(view.toPage({10.5, 20}).x()), 21);
    QCOMPARE(view.seen(), QRect(0, 0, 800, 600));
}

void tst_View::keepsWhatItShowsOnAnotherScreen()
{
    View view = plainView();
    view.zoomTo(2, {100, 80});
    QCOMPARE(view.corner(), QPoint(-100, -80));
    QVERIFY(view.setWidget(kWidget, 1.5));
    QVERIFY(!view.setWidget(kWidget, 1.5));
    QCOMPARE(view.zoom(), 2.0);
    QCOMPARE(view.scale(), 3.0);
    QCOMPARE(view.corner(), QPoint(-150, -120));
    QCOMPARE(view.fromPage(QPointF(100, 80)), QPointF(100, 80));
}

// The page's point (100,75) stays: 100 - 2 * 100, 75 - 2 * 75.
void tst_View::zoomsAboutAPoint()
{
    View view = plainView();
    view.zoomTo(2, {100, 75});
    QCOMPARE(view.zoom(), 2.0);
    QCOMPARE(view.corner(), QPoint(-100, -75));
    QCOMPARE(view.fromPage(QPointF(100, 75)), QPointF(100, 75));
    QCOMPARE(view.seen(), QRect(50, 37, 200, 151));
    view.zoomTo(8, {300, 200}); // over (200,137.5)
    QCOMPARE(view.corner(), QPoint(-1300, -900));
    QCOMPARE(view.fromPage(QRect(200, 150, 2, 3)), QRect(300, 300, 16, 24));
}

void tst_View::returnsToTheSameZoom()
{
    View view = plainView();
    for (int i = 0; i < 5; ++i)
        view.zoomTo(view.zoom() * std::exp2(0.25), {30, 40});
    for (int i = 0; i < 5; ++i)
        view.zoomTo(view.zoom() / std::exp2(0.25), {30, 40});
    QVERIFY(view.zoom() == 1.0); // exactly
    QCOMPARE(view.corner(), QPoint(0, 0));
}

void tst_View::centresASmallPage()
{
    View view = plainView();
    view.zoomTo(0.5, {10, 10});
    QCOMPARE(view.corner(), QPoint(100, 75));
    QCOMPARE(view.seen(), QRect(0, 0, 400, 300));
    QCOMPARE(view.toPage({100, 75}).toPoint(), QPoint(0, 0));
    view.panBy({50, 50});
    QCOMPARE(view.corner(), QPoint(100, 75));
    view.setWidget({300, 100}, 1); // wider than the page still, but lower
    QCOMPARE(view.corner(), QPoint(50, 0));
}

void tst_View::zoomsWithinItsLimits_data()
{
    QTest::addColumn<double>("asked");
    QTest::addColumn<double>("zoom");
    QTest::newRow("below 25 %") << 0.2499 << 0.25;
    QTest::newRow("25 %") << 0.25 << 0.25;
    QTest::newRow("above 25 %") << 0.2501 << 0.2501;
    QTest::newRow("below 800 %") << 7.999 << 7.999;
    QTest::newRow("800 %") << 8.0 << 8.0;
    QTest::newRow("above 800 %") << 8.001 << 8.0;
}

void tst_View::zoomsWithinItsLimits()
{
    QFETCH(double, asked);
    QFETCH(double, zoom);
    View view = plainView();
    view.zoomTo(asked, {200, 150});
    QVERIFY(view.zoom() == zoom); // exactly
}

void tst_View::stepsThroughTheUsualZooms()
{
    QCOMPARE(zoomAbove(1), 1.25);
    QCOMPARE(zoomBelow(1), 0.75);
    QCOMPARE(zoomAbove(1.0000001), 1.25);
    QCOMPARE(zoomBelow(0.9999999), 0.75);
    QCOMPARE(zoomAbove(1.1), 1.25);
    QCOMPARE(zoomBelow(1.1), 1.0);
    QCOMPARE(zoomAbove(6), 8.0);
    QCOMPARE(zoomAbove(8), 8.0);
    QCOMPARE(zoomBelow(0.26), 0.25);
    QCOMPARE(zoomBelow(0.25), 0.25);
}

void tst_View::pansToTheEdgesOfThePage()
{
    View view = plainView();
    view.panBy({-10, 10}); // all of the page is seen
    QCOMPARE(view.corner(), QPoint(0, 0));
    view.zoomTo(2, {100, 75});
    view.panBy({30, -20});
    QCOMPARE(view.corner(), QPoint(-70, -95));
    view.panBy({71, -300}); // beyond both edges
    QCOMPARE(view.corner(), QPoint(0, -300));
    view.panBy({-1000, 1000});
    QCOMPARE(view.corner(), QPoint(-400, 0));
}

void tst_View::repaintsWhatAnAreaCovers()
{
    View view = plainView();
    view.zoomTo(4, {0, 0});
    QCOMPARE(view.covering({10, 10, 2, 1}), QRect(36, 36, 16, 12)); // a page pixel to each side
    QCOMPARE(view.covering({200, 200, 2, 1}), QRect());
    QCOMPARE(view.covering({}), QRect());
    view.zoomTo(0.25, {0, 0});                                      // at (150,113)
    QCOMPARE(view.covering({40, 40, 4, 4}), QRect(157, 120, 7, 7)); // three pixels to each side
}

void tst_View::measuresInPagePixels()
{
    View view = plainView();
    QCOMPARE(view.pageLength(3), 3);
    view.zoomTo(0.25, {});
    QCOMPARE(view.pageLength(3), 12);
    view.zoomTo(8, {});
    QCOMPARE(view.pageLength(3), 1);
    QCOMPARE(viewOf(2, 2, {800, 600}).pageLength(3), 6);
}

void tst_View::paintsEveryPixelAtZoomOne()
{
    QImage page = whitePage(kWidget);
    for (int y = 0; y < 300; ++y) {
        for (int x = 0; x < 400; ++x)
            page.setPixel(x, y, 0xFF000000U | unsigned(x * 631 + y * 1777));
    }
    QCOMPARE(shown(plainView(), page, kWidget), page);
}

void tst_View::paintsTheSurround()
{
    View view;
    view.setPage({8, 8}, 1);
    view.setWidget({8, 8}, 1);
    view.zoomTo(0.25, {}); // two pixels a side, in the middle
    QImage page = whitePage({8, 8});
    QPainter(&page).fillRect(0, 0, 4, 8, Qt::black);
    const QImage image = shown(view, page, {8, 8});
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            const bool isPage = QRect(3, 3, 2, 2).contains(x, y);
            QCOMPARE(image.pixel(x, y), !isPage ? kSurroundColor : x == 3 ? 0xFF000000U : 0xFFFFFFFFU);
        }
    }
}

// A line one pixel wide, at a quarter of its size: three parts of white and one of black.
void tst_View::losesNoThinLine()
{
    for (int column = 4; column < 8; ++column) {
        QImage page = whitePage({400, 300});
        QPainter(&page).fillRect(column, 0, 1, 300, Qt::black);
        View view;
        view.setPage({400, 300}, 1);
        view.setWidget({100, 75}, 1);
        view.zoomTo(0.25, {});
        const QImage image = shown(view, page, {100, 75});
        QCOMPARE(image.pixel(0, 40), 0xFFFFFFFFU);
        QVERIFY(qAbs(qRed(image.pixel(1, 40)) - 191) <= 2);
        QCOMPARE(image.pixel(2, 40), 0xFFFFFFFFU);
    }
}

// Painted in one piece, or in two that meet anywhere.
void tst_View::isTheSameInParts()
{
    QImage page = whitePage({400, 300});
    QPainter painter(&page);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::blue, 3));
    painter.drawEllipse(20, 30, 300, 200);
    painter.end();
    for (const double zoom : {0.25, 0.35, 0.5, 0.75, 2.0, 8.0}) {
        View view = plainView();
        view.zoomTo(zoom, {170, 30});
        const QImage whole = shown(view, page, kWidget);
        QImage parts = whitePage(kWidget);
        QPainter onParts(&parts);
        for (const QRect &part : {QRect(0, 0, 171, 300), QRect(171, 0, 229, 300)}) {
            onParts.setClipRect(part);
            paintView(onParts, view, page, part);
        }
        onParts.end();
        int farthest = 0;
        for (int y = 0; y < 300; ++y) {
            for (int x = 0; x < 400; ++x)
                farthest = qMax(farthest, qAbs(qRed(whole.pixel(x, y)) - qRed(parts.pixel(x, y))));
        }
        QVERIFY2(farthest <= 4, qPrintable(QStringLiteral("%1 at zoom %2").arg(farthest).arg(zoom)));
    }
}

QTEST_APPLESS_MAIN(tst_View)
#include "tst_View.moc"
