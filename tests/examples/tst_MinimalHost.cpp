// The example's page, drawn on with the mouse as a reader of the example would.

#include "Host.h"

#include <QtTest/QtTest>

class tst_MinimalHost : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host = std::make_unique<Host>();
        m_host->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_host.get()));
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

private:
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
