#include "Patience.h"
#include "board/commands/CommandGroup.h"
#include "board/commands/ShortcutDialog.h"
#include "board/commands/Shortcuts.h"
#include "board/person/Settings.h"
#include "board/screen/ScreenBar.h"
#include "board/tools/Tools.h"
#include "board/window/MainWindow.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QScreen>
#include <QtTest/QtTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAction>
#include <QtWidgets/QKeySequenceEdit>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeWidget>

using namespace Board;

namespace {

const QSize kSize(800, 500);

} // namespace

class tst_Shortcuts : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsWithTheStandardKeys();
    void keepsChosenKeysForTheNextWindow();
    void keepsThatACommandHasNone();
    void forgetsKeysThatAreStandard();
    void givesChosenKeysToOneCommandOnly();
    void keepsSecondKeysWithTheFirst();
    void countOverTheScreenToo();
    void findsTheCommandWithKeys_data();
    void findsTheCommandWithKeys();
    void knowsTheKeysThatMoveTheFocus_data();
    void knowsTheKeysThatMoveTheFocus();
    void namesTheKeysInTheTip();
    void listsAllCommands();
    void takesKeysThatAreTyped();
    void saysWhoHasTheKeys();
    void takesKeysFromAnother();
    void refusesKeysThatMoveTheFocus();
    void givesStandardKeysBack();
    void givesAllStandardKeysBack();
    void searches();
    void fitsOnASmallScreen();

private:
    void newWindow()
    {
        m_dialog.reset();
        m_window = std::make_unique<MainWindow>(kSize);
    }
    QAction &command(const char *name) { return *m_window->findChild<QAction *>(QString::fromLatin1(name)); }
    QString keys(const char *name) { return command(name).shortcut().toString(); }
    static void keep(const char *name, const char *keys)
    {
        Settings().setValue(QStringLiteral("shortcuts/") + QLatin1String(name), QString::fromLatin1(keys));
    }

    void edit(const char *name);
    void enter(const char *keys);
    QTreeWidgetItem *row(const QString &title);
    QPushButton &button(const char *name) { return *m_dialog->findChild<QPushButton *>(QString::fromLatin1(name)); }
    QString problem() { return m_dialog->findChild<QLabel *>(QStringLiteral("problem"))->text(); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<ShortcutDialog> m_dialog;
};

void tst_Shortcuts::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder->path());
    newWindow();
}

void tst_Shortcuts::cleanup()
{
    m_dialog.reset();
    m_window.reset();
}

QTreeWidgetItem *tst_Shortcuts::row(const QString &title)
{
    const auto found = m_dialog->findChild<QTreeWidget *>()->findItems(title, Qt::MatchExactly | Qt::MatchRecursive);
    return found.size() == 1 ? found.constFirst() : nullptr;
}

// Opens the dialog on a command.
void tst_Shortcuts::edit(const char *name)
{
    m_dialog = std::make_unique<ShortcutDialog>(*m_window);
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get(), kPatience));
    m_dialog->findChild<QTreeWidget *>()->setCurrentItem(row(command(name).text()));
}

void tst_Shortcuts::enter(const char *keys)
{
    auto *edit = m_dialog->findChild<QKeySequenceEdit *>();
    edit->setKeySequence(QKeySequence(QLatin1String(keys)));
    emit edit->editingFinished();
}

void tst_Shortcuts::startsWithTheStandardKeys()
{
    QCOMPARE(keys("undo"), QStringLiteral("Ctrl+Z"));
    QCOMPARE(keys("line"), QStringLiteral("L"));
    QCOMPARE(keys("color-3"), QStringLiteral("3"));
    QCOMPARE(keys("thinner"), QStringLiteral("["));
    QVERIFY(Settings().allKeys().isEmpty());
}

void tst_Shortcuts::keepsChosenKeysForTheNextWindow()
{
    chooseKeys(command("line"), QKeySequence(QStringLiteral("Alt+L")));
    QCOMPARE(keys("line"), QStringLiteral("Alt+L"));
    QCOMPARE(Settings().value(QStringLiteral("shortcuts/line")).toString(), QStringLiteral("Alt+L"));
    newWindow();
    QCOMPARE(keys("line"), QStringLiteral("Alt+L"));
    QCOMPARE(standardKeys(command("line")).toString(), QStringLiteral("L"));
    m_window->show();
    QApplication::setActiveWindow(m_window.get());
    QVERIFY(QTest::qWaitForWindowActive(m_window.get(), kPatience));
    QTest::keyClick(m_window.get(), Qt::Key_L);
    QVERIFY(!command("line").isChecked());
    QTest::keyClick(m_window.get(), Qt::Key_L, Qt::AltModifier);
    QVERIFY(command("line").isChecked());
}

void tst_Shortcuts::keepsThatACommandHasNone()
{
    chooseKeys(command("line"), {});
    newWindow();
    QCOMPARE(keys("line"), QString());
    QCOMPARE(command("line").toolTip(), QStringLiteral("Line"));
}

