#include "Patience.h"
#include "board/canvas/Canvas.h"
#include "board/rail/ToolRail.h"
#include "board/tools/Tools.h"
#include "board/window/MainWindow.h"

#include <QtTest/QtTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QToolButton>

using namespace Board;

class tst_ToolRail : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void showsAllToolsAtFirst();
    void findsToolsByAPartOfTheirTitle();
    void findsToolsByTheirName();
    void saysThatThereIsNoSuchTool();
    void takesTheFirstToolFoundOnEnter();
    void takesNoToolOnEsc();
    void goesDownToTheButtons();
    void typesLettersInsteadOfChoosingTools();
    void movesTheFocusByArrowKeys();
    void staysAtTheEnds();
    void leavesOutWhatIsNotFound();
    void pressesByEnterAndSpace();
    void isOneStopOfTheTabKey();
    void offersPicturesBesideText();
    void scrollsToTheToolThatWasFound();
    void showsSomeToolsOnlyWhereTheyAreSought_data();
    void showsSomeToolsOnlyWhereTheyAreSought();

private:
    QLineEdit &search() { return *m_window->findChild<ToolRail *>()->findChild<QLineEdit *>(); }
    QAction &command(const char *name) { return *m_window->findChild<QAction *>(QString::fromLatin1(name)); }
    QToolButton &button(const char *name)
    {
        return *qobject_cast<QToolButton *>(command(name).associatedWidgets().constLast());
    }
    QStringList found();
    QStringList headings();
    QString focused();

    std::unique_ptr<MainWindow> m_window;
};

void tst_ToolRail::init()
{
    m_window = std::make_unique<MainWindow>(QSize(800, 700));
    m_window->show();
    QApplication::setActiveWindow(m_window.get());
    QVERIFY(QTest::qWaitForWindowActive(m_window.get(), kPatience));
}

void tst_ToolRail::cleanup()
{
    m_window.reset();
}

QStringList tst_ToolRail::found()
{
    QStringList titles;
    for (const QToolButton *button : m_window->findChild<ToolRail *>()->findChildren<QToolButton *>()) {
        if (button->isVisible() && button != search().findChild<QToolButton *>())
            titles.append(button->accessibleName());
    }
    titles.sort();
    return titles;
}

QStringList tst_ToolRail::headings()
{
    QStringList texts;
    for (const QLabel *label : m_window->findChild<ToolRail *>()->findChildren<QLabel *>()) {
        if (label->isVisible())
            texts.append(label->text());
    }
    return texts;
}

QString tst_ToolRail::focused()
{
    const auto *button = qobject_cast<QToolButton *>(QApplication::focusWidget());
    return button && button->defaultAction() ? button->defaultAction()->objectName() : QString();
}

void tst_ToolRail::showsAllToolsAtFirst()
{
    QCOMPARE(found().size(), int(tools().size()) - 2 + 1); // without those of which nothing is seen, with the picture
    QCOMPARE(headings().size(), 5);
}

void tst_ToolRail::findsToolsByAPartOfTheirTitle()
{
    QTest::keyClick(m_window.get(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(search().hasFocus());
    search().setText(QStringLiteral("triANgle"));
    QCOMPARE(found(), (QStringList{QStringLiteral("Right triangle"), QStringLiteral("Triangle")}));
    QCOMPARE(headings(), QStringList{QStringLiteral("Lines and shapes")});
    search().setText(QStringLiteral("er"));
    QVERIFY(headings().size() > 1);
    search().clear();
    QCOMPARE(found().size(), int(tools().size()) - 2 + 1);
}

void tst_ToolRail::findsToolsByTheirName()
{
    search().setText(QStringLiteral("burst-12"));
    QCOMPARE(found(), QStringList{QStringLiteral("Burst of twelve")});
}

void tst_ToolRail::saysThatThereIsNoSuchTool()
{
    search().setText(QStringLiteral("zebra"));
    QCOMPARE(found(), QStringList());
    QCOMPARE(headings(), QStringList{QStringLiteral("No such tool")});
    QTest::keyClick(&search(), Qt::Key_Return);
    QTest::keyClick(&search(), Qt::Key_Down);
    QVERIFY(command("pencil").isChecked());
}

void tst_ToolRail::takesTheFirstToolFoundOnEnter()
{
    search().setFocus();
    search().setText(QStringLiteral("star"));
    QTest::keyClick(&search(), Qt::Key_Return);
    QVERIFY(command("star-4").isChecked());
    QCOMPARE(search().text(), QString());
    QVERIFY(m_window->canvas().hasFocus());
}

void tst_ToolRail::takesNoToolOnEsc()
{
    search().setFocus();
    search().setText(QStringLiteral("star"));
    QTest::keyClick(&search(), Qt::Key_Escape);
    QVERIFY(command("pencil").isChecked());
    QCOMPARE(search().text(), QString());
    QVERIFY(m_window->canvas().hasFocus());
}

void tst_ToolRail::goesDownToTheButtons()
{
    search().setFocus();
    search().setText(QStringLiteral("star"));
    QTest::keyClick(&search(), Qt::Key_Down);
    QCOMPARE(focused(), QStringLiteral("star-4"));
}

void tst_ToolRail::typesLettersInsteadOfChoosingTools()
{
    search().setFocus();
    QTest::keyClicks(&search(), QStringLiteral("line 3"));
    QCOMPARE(search().text(), QStringLiteral("line 3"));
    QVERIFY(command("pencil").isChecked());
}

// Three in a row: pencil, brush, flat brush; highlighter, colour brush, crayon; spray gun. Then,
// under the next heading: pick, eraser, select.
void tst_ToolRail::movesTheFocusByArrowKeys()
{
    button("pencil").setFocus();
    const auto press = [](int key) { QTest::keyClick(QApplication::focusWidget(), Qt::Key(key)); };
    press(Qt::Key_Right);
    QCOMPARE(focused(), QStringLiteral("brush"));
    press(Qt::Key_Down);
    QCOMPARE(focused(), QStringLiteral("color-brush"));
    press(Qt::Key_Left);
    QCOMPARE(focused(), QStringLiteral("highlighter"));
    press(Qt::Key_Left); // the end of the row above
    QCOMPARE(focused(), QStringLiteral("flat-brush"));
    press(Qt::Key_Right);
    QCOMPARE(focused(), QStringLiteral("highlighter"));
    press(Qt::Key_Up);
    QCOMPARE(focused(), QStringLiteral("pencil"));
    button("crayon").setFocus();
    press(Qt::Key_Down); // the next row has one alone
    QCOMPARE(focused(), QStringLiteral("spray-gun"));
    press(Qt::Key_Down);
    QCOMPARE(focused(), QStringLiteral("pick"));
    QVERIFY(command("pencil").isChecked()); // looked at, not pressed
}

void tst_ToolRail::staysAtTheEnds()
{
    for (const int key : {Qt::Key_Left, Qt::Key_Up}) {
        button("pencil").setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key));
        QCOMPARE(focused(), QStringLiteral("pencil"));
    }
    for (const int key : {Qt::Key_Right, Qt::Key_Down}) {
        button("cloud-label").setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key));
        QCOMPARE(focused(), QStringLiteral("cloud-label"));
    }
}

