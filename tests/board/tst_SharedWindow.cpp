#include "Answers.h"
#include "SharingProbe.h"

#include "board/files/FileCommands.h"
#include "board/invite/ShareDialog.h"
#include "board/people/ConnectionLabel.h"
#include "board/program/CommandLine.h"
#include "board/window/MainWindow.h"
#include "board/window/SharingCommands.h"

#include <QtGui/QCloseEvent>
#include <QtWidgets/QAction>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QProgressDialog>
#include <QtWidgets/QPushButton>

using namespace Board;

namespace {

} // namespace

class tst_SharedWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void sharesByKey();
    void saysWhoIsThereAndHow();
    void saysThatTwoHoldTheSame();
    void showsPagesThatAreNotSeen();
    void saysThatThereIsNoDoor();
    void saysWhereTheLessonIsWithoutAnEngine();
    void asksBeforeTheOthersAreLeft();
    void savesWhatCameUntilTheEnd();
    void joinsALesson();
    void isOrdinaryOnceTheLessonHasBeenEnded();
    void stopsJoining();
    void goesOnAfterACrash();
    void takesALinkAsArgument();

private:
    QAction *action(const char *name) { return m_window->findChild<QAction *>(QString::fromLatin1(name)); }
    QString words() { return m_window->findChild<ConnectionLabel *>()->accessibleName(); }
    DocumentSharing &sharing() { return m_window->sharing().sharing(); }
    void share();
    bool closes()
    {
        QCloseEvent event;
        QCoreApplication::sendEvent(m_window.get(), &event);
        return event.isAccepted();
    }

    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<QTemporaryDir> m_folder;
    const QTemporaryDir m_settings;
    QByteArray m_path;
};

void tst_SharedWindow::initTestCase()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings.path());
    m_path = qgetenv("PATH");
}

void tst_SharedWindow::init()
{
    qputenv("PATH", m_path);
    m_folder = std::make_unique<QTemporaryDir>();
    m_window = std::make_unique<MainWindow>(kSize);
    sharing().setFolder(m_folder->path());
    sharing().setPort(0);
    m_window->show();
    QApplication::setActiveWindow(m_window.get());
    QVERIFY(QTest::qWaitForWindowActive(m_window.get(), kPatience));
}

void tst_SharedWindow::cleanup()
{
    m_window.reset();
}

void tst_SharedWindow::share()
{
    action("share")->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(sharing().isConnected(), kPatience);
    m_window->findChild<ShareDialog *>()->close();
}

// The dialog shows the link, and how to end.
void tst_SharedWindow::sharesByKey()
{
    QVERIFY(!action("stop-sharing")->isEnabled());
    QTest::keyClick(m_window.get(), Qt::Key_F6);
    auto *dialog = m_window->findChild<ShareDialog *>();
    QVERIFY(dialog);
    QTRY_VERIFY_WITH_TIMEOUT(sharing().isConnected(), kPatience);
    QVERIFY(m_window->document().isShared());
    QVERIFY(action("stop-sharing")->isEnabled());
    const LessonLink link = *LessonLink::fromText(dialog->findChild<QLineEdit *>()->text());
    QCOMPARE(link.lesson, sharing().link().lesson);
    QCOMPARE(link.door.port(), sharing().port());
    QTRY_COMPARE_WITH_TIMEOUT(words(), QString("Shared, nobody else is here"), kPatience);
    Answers answers({"Stop sharing"});
    dialog->findChild<QPushButton *>("end")->click();
    QCOMPARE(answers.questions.size(), 1);
    QTRY_VERIFY_WITH_TIMEOUT(!m_window->document().isShared(), kPatience);
    QTRY_VERIFY_WITH_TIMEOUT(!m_window->findChild<ShareDialog *>(), kPatience);
    QCOMPARE(words(), QString());
}

