#include "SharingProbe.h"

#include <QtCore/QProcess>

using namespace Board;

class tst_SharedJournal : public QObject
{
    Q_OBJECT

private slots:
    void comesBackToTheLesson_data();
    void comesBackToTheLesson();
    void opensAsAnOrdinaryLesson();
    void waitsForADoorThatIsGone();
};

namespace {

// A board of its own that draws until it is killed. Returns how many steps it has told of.
struct Writer
{
    Writer(const QString &task, const QString &folder)
    {
        process.start(QStringLiteral(SHARED_WRITER), {task, folder});
        QTRY_VERIFY_WITH_TIMEOUT(process.canReadLine(), kPatience);
        const auto said = LessonLink::fromText(QString::fromLatin1(process.readLine()));
        QVERIFY(said);
        link = *said;
    }
    int kill(int least)
    {
        QByteArray said;
        while (said.count('\n') < least) {
            process.waitForReadyRead(kPatience);
            said += process.readAllStandardOutput();
        }
        process.kill();
        process.waitForFinished(kPatience);
        return (said + process.readAllStandardOutput()).count('\n');
    }

    QProcess process;
    LessonLink link;
};

} // namespace

void tst_SharedJournal::comesBackToTheLesson_data()
{
    QTest::addColumn<bool>("isBegun");
    QTest::newRow("the one who has begun it") << true;
    QTest::newRow("one who has joined") << false;
}

// Killed while it draws: all of its steps are with the others in the end, once each.
void tst_SharedJournal::comesBackToTheLesson()
{
    QFETCH(bool, isBegun);
    SharingProbe other("Other"), back("Back");
    if (!isBegun)
        other.share();
    Writer writer(isBegun ? QStringLiteral("share") : other.sharing.link().text(), back.folder.path());
    if (isBegun)
        other.sharing.join(writer.link);
    QTRY_VERIFY_WITH_TIMEOUT(other.objects() > 0, kPatience);
    const int done = writer.kill(40);
    const QStringList journals = InkLesson::Journal::abandoned(back.folder.path());
    QCOMPARE(journals.size(), 1);
    const InkLesson::Sharing sharing = InkLesson::Journal::sharingOf(journals[0]);
    QCOMPARE(sharing.address, writer.link.text());
    QVERIFY(!back.document.recover(journals[0]).contains("nothing that can be read"));
    QCOMPARE(back.document.author().number(), sharing.authors[0]);
    const int steps = back.document.stepsToUndo();
    QVERIFY2(steps == done || steps == done + 1, qPrintable(QStringLiteral("%1 of %2").arg(steps).arg(done)));
    draw(back.document, "line", {10, 280}, {390, 280}); // before there is a connection

    back.sharing.resume(sharing);
    QTRY_VERIFY_WITH_TIMEOUT(back.sharing.isConnected() || !back.problem.isEmpty(), kPatience);
    QCOMPARE(back.problem, QString());
    QCOMPARE(back.sharing.link().text(), writer.link.text());
    QTRY_COMPARE_WITH_TIMEOUT(back.sharing.unsent(), 0, kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(int(other.objects()), steps + 1, kPatience);
    QCOMPARE(other.document.lesson().log(), back.document.lesson().log());
    QCOMPARE(other.seen(), back.seen());
    back.document.undo(); // of the step before the last
    QTRY_COMPARE_WITH_TIMEOUT(int(other.objects()), steps, kPatience);
    draw(other.document, "line", {10, 290}, {390, 290}, Qt::blue);
    QTRY_COMPARE_WITH_TIMEOUT(int(back.objects()), steps + 1, kPatience);
}

// For who does not want to come back, or cannot.
void tst_SharedJournal::opensAsAnOrdinaryLesson()
{
    const QTemporaryDir folder;
    SharingProbe back("Back");
    Writer writer(QStringLiteral("share"), folder.path());
    const int done = writer.kill(5);
    back.document.recover(InkLesson::Journal::abandoned(folder.path())[0]);
    QVERIFY(!back.document.isShared());
    QVERIFY(back.document.stepsToUndo() >= done);
    const auto objects = back.objects();
    back.document.undo();
    QCOMPARE(back.objects(), objects - 1);
    QVERIFY(!back.document.isSaved());
    QCOMPARE(back.document.keepJournal(folder.path()), QString());
    QVERIFY(contents(back.document.journalName()).startsWith("{\"inkboard\":2,"));
}

// For as long as the person likes.
void tst_SharedJournal::waitsForADoorThatIsGone()
{
    SharingProbe back("Back");
    auto other = std::make_unique<SharingProbe>("Other");
    other->share();
    Writer writer(other->sharing.link().text(), back.folder.path());
    writer.kill(5);
    other.reset();
    const QString journal = InkLesson::Journal::abandoned(back.folder.path())[0];
    back.document.recover(journal);
    back.sharing.resume(InkLesson::Journal::sharingOf(journal));
    QVERIFY(back.document.isShared());
    QTRY_VERIFY_WITH_TIMEOUT(back.sharing.words().startsWith("Reconnecting since 1 s"), kPatience);
    const int steps = back.document.stepsToUndo();
    draw(back.document, "line", {10, 280}, {390, 280});
    back.sharing.end();
    QVERIFY(back.sharing.isIdle());
    QVERIFY(!back.document.isShared());
    QCOMPARE(back.document.stepsToUndo(), steps + 1);
}

QTEST_MAIN(tst_SharedJournal)
#include "tst_SharedJournal.moc"
