#include "lesson/storage/Journal.h"

#include "Exact.h"
#include "LessonKit.h"
#include "RandomCases.h"

#include "lesson/authoring/Author.h"
#include "lesson/log/RecordCode.h"
#include "lesson/storage/LessonFile.h"

#include "PointerEvent.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace InkLesson;

namespace {

constexpr QSize kSize{40, 30};

QStringList synced; // files and folders, in their order

// A disk whose cache is lost with the power: what was done to the file since the last sync happened to some point only.
struct Disk
{
    QByteArray safe;
    bool isNamed{}; // in its folder
    bool isFull{};
    std::vector<QByteArray> since; // appended, or null where the file was cleared
    int appends{};
    int syncs{};

    // What is found when the power is back.
    QByteArray cut(Random &random) const
    {
        QByteArray found = safe;
        const int done = random.below(int(since.size()) + 1);
        for (int i = 0; i < done; ++i)
            found = since[std::size_t(i)].isNull() ? QByteArray() : found + since[std::size_t(i)];
        if (done < int(since.size()) && !since[std::size_t(done)].isNull())
            found += since[std::size_t(done)].left(random.below(since[std::size_t(done)].size()));
        return isNamed ? found : random.oneIn(2) ? found : QByteArray();
    }
    QByteArray all() const
    {
        QByteArray found = safe;
        for (const QByteArray &bytes : since)
            found = bytes.isNull() ? QByteArray() : found + bytes;
        return found;
    }
};

class ForgetfulFile : public DurableFile
{
public:
    explicit ForgetfulFile(Disk &disk)
        : m_disk(disk)
    {
    }
    bool create(const QString & /*path*/) override { return true; }
    bool append(const QByteArray &bytes) override
    {
        ++m_disk.appends;
        if (m_disk.isFull)
            return false;
        m_disk.since.push_back(bytes);
        return true;
    }
    bool clear() override
    {
        m_disk.since.emplace_back();
        return true;
    }
    void sync() override
    {
        ++m_disk.syncs;
        m_disk.safe = m_disk.all();
        m_disk.since.clear();
        m_disk.isNamed = true;
    }
    void remove() override { m_disk = Disk(); }
    QString error() const override { return QStringLiteral("no space"); }

private:
    Disk &m_disk;
};

Record clearRecord(int number)
{
    return record(1, number, Clear());
}

QByteArray bytesOf(const QString &file)
{
    QFile in(file);
    EXPECT_TRUE(in.open(QIODevice::ReadOnly));
    return in.readAll();
}

} // namespace

// In the stead of that of the C library.
extern "C" int fsync(int handle)
{
    synced.append(QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(handle)));
    return int(syscall(SYS_fsync, handle));
}

class JournalTest : public ::testing::Test
{
protected:
    JournalTest()
    {
        synced.clear();
        EXPECT_TRUE(journal.keep(folder.path(), QStringLiteral("double"), problem));
    }
    void write(const QByteArray &bytes) const
    {
        QFile out(found);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        ASSERT_EQ(out.write(bytes), bytes.size());
    }

    const QTemporaryDir folder;
    const QString found = folder.filePath(QStringLiteral("found"));
    QString problem;
    Disk disk;
    Journal journal{std::make_unique<ForgetfulFile>(disk)};
    Lesson lesson{{kSize, 1}};
    const SavedFile noFile;
};

TEST_F(JournalTest, writesEachStepOnce)
{
    EXPECT_TRUE(journal.isKept());
    EXPECT_TRUE(journal.follow(lesson, noFile));
    EXPECT_EQ(disk.all(), "");
    lesson.apply(clearRecord(1));
    EXPECT_TRUE(journal.follow(lesson, noFile));
    EXPECT_TRUE(journal.follow(lesson, noFile));
    lesson.apply(clearRecord(2));
    EXPECT_TRUE(journal.follow(lesson, noFile));
    EXPECT_EQ(disk.all(), "{\"inkboard\":2,\"size\":[40,30]}\n"
                          "{\"author\":1,\"do\":\"clear\",\"number\":1,\"time\":0}\n"
                          "{\"author\":1,\"do\":\"clear\",\"number\":2,\"time\":0}\n");
    EXPECT_EQ(disk.appends, 3);
}

