#include "SharingProbe.h"

#include "board/document/Document.h"
#include "board/invite/JoinDialog.h"
#include "board/invite/SpokenLink.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QLineEdit>

#include <algorithm>
#include <csignal>
#include <random>

using namespace Board;

class tst_DocumentSharing : public QObject
{
    Q_OBJECT

private slots:
    void sharesInTheMidstOfALesson();
    void isJoinedByWhatWasReadAloud();
    void knowsInWhichOrderTheyCame();
    void undoesOwnStepsOnly();
    void showsWhatGrowsElsewhere();
    void readsALargePictureBesideTheRest();
    void drawsWhileThereIsNoDoor();
    void startsAnotherDoorAtTheSamePlace();
    void endsInAnOrdinaryLesson();
    void isSharedAnewByAnybody();
    void looksForADoorThatHasGoneAway();
    void losesAPageThatSomebodyElseRemoves();
    void leavesTheLessonForAnother();
    void saysThatThereIsNoSuchLesson();
    void takesAnotherPortWhereOneIsTaken();
};

namespace {

const QPoint kFrom{20, 20}, kTo{120, 20};

void drawRow(SharingProbe &board, int row)
{
    draw(board.document, "line", kFrom + QPoint(0, 20 * row), kTo + QPoint(0, 20 * row));
}

bool hasRow(const SharingProbe &board, int row)
{
    return isRed(board.document.page(), {70, 20 + 20 * row});
}

} // namespace

