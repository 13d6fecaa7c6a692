#include "DocumentProbe.h"

#include <QtCore/QTemporaryDir>

#include <csignal>
#include <map>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Board;

namespace {

std::map<ino_t, qint64> synced; // how large each file was when it was brought onto the disk

ino_t inodeOf(const QString &name)
{
    struct stat status
    {
    };
    return stat(QFile::encodeName(name).constData(), &status) == 0 ? status.st_ino : 0;
}

} // namespace

// In the stead of the C library's, for this program and the libraries in it.
extern "C" int fsync(int handle)
{
    struct stat status
    {
    };
    if (fstat(handle, &status) == 0)
        synced[status.st_ino] = status.st_size;
    return int(syscall(SYS_fsync, handle));
}

class tst_DocumentJournal : public QObject
{
    Q_OBJECT

private slots:
    void keepsAJournalOfEveryStep();
    void bringsItOntoTheDiskSoonAfter();
    void keepsNoJournalOfWhatIsSaved();
    void findsAbandonedJournals();
    void recoversWhereItWasSaved();
    void recoversNothingFromAFileThatIsNone();
    void overwritesNothingThatWasChangedBeforeRecovery();
    void recoversAllButACutLine();
    void saysThatTheJournalCannotBeWritten();
    void writesWhatAFullDiskDidNotTake();

private:
    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    QTemporaryDir m_folder;
};

void tst_DocumentJournal::keepsAJournalOfEveryStep()
{
    Document document(kSize);
    draw(document, "line", {10, 10}, {80, 90}); // before there is a journal
    QCOMPARE(document.keepJournal(path("journals")), QString());
    const QString journal = document.journalName();
    QCOMPARE(contents(journal).count('\n'), 2);
    draw(document, "line", {10, 20}, {80, 90});
    QCOMPARE(contents(journal).count('\n'), 3);
    document.author().begin(lifeOf("line"));
    drag(document.author(), {10, 30}, {80, 90}); // which is still in the hand
    QCOMPARE(contents(journal).count('\n'), 4);
    document.undo();
    QVERIFY(timeless(contents(journal)).endsWith("}\n{\"author\":1,\"do\":\"undo\",\"number\":4,\"of\":[1,3]}\n"));
    document.discardJournal();
    QVERIFY(!QFile::exists(journal));
}

// With its folder, and not while somebody draws.
void tst_DocumentJournal::bringsItOntoTheDiskSoonAfter()
{
    const QString folder = path("synced");
    Document document(kSize);
    QCOMPARE(document.keepJournal(folder), QString());
    const ino_t journal = inodeOf(document.journalName());
    for (const int y : {10, 20}) {
        draw(document, "line", {10, y}, {80, y});
        const int size = contents(document.journalName()).size();
        QVERIFY(synced[journal] < size);
        QTRY_COMPARE(synced[journal], qint64(size)); // half a second later
        QVERIFY(synced.count(inodeOf(folder)) == 1);
    }
}

// Or a lesson that was saved, or only looked at, would be offered again when the machine is switched off.
void tst_DocumentJournal::keepsNoJournalOfWhatIsSaved()
{
    const QString folder = path("resting");
    QString journal;
    {
        Document document(kSize);
        draw(document, "line", {10, 10}, {80, 90});
        QCOMPARE(document.keepJournal(folder), QString());
        journal = document.journalName();
        QCOMPARE(contents(journal).count('\n'), 2);
        QCOMPARE(document.save(path("rests.inkboard")), QString());
        QCOMPARE(contents(journal), QByteArray());
        document.author().grow({500, 400}); // of a larger window
        QCOMPARE(contents(journal), QByteArray());
    }
    QCOMPARE(InkLesson::Journal::abandoned(folder), QStringList());
    {
        Document document(kSize);
        QCOMPARE(document.open(path("rests.inkboard")), QString());
        QCOMPARE(document.keepJournal(folder), QString());
        journal = document.journalName();
        QCOMPARE(contents(journal), QByteArray());
        QCOMPARE(document.openCopy(path("rests.inkboard")), QString());
        QCOMPARE(contents(journal), QByteArray());
        document.author().grow({500, 400});
        QCOMPARE(contents(journal), QByteArray());
        draw(document, "line", {10, 100}, {80, 190});
        QCOMPARE(contents(journal).count('\n'), 4); // all of it
    }
    QCOMPARE(InkLesson::Journal::abandoned(folder), QStringList{journal});
    Document document(kSize);
    QCOMPARE(document.recover(journal), QString());
    QCOMPARE(document.page().picture().pixel(45, 50), 0xFFFF0000U);
    QCOMPARE(document.page().picture().pixel(45, 145), 0xFFFF0000U);
}

void tst_DocumentJournal::findsAbandonedJournals()
{
    const QString folder = path("abandoned");
    QString journal;
    {
        Document document(kSize);
        QCOMPARE(document.keepJournal(folder), QString());
        journal = document.journalName();
        QCOMPARE(InkLesson::Journal::abandoned(folder), QStringList()); // it is kept
        draw(document, "line", {10, 10}, {80, 90});
    }
    QCOMPARE(InkLesson::Journal::abandoned(folder), QStringList{journal});
    Document document(kSize);
    QCOMPARE(document.recover(journal), QString());
    QCOMPARE(document.page().picture().pixel(45, 50), 0xFFFF0000U);
    QVERIFY(!document.isSaved());
    QVERIFY(document.fileName().isEmpty());
}