TEST_F(JournalTest, isDueOnceAStepIsWritten)
{
    EXPECT_FALSE(journal.isDue());
    lesson.apply(clearRecord(1));
    EXPECT_FALSE(journal.isDue());
    journal.follow(lesson, noFile);
    EXPECT_TRUE(journal.isDue());
    EXPECT_EQ(disk.syncs, 0);
    journal.sync();
    EXPECT_FALSE(journal.isDue());
    EXPECT_EQ(disk.syncs, 1);
    journal.follow(lesson, noFile);
    EXPECT_FALSE(journal.isDue());
}

// Not while it is drawn, nor by itself.
TEST_F(JournalTest, isNotSyncedForEachPoint)
{
    Author author(
        lesson, 1, [] { return 0; }, [this](const Record &) { journal.follow(lesson, noFile); });
    Life pencil{QStringLiteral("pencil")};
    pencil.canvas = kSize;
    for (int stroke = 0; stroke < 3; ++stroke) {
        author.begin(pencil);
        author.feed(PT_DOWN, QPoint(1, 5 * stroke));
        for (int i = 0; i < 500; ++i)
            author.feed(PT_MOVE, QPoint(i % 40, 5 * stroke));
        EXPECT_EQ(disk.appends, stroke == 0 ? 0 : stroke + 1);
        author.feed(PT_UP, QPoint(39, 5 * stroke));
    }
    EXPECT_EQ(disk.appends, 4); // the first line, and one a stroke
    EXPECT_EQ(disk.syncs, 0);
    EXPECT_TRUE(journal.isDue());
}

// A thousand lessons, each with a sync now and then, and the power gone at some point.
TEST_F(JournalTest, noStepBeforeTheLastSyncIsLost)
{
    int torn = 0, lost = 0;
    for (unsigned seed = 1; seed <= caseCount("INK_JOURNAL_CUTS", 1000); ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        journal.begin();
        disk = Disk();
        Lesson drawn({kSize, 1});
        std::size_t safe = 0, rested = 0;
        for (int acts = random.below(30); acts > 0; --acts) {
            const int number = drawn.history().nextNumber(1);
            switch (random.below(8)) {
            case 0:
                journal.sync();
                safe = drawn.log().size();
                break;
            case 1:
                if (random.oneIn(4)) {
                    journal.rest(drawn);
                    rested = drawn.log().size();
                }
                break;
            default:
                drawn.apply({{1, number}, number, random.below(1000000), kFirstPage, Clear()});
                ASSERT_TRUE(journal.follow(drawn, noFile));
            }
        }
        write(disk.cut(random));
        const auto opened = openLesson(found, problem);
        if (safe > rested) {
            ASSERT_NE(opened, nullptr) << problem.toStdString();
            ASSERT_GE(opened->log().size(), safe);
        }
        torn += problem.contains(QStringLiteral("it was cut off here")) ? 1 : 0;
        if (!opened)
            continue;
        ASSERT_TRUE(problem.isEmpty() || problem.endsWith(QStringLiteral("it was cut off here")));
        const auto end = drawn.log().begin() + std::ptrdiff_t(opened->log().size());
        EXPECT_EQ(opened->log(), std::vector<QByteArray>(drawn.log().begin(), end));
        lost += end != drawn.log().end() ? 1 : 0;
    }
    EXPECT_GT(torn, 100); // it did come about
    EXPECT_GT(lost, 100);
}

TEST_F(JournalTest, whatAFullDiskRefusedIsWrittenWithTheNext)
{
    disk.isFull = true;
    lesson.apply(clearRecord(1));
    EXPECT_FALSE(journal.follow(lesson, noFile));
    EXPECT_EQ(journal.error(), QStringLiteral("no space"));
    EXPECT_FALSE(journal.isDue());
    disk.isFull = false;
    lesson.apply(clearRecord(2));
    EXPECT_TRUE(journal.follow(lesson, noFile));
    EXPECT_EQ(disk.all().count('\n'), 3);
    disk.isFull = true;
    lesson.apply(clearRecord(3));
    EXPECT_FALSE(journal.follow(lesson, noFile));
    EXPECT_FALSE(journal.follow(lesson, noFile));
    disk.isFull = false;
    lesson.apply(clearRecord(4));
    EXPECT_TRUE(journal.follow(lesson, noFile));
    write(disk.all());
    const auto opened = openLesson(found, problem);
    EXPECT_EQ(problem, QString());
    EXPECT_EQ(opened->log(), lesson.log());
}

