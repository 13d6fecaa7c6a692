#include "Patience.h"
#include "board/canvas/Canvas.h"
#include "board/commands/ShortcutDialog.h"
#include "board/invite/JoinDialog.h"
#include "board/invite/ShareDialog.h"
#include "board/people/PeopleBar.h"
#include "board/person/NameDialog.h"
#include "board/screen/ScreenBar.h"
#include "board/tools/Tools.h"
#include "board/window/MainWindow.h"

#include <QtGui/QAccessible>
#include <QtTest/QtTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QMenu>
#include <QtWidgets/QToolButton>

using namespace Board;

namespace {

QString nameOf(QWidget *widget)
{
    const QAccessibleInterface *access = QAccessible::queryAccessibleInterface(widget);
    return access ? access->text(QAccessible::Name) : QString();
}

// What a person can work with: what takes the focus for itself, and every button that is seen.
bool isControl(const QWidget &widget)
{
    if (widget.focusProxy() || widget.isWindow())
        return false;
    if (widget.parentWidget()->inherits("QLineEdit") || widget.parentWidget()->inherits("QComboBoxPrivateContainer"))
        return false; // parts of another control
    return widget.focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractButton *>(&widget);
}

QString namelessControls(QWidget &window)
{
    QStringList found;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        if (isControl(*widget) && nameOf(widget).trimmed().isEmpty())
            found.append(
                QStringLiteral("%1 '%2'").arg(QLatin1String(widget->metaObject()->className()), widget->objectName()));
    }
    return found.join(QStringLiteral(", "));
}

} // namespace

class tst_Access : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void noticesAControlWithoutAName();
    void namesAllControlsOfTheWindow();
    void namesAllControlsOfTheTextEditor();
    void namesAllControlsOfTheDialogs();
    void goesThroughTheWindowByTab();
    void showsWhereTheFocusIs();
    void opensTheMenuByKey();
    void forgetsThePointerThatHasLeftDuringTheMenu();

private:
    QAction &command(const char *name) { return *m_window->findChild<QAction *>(QString::fromLatin1(name)); }

    std::unique_ptr<MainWindow> m_window;
};

void tst_Access::init()
{
    m_window = std::make_unique<MainWindow>(QSize(800, 600));
    m_window->show();
    QApplication::setActiveWindow(m_window.get());
    QVERIFY(QTest::qWaitForWindowActive(m_window.get(), kPatience));
}

void tst_Access::noticesAControlWithoutAName()
{
    QWidget window;
    new QComboBox(&window);
    QCOMPARE(namelessControls(window), QStringLiteral("QComboBox ''"));
}

void tst_Access::namesAllControlsOfTheWindow()
{
    for (const char *tool : {"pencil", "highlighter", "line"}) { // with every control of the foot
        command(tool).trigger();
        QCOMPARE(namelessControls(*m_window), QString());
    }
}

void tst_Access::namesAllControlsOfTheTextEditor()
{
    command("text").trigger();
    QTest::mousePress(&m_window->canvas(), Qt::LeftButton, Qt::NoModifier, {100, 100});
    QTest::mouseRelease(&m_window->canvas(), Qt::LeftButton, Qt::NoModifier, {300, 200});
    QVERIFY(m_window->findChild<QWidget *>(QStringLiteral("textBar")));
    QCOMPARE(namelessControls(*m_window), QString());
}

void tst_Access::namesAllControlsOfTheDialogs()
{
    ShortcutDialog shortcuts(*m_window);
    QCOMPARE(namelessControls(shortcuts), QString());
    NameDialog name({});
    QCOMPARE(namelessControls(name), QString());
    ScreenBar bar;
    QCOMPARE(namelessControls(bar), QString());
    ShareDialog share;
    QCOMPARE(namelessControls(share), QString());
    JoinDialog join(nullptr, {});
    QCOMPARE(namelessControls(join), QString());
    PeopleBar people;
    people.setPeople({{}});
    QCOMPARE(namelessControls(people), QString());
}

// Each part of the window once, from the upper left to the lower right.
void tst_Access::goesThroughTheWindowByTab()
{
    m_window->resize(1024, 600); // where nothing leaves the bar
    QCoreApplication::processEvents();
    command("line").trigger();
    m_window->canvas().setFocus();
    QStringList names;
    do {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        names.append(nameOf(QApplication::focusWidget()));
    } while (!m_window->canvas().hasFocus() && names.size() < 50);
    QCOMPARE(names.join(QStringLiteral(", ")), QStringLiteral("Pages, Add a page, Line style, Zoom to 100 %, Black, "
                                                              "Pen width, Share this lesson, Clear, Menu, Search for a "
                                                              "tool, Line, Page"));
}

void tst_Access::showsWhereTheFocusIs()
{
    Canvas &canvas = m_window->canvas();
    const auto corner = [&] { return canvas.grab().toImage().pixel(1, 1); };
    QCOMPARE(corner(), 0xFFFFFFFFU);
    command("pencil").trigger();
    const QImage bare = m_window->grab().toImage();
    for (int i = 0; i < 20 && (i == 0 || !canvas.hasFocus()); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QTRY_VERIFY2_WITH_TIMEOUT(m_window->grab().toImage() != bare, qPrintable(nameOf(QApplication::focusWidget())),
                                  kPatience);
    }
    QVERIFY(canvas.hasFocus());
    QCOMPARE(corner(), 0xFF2563C9U);
    command("search").trigger();
    QCOMPARE(corner(), 0xFFFFFFFFU);
    canvas.setFocus(); // not by the Tab key
    QCOMPARE(corner(), 0xFFFFFFFFU);
}

void tst_Access::opensTheMenuByKey()
{
    QStringList texts;
    QTimer::singleShot(0, this, [&] {
        QTRY_VERIFY_WITH_TIMEOUT(QApplication::activePopupWidget(), kPatience);
        for (const QAction *action : QApplication::activePopupWidget()->actions())
            texts.append(action->text());
        QApplication::activePopupWidget()->close();
    });
    command("menu").trigger();
    QCOMPARE(texts.mid(0, 3),
             (QStringList{QStringLiteral("New lesson"), QStringLiteral("Open…"), QStringLiteral("Unsaved lessons…")}));
    for (const char *title : {"Pictures", "Paper", "Objects", "Pages", "View"})
        QCOMPARE(texts.count(QLatin1String(title)), 1);
    QCOMPARE(texts.constLast(), QStringLiteral("Quit"));
    QVERIFY(!texts.contains(QStringLiteral("Pencil")));
}

// The pointer of these tests is nowhere near the button.
void tst_Access::forgetsThePointerThatHasLeftDuringTheMenu()
{
    auto *menu = m_window->findChild<QToolButton *>(QStringLiteral("menu"));
    menu->setAttribute(Qt::WA_UnderMouse);
    QTimer::singleShot(0, this, [] {
        QTRY_VERIFY_WITH_TIMEOUT(QApplication::activePopupWidget(), kPatience);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    });
    menu->showMenu();
    QTRY_VERIFY_WITH_TIMEOUT(!menu->underMouse(), kPatience);
}

QTEST_MAIN(tst_Access)
#include "tst_Access.moc"