void tst_Shortcuts::forgetsKeysThatAreStandard()
{
    chooseKeys(command("line"), QKeySequence(QStringLiteral("Alt+L")));
    chooseKeys(command("line"), QKeySequence(QStringLiteral("L")));
    QVERIFY(Settings().allKeys().isEmpty());
}

// Whatever the file says, no two commands have the same keys, or neither would answer.
void tst_Shortcuts::givesChosenKeysToOneCommandOnly()
{
    keep("line", "Ctrl+E"); // which exports
    keep("brush", "Alt+F9");
    keep("pencil", "Alt+F9");
    newWindow();
    QCOMPARE(keys("line"), QStringLiteral("Ctrl+E"));
    QCOMPARE(keys("export"), QString());
    QCOMPARE(keys("pencil"), QStringLiteral("Alt+F9"));
    QCOMPARE(keys("brush"), QString());
    QCOMPARE(keys("undo"), QStringLiteral("Ctrl+Z"));
}

// Zooming in has two.
void tst_Shortcuts::keepsSecondKeysWithTheFirst()
{
    const auto all = [this] { return QKeySequence::listToString(command("zoom-in").shortcuts()); };
    QCOMPARE(all(), QStringLiteral("Ctrl++; Ctrl+="));
    chooseKeys(command("zoom-in"), QKeySequence(QStringLiteral("Alt+F9")));
    QCOMPARE(all(), QStringLiteral("Alt+F9"));
    chooseKeys(command("zoom-in"), QKeySequence(QStringLiteral("Ctrl++")));
    QCOMPARE(all(), QStringLiteral("Ctrl++; Ctrl+="));
    QCOMPARE(commandWithKeys(*m_window, QKeySequence(QStringLiteral("Ctrl+=")), command("line")), &command("zoom-in"));
    keep("line", "Ctrl+=");
    newWindow();
    QCOMPARE(keys("line"), QStringLiteral("Ctrl+="));
    QCOMPARE(all(), QString());
}

void tst_Shortcuts::countOverTheScreenToo()
{
    chooseKeys(command("undo"), QKeySequence(QStringLiteral("Alt+F9")));
    const ScreenBar bar;
    QCOMPARE(bar.findChild<QAction *>(QStringLiteral("undo"))->toolTip(), QStringLiteral("Undo (Alt+F9)"));
    QCOMPARE(bar.findChild<QAction *>(QStringLiteral("pencil"))->toolTip(), QStringLiteral("Pencil (P)"));
}

void tst_Shortcuts::findsTheCommandWithKeys_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("name");
    const auto test = [](const char *keys, const char *name) {
        QTest::newRow(keys) << QString::fromLatin1(keys) << QString::fromLatin1(name);
    };
    test("Ctrl+Z", "undo");
    test("Ctrl+Z, A", "undo"); // which would answer before the second key
    test("Ctrl+K", "raise");   // would answer before its second key
    test("Ctrl+K, B", "raise");
    test("Ctrl+K, C", "");
    test("L", ""); // the command that asks
    test("Alt+F9", "");
    test("", "");
}

void tst_Shortcuts::findsTheCommandWithKeys()
{
    QFETCH(QString, keys);
    QFETCH(QString, name);
    chooseKeys(command("raise"), QKeySequence(QStringLiteral("Ctrl+K, B")));
    const QAction *found = commandWithKeys(*m_window, QKeySequence(keys), command("line"));
    QCOMPARE(found ? found->objectName() : QString(), name);
}

void tst_Shortcuts::knowsTheKeysThatMoveTheFocus_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<bool>("moves");
    for (const char *keys : {"Tab", "Shift+Tab", "Backtab", "Space", "Return", "Enter", "Left", "Right", "Up", "Down",
                             "Shift+Up", "Space, A"})
        QTest::newRow(keys) << QString::fromLatin1(keys) << true;
    for (const char *keys : {"", "A", "Esc", "F1", "PgUp", "Ctrl+Left", "Alt+Return", "A, Space"})
        QTest::newRow(keys) << QString::fromLatin1(keys) << false;
}

void tst_Shortcuts::knowsTheKeysThatMoveTheFocus()
{
    QFETCH(QString, keys);
    QFETCH(bool, moves);
    QCOMPARE(movesFocus(QKeySequence(keys)), moves);
}

void tst_Shortcuts::namesTheKeysInTheTip()
{
    QCOMPARE(command("undo").toolTip(), QStringLiteral("Undo (Ctrl+Z)"));
    chooseKeys(command("undo"), QKeySequence(QStringLiteral("Alt+F9")));
    QCOMPARE(command("undo").toolTip(), QStringLiteral("Undo (Alt+F9)"));
}

void tst_Shortcuts::listsAllCommands()
{
    edit("line");
    for (const Tool &tool : tools()) {
        QVERIFY2(row(toolTitle(tool)), tool.name);
        QCOMPARE(row(toolTitle(tool))->text(1), QKeySequence(QLatin1String(tool.shortcut)).toString());
        QCOMPARE(row(toolTitle(tool))->parent()->text(0), groupTitle(tool));
    }
    for (const QAction *command : commands(*m_window)) {
        QVERIFY2(row(command->text()), qPrintable(command->text()));
        QCOMPARE(row(command->text())->parent()->text(0), commandGroup(*command));
    }
    QVERIFY(row(QStringLiteral("Save as…")));
    QVERIFY(row(QStringLiteral("Purple")));
}