TEST_F(JournalTest, restsUntilThereIsMore)
{
    lesson.apply(clearRecord(1));
    lesson.apply(clearRecord(2));
    journal.follow(lesson, noFile);
    journal.rest(lesson);
    EXPECT_EQ(disk.all(), "");
    EXPECT_TRUE(journal.follow(lesson, noFile));
    EXPECT_EQ(disk.all(), "");
    lesson.apply(clearRecord(3));
    journal.follow(lesson, {QStringLiteral("/home/lesson.inkboard"), 1700000000123, 4096});
    EXPECT_EQ(disk.all().count('\n'), 4); // all of it again
    EXPECT_TRUE(disk.all().startsWith("{\"file\":\"/home/lesson.inkboard\",\"file-bytes\":4096,"
                                      "\"file-time\":1700000000123,\"inkboard\":2,"));
    write(disk.all());
    const SavedFile saved = Journal::savedFileOf(found);
    EXPECT_EQ(saved.name, QStringLiteral("/home/lesson.inkboard"));
    EXPECT_EQ(saved.time, 1700000000123);
    EXPECT_EQ(saved.bytes, 4096);
    EXPECT_EQ(openLesson(found, problem)->log(), lesson.log());
    EXPECT_EQ(problem, QString());
}

TEST_F(JournalTest, beginsWithAnotherLesson)
{
    lesson.apply(clearRecord(1));
    journal.follow(lesson, noFile);
    Lesson other({{20, 10}, 1});
    journal.begin();
    EXPECT_EQ(disk.all(), "");
    EXPECT_TRUE(journal.follow(other, noFile));
    EXPECT_EQ(disk.all(), "");
    other.apply(record(3, 1, Clear()));
    journal.follow(other, noFile);
    EXPECT_EQ(disk.all(), "{\"inkboard\":2,\"size\":[20,10]}\n"
                          "{\"author\":3,\"do\":\"clear\",\"number\":1,\"time\":0}\n");
}

// There is nothing to recover of it; it is written with the next step.
TEST_F(JournalTest, aPageThatHasOnlyGrownIsNothingToKeep)
{
    lesson.apply(record(1, 1, Grow{{60, 50}}));
    EXPECT_TRUE(journal.follow(lesson, noFile));
    EXPECT_EQ(disk.all(), "");
    EXPECT_FALSE(journal.isDue());
    lesson.apply(clearRecord(2));
    journal.follow(lesson, noFile);
    EXPECT_EQ(disk.all().count('\n'), 3);
    lesson.apply(record(1, 3, Grow{{70, 50}}));
    journal.follow(lesson, noFile);
    EXPECT_EQ(disk.all().count('\n'), 3);
}

TEST_F(JournalTest, isNotKeptAnyMoreOnceItIsDiscarded)
{
    lesson.apply(clearRecord(1));
    journal.follow(lesson, noFile);
    journal.discard();
    EXPECT_FALSE(journal.isKept());
    EXPECT_EQ(disk.all(), "");
    EXPECT_FALSE(journal.follow(lesson, noFile));
}

