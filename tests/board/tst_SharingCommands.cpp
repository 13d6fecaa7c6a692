#include "Answers.h"
#include "SharingProbe.h"
#include "board/commands/CommandMenu.h"
#include "board/invite/JoinDialog.h"
#include "board/people/PeopleButton.h"
#include "board/person/NameDialog.h"
#include "board/person/Settings.h"
#include "board/window/MainWindow.h"
#include "board/window/SharingCommands.h"

#include <QtWidgets/QAction>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QProgressDialog>

#include <algorithm>

using namespace Board;

namespace {

// Of the discs, below their letters, without their order but for the first.
QString discColors(PeopleButton &button, int count)
{
    const QImage picture = button.grab().toImage();
    QStringList colors;
    for (int disc = 0; disc < count; ++disc)
        colors.append(QColor(picture.pixel(16 + 22 * disc, picture.height() / 2 + 9)).name());
    std::sort(colors.begin() + 1, colors.end());
    return colors.join(QLatin1Char(' '));
}

} // namespace

class tst_SharingCommands : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { m_window.reset(); }

    void givesColorsInTheOrderOfTheirComing();
    void tellsAnotherNameAtOnce();
    void asksBeforeAPageIsClearedForEverybody();
    void saysWhoHasTakenAPageAway();
    void keepsWhatWasTypedUntilItWasJoined();
    void keepsTheNameOfWhoJoins();
    void hasItsCommandsInTheMenu();

private:
    QAction *action(const char *name) { return m_window->findChild<QAction *>(QString::fromLatin1(name)); }
    DocumentSharing &sharing() { return m_window->sharing().sharing(); }
    void share();

    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<QTemporaryDir> m_folder;
    const QTemporaryDir m_settings;
};

void tst_SharingCommands::initTestCase()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings.path());
}

void tst_SharingCommands::init()
{
    Settings().clear();
    m_folder = std::make_unique<QTemporaryDir>();
    m_window = std::make_unique<MainWindow>(kSize);
    sharing().setFolder(m_folder->path());
    sharing().setPort(0);
    m_window->show();
}

void tst_SharingCommands::share()
{
    sharing().share();
    QTRY_VERIFY_WITH_TIMEOUT(sharing().isConnected(), kPatience);
}

// Whoever comes draws a number by chance; the first dozen have colours of their own all the same.
void tst_SharingCommands::givesColorsInTheOrderOfTheirComing()
{
    share();
    std::vector<std::unique_ptr<SharingProbe>> others;
    for (int i = 0; i < 5; ++i) {
        others.push_back(std::make_unique<SharingProbe>(QStringLiteral("P%1").arg(i)));
        others.back()->sharing.join(sharing().link());
        QTRY_VERIFY_WITH_TIMEOUT(others.back()->document.isShared(), kPatience);
    }
    QTRY_COMPARE_WITH_TIMEOUT(sharing().people(), 5, kPatience);
    auto &button = *m_window->findChild<PeopleButton *>();
    button.resize(button.sizeHint());
    QTRY_COMPARE_WITH_TIMEOUT(discColors(button, 6), QStringLiteral("#0b72df #050090 #0a7f48 #665701 #c80cd6 #eb001e"),
                              kPatience);
}

// To those who are there, and in the bar.
void tst_SharingCommands::tellsAnotherNameAtOnce()
{
    share();
    SharingProbe other("Other");
    other.join(sharing().link());
    QTRY_COMPARE_WITH_TIMEOUT(other.sharing.people(), 1, kPatience);
    QCOMPARE(other.nameOf(1), QString());
    withDialog<NameDialog>([](NameDialog &dialog) { dialog.findChild<QLineEdit *>()->setText("Frau Weber"); });
    action("name")->trigger();
    QTRY_COMPARE_WITH_TIMEOUT(other.nameOf(1), QString("Frau Weber"), kPatience);
    const auto &people = *m_window->findChild<PeopleButton *>();
    QVERIFY2(people.accessibleDescription().contains("Frau Weber"), qPrintable(people.accessibleDescription()));
    QCOMPARE(readDrawer().name, QString("Frau Weber"));
}

// And who has done so is told to the others, as it is of a page that is removed.
void tst_SharingCommands::asksBeforeAPageIsClearedForEverybody()
{
    share();
    SharingProbe other("<b>Mia</b>");
    other.join(sharing().link());
    Document &document = m_window->document();
    QTRY_COMPARE_WITH_TIMEOUT(sharing().people(), 1, kPatience);
    draw(document, "line", {10, 10}, {80, 10});
    {
        Answers answers({});
        action("clear")->trigger(); // nobody else has drawn here
        QCOMPARE(document.page().items().size(), std::size_t(0));
    }
    document.undo();
    draw(other.document, "line", {10, 30}, {80, 30});
    QTRY_COMPARE_WITH_TIMEOUT(document.page().items().size(), std::size_t(2), kPatience);
    Answers answers({"Cancel", "Clear"});
    action("clear")->trigger();
    QCOMPARE(answers.questions, QStringList("This clears the page for everybody. Others have drawn on it, too."));
    QCOMPARE(document.page().items().size(), std::size_t(2));
    action("clear")->trigger();
    QCOMPARE(answers.questions.size(), 2);
    QCOMPARE(document.page().items().size(), std::size_t(0));
    QTRY_COMPARE_WITH_TIMEOUT(other.objects(), 0U, kPatience);

    draw(other.document, "line", {10, 50}, {80, 50});
    other.document.author().clear();
    const auto &hint = *m_window->findChild<QLabel *>("hint");
    QTRY_COMPARE_WITH_TIMEOUT(hint.text(), QString("<b>Mia</b> has cleared the page."), kPatience);
    QCOMPARE(hint.textFormat(), Qt::PlainText);
}

