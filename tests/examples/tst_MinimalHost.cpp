// The example's page, drawn on with the mouse as a reader of the example would.

#include "Host.h"
#include "Patience.h"

#include <QtGui/QWindow>
#include <QtTest/QtTest>

class tst_MinimalHost : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host = std::make_unique<Host>();
        m_host->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_host.get(), kPatience));
    }

    void freshPageIsWhite()
    {
        QCOMPARE(m_host->size(), QSize(640, 400));
        QCOMPARE(pixel(50, 50), QColor(Qt::white));
    }

    void pencilFollowsThePointer()
    {
        drag({50, 50}, {150, 50});
        QCOMPARE(pixel(100, 50), QColor(Qt::darkBlue));
        QCOMPARE(pixel(100, 60), QColor(Qt::white));
    }

    void movingWithoutAPressDrawsNothing()
    {
        QTest::mouseMove(m_host.get(), {50, 50});
        QTest::mouseRelease(m_host.get(), Qt::LeftButton, Qt::NoModifier, {150, 50});
        QCOMPARE(pixel(100, 50), QColor(Qt::white));
    }

    void formedBoxIsMovedByItsInsideAndCommittedByAPressOutside()
    {
        QTest::keyClick(m_host.get(), Qt::Key_2);
        drag({100, 100}, {200, 180});
        QCOMPARE(pixel(100, 140), QColor(Qt::darkBlue));
        drag({150, 140}, {190, 140});
        QCOMPARE(pixel(100, 140), QColor(Qt::white));
        QCOMPARE(pixel(140, 160), QColor(Qt::darkBlue));
        QVERIFY(pixel(130, 90) != QColor(Qt::white)); // corner of the frame with its handle

        QTest::mouseClick(m_host.get(), Qt::LeftButton, Qt::NoModifier, {500, 350});
        QCOMPARE(pixel(140, 160), QColor(Qt::darkBlue));
        QCOMPARE(pixel(130, 90), QColor(Qt::white));
    }

    void choosingAToolCommits()
    {
        QTest::keyClick(m_host.get(), Qt::Key_3);
        drag({100, 100}, {200, 180});
        QVERIFY(pixel(90, 90) != QColor(Qt::white));
        QTest::keyClick(m_host.get(), Qt::Key_4);
        QCOMPARE(pixel(90, 90), QColor(Qt::white));
        QCOMPARE(pixel(100, 140), QColor(Qt::darkBlue));

        drag({300, 100}, {400, 200}); // beside the ellipse, which is left as it is
        QCOMPARE(pixel(100, 140), QColor(Qt::darkBlue));
        QCOMPARE(pixel(350, 101), QColor(Qt::darkBlue)); // apex of the star
    }

    void otherKeysChooseTheNearestTool()
    {
        QTest::keyClick(m_host.get(), Qt::Key_0);
        drag({50, 50}, {150, 50});
        QCOMPARE(pixel(100, 50), QColor(Qt::darkBlue));
    }

    void quickSecondPressDrawsAStrokeOfItsOwn()
    {
        quickDrag({50, 50}, {54, 50}, 1000); // no farther: Qt would not take the next press for a second one
        quickDrag({52, 52}, {52, 150}, 1080);
        QCOMPARE(pixel(51, 50), QColor(Qt::darkBlue));
        QCOMPARE(pixel(52, 100), QColor(Qt::darkBlue));
        QCOMPARE(pixel(52, 160), QColor(Qt::white));
    }

    // The triangle (100,100), (300,100), (200,200), of which the double click places the last corner.
    void doubleClickCompletesAPolygon()
    {
        QTest::keyClick(m_host.get(), Qt::Key_5);
        quickDrag({100, 100}, {300, 100}, 10000);
        quickDrag({200, 200}, {200, 200}, 20000);
        QCOMPARE(pixel(150, 150), QColor(Qt::white));
        quickDrag({200, 200}, {200, 200}, 20080);
        QCOMPARE(pixel(150, 150), QColor(Qt::darkBlue)); // the edge that closes it
        QVERIFY(pixel(90, 90) != QColor(Qt::white));     // a handle
    }

private:
    // As the window system tells of it, so that Qt makes double clicks of what is quick enough; `time` in milliseconds.
    void quickDrag(const QPoint &from, const QPoint &to, int time)
    {
        QWindow *window = m_host->windowHandle();
        const auto send = [&](QEvent::Type type, const QPoint &at, Qt::MouseButtons held, int when) {
            const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
            qt_handleMouseEvent(window, at, window->mapToGlobal(at), held, button, type, Qt::NoModifier, when);
            QCoreApplication::processEvents();
        };
        send(QEvent::MouseButtonPress, from, Qt::LeftButton, time);
        if (from != to)
            send(QEvent::MouseMove, to, Qt::LeftButton, time + 20);
        send(QEvent::MouseButtonRelease, to, Qt::NoButton, time + 40);
    }

    void drag(const QPoint &from, const QPoint &to)
    {
        QTest::mousePress(m_host.get(), Qt::LeftButton, Qt::NoModifier, from);
        QMouseEvent move(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_host.get(), &move);
        QTest::mouseRelease(m_host.get(), Qt::LeftButton, Qt::NoModifier, to);
    }

    QColor pixel(int x, int y) { return m_host->grab().toImage().pixelColor(x, y); }

    std::unique_ptr<Host> m_host;
};

QTEST_MAIN(tst_MinimalHost)

#include "tst_MinimalHost.moc"
