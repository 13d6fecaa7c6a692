// The lesson in Qt Quick as it is started, driven as a person would: its own main() runs, and these cases in its event
// loop.

#include "Patience.h"

#include <QtGui/QScreen>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>
#include <QtTest/QtTest>

class tst_Quick : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCOMPARE(QGuiApplication::topLevelWindows().size(), 1);
        m_window = qobject_cast<QQuickWindow *>(QGuiApplication::topLevelWindows().constFirst());
        QVERIFY(m_window);
        QVERIFY(QTest::qWaitForWindowExposed(m_window, kPatience));
    }

    void showsABarAboveTheWhitePage()
    {
        QCOMPARE(m_window->size(), QSize(640, 432));
        QCOMPARE(pixel(2, 2), QColor("lightsteelblue")); // the pencil is chosen
        QCOMPARE(pixel(2, 40), QColor(Qt::white));
        QCOMPARE(pixel(638, 430), QColor(Qt::white));
    }

    void drawsAStroke()
    {
        drag({50, 100}, {150, 100});
        QCOMPARE(pixel(100, 99), QColor(Qt::black));
        QCOMPARE(pixel(100, 101), QColor(Qt::black));
        QCOMPARE(pixel(100, 103), QColor(Qt::white));
        QCOMPARE(pixel(160, 100), QColor(Qt::white));
    }

    void quickSecondStrokeIsNotLost()
    {
        drag({50, 140}, {52, 140}, 1000);
        drag({51, 141}, {150, 141}, 1080);
        QCOMPARE(pixel(100, 141), QColor(Qt::black));
        click("undo");
        QCOMPARE(pixel(100, 141), QColor(Qt::white));
    }

    void takesAnotherToolAndColor()
    {
        click("rectangle");
        click("red");
        QCOMPARE(pixel(2, 2), QColor("whitesmoke"));
        drag({200, 100}, {300, 180});
        QCOMPARE(pixel(200, 140), QColor(Qt::red));
        QVERIFY(pixel(190, 90) != QColor(Qt::white)); // a handle
        QCOMPARE(pixel(100, 100), QColor(Qt::black));
        if (qEnvironmentVariableIsSet("QUICK_PICTURES"))
            shown().save(qEnvironmentVariable("QUICK_PICTURES") + "/quick.png");
    }

    void takesBackAndDoesAgain()
    {
        click("undo");
        QCOMPARE(pixel(200, 140), QColor(Qt::white));
        click("redo");
        QCOMPARE(pixel(200, 140), QColor(Qt::red));
        QCOMPARE(pixel(190, 90), QColor(Qt::white));
    }

    // The triangle (400,100), (600,100), (500,200), of which the double click places the last corner.
    void doubleClickCompletesAPolygon()
    {
        click("polygon");
        drag({400, 100}, {600, 100}, 10000);
        drag({500, 200}, {500, 200}, 20000);
        QCOMPARE(pixel(450, 150), QColor(Qt::white));
        drag({500, 200}, {500, 200}, 20080);
        QCOMPARE(pixel(450, 150), QColor(Qt::red)); // the edge that closes it
    }

private:
    // Its next frame, as the screen has it: without a display QQuickWindow::grabWindow() has none.
    QImage shown() const
    {
        QSignalSpy drawn(m_window, &QQuickWindow::frameSwapped);
        m_window->update();
        drawn.wait(kPatience);
        return m_window->screen()->grabWindow(m_window->winId()).toImage();
    }

    QColor pixel(int x, int y) const { return shown().pixelColor(x, y); }

    // As the window system tells of it, so that Qt makes double clicks of what is quick enough; `time` in milliseconds.
    void drag(const QPoint &from, const QPoint &to, int time = 0)
    {
        static int now = 100000;
        const int start = time != 0 ? time : now += 10000;
        const auto send = [&](QEvent::Type type, const QPoint &at, Qt::MouseButtons held, int when) {
            const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
            qt_handleMouseEvent(m_window, at, m_window->mapToGlobal(at), held, button, type, Qt::NoModifier, when);
            QCoreApplication::processEvents();
        };
        send(QEvent::MouseButtonPress, from, Qt::LeftButton, start);
        if (from != to)
            send(QEvent::MouseMove, to, Qt::LeftButton, start + 20);
        send(QEvent::MouseButtonRelease, to, Qt::NoButton, start + 40);
    }

    // What stands in the bar.
    void click(const QString &text)
    {
        for (QQuickItem *item : m_window->contentItem()->childItems().constFirst()->childItems()) {
            if (item->property("text").toString() != text)
                continue;
            const QPoint at = item->mapToScene({item->width() / 2, item->height() / 2}).toPoint();
            return drag(at, at);
        }
        QFAIL(qPrintable("nothing in the bar says " + text));
    }

    QQuickWindow *m_window{};
};

namespace {

void drive()
{
    QTimer::singleShot(0, QCoreApplication::instance(), [] {
        tst_Quick cases;
        QCoreApplication::exit(QTest::qExec(&cases, QCoreApplication::arguments()));
    });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(drive)

#include "tst_Quick.moc"
