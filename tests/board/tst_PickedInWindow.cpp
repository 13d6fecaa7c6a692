#include "Patience.h"
#include "board/canvas/Canvas.h"
#include "board/controls/ColorRow.h"
#include "board/controls/WidthControl.h"
#include "board/person/Settings.h"
#include "board/window/MainWindow.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>
#include <QtWidgets/QAction>

using namespace Board;

namespace {

const QColor kBlack(0x1B, 0x1F, 0x24);
const QColor kRed(0xD6, 0x28, 0x39);
const QColor kBlue(0x1F, 0x6F, 0xD6);

} // namespace

// What the window shows of the object that is picked: a blue rectangle, 20 pixels thick, while the pen is red and 4.
class tst_PickedInWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path()); }
    void init();
    void cleanup();

    void showsItsColourAndWidth();
    void showsThoseOfAStroke();
    void changesWhatIsShown();
    void enablesWhatCanBeDoneToIt();

private:
    void key(int key) { QTest::keyClick(m_window.get(), Qt::Key(key)); }
    void drag(const QPoint &from, const QPoint &to)
    {
        QTest::mousePress(&m_window->canvas(), Qt::LeftButton, Qt::NoModifier, from);
        QTest::mouseRelease(&m_window->canvas(), Qt::LeftButton, Qt::NoModifier, to);
    }
    QColor color() const { return m_window->findChild<ColorRow *>()->color(); }
    int width() const { return m_window->findChild<WidthControl *>()->inkWidth(); }
    void setWidth(int width) { m_window->findChild<WidthControl *>()->setInkWidth(width); }

    const QTemporaryDir m_folder;
    std::unique_ptr<MainWindow> m_window;
};

void tst_PickedInWindow::init()
{
    m_window = std::make_unique<MainWindow>(QSize(800, 500));
    m_window->show();
    QApplication::setActiveWindow(m_window.get());
    QVERIFY(QTest::qWaitForWindowActive(m_window.get(), kPatience));
    key(Qt::Key_6);
    setWidth(20);
    key(Qt::Key_R);
    drag({100, 100}, {200, 160});
    key(Qt::Key_Escape);
    key(Qt::Key_3);
    setWidth(4);
}

void tst_PickedInWindow::cleanup()
{
    m_window->setAsksBeforeClosing(false);
    m_window.reset();
    Settings().clear();
}

void tst_PickedInWindow::showsItsColourAndWidth()
{
    key(Qt::Key_V);
    QCOMPARE(color(), kRed);
    drag({150, 100}, {150, 100});
    QCOMPARE(color(), kBlue);
    QCOMPARE(width(), 20);
    key(Qt::Key_Escape);
    QCOMPARE(color(), kRed);
    QCOMPARE(width(), 4);
    key(Qt::Key_P);
    drag({100, 200}, {200, 200}); // with the pen that was not changed
    QCOMPARE(m_window->canvas().page().picture().pixel(150, 200), kRed.rgb());
    QCOMPARE(m_window->canvas().page().picture().pixel(150, 205), 0xFFFFFFFF);
}

void tst_PickedInWindow::showsThoseOfAStroke()
{
    key(Qt::Key_P);
    drag({100, 200}, {200, 200});
    key(Qt::Key_1);
    setWidth(7);
    key(Qt::Key_V);
    drag({150, 200}, {150, 200});
    QCOMPARE(color(), kRed);
    QCOMPARE(width(), 4);
    drag({300, 250}, {300, 250}); // nothing there
    QCOMPARE(color(), kBlack);
    QCOMPARE(width(), 7);
}

// By one step from the width that it has, not from that of the pen.
void tst_PickedInWindow::changesWhatIsShown()
{
    key(Qt::Key_V);
    drag({150, 100}, {150, 100});
    key(Qt::Key_BracketRight);
    key(Qt::Key_1);
    QCOMPARE(color(), kBlack);
    QCOMPARE(width(), 21);
    const InkLesson::Hand *hand = m_window->document().author().hand();
    QVERIFY(hand);
    QCOMPARE(hand->object->m_nWidth, 21);
    QCOMPARE(hand->object->m_color, kBlack);
}

void tst_PickedInWindow::enablesWhatCanBeDoneToIt()
{
    const auto enabled = [this] {
        QStringList names;
        for (const char *name : {"delete", "duplicate", "raise", "lower"}) {
            if (m_window->findChild<QAction *>(QLatin1String(name))->isEnabled())
                names.append(QLatin1String(name));
        }
        return names.join(QLatin1Char(' '));
    };
    QCOMPARE(enabled(), QString());
    key(Qt::Key_V);
    drag({150, 100}, {150, 100});
    QCOMPARE(enabled(), QStringLiteral("delete duplicate raise lower"));
    key(Qt::Key_Escape);
    QCOMPARE(enabled(), QString());
    drag({150, 100}, {150, 100});
    key(Qt::Key_Delete);
    QCOMPARE(enabled(), QString());
    key(Qt::Key_R);
    drag({100, 100}, {200, 160}); // new, with its handles
    QCOMPARE(enabled(), QStringLiteral("delete duplicate raise lower"));
    m_window->findChild<QAction *>(QStringLiteral("undo"))->trigger();
    QCOMPARE(enabled(), QString());
    key(Qt::Key_P);
    drag({100, 200}, {200, 200});
    key(Qt::Key_V);
    drag({150, 200}, {150, 200}); // has no handles
    QCOMPARE(enabled(), QStringLiteral("delete duplicate raise lower"));
}

QTEST_MAIN(tst_PickedInWindow)
#include "tst_PickedInWindow.moc"