TEST_F(JournalTest, ofASharedLessonTellsWhatSettlesAndWhatIsTakenBack)
{
    lesson.settle({toCbor(record(2, 1, Clear()))});
    lesson.apply(clearRecord(1));
    ASSERT_TRUE(journal.share(lesson, noFile, {{1}, QStringLiteral("where"), "\x01\x02"}));
    lesson.logChanged = [this](const Lesson::LogChange &change) { journal.note(change); };
    lesson.settle({toCbor(clearRecord(1)), toCbor(record(2, 5, Clear()))});
    lesson.apply(clearRecord(2));
    lesson.apply(clearRecord(3));
    lesson.drop({1, 2});
    lesson.setBack(1, [](int author) { return author == 1; });
    EXPECT_TRUE(journal.follow(lesson, noFile));
    EXPECT_EQ(disk.all(), "{\"inkboard\":3,\"shared\":{\"address\":\"where\",\"authors\":[1],\"token\":\"AQI=\"},"
                          "\"size\":[40,30]}\n"
                          "{\"author\":2,\"do\":\"clear\",\"number\":1,\"settled\":true,\"time\":0}\n"
                          "{\"author\":1,\"do\":\"clear\",\"number\":1,\"time\":0}\n"
                          "{\"settled\":1}\n"
                          "{\"author\":2,\"do\":\"clear\",\"number\":5,\"settled\":true,\"time\":0}\n"
                          "{\"author\":1,\"do\":\"clear\",\"number\":2,\"time\":0}\n"
                          "{\"author\":1,\"do\":\"clear\",\"number\":3,\"time\":0}\n"
                          "{\"dropped\":[1,2]}\n"
                          "{\"set-back\":1}\n");
    write(disk.all());
    const auto opened = openLesson(found, problem);
    EXPECT_EQ(problem, QString());
    EXPECT_EQ(opened->log(), lesson.log());
    EXPECT_EQ(opened->settled(), 1U);
    EXPECT_EQ(opened->log().size(), 3U);
    const Sharing sharing = Journal::sharingOf(found);
    EXPECT_EQ(sharing.authors, std::vector<int>{1});
    EXPECT_EQ(sharing.address, QStringLiteral("where"));
    EXPECT_EQ(sharing.token, "\x01\x02");
}

TEST_F(JournalTest, ofASharedLessonStaysWhenThatIsSavedAndEndsWithTheSharing)
{
    lesson.apply(clearRecord(1));
    disk.isFull = true;
    EXPECT_FALSE(journal.share(lesson, noFile, {{1}, {}, "token"}));
    disk.isFull = false;
    EXPECT_TRUE(journal.follow(lesson, noFile));
    EXPECT_TRUE(journal.isDue());
    journal.rest(lesson);
    EXPECT_EQ(disk.all().count('\n'), 2);
    journal.begin();
    EXPECT_TRUE(journal.follow(lesson, noFile));
    EXPECT_EQ(disk.all(), "{\"inkboard\":2,\"size\":[40,30]}\n"
                          "{\"author\":1,\"do\":\"clear\",\"number\":1,\"time\":0}\n");
}

TEST_F(JournalTest, ofASharedLessonIsReadUpToWhatCannotBe)
{
    const QByteArray first = "{\"inkboard\":3,\"shared\":{\"authors\":[1],\"token\":\"AQI=\"},\"size\":[40,30]}\n"
                             "{\"author\":1,\"do\":\"clear\",\"number\":1}\n";
    for (const char *line :
         {"{\"settled\":2}", "{\"settled\":-1}", "{\"set-back\":\"1\"}", "{}", "{\"dropped\":[1]}"}) {
        write(first + line + '\n');
        const auto opened = openLesson(found, problem);
        ASSERT_NE(opened, nullptr) << line;
        EXPECT_TRUE(problem.contains(QStringLiteral("line 3"))) << line;
        EXPECT_EQ(opened->log().size(), 1U);
    }
    write("{\"inkboard\":3,\"size\":[40,30]}\n");
    EXPECT_EQ(openLesson(found, problem), nullptr) << "one that is not shared has no such version";
    write("{\"inkboard\":2,\"size\":[40,30]}\n{\"settled\":1}\n");
    openLesson(found, problem);
    EXPECT_TRUE(problem.contains(QStringLiteral("line 2"))) << "nor such lines";
}