// With all that there is by then, and under the number that its author had.
void tst_DocumentSharing::sharesInTheMidstOfALesson()
{
    SharingProbe teacher("Teacher"), pupil("Pupil");
    holdLesson(teacher.document);
    const int steps = teacher.document.stepsToUndo();
    QSignalSpy opened(&pupil.document, &Document::opened);
    teacher.share();
    QVERIFY(teacher.document.isShared());
    QCOMPARE(teacher.document.author().number(), 1);
    QCOMPARE(teacher.document.stepsToUndo(), steps);
    pupil.join(teacher);
    QCOMPARE(opened.size(), 1);
    QVERIFY(pupil.document.author().number() > 1);
    QCOMPARE(pupil.document.stepsToUndo(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(teacher.sharing.unsent(), 0, kPatience);
    QCOMPARE(pupil.document.lesson().log(), teacher.document.lesson().log());
    QCOMPARE(pupil.document.pageCount(), 3);
    for (int page = 0; page < 3; ++page)
        QCOMPARE(pupil.document.page(page).picture(), teacher.document.page(page).picture());
    QTRY_COMPARE_WITH_TIMEOUT(teacher.sharing.words(), QString("Shared with 1"), kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(pupil.sharing.words(), QString("Shared with 1"), kPatience);
    QCOMPARE(teacher.sharing.others()->all().begin()->second.presence.name, QString("Pupil"));
}

// It is 700 kB as a PNG file. What comes after it stands above it.
void tst_DocumentSharing::readsALargePictureBesideTheRest()
{
    constexpr QSize kPage(800, 600);
    SharingProbe teacher("Teacher", kPage), pupil("Pupil", kPage);
    teacher.share();
    pupil.join(teacher);
    QImage noise(600, 400, QImage::Format_RGB32);
    std::mt19937 random(1);
    for (int y = 0; y < noise.height(); ++y) {
        for (int x = 0; x < noise.width(); ++x)
            noise.setPixel(x, y, QRgb(random()));
    }
    InkLesson::Life life{InkLesson::kPictureTool};
    life.canvas = kPage;
    life.picture = InkLesson::exactImage(noise);
    life.position = {10, 10};
    teacher.document.author().insert(std::move(life));
    teacher.document.author().finish();
    drawRow(teacher, 1);
    drawRow(pupil, 2);
    QTRY_COMPARE_WITH_TIMEOUT(pupil.objects(), 3U, kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(teacher.objects(), 3U, kPatience);
    QVERIFY(hasRow(pupil, 1));
    QTRY_COMPARE_WITH_TIMEOUT(pupil.sharing.unsent() + teacher.sharing.unsent(), 0, kPatience);
    QCOMPARE(pupil.document.lesson().log(), teacher.document.lesson().log());
    QCOMPARE(pupil.document.page().picture(), teacher.document.page().picture());
    const auto &log = pupil.document.lesson().log();
    QVERIFY(std::any_of(log.begin(), log.end(), [](const QByteArray &code) { return code.size() > 700'000; }));
}

// In small letters, as one types who listens.
void tst_DocumentSharing::isJoinedByWhatWasReadAloud()
{
    SharingProbe teacher("Teacher"), pupil("Pupil");
    drawRow(teacher, 1);
    teacher.share();
    const auto words = SpokenLink::of(teacher.sharing.link());
    QVERIFY(words);
    JoinDialog dialog(nullptr, {});
    dialog.show();
    auto *field = dialog.findChild<QLineEdit *>(QStringLiteral("link"));
    QVERIFY(field);
    QTest::keyClicks(field, words->address + QLatin1Char(' ') + words->groups.join(QLatin1Char(' ')).toLower());
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    pupil.sharing.join(dialog.link());
    QTRY_VERIFY_WITH_TIMEOUT(pupil.document.isShared(), kPatience);
    QVERIFY(hasRow(pupil, 1));
}

// The same at every board, whatever numbers their authors have drawn.
void tst_DocumentSharing::knowsInWhichOrderTheyCame()
{
    SharingProbe teacher("Teacher"), first("First"), second("Second");
    QCOMPARE(teacher.sharing.placeOf(1), 0);
    teacher.share();
    first.join(teacher);
    second.join(teacher);
    const int authors[] = {1, first.document.author().number(), second.document.author().number()};
    for (const SharingProbe *board : {&teacher, &first, &second}) {
        for (int i = 0; i < 3; ++i)
            QTRY_COMPARE_WITH_TIMEOUT(board->sharing.placeOf(authors[i]), i + 1, kPatience);
    }
}

void tst_DocumentSharing::undoesOwnStepsOnly()
{
    SharingProbe teacher("Teacher"), pupil("Pupil");
    drawRow(teacher, 0);
    teacher.share();
    pupil.join(teacher);
    drawRow(pupil, 1);
    QTRY_COMPARE_WITH_TIMEOUT(teacher.objects(), 2U, kPatience);
    QVERIFY(hasRow(teacher, 1));
    teacher.document.undo();
    teacher.document.undo(); // there is nothing more of the teacher's
    QTRY_COMPARE_WITH_TIMEOUT(pupil.objects(), 1U, kPatience);
    QVERIFY(hasRow(pupil, 1));
    QVERIFY(!hasRow(pupil, 0));
    QVERIFY(!teacher.document.author().canUndo());
    QVERIFY(pupil.document.author().canUndo());
    teacher.document.redo();
    QTRY_COMPARE_WITH_TIMEOUT(pupil.objects(), 2U, kPatience);
    QCOMPARE(pupil.seen(), teacher.seen());
}

// Under the shade that the library has for what another one holds.
void tst_DocumentSharing::showsWhatGrowsElsewhere()
{
    SharingProbe teacher("Teacher"), pupil("Pupil");
    teacher.share();
    pupil.join(teacher);
    QTRY_COMPARE_WITH_TIMEOUT(teacher.sharing.people(), 1, kPatience);
    InkLesson::Author &author = teacher.document.author();
    const QImage blank = pupil.seen();
    author.begin(lifeOf("rectangle"));
    author.feed(PT_DOWN, {50, 50});
    author.feed(PT_MOVE, {150, 120});
    QTRY_COMPARE_WITH_TIMEOUT(pupil.seen().pixel(100, 50), 0xFFFF0000U, kPatience);
    QCOMPARE(pupil.objects(), 0U);
    author.feed(PT_MOVE, {250, 180});
    QTRY_COMPARE_WITH_TIMEOUT(pupil.seen().pixel(200, 50), 0xFFFF0000U, kPatience);
    author.feed(PT_UP, {250, 180}); // the object is there, and stays in the teacher's hand
    QTRY_COMPARE_WITH_TIMEOUT(pupil.objects(), 1U, kPatience);
    const InkLesson::ObjectId held = pupil.document.page().items()[0]->id;
    QTRY_COMPARE_WITH_TIMEOUT(pupil.sharing.others()->holderOf(held), 1, kPatience);
    QCOMPARE(pupil.document.page().topmostAt({150, 50}), InkLesson::kNothing);
    QVERIFY(pupil.seen() != pupil.document.page().picture());
    author.finish();
    QTRY_COMPARE_WITH_TIMEOUT(pupil.sharing.others()->holderOf(held), 0, kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(pupil.document.page().topmostAt({150, 50}), held, kPatience);
    QCOMPARE(pupil.seen(), teacher.seen());
}

namespace {

// The door that a board of this process has started.
qint64 doorAt(int port)
{
    QProcess find;
    find.start(QStringLiteral("pgrep"), {QStringLiteral("-f"), QStringLiteral("inkboard-door --port %1 ").arg(port)});
    find.waitForFinished(kPatience);
    return find.readAllStandardOutput().trimmed().toLongLong();
}

} // namespace

void tst_DocumentSharing::drawsWhileThereIsNoDoor()
{
    SharingProbe teacher("Teacher"), pupil("Pupil");
    teacher.share();
    pupil.join(teacher);
    const qint64 door = doorAt(teacher.sharing.port());
    QVERIFY(door > 0);
    ::kill(pid_t(door), SIGSTOP); // nothing is answered
    drawRow(teacher, 0);
    drawRow(teacher, 1);
    drawRow(pupil, 2);
    QVERIFY(hasRow(teacher, 0) && hasRow(teacher, 1) && hasRow(pupil, 2));
    QCOMPARE(pupil.sharing.unsent(), 1);
    QTRY_VERIFY_WITH_TIMEOUT(teacher.sharing.words().startsWith("Reconnecting since ") &&
                                 teacher.sharing.words().endsWith(" s, 2 steps not yet sent"),
                             kPatience);
    QTRY_VERIFY_WITH_TIMEOUT(pupil.sharing.words().endsWith(" s, 1 step not yet sent"), kPatience);
    ::kill(pid_t(door), SIGCONT);
    QTRY_COMPARE_WITH_TIMEOUT(teacher.objects(), 3U, kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(pupil.objects(), 3U, kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(teacher.sharing.words(), QString("Shared with 1"), kPatience);
    QCOMPARE(pupil.seen(), teacher.seen());
}

void tst_DocumentSharing::startsAnotherDoorAtTheSamePlace()
{
    SharingProbe teacher("Teacher"), pupil("Pupil");
    teacher.share();
    pupil.join(teacher);
    drawRow(pupil, 0);
    const qint64 door = doorAt(teacher.sharing.port());
    ::kill(pid_t(door), SIGKILL);
    drawRow(teacher, 1);
    QTRY_VERIFY_WITH_TIMEOUT(!teacher.sharing.isConnected(), kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(pupil.objects(), 2U, kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(teacher.objects(), 2U, kPatience);
    QVERIFY(teacher.sharing.isConnected());
    QVERIFY(doorAt(teacher.sharing.port()) != door);
    QCOMPARE(teacher.problem, QString());
}

void tst_DocumentSharing::endsInAnOrdinaryLesson()
{
    const QTemporaryDir journals;
    SharingProbe teacher("Teacher"), pupil("Pupil");
    QCOMPARE(teacher.document.keepJournal(journals.path()), QString());
    drawRow(teacher, 0);
    teacher.share();
    QVERIFY(contents(teacher.document.journalName()).startsWith("{\"inkboard\":3,"));
    QCOMPARE(QDir(journals.path()).entryList({"*.inkboard"}).size(), 1);
    pupil.join(teacher);
    drawRow(pupil, 1);
    QTRY_COMPARE_WITH_TIMEOUT(teacher.objects(), 2U, kPatience);
    drawRow(teacher, 2);
    QSignalSpy ended(&teacher.sharing, &DocumentSharing::ended);
    QSignalSpy endedHere(&teacher.sharing, &DocumentSharing::endedByOwner);
    QSignalSpy endedThere(&pupil.sharing, &DocumentSharing::endedByOwner);
    teacher.sharing.end(); // which hands out the last step first
    QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, kPatience);
    QVERIFY(!teacher.document.isShared());
    QCOMPARE(teacher.sharing.words(), QString());
    QTRY_VERIFY_WITH_TIMEOUT(!pupil.document.isShared(), kPatience);
    QCOMPARE(pupil.objects(), 3U);
    QCOMPARE(pupil.sharing.words(), QString());
    QCOMPARE(pupil.problem, QString());
    QCOMPARE(endedHere.size(), 0);
    QCOMPARE(endedThere.size(), 1);
    for (SharingProbe *board : {&teacher, &pupil}) {
        const int steps = board->document.stepsToUndo();
        drawRow(*board, 3);
        QVERIFY(hasRow(*board, 3));
        QCOMPARE(board->document.stepsToUndo(), steps + 1);
    }
    const QByteArray journal = contents(teacher.document.journalName());
    QVERIFY(journal.startsWith("{\"inkboard\":2,"));
    QCOMPARE(journal.count('\n'), 5);
    QCOMPARE(QDir(journals.path()).entryList({"*.inkboard"}).size(), 1);

    // And is shared once more, with what the others have drawn, at the same place as soon as that is free.
    SharingProbe another("Another");
    const int port = teacher.sharing.port();
    teacher.sharing.setPort(port);
    teacher.share();
    QCOMPARE(teacher.sharing.port(), port);
    another.join(teacher);
    QTRY_COMPARE_WITH_TIMEOUT(another.objects(), 4U, kPatience);
    QCOMPARE(another.seen(), teacher.seen());
}

// Not only by whoever has begun it.
void tst_DocumentSharing::isSharedAnewByAnybody()
{
    SharingProbe teacher("Teacher"), pupil("Pupil"), another("Another");
    drawRow(teacher, 0);
    teacher.share();
    pupil.join(teacher);
    drawRow(pupil, 1);
    QTRY_COMPARE_WITH_TIMEOUT(teacher.objects(), 2U, kPatience);
    teacher.sharing.end();
    QTRY_VERIFY_WITH_TIMEOUT(!pupil.document.isShared(), kPatience);
    pupil.share();
    QVERIFY(pupil.sharing.isOwn());
    another.join(pupil);
    QCOMPARE(another.objects(), 2U);
    drawRow(another, 2);
    QTRY_COMPARE_WITH_TIMEOUT(pupil.objects(), 3U, kPatience);
}

// A board that is killed takes its door along, which then goes away and ends nothing.
void tst_DocumentSharing::looksForADoorThatHasGoneAway()
{
    auto teacher = std::make_unique<SharingProbe>("Teacher");
    SharingProbe pupil("Pupil");
    teacher->share();
    pupil.join(*teacher);
    QSignalSpy ended(&pupil.sharing, &DocumentSharing::endedByOwner);
    teacher.reset(); // and its door is asked to end, as its system asks it once the board is dead
    drawRow(pupil, 0);
    const QRegularExpression away("^Reconnecting since [1-9]\\d* s, 1 step not yet sent$"); // for a while
    QTRY_VERIFY_WITH_TIMEOUT(away.match(pupil.sharing.words()).hasMatch(), kPatience);
    QVERIFY(pupil.document.isShared());
    QCOMPARE(ended.size(), 0);
}

void tst_DocumentSharing::losesAPageThatSomebodyElseRemoves()
{
    SharingProbe teacher("Teacher"), pupil("Pupil");
    teacher.document.addPage(1);
    teacher.share();
    pupil.join(teacher);
    pupil.document.showPage(1);
    drawRow(pupil, 0);
    InkLesson::Author &author = pupil.document.author();
    author.begin(lifeOf("line"));
    author.feed(PT_DOWN, {20, 200});
    author.feed(PT_MOVE, {120, 200});
    QTRY_COMPARE_WITH_TIMEOUT(teacher.document.page(1).items().size(), 1U, kPatience);
    QSignalSpy lost(&pupil.document, &Document::pageLost);
    teacher.document.removePage(1);
    QTRY_COMPARE_WITH_TIMEOUT(lost.size(), 1, kPatience);
    QCOMPARE(lost[0][0].toBool(), true);
    QCOMPARE(pupil.document.pageCount(), 1);
    QCOMPARE(pupil.document.current(), 0);
    QVERIFY(!author.hand());
    QTRY_COMPARE_WITH_TIMEOUT(pupil.sharing.unsent(), 0, kPatience);
    teacher.document.undo();
    QTRY_COMPARE_WITH_TIMEOUT(pupil.document.pageCount(), 2, kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(teacher.document.page(1).items().size(), 2U, kPatience);
    QCOMPARE(pupil.document.page(1).items().size(), 2U);
    QVERIFY(isRed(pupil.document.page(1), {70, 20}));
    QVERIFY(isRed(pupil.document.page(1), {70, 200}));
    QCOMPARE(pupil.document.current(), 0); // nobody is led elsewhere
}

void tst_DocumentSharing::leavesTheLessonForAnother()
{
    SharingProbe teacher("Teacher"), pupil("Pupil");
    teacher.share();
    pupil.join(teacher);
    drawRow(pupil, 0);
    QTRY_COMPARE_WITH_TIMEOUT(teacher.objects(), 1U, kPatience);
    const QString file = pupil.folder.filePath("copy.inkboard");
    QCOMPARE(pupil.document.save(file), QString());
    QVERIFY(pupil.document.isShared());
    QVERIFY(pupil.document.isSaved());
    QCOMPARE(pupil.document.open(file), QString());
    QVERIFY(!pupil.document.isShared());
    QVERIFY(pupil.sharing.isIdle());
    QCOMPARE(pupil.seen(), teacher.seen());
    drawRow(pupil, 1);
    QCOMPARE(pupil.document.author().number(), 1);
    QTRY_COMPARE_WITH_TIMEOUT(teacher.sharing.people(), 0, kPatience);
    QCOMPARE(teacher.sharing.words(), QString("Shared, nobody else is here"));
    QCOMPARE(teacher.objects(), 1U);
}

void tst_DocumentSharing::saysThatThereIsNoSuchLesson()
{
    SharingProbe teacher("Teacher"), pupil("Pupil");
    teacher.share();
    LessonLink link = teacher.sharing.link();
    link.lesson = QStringLiteral("nobody");
    pupil.sharing.join(link);
    QCOMPARE(pupil.sharing.words(), QString("The lesson is being joined …"));
    QTRY_COMPARE_WITH_TIMEOUT(pupil.sharing.words(),
                              QString("This lesson is not there just now. It is asked for again and again."),
                              kPatience);
    drawRow(pupil, 0);
    pupil.sharing.end();
    QVERIFY(pupil.sharing.isIdle());
    QVERIFY(hasRow(pupil, 0));
}

void tst_DocumentSharing::takesAnotherPortWhereOneIsTaken()
{
    SharingProbe first("First"), second("Second");
    first.share();
    second.sharing.setPort(first.sharing.port());
    second.share();
    QVERIFY(second.sharing.port() != first.sharing.port());
    QVERIFY(second.sharing.port() > 0);
}

QTEST_MAIN(tst_DocumentSharing)
#include "tst_DocumentSharing.moc"
