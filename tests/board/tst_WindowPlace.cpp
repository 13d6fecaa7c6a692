#include "Patience.h"
#include "board/person/Settings.h"
#include "board/window/MainWindow.h"
#include "board/window/WindowPlace.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QScreen>
#include <QtTest/QtTest>

using namespace Board;

class tst_WindowPlace : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path()); }
    void cleanup() { Settings().clear(); }

    void fillsAScreenThatIsTooSmall();
    void hasTheSizeItAsksForWhereThereIsRoom();
    void comesBackWhereItWas();
    void comesBackMaximised();
    void staysOnTheScreenWhenThatHasBecomeSmaller();

private:
    const QTemporaryDir m_folder;
};

// The screen of these tests has 800 by 600 pixels.
void tst_WindowPlace::fillsAScreenThatIsTooSmall()
{
    MainWindow window(QSize(1280, 800));
    QCOMPARE(window.screen()->availableSize(), QSize(800, 600));
    showAtItsPlace(window);
    QVERIFY(QTest::qWaitForWindowExposed(&window, kPatience));
    QVERIFY(window.isMaximized());
    QVERIFY(window.screen()->availableGeometry().contains(window.geometry()));
}

void tst_WindowPlace::hasTheSizeItAsksForWhereThereIsRoom()
{
    QWidget window;
    window.resize(784, 552); // and the frame around it
    window.setMinimumSize(784, 552);
    showAtItsPlace(window);
    QVERIFY(!window.isMaximized());
    QCOMPARE(window.size(), QSize(784, 552));
}

void tst_WindowPlace::comesBackWhereItWas()
{
    QWidget first;
    showAtItsPlace(first);
    first.setGeometry(60, 70, 420, 310);
    first.close();
    keepPlace(first);

    QWidget second;
    showAtItsPlace(second);
    QCOMPARE(second.geometry(), QRect(60, 70, 420, 310));
    QVERIFY(!second.isMaximized());
    QWidget third;
    showWhole(third);
    QVERIFY(third.geometry() != QRect(60, 70, 420, 310));
}

void tst_WindowPlace::comesBackMaximised()
{
    QWidget first;
    first.showMaximized();
    keepPlace(first);
    QWidget second;
    showAtItsPlace(second);
    QVERIFY(second.isMaximized());
}

void tst_WindowPlace::staysOnTheScreenWhenThatHasBecomeSmaller()
{
    QWidget first;
    first.setGeometry(900, 700, 1000, 900);
    keepPlace(first);
    QWidget second;
    showAtItsPlace(second);
    QVERIFY(second.isMaximized());
}

QTEST_MAIN(tst_WindowPlace)
#include "tst_WindowPlace.moc"