TEST(Journal, isAFileThatOutlivesTheProgram)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("sub/name.inkboard"));
    QString problem;
    Lesson lesson({kSize, 1});
    {
        Journal journal;
        ASSERT_TRUE(journal.keep(folder.filePath(QStringLiteral("sub")), QStringLiteral("name"), problem));
        EXPECT_EQ(journal.fileName(), path);
        lesson.apply(clearRecord(1));
        EXPECT_TRUE(journal.follow(lesson, SavedFile()));
        EXPECT_EQ(bytesOf(path).count('\n'), 2);                                           // at once
        EXPECT_TRUE(Journal::abandoned(folder.filePath(QStringLiteral("sub"))).isEmpty()); // it is kept here
        Journal second;
        EXPECT_FALSE(second.keep(folder.filePath(QStringLiteral("sub")), QStringLiteral("name"), problem));
        EXPECT_TRUE(problem.startsWith(path + QStringLiteral(": no journal can be kept: ")));
        EXPECT_FALSE(second.follow(lesson, SavedFile()));
    }
    EXPECT_EQ(Journal::abandoned(folder.filePath(QStringLiteral("sub"))), QStringList{path});
    EXPECT_EQ(Journal::savedFileOf(path).name, QString());
    EXPECT_EQ(Journal::savedFileOf(folder.filePath(QStringLiteral("nothing"))).name, QString());
    EXPECT_EQ(openLesson(path, problem)->log(), lesson.log());
}

TEST(Journal, isAbandonedOnceItHoldsAStep)
{
    const QTemporaryDir folder;
    const auto write = [&](const char *name, const QByteArray &text) {
        QFile out(folder.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(text);
    };
    const QByteArray head = "{\"inkboard\":2,\"size\":[40,30]}\n";
    write("empty.inkboard", "");
    write("head.inkboard", head);
    write("grown.inkboard", head + "{\"author\":1,\"do\":\"size\",\"number\":1,\"size\":[60,50]}\n");
    write("step.inkboard", head + "{\"author\":1,\"do\":\"clear\",\"number\":1}\n");
    write("step.other", head + "{\"author\":1,\"do\":\"clear\",\"number\":1}\n");
    EXPECT_EQ(Journal::abandoned(folder.path()), QStringList{folder.filePath(QStringLiteral("step.inkboard"))});
}

// The folder has to know the file, too: once.
TEST(Journal, theFolderIsSyncedAfterTheFile)
{
    const QTemporaryDir folder;
    QString problem;
    Lesson lesson({kSize, 1});
    Journal journal;
    ASSERT_TRUE(journal.keep(folder.path(), QStringLiteral("name"), problem));
    synced.clear();
    lesson.apply(clearRecord(1));
    journal.follow(lesson, SavedFile());
    EXPECT_EQ(synced, QStringList());
    journal.sync();
    const QString path = QDir(folder.path()).canonicalPath();
    EXPECT_EQ(synced, (QStringList{path + QStringLiteral("/name.inkboard"), path}));
    journal.sync();
    EXPECT_EQ(synced.size(), 3);
    EXPECT_EQ(synced.back(), path + QStringLiteral("/name.inkboard"));
    journal.discard();
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("name.inkboard"))));
}

// The system writes as much as it may: 100 bytes. What is left of the line is taken back.
TEST(DiskFile, takesBackWhatWasWrittenInPart)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    DiskFile file;
    EXPECT_FALSE(file.append("early"));
    ASSERT_TRUE(file.create(path));
    EXPECT_TRUE(file.append(QByteArray(60, 'a') + '\n'));
    const auto before = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{100, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_FALSE(file.append(QByteArray(60, 'b') + '\n'));
    EXPECT_TRUE(file.append("c\n"));
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, before);
    EXPECT_EQ(bytesOf(path), QByteArray(60, 'a') + "\nc\n");
    EXPECT_TRUE(file.append("d\n"));
    EXPECT_EQ(bytesOf(path), QByteArray(60, 'a') + "\nc\nd\n");
    EXPECT_TRUE(file.clear());
    EXPECT_EQ(bytesOf(path), "");
    EXPECT_TRUE(file.append("e\n"));
    EXPECT_EQ(bytesOf(path), "e\n");
}

TEST(DiskFile, doesNotWriteOverAFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    DiskFile first, second;
    ASSERT_TRUE(first.create(path));
    EXPECT_TRUE(first.append("mine\n"));
    EXPECT_FALSE(second.create(path));
    EXPECT_FALSE(second.error().isEmpty());
    EXPECT_FALSE(second.clear());
    second.sync();
    second.remove();
    EXPECT_EQ(bytesOf(path), "mine\n");
}