void tst_DocumentJournal::recoversWhereItWasSaved()
{
    QString journal;
    {
        Document document(kSize);
        QCOMPARE(document.keepJournal(path("saved before")), QString());
        journal = document.journalName();
        draw(document, "line", {10, 10}, {80, 90});
        QCOMPARE(document.save(path("known.inkboard")), QString());
        draw(document, "line", {10, 100}, {80, 190});
    }
    Document document(kSize);
    QCOMPARE(document.recover(journal), QString());
    QCOMPARE(document.fileName(), path("known.inkboard"));
    QVERIFY(!document.isSaved());
    QCOMPARE(document.stepsToUndo(), 2);
    QCOMPARE(document.save(path("known.inkboard")), QString());
    QCOMPARE(contents(path("known.inkboard")).count('\n'), 3);
}

void tst_DocumentJournal::recoversNothingFromAFileThatIsNone()
{
    Document document(kSize);
    draw(document, "line", {10, 10}, {80, 90});
    QCOMPARE(document.save(path("mine.inkboard")), QString());
    write(path("none.inkboard"), "nothing\n");
    QCOMPARE(document.recover(path("none.inkboard")),
             path("none.inkboard") + ": line 1: this is not a lesson of this board");
    QCOMPARE(document.fileName(), path("mine.inkboard"));
    QVERIFY(document.isSaved());
    QCOMPARE(document.page().picture().pixel(45, 50), 0xFFFF0000U);
}

// By another program, between the end of the board and its next start.
void tst_DocumentJournal::overwritesNothingThatWasChangedBeforeRecovery()
{
    QString journal;
    const QString file = path("changed.inkboard");
    {
        Document document(kSize);
        QCOMPARE(document.save(file), QString());
        QCOMPARE(document.keepJournal(path("changed before")), QString());
        journal = document.journalName();
        draw(document, "line", {10, 100}, {80, 190});
    }
    write(file, "of another");
    Document document(kSize);
    QCOMPARE(document.recover(journal), QString());
    QCOMPARE(document.save(file), file + ": another program has changed it since. Save under another name.");
    QCOMPARE(contents(file), QByteArray("of another"));
}

void tst_DocumentJournal::recoversAllButACutLine()
{
    Document document(kSize);
    QCOMPARE(document.keepJournal(path("cut")), QString());
    draw(document, "line", {10, 10}, {80, 90});
    const QImage one = document.page().picture().copy();
    draw(document, "line", {10, 100}, {80, 190});
    const QByteArray whole = contents(document.journalName());
    const int lastLine = whole.lastIndexOf('\n', whole.size() - 2) + 1;
    for (const int bytes : {lastLine + 1, lastLine + 50, whole.size() - 1}) {
        write(path("cut.inkboard"), whole.left(bytes));
        Document recovered(kSize);
        QCOMPARE(recovered.recover(path("cut.inkboard")), path("cut.inkboard") + ": line 3: it was cut off here");
        QCOMPARE(recovered.page().picture(), one);
    }
}

void tst_DocumentJournal::saysThatTheJournalCannotBeWritten()
{
    write(path("file"), "not a folder");
    Document document(kSize);
    QVERIFY(document.keepJournal(path("file/journals")).contains(QStringLiteral("no journal can be kept")));
    QSignalSpy failed(&document, &Document::journalFailed);
    draw(document, "line", {10, 10}, {80, 90});
    QCOMPARE(failed.count(), 0); // it was said
    QCOMPARE(document.save(path("anyway.inkboard")), QString());
}

// The limit on the size of a file stands for the disk.
void tst_DocumentJournal::writesWhatAFullDiskDidNotTake()
{
    rlimit before{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    Document document(kSize);
    QCOMPARE(document.keepJournal(path("full")), QString());
    const QString journal = document.journalName();
    QSignalSpy failed(&document, &Document::journalFailed);
    draw(document, "line", {10, 10}, {80, 90});
    const QByteArray first = contents(journal);

    const rlimit full{rlim_t(first.size() + 20), before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &full), 0);
    draw(document, "line", {10, 20}, {80, 90});
    draw(document, "line", {10, 30}, {80, 90});
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    QCOMPARE(failed.count(), 1);
    QVERIFY(failed.constFirst().constFirst().toString().startsWith(journal + QStringLiteral(": cannot be written: ")));
    QCOMPARE(contents(journal), first); // no part of a line

    draw(document, "line", {10, 40}, {80, 90});
    QCOMPARE(contents(journal).count('\n'), 5);
    const QByteArray whole = contents(journal);
    QCOMPARE(document.save(path("after.inkboard")), QString());
    QCOMPARE(contents(path("after.inkboard")), whole);
}

QTEST_MAIN(tst_DocumentJournal)
#include "tst_DocumentJournal.moc"