void tst_Shortcuts::takesKeysThatAreTyped()
{
    edit("line");
    auto *edit = m_dialog->findChild<QKeySequenceEdit *>();
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_F12, Qt::ControlModifier);
    QTRY_COMPARE_WITH_TIMEOUT(keys("line"), QStringLiteral("Ctrl+F12"), kPatience);
    QCOMPARE(row(QStringLiteral("Line"))->text(1), QStringLiteral("Ctrl+F12"));
    QCOMPARE(problem(), QString());
}

void tst_Shortcuts::saysWhoHasTheKeys()
{
    edit("line");
    enter("Ctrl+Z");
    QCOMPARE(problem(), QStringLiteral("Ctrl+Z belongs to “Undo”."));
    QVERIFY(button("take-over").isVisible());
    QCOMPARE(keys("line"), QStringLiteral("L"));
    QCOMPARE(keys("undo"), QStringLiteral("Ctrl+Z"));
    enter("Alt+F9"); // free
    QCOMPARE(problem(), QString());
    QVERIFY(!button("take-over").isVisible());
    QCOMPARE(keys("line"), QStringLiteral("Alt+F9"));
}

void tst_Shortcuts::takesKeysFromAnother()
{
    edit("line");
    enter("Ctrl+Z");
    button("take-over").click();
    QCOMPARE(problem(), QString());
    QCOMPARE(keys("line"), QStringLiteral("Ctrl+Z"));
    QCOMPARE(keys("undo"), QString());
    QCOMPARE(row(QStringLiteral("Undo"))->text(1), QString());
    newWindow();
    QCOMPARE(keys("line"), QStringLiteral("Ctrl+Z"));
    QCOMPARE(keys("undo"), QString());
}

void tst_Shortcuts::refusesKeysThatMoveTheFocus()
{
    edit("line");
    enter("Space");
    QCOMPARE(problem(), QStringLiteral("Space moves between the buttons and presses them."));
    QVERIFY(!button("take-over").isVisible());
    QCOMPARE(keys("line"), QStringLiteral("L"));
}

void tst_Shortcuts::givesStandardKeysBack()
{
    edit("line");
    button("none").click();
    QCOMPARE(keys("line"), QString());
    button("standard").click();
    QCOMPARE(keys("line"), QStringLiteral("L"));
    QVERIFY(Settings().allKeys().isEmpty());

    chooseKeys(command("pencil"), QKeySequence(QStringLiteral("L"))); // meanwhile
    button("none").click();
    button("standard").click();
    QCOMPARE(problem(), QStringLiteral("L belongs to “Pencil”."));
    QCOMPARE(keys("line"), QString());
}

void tst_Shortcuts::givesAllStandardKeysBack()
{
    edit("line");
    enter("Ctrl+Z");
    button("take-over").click();
    button("all-standard").click();
    QCOMPARE(keys("line"), QStringLiteral("L"));
    QCOMPARE(keys("undo"), QStringLiteral("Ctrl+Z"));
    QCOMPARE(row(QStringLiteral("Undo"))->text(1), QStringLiteral("Ctrl+Z"));
    QVERIFY(Settings().allKeys().isEmpty());
}

void tst_Shortcuts::searches()
{
    edit("line");
    auto *search = m_dialog->findChild<QLineEdit *>();
    search->setText(QStringLiteral("uNDo"));
    QVERIFY(!row(QStringLiteral("Undo"))->isHidden());
    QVERIFY(row(QStringLiteral("Redo"))->isHidden());
    QVERIFY(row(QStringLiteral("Line"))->parent()->isHidden());
    search->setText(QStringLiteral("ctrl+y")); // by its keys
    QVERIFY(row(QStringLiteral("Undo"))->isHidden());
    QVERIFY(!row(QStringLiteral("Redo"))->isHidden());
    const auto *fading = search->findChild<QAbstractButton *>();
    QTRY_COMPARE_WITH_TIMEOUT(fading->property("opacity").toReal(), 1.0, kPatience);
    search->clear();
    QVERIFY(!row(QStringLiteral("Line"))->isHidden());
    QVERIFY(!row(QStringLiteral("Line"))->parent()->isHidden());
    // Qt leaks what fades the field's button unless that has come to its end.
    QTRY_COMPARE_WITH_TIMEOUT(fading->property("opacity").toReal(), 0.0, kPatience);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Of 800 by 600 pixels, with a frame around it; and of 640 by 400.
void tst_Shortcuts::fitsOnASmallScreen()
{
    newWindow();
    ShortcutDialog dialog(*m_window);
    QCOMPARE(dialog.screen()->availableSize(), QSize(800, 600));
    QCOMPARE(dialog.size(), QSize(560, 552));
    QVERIFY2(dialog.minimumSizeHint().height() <= 352, qPrintable(QString::number(dialog.minimumSizeHint().height())));
}

QTEST_MAIN(tst_Shortcuts)
#include "tst_Shortcuts.moc"
