#include "Patience.h"
#include "board/canvas/Canvas.h"
#include "board/window/MainWindow.h"

#include "lesson/log/RecordCode.h"

#include <QtGui/QScreen>
#include <QtTest/QtTest>
#include <QtWidgets/QAction>

using namespace Board;

// A screen whose left half is green and whose right half is blue, below a board.
class tst_ScreenGrab : public QObject
{
    Q_OBJECT

private slots:
    void takesTheScreenWithoutTheBoardAsPaper();
};

void tst_ScreenGrab::takesTheScreenWithoutTheBoardAsPaper()
{
    QWidget desktop;
    desktop.setWindowFlag(Qt::FramelessWindowHint);
    desktop.setGeometry(QGuiApplication::primaryScreen()->geometry());
    QPalette halves;
    QImage picture(desktop.size(), QImage::Format_RGB32);
    picture.fill(Qt::blue);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width() / 2; ++x)
            picture.setPixel(x, y, 0xFF00FF00);
    halves.setBrush(QPalette::Window, QBrush(picture));
    desktop.setPalette(halves);
    desktop.show();
    QVERIFY(QTest::qWaitForWindowExposed(&desktop, kPatience));

    MainWindow board(QSize(600, 400));
    board.show();
    QVERIFY(QTest::qWaitForWindowExposed(&board, kPatience));
    const InkLesson::Page &page = board.canvas().page();
    board.findChild<QAction *>(QStringLiteral("screen-paper"))->trigger();
    QVERIFY(!board.isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(board.isVisible(), kPatience);
    QCOMPARE(page.paper().kind, InkLesson::Paper::Kind::Picture);
    const int width = page.paper().picture.width();
    const int middle = page.paper().picture.height() / 2;
    QCOMPARE(page.picture().pixel(width / 4, middle), 0xFF00FF00U);
    QCOMPARE(page.picture().pixel(3 * width / 4, middle), 0xFF0000FFU);

    QVERIFY(InkLesson::jsonLine(board.document().lesson().log().back())
                .contains("\"kind\":\"picture\"")); // as any other paper
    board.document().undo();
    QCOMPARE(page.picture().pixel(width / 4, middle), 0xFFFFFFFFU);
    board.setAsksBeforeClosing(false);
}

QTEST_MAIN(tst_ScreenGrab)
#include "tst_ScreenGrab.moc"