void tst_ToolRail::leavesOutWhatIsNotFound()
{
    search().setText(QStringLiteral("brush")); // brush, flat brush, colour brush
    button("flat-brush").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QCOMPARE(focused(), QStringLiteral("color-brush"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QCOMPARE(focused(), QStringLiteral("color-brush"));
}

void tst_ToolRail::pressesByEnterAndSpace()
{
    button("brush").setFocus();
    QTest::keyClick(&button("brush"), Qt::Key_Return);
    QVERIFY(command("brush").isChecked());
    button("crayon").setFocus();
    QTest::keyClick(&button("crayon"), Qt::Key_Space);
    QVERIFY(command("crayon").isChecked());
}

void tst_ToolRail::isOneStopOfTheTabKey()
{
    const auto stops = [this] {
        QStringList names;
        for (const QToolButton *button : m_window->findChild<ToolRail *>()->findChildren<QToolButton *>()) {
            if (button->focusPolicy() & Qt::TabFocus)
                names.append(button->defaultAction()->objectName());
        }
        return names;
    };
    QCOMPARE(stops(), QStringList{QStringLiteral("pencil")});
    command("ellipse").trigger();
    QCOMPARE(stops(), QStringList{QStringLiteral("ellipse")});
    button("line").setFocus();
    QCOMPARE(stops(), QStringList{QStringLiteral("line")});
    search().setText(QStringLiteral("star")); // the line is hidden
    QCOMPARE(stops(), QStringList{QStringLiteral("star-4")});
}

void tst_ToolRail::offersPicturesBesideText()
{
    const QToolButton &text = button("text");
    const QToolButton &picture = button("picture");
    QCOMPARE(picture.pos(), text.pos() + QPoint(52, 0));
    QVERIFY(!picture.icon().isNull());
    QCOMPARE(picture.accessibleName(), QStringLiteral("Picture…"));
}

// Of a window that is too low for all of them.
void tst_ToolRail::scrollsToTheToolThatWasFound()
{
    const QWidget *viewport = m_window->findChild<ToolRail *>()->findChild<QScrollArea *>()->viewport();
    const auto isSeen = [&](const char *name) {
        const QToolButton &tool = button(name);
        return viewport->rect().contains(QRect(tool.mapTo(viewport, QPoint()), tool.size()));
    };
    QVERIFY(!isSeen("cloud-label"));
    search().setFocus();
    search().setText(QStringLiteral("cloud"));
    QCoreApplication::processEvents();
    QTest::keyClick(&search(), Qt::Key_Return);
    QVERIFY(command("cloud-label").isChecked());
    QVERIFY(isSeen("cloud-label"));
    QCoreApplication::processEvents();
    QVERIFY(isSeen("cloud-label"));
}

void tst_ToolRail::showsSomeToolsOnlyWhereTheyAreSought_data()
{
    QTest::addColumn<QByteArray>("tool");
    QTest::newRow("heart") << QByteArray("heart");
    QTest::newRow("water-color-pen") << QByteArray("water-color-pen");
}

void tst_ToolRail::showsSomeToolsOnlyWhereTheyAreSought()
{
    QFETCH(QByteArray, tool);
    QVERIFY(!button(tool).isVisible());
    search().setFocus();
    search().setText(QString::fromLatin1(tool));
    QVERIFY(button(tool).isVisible());
    QTest::keyClick(&search(), Qt::Key_Return);
    QVERIFY(command(tool).isChecked());
    QVERIFY(button(tool).isVisible());
    command("pencil").trigger();
    QVERIFY(!button(tool).isVisible());
}

QTEST_MAIN(tst_ToolRail)
#include "tst_ToolRail.moc"
