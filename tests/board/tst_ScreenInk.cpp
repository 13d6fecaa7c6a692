#include "Patience.h"
#include "board/canvas/Canvas.h"
#include "board/screen/ScreenInk.h"
#include "board/window/MainWindow.h"

#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtTest/QtTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>

using namespace Board;

namespace {

constexpr QRgb kInk = 0xFF1B1F24; // the first colour
constexpr QRgb kNothing = 0x00000000;
constexpr QRgb kGreen = 0xFF00FF00;
constexpr QRgb kBlue = 0xFF0000FF;

} // namespace

class tst_ScreenInk : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void isTransparentBesideItsInk();
    void showsTheObjectInProgress();
    void erasesToNothing();
    void letsClicksThroughToWhatLiesBelow();
    void cutsTheBarOut();
    void showsAGrabWhereNothingIsComposed();
    void undoesClearsAndChangesColour();
    void cannotBeZoomed();
    void bringsTheBoardBack();

private:
    void start(ScreenInk::Backdrop backdrop);
    void press(const QPoint &pt) { QTest::mousePress(&m_ink->canvas(), Qt::LeftButton, {}, pt); }
    void move(const QPoint &pt)
    {
        QMouseEvent event(QEvent::MouseMove, pt, pt, pt, Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&m_ink->canvas(), &event);
    }
    void release(const QPoint &pt) { QTest::mouseRelease(&m_ink->canvas(), Qt::LeftButton, {}, pt); }
    void drag(const QPoint &from, const QPoint &to)
    {
        press(from);
        move(to);
        release(to);
    }
    void choose(const char *name) { m_ink->choose(*findTool(QLatin1String(name))); }
    void trigger(const char *name) { m_ink->bar().findChild<QAction *>(QLatin1String(name))->trigger(); }
    // As the desktop gets it.
    QRgb shown(int x, int y)
    {
        QImage picture(m_ink->canvas().size(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        m_ink->canvas().render(&picture, {}, {}, QWidget::RenderFlags());
        return picture.pixel(x, y);
    }
    QWidget *showDesktop(const QColor &color);

    std::unique_ptr<ScreenInk> m_ink;
    std::unique_ptr<QWidget> m_desktop;
};

void tst_ScreenInk::cleanup()
{
    m_ink.reset();
    m_desktop.reset();
}

void tst_ScreenInk::start(ScreenInk::Backdrop backdrop)
{
    m_ink = std::make_unique<ScreenInk>(*QGuiApplication::primaryScreen(), backdrop);
    QTRY_VERIFY_WITH_TIMEOUT(m_ink->canvas().isVisible() && m_ink->bar().isVisible(), kPatience);
}

// Something as large as the screen below.
QWidget *tst_ScreenInk::showDesktop(const QColor &color)
{
    m_desktop = std::make_unique<QWidget>(nullptr, Qt::FramelessWindowHint);
    m_desktop->setGeometry(QGuiApplication::primaryScreen()->geometry());
    m_desktop->setPalette(color);
    m_desktop->show();
    return m_desktop.get();
}

void tst_ScreenInk::isTransparentBesideItsInk()
{
    start(ScreenInk::Backdrop::Transparent);
    QCOMPARE(m_ink->canvas().size(), QGuiApplication::primaryScreen()->size());
    drag({100, 300}, {200, 300}); // four pixels wide
    QCOMPARE(shown(150, 297), kNothing);
    QCOMPARE(shown(150, 298), kInk);
    QCOMPARE(shown(150, 301), kInk);
    QCOMPARE(shown(150, 302), kNothing);
}

void tst_ScreenInk::showsTheObjectInProgress()
{
    start(ScreenInk::Backdrop::Transparent);
    choose("rectangle");
    press({100, 300});
    move({200, 400});
    QCOMPARE(shown(150, 300), kInk);
    QCOMPARE(shown(150, 350), kNothing);
    release({200, 400});
    QCOMPARE(shown(150, 300), kInk);
    QVERIFY(shown(210, 410) != kNothing); // the handle ten pixels outside the corner
    m_ink->canvas().finish();
    QCOMPARE(shown(150, 300), kInk);
    QCOMPARE(shown(210, 410), kNothing);
}

void tst_ScreenInk::erasesToNothing()
{
    start(ScreenInk::Backdrop::Transparent);
    drag({100, 300}, {200, 300});
    choose("eraser");
    press({150, 250});
    move({150, 350});
    QCOMPARE(shown(150, 300), kNothing); // while it is drawn
    QCOMPARE(shown(120, 300), kInk);
    release({150, 350});
    QCOMPARE(shown(150, 300), kNothing);
    QCOMPARE(shown(120, 300), kInk);
}

void tst_ScreenInk::letsClicksThroughToWhatLiesBelow()
{
    start(ScreenInk::Backdrop::Transparent);
    const auto letsThrough = [&] {
        return m_ink->canvas().windowHandle()->flags().testFlag(Qt::WindowTransparentForInput);
    };
    QVERIFY(!letsThrough());
    drag({100, 300}, {200, 300});
    trigger("pointer");
    QVERIFY(letsThrough());
    QVERIFY(m_ink->canvas().isVisible());
    QCOMPARE(shown(150, 300), kInk); // the ink stays
    trigger("line");
    QVERIFY(!letsThrough());
}

void tst_ScreenInk::cutsTheBarOut()
{
    start(ScreenInk::Backdrop::Transparent);
    m_ink->bar().move(40, 60);
    QCoreApplication::processEvents();
    const QRect bar = m_ink->bar().geometry() & m_ink->canvas().rect();
    QVERIFY(!bar.isEmpty());
    QCOMPARE(m_ink->canvas().mask(), QRegion(m_ink->canvas().rect()) - bar);
}

void tst_ScreenInk::showsAGrabWhereNothingIsComposed()
{
    QWidget *desktop = showDesktop(Qt::green);
    start(ScreenInk::Backdrop::Grabbed);
    drag({100, 300}, {200, 300});
    QCOMPARE(shown(150, 250), kGreen);
    QCOMPARE(shown(150, 300), kInk);
    choose("eraser");
    press({150, 250});
    move({150, 350});
    QCOMPARE(shown(150, 300), kGreen);
    release({150, 350});
    QCOMPARE(shown(150, 300), kGreen);
    QCOMPARE(shown(120, 300), kInk);

    trigger("pointer");
    QVERIFY(!m_ink->canvas().isVisible());
    QVERIFY(m_ink->bar().isVisible());
    desktop->setPalette(QColor(Qt::blue));
    trigger("pencil");
    QTRY_VERIFY_WITH_TIMEOUT(m_ink->canvas().isVisible(), kPatience);
    QCOMPARE(shown(150, 250), kBlue);
    QCOMPARE(shown(120, 300), kInk);
}

void tst_ScreenInk::undoesClearsAndChangesColour()
{
    start(ScreenInk::Backdrop::Transparent);
    drag({100, 300}, {200, 300});
    trigger("color-3"); // red
    drag({100, 350}, {200, 350});
    QCOMPARE(shown(150, 350), 0xFFD62839U);
    trigger("undo");
    QCOMPARE(shown(150, 350), kNothing);
    QCOMPARE(shown(150, 300), kInk);
    trigger("clear");
    QCOMPARE(shown(150, 300), kNothing);
}

void tst_ScreenInk::cannotBeZoomed()
{
    start(ScreenInk::Backdrop::Transparent);
    drag({100, 300}, {200, 300});
    m_ink->canvas().navigator().zoomIn();
    QCOMPARE(m_ink->canvas().view().zoom(), 1.0);
    QCOMPARE(shown(150, 300), kInk);
}

void tst_ScreenInk::bringsTheBoardBack()
{
    MainWindow board(QSize(300, 200));
    board.show();
    QVERIFY(QTest::qWaitForWindowExposed(&board, kPatience));
    board.findChild<QAction *>(QStringLiteral("screen-ink"))->trigger();
    QVERIFY(!board.isVisible());
    auto *ink = board.findChild<ScreenInk *>();
    QVERIFY(ink);
    QTRY_VERIFY_WITH_TIMEOUT(ink->canvas().isVisible(), kPatience);
    QVERIFY(!ink->canvas().close()); // neither window ends the program
    QVERIFY(board.isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(!board.findChild<ScreenInk *>(), kPatience);
    QVERIFY(board.document().isSaved()); // nothing has come onto the board's page
}

QTEST_MAIN(tst_ScreenInk)
#include "tst_ScreenInk.moc"