// Also where a page goes since the step that has made it was undone; not of another page than the one that is seen.
void tst_SharingCommands::saysWhoHasTakenAPageAway()
{
    share();
    SharingProbe other("Mia");
    other.join(sharing().link());
    Document &document = m_window->document();
    QTRY_COMPARE_WITH_TIMEOUT(sharing().people(), 1, kPatience);
    const auto &hint = *m_window->findChild<QLabel *>("hint");
    const QString before = hint.text();
    other.document.addPage(1);
    draw(other.document, "line", {10, 50}, {80, 50});
    other.document.author().clear();
    draw(other.document, "line", {10, 80}, {80, 80});
    QTRY_VERIFY_WITH_TIMEOUT(document.pageCount() == 2 && document.page(1).items().size() == 1, kPatience);
    QCOMPARE(hint.text(), before);
    document.showPage(1);
    for (int step = 0; step < 4; ++step)
        other.document.undo();
    QTRY_COMPARE_WITH_TIMEOUT(document.pageCount(), 1, kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(hint.text(), QString("Mia has removed the page."), kPatience);
}

// Also where a part of it was typed. What has led into a lesson is not offered again.
void tst_SharingCommands::keepsWhatWasTypedUntilItWasJoined()
{
    const auto typed = [this](const QString &text, bool joins) {
        QString before;
        QTimer::singleShot(20, qApp, [&] {
            auto *dialog = qobject_cast<JoinDialog *>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            before = dialog->text();
            QTest::keyClicks(dialog->findChild<QLineEdit *>("link"), text); // in the place of what is there
            joins ? dialog->accept() : dialog->reject();
        });
        action("join")->trigger();
        return before;
    };
    QCOMPARE(typed("127.0.0.1:1 0410", false), QString());
    QCOMPARE(typed("http://127.0.0.1:1/#nobody", true), QString("127.0.0.1:1 0410"));
    auto *progress = m_window->findChild<QProgressDialog *>();
    QVERIFY(progress);
    const QString asked =
        "It is tried again and again.\nAre both machines in the same network? If they are, ask for a new link.";
    QTRY_VERIFY_WITH_TIMEOUT(progress->labelText().endsWith(asked), kPatience);
    progress->findChild<QPushButton *>()->click();
    QVERIFY(sharing().isIdle());
    SharingProbe teacher("Teacher");
    teacher.share();
    QCOMPARE(typed(teacher.sharing.link().text(), true), QString("http://127.0.0.1:1/#nobody"));
    QTRY_VERIFY_WITH_TIMEOUT(m_window->document().isShared(), kPatience);
    QCOMPARE(typed("", false), QString());
}

// As a name that is given by F2; it is not shown beside what is drawn for that.
void tst_SharingCommands::keepsTheNameOfWhoJoins()
{
    SharingProbe teacher("Teacher");
    teacher.share();
    const auto join = [&](const QString &name) {
        withDialog<JoinDialog>([&](JoinDialog &dialog) {
            dialog.findChild<QLineEdit *>("link")->setText(teacher.sharing.link().text());
            dialog.findChild<QLineEdit *>("name")->setText(name);
        });
        action("join")->trigger();
    };
    join("Mia");
    QTRY_VERIFY_WITH_TIMEOUT(m_window->document().isShared(), kPatience);
    QCOMPARE(readDrawer().name, QString("Mia"));
    QVERIFY(!readDrawer().isShown);
    sharing().end();
    Answers answers({"Discard"});
    join("");
    QTRY_VERIFY_WITH_TIMEOUT(m_window->document().isShared(), kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(teacher.nameOf(m_window->document().author().number()), QString(), kPatience);
    QCOMPARE(readDrawer().name, QString("Mia"));
}

// Who is here can be asked while somebody may be; what is on bears a tick.
void tst_SharingCommands::hasItsCommandsInTheMenu()
{
    auto &menu = *m_window->findChild<CommandMenu *>()->menu();
    menu.popup({0, 0});
    const auto menus = menu.findChildren<QMenu *>();
    const auto found = std::find_if(menus.begin(), menus.end(), [](QMenu *one) { return one->title() == "Sharing"; });
    QVERIFY(found != menus.end());
    QMenu &group = **found;
    QStringList names;
    for (const QAction *command : group.actions())
        names.append(command->objectName());
    QCOMPARE(names, QStringList({"share", "stop-sharing", "join", "people", "pointers"}));
    QVERIFY(!action("people")->isEnabled());
    group.popup({0, 0});
    const auto before = [&](const char *name) { // the title
        const QRect row = group.actionGeometry(action(name));
        return group.grab(QRect(row.left(), row.top(), 28, row.height())).toImage();
    };
    QVERIFY(action("pointers")->isChecked());
    const QImage bare = before("join"), ticked = before("pointers");
    action("pointers")->trigger();
    const QImage unticked = before("pointers"); // an empty box
    QVERIFY(ticked != bare);
    QVERIFY(unticked != bare);
    QVERIFY(unticked != ticked);
    group.close();
    menu.close();
    share();
    QVERIFY(action("people")->isEnabled());
}

QTEST_MAIN(tst_SharingCommands)
#include "tst_SharingCommands.moc"