void tst_SharedWindow::saysWhoIsThereAndHow()
{
    share();
    SharingProbe first("Ada"), second("");
    first.sharing.join(sharing().link());
    QTRY_COMPARE_WITH_TIMEOUT(words(), QString("Shared with 1"), kPatience);
    second.sharing.join(sharing().link());
    QTRY_COMPARE_WITH_TIMEOUT(words(), QString("Shared with 2"), kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(first.sharing.words(), QString("Shared with 2"), kPatience);
    // What another removes under the hand is told of, and stays for a while.
    first.document.addPage(1);
    QTRY_COMPARE_WITH_TIMEOUT(m_window->document().pageCount(), 2, kPatience);
    m_window->document().showPage(1);
    first.document.removePage(1);
    auto *hint = m_window->findChild<QLabel *>("hint");
    QTRY_COMPARE_WITH_TIMEOUT(hint->text(), QString("Ada has removed the page."), kPatience);
}

// They have taken it within a moment.
void tst_SharedWindow::saysThatTwoHoldTheSame()
{
    share();
    SharingProbe other("Ada");
    other.sharing.join(sharing().link());
    draw(m_window->document(), "rectangle", {50, 50}, {150, 120});
    QTRY_COMPARE_WITH_TIMEOUT(words(), QString("Shared with 1"), kPatience); // so that the name is known
    QTRY_VERIFY_WITH_TIMEOUT(other.document.isShared() && other.objects() == 1, kPatience);
    const InkLesson::ObjectId id = other.document.page().items()[0]->id;
    QVERIFY(m_window->document().author().reopen(id));
    QVERIFY(other.document.author().reopen(id));
    auto *hint = m_window->findChild<QLabel *>("hint");
    QTRY_COMPARE_WITH_TIMEOUT(hint->text(), QString("Ada is holding this, too. What is done last counts."), kPatience);
}

void tst_SharedWindow::showsPagesThatAreNotSeen()
{
    m_window->document().addPage(1);
    m_window->document().showPage(0);
    share();
    SharingProbe other("Other");
    other.sharing.join(sharing().link());
    QTRY_VERIFY_WITH_TIMEOUT(other.document.isShared(), kPatience);
    other.document.showPage(1);
    const auto shown = [this] {
        const auto *list = m_window->findChild<QWidget *>("pages")->findChild<QListWidget *>();
        return list->item(1)->icon().pixmap(128, 80).toImage();
    };
    const QImage before = shown();
    draw(other.document, "line", {20, 20}, {300, 200});
    QTRY_VERIFY_WITH_TIMEOUT(shown() != before, kPatience);
    QCOMPARE(m_window->document().current(), 0);
    QVERIFY(!m_window->document().page(1).isPainted());
}

void tst_SharedWindow::saysThatThereIsNoDoor()
{
    qputenv("PATH", m_folder->path().toLocal8Bit());
    Answers answers({"OK"});
    action("share")->trigger();
    QTRY_COMPARE_WITH_TIMEOUT(answers.questions.size(), 1, kPatience);
    QVERIFY(answers.questions[0].contains("inkboard-door is not installed"));
    QVERIFY(!m_window->document().isShared());
    QVERIFY(sharing().isIdle());
}

void tst_SharedWindow::saysWhereTheLessonIsWithoutAnEngine()
{
    const QByteArray door = m_path.left(m_path.indexOf(':')); // the first of the PATH is its folder
    qputenv("PATH", door);
    action("share")->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(sharing().isConnected(), kPatience);
    QVERIFY(m_window->findChild<QLabel *>("hint")->text().startsWith("nats-server is not installed: "));
    SharingProbe other("Other");
    other.sharing.join(sharing().link());
    QTRY_VERIFY_WITH_TIMEOUT(other.document.isShared(), kPatience);
}

void tst_SharedWindow::asksBeforeTheOthersAreLeft()
{
    share();
    SharingProbe other("Other");
    other.sharing.join(sharing().link());
    QTRY_COMPARE_WITH_TIMEOUT(words(), QString("Shared with 1"), kPatience);
    {
        Answers answers({"Cancel"});
        QVERIFY(!closes());
        QCOMPARE(answers.questions,
                 QStringList("One other is in this lesson. The others keep all that is there, and can go on with it, "
                             "each alone. Nobody can come any more."));
        QVERIFY(m_window->document().isShared());
    }
    draw(m_window->document(), "line", {10, 10}, {80, 10});
    Answers answers({"Stop sharing", "Discard"});
    QVERIFY(closes());
    QCOMPARE(answers.questions.size(), 2);
    QVERIFY(!m_window->document().isShared());
    QTRY_COMPARE_WITH_TIMEOUT(other.objects(), 1U, kPatience); // it was handed out
    QTRY_VERIFY_WITH_TIMEOUT(!other.document.isShared(), kPatience);
    draw(other.document, "line", {10, 30}, {80, 30});
    QCOMPARE(other.objects(), 2U);
}

// After the question was answered, too.
void tst_SharedWindow::savesWhatCameUntilTheEnd()
{
    const QString file = m_folder->filePath("lesson.inkboard");
    QCOMPARE(m_window->document().save(file), QString());
    share();
    SharingProbe other("Other");
    other.sharing.join(sharing().link());
    QTRY_COMPARE_WITH_TIMEOUT(words(), QString("Shared with 1"), kPatience);
    draw(other.document, "line", {10, 10}, {80, 10});
    QTRY_COMPARE_WITH_TIMEOUT(m_window->document().page().items().size(), std::size_t(1), kPatience);
    QVERIFY(!m_window->document().isSaved());
    Answers answers({"Stop sharing", "Save"});
    QVERIFY(closes());
    QVERIFY(m_window->document().isSaved());
    Document saved(kSize);
    QCOMPARE(saved.open(file), QString());
    QCOMPARE(saved.page().items().size(), std::size_t(1));
}

void tst_SharedWindow::joinsALesson()
{
    SharingProbe teacher("Teacher");
    draw(teacher.document, "line", {10, 10}, {80, 10});
    teacher.share();
    draw(m_window->document(), "line", {10, 50}, {80, 50});
    Answers answers({"Cancel", "Discard"});
    m_window->joinLesson(teacher.sharing.link(), "Ada");
    QVERIFY(sharing().isIdle());
    m_window->joinLesson(teacher.sharing.link(), "Ada");
    const QString question = "Save this lesson before the other one is joined? ";
    QCOMPARE(answers.questions, QStringList({question, question}));
    QTRY_VERIFY_WITH_TIMEOUT(m_window->document().isShared(), kPatience);
    QCOMPARE(m_window->document().page().items().size(), std::size_t(1));
    QVERIFY(isRed(m_window->document().page(), {45, 10}));
    QTRY_COMPARE_WITH_TIMEOUT(teacher.sharing.people(), 1, kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(teacher.sharing.others()->all().begin()->second.presence.name, QString("Ada"), kPatience);
    QCOMPARE(action("stop-sharing")->text(), QString("Leave the lesson"));
    Answers leaving({"Leave it"});
    action("stop-sharing")->trigger();
    QCOMPARE(leaving.questions,
             QStringList("This lesson is somebody else's. The others go on without you, and keep what "
                         "you have drawn."));
    QTRY_VERIFY_WITH_TIMEOUT(!m_window->document().isShared(), kPatience);
    QCOMPARE(m_window->document().page().items().size(), std::size_t(1));
}

// By whoever has begun it. What follows is an ordinary lesson, for which nobody is asked.
void tst_SharedWindow::isOrdinaryOnceTheLessonHasBeenEnded()
{
    SharingProbe teacher("Teacher");
    draw(teacher.document, "line", {10, 10}, {80, 10});
    teacher.share();
    m_window->joinLesson(teacher.sharing.link(), "Ada");
    QTRY_VERIFY_WITH_TIMEOUT(m_window->document().isShared(), kPatience);
    draw(m_window->document(), "line", {10, 50}, {80, 50});
    QTRY_COMPARE_WITH_TIMEOUT(teacher.objects(), 2U, kPatience);
    teacher.sharing.end();
    QTRY_VERIFY_WITH_TIMEOUT(m_window->findChild<QMessageBox *>(), kPatience);
    auto *box = m_window->findChild<QMessageBox *>();
    QCOMPARE(box->text(), QString("The lesson has been ended for everybody. You keep all of it."));
    QVERIFY(!box->isModal()); // so that a line that is being drawn goes on
    QVERIFY(!m_window->document().isShared());
    QCOMPARE(m_window->document().page().items().size(), std::size_t(2));
    QCOMPARE(words(), QString());
    QVERIFY(!action("stop-sharing")->isEnabled());
    box->close();
    {
        Answers answers({"Cancel"});
        QVERIFY(!closes());
        QCOMPARE(answers.questions.size(), 1);
        QCOMPARE(answers.questions, QStringList("Save the lesson before the board is closed? "));
    }
    share();
    QVERIFY(sharing().isOwn());
    SharingProbe other("Other");
    other.join(sharing().link());
    QCOMPARE(other.objects(), 2U);
}

void tst_SharedWindow::stopsJoining()
{
    m_window->joinLesson({QUrl("http://127.0.0.1:1/"), "nobody"}, {});
    auto *progress = m_window->findChild<QProgressDialog *>();
    QVERIFY(progress);
    QCOMPARE(progress->labelText(), QString("The lesson is being joined …"));
    QTRY_VERIFY_WITH_TIMEOUT(progress->labelText().startsWith("127.0.0.1:1 has not answered for "), kPatience);
    progress->findChild<QPushButton *>()->click();
    QVERIFY(sharing().isIdle());
}

// At the same place.
void tst_SharedWindow::goesOnAfterACrash()
{
    auto teacher = std::make_unique<SharingProbe>("Teacher");
    QCOMPARE(teacher->document.keepJournal(m_folder->path()), QString());
    teacher->share();
    SharingProbe other("Other");
    other.join(*teacher);
    draw(teacher->document, "line", {10, 10}, {80, 10});
    QTRY_COMPARE_WITH_TIMEOUT(other.objects(), 1U, kPatience);
    const QString journal = m_folder->filePath("left.inkboard");
    QVERIFY(QFile::copy(teacher->document.journalName(), journal)); // as a crash leaves it
    const LessonLink link = teacher->sharing.link();
    teacher->document.discardJournal();
    teacher.reset();
    QTRY_VERIFY_WITH_TIMEOUT(other.sharing.words().startsWith("Reconnecting since "), kPatience);
    draw(other.document, "line", {10, 30}, {80, 30});

    Answers answers({"Open it", "Go on sharing"});
    m_window->files().startJournal(m_folder->path());
    QTRY_VERIFY_WITH_TIMEOUT(m_window->document().isShared(), kPatience);
    QCOMPARE(sharing().link().text(), link.text());
    QTRY_COMPARE_WITH_TIMEOUT(m_window->document().page().items().size(), std::size_t(2), kPatience);
    QCOMPARE(m_window->document().author().number(), 1);
    QVERIFY(contents(m_window->document().journalName()).startsWith("{\"inkboard\":3,"));
}

void tst_SharedWindow::takesALinkAsArgument()
{
    QString error;
    auto line = parseCommandLine({"inkboard", "http://192.168.1.5:4640/#abc"}, error);
    QVERIFY(line && line->link);
    QCOMPARE(line->link->text(), QString("http://192.168.1.5:4640/#abc"));
    QCOMPARE(line->lessonFile, QString());
    line = parseCommandLine({"inkboard", "http.inkboard"}, error);
    QVERIFY(line && !line->link);
    QCOMPARE(line->lessonFile, QString("http.inkboard"));
    QVERIFY(!parseCommandLine({"inkboard", "--size", "800x600", "http://192.168.1.5:4640/#abc"}, error));
}

QTEST_MAIN(tst_SharedWindow)
#include "tst_SharedWindow.moc"
