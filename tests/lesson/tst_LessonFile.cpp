#include "lesson/storage/LessonFile.h"

#include "Exact.h"
#include "LessonKit.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <sys/syscall.h>
#include <unistd.h>

using namespace InkLesson;

namespace {

QStringList synced; // files and folders, in their order
int syncError = 0;  // that it fails with

} // namespace

// In the stead of that of the C library.
extern "C" int fsync(int handle)
{
    synced.append(QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(handle)));
    errno = syncError;
    return syncError != 0 ? -1 : int(syscall(SYS_fsync, handle));
}

class LessonFileTest : public ::testing::Test
{
protected:
    LessonFileTest()
    {
        synced.clear();
        syncError = 0;
        lesson.apply(record(1, 1, Draw{blockLife({40, 30, 10, 10}, QColor(Qt::red))}));
        lesson.apply(record(1, 2, AddPage{0, {50, 40}}));
        lesson.apply(record(2, 1, Undo{{1, 1}}));
        lesson.apply(record(2, 2, SetPaper{{Paper::Kind::Ruled, {}}}, {1, 2}));
    }

    QByteArray bytes(const QString &file) const
    {
        QFile in(file);
        EXPECT_TRUE(in.open(QIODevice::ReadOnly));
        return in.readAll();
    }
    void write(const QByteArray &text) const
    {
        QFile out(name);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        ASSERT_EQ(out.write(text), text.size());
    }
    // What is wrong, without the name of the file.
    QString openingSays(const QByteArray &text)
    {
        write(text);
        QString problem;
        opened = openLesson(name, problem);
        const QString prefix = name + QStringLiteral(": ");
        EXPECT_TRUE(problem.isEmpty() || problem.startsWith(prefix));
        EXPECT_EQ(bytes(name), text); // the file is not touched
        return problem.mid(prefix.size());
    }

    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("lesson.inkboard"));
    Lesson lesson{{{200, 150}, 1.5}};
    std::unique_ptr<Lesson> opened;
};

// Four records: what was read of the file rises with each, and is all of it in the end.
TEST_F(LessonFileTest, openingTellsHowFarItIs)
{
    ASSERT_EQ(saveLesson(lesson, name), QString());
    std::vector<double> told;
    QString problem;
    opened = openLesson(name, problem, [&told](double share) { told.push_back(share); });
    ASSERT_EQ(told.size(), 4U);
    EXPECT_GT(told.front(), 0);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.back(), 1);
}

TEST_F(LessonFileTest, opensWhatItSaved)
{
    ASSERT_EQ(saveLesson(lesson, name), QString());
    QString problem;
    opened = openLesson(name, problem);
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(problem, QString());
    EXPECT_EQ(opened->header().size, QSize(200, 150));
    EXPECT_EQ(opened->header().density, 1.5);
    EXPECT_EQ(opened->log(), lesson.log());
    ASSERT_EQ(opened->pageCount(), 2);
    EXPECT_EQ(opened->pageId(0), (PageId{1, 2}));
    for (int i = 0; i < 2; ++i) {
        const PageId id = lesson.pageId(i);
        EXPECT_TRUE(samePixels(opened->page(id).picture(), lesson.page(id).picture()));
        EXPECT_TRUE(samePixels(opened->page(id).ink(), lesson.page(id).ink()));
    }
    EXPECT_EQ(opened->page(kFirstPage).picture().pixel(45, 35), 0xFFFF0000);
    EXPECT_EQ(bytes(name).count('\n'), 5);
    EXPECT_TRUE(bytes(name).startsWith("{\"density\":1.5,\"inkboard\":2,\"size\":[200,150]}\n"));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

// The file before it has its name, and then the folder.
TEST_F(LessonFileTest, isOnTheDiskOnceItIsSaved)
{
    ASSERT_EQ(saveLesson(lesson, name), QString());
    ASSERT_EQ(synced.size(), 2);
    EXPECT_NE(synced[0], name);
    EXPECT_TRUE(synced[0].startsWith(folder.path()));
    EXPECT_EQ(synced[1], QDir(folder.path()).canonicalPath());
}

TEST_F(LessonFileTest, savesWholeOrNotAtAll)
{
    write("what was there\n");
    syncError = EIO;
    EXPECT_EQ(saveLesson(lesson, name), name + QStringLiteral(": cannot be written: Input/output error"));
    EXPECT_EQ(bytes(name), "what was there\n");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    syncError = 0;
    EXPECT_EQ(saveLesson(lesson, name), QString());
    EXPECT_EQ(bytes(name).count('\n'), 5);
}

TEST_F(LessonFileTest, savesWhereAFileSystemCannotTellWhatIsOnTheDisk)
{
    for (const int error : {EINVAL, ENOTSUP, ENOSYS}) {
        write("what was there\n");
        syncError = error;
        EXPECT_EQ(saveLesson(lesson, name), QString()) << error;
        EXPECT_EQ(bytes(name).count('\n'), 5) << error;
    }
    for (const int error : {EIO, ENOSPC, EDQUOT, EBADF}) {
        write("what was there\n");
        syncError = error;
        EXPECT_NE(saveLesson(lesson, name), QString()) << error;
        EXPECT_EQ(bytes(name), "what was there\n") << error;
    }
}

TEST_F(LessonFileTest, saysWhyItCannotBeWritten)
{
    const QString nowhere = folder.filePath(QStringLiteral("missing/lesson.inkboard"));
    EXPECT_EQ(saveLesson(lesson, nowhere), nowhere + QStringLiteral(": cannot be written: No such file or directory"));
    EXPECT_TRUE(saveLesson(lesson, folder.path()).startsWith(folder.path() + QStringLiteral(": cannot be written: ")));
}

TEST_F(LessonFileTest, saysWhyItCannotBeRead)
{
    QString problem;
    EXPECT_EQ(openLesson(name, problem), nullptr);
    EXPECT_EQ(problem, name + QStringLiteral(": cannot be read: No such file or directory"));
}

TEST_F(LessonFileTest, saysThatAFileIsNoLesson)
{
    for (const char *text : {"", "\n", "a poem\n", "{}\n", "{\"inkboard\":\"2\"}\n", "[2]\n"}) {
        EXPECT_EQ(openingSays(text), QStringLiteral("line 1: this is not a lesson of this board")) << text;
        EXPECT_EQ(opened, nullptr);
    }
    EXPECT_EQ(openingSays("{\"inkboard\":3,\"size\":[20,10]}\n"),
              QStringLiteral("line 1: the lesson was written by a later version of this board"));
    EXPECT_EQ(openingSays("{\"inkboard\":2,\"size\":[20,0]}\n"),
              QStringLiteral("line 1: a side must be 1 to 16384 pixels"));
    EXPECT_EQ(openingSays("{\"inkboard\":2,\"size\":[20,10],\"density\":9}\n"),
              QStringLiteral("line 1: no density of a page"));
    EXPECT_EQ(openingSays("{\"inkboard\":2,\"size\":[20,10]}"), QStringLiteral("line 1: it was cut off here"));
    EXPECT_EQ(opened, nullptr);
}

// Up to where it is whole.
TEST_F(LessonFileTest, opensWhatWasCutOff)
{
    ASSERT_EQ(saveLesson(lesson, name), QString());
    const QByteArray whole = bytes(name);
    const int third = whole.indexOf('\n', whole.indexOf('\n') + 1) + 1;
    EXPECT_EQ(openingSays(whole.left(third + 10)), QStringLiteral("line 3: it was cut off here"));
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(opened->log().size(), 1U);
    EXPECT_EQ(opened->page(kFirstPage).picture().pixel(45, 35), 0xFFFF0000);
    EXPECT_EQ(openingSays(whole.left(third)), QString());
    EXPECT_EQ(opened->log().size(), 1U);
}

TEST_F(LessonFileTest, opensWhatComesBeforeAWrongLine)
{
    const QByteArray head = "{\"inkboard\":2,\"size\":[20,10]}\n";
    const QByteArray clear = "{\"author\":1,\"do\":\"clear\",\"number\":1}\n";
    EXPECT_EQ(openingSays(head + clear + "nonsense\n" + clear), QStringLiteral("line 3: nothing that can be read"));
    EXPECT_EQ(opened->log().size(), 1U);
    EXPECT_EQ(openingSays(head + "{\"author\":1,\"do\":\"sing\",\"number\":1}\n"),
              QStringLiteral("line 2: do: nothing that can be done"));
    EXPECT_EQ(opened->log().size(), 0U);
}

// Whoever opens a lesson can go on, and open that.
TEST_F(LessonFileTest, goesOnWithAnyNumberThatIsRead)
{
    const QByteArray head = "{\"inkboard\":2,\"size\":[20,10]}\n";
    const auto clear = [](int number) {
        return "{\"author\":1,\"do\":\"clear\",\"number\":" + QByteArray::number(number) + "}\n";
    };
    EXPECT_EQ(openingSays(head + clear(1) + clear(2147483646) + clear(2)),
              QStringLiteral("line 3: number: too far beyond the author's last one"));
    EXPECT_EQ(opened->log().size(), 1U);
    EXPECT_EQ(openingSays(head + clear(1073741824)), QString());
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(opened->apply(record(1, opened->history().nextNumber(1), Clear())), QString());
    ASSERT_EQ(saveLesson(*opened, name), QString());
    EXPECT_EQ(openingSays(bytes(name)), QString());
    EXPECT_EQ(opened->log().size(), 4U);
    EXPECT_EQ(opened->history().nextNumber(1), 1073741828);
}

// What changes no pixel does not end the reading, in lessons of version 1 neither.
TEST_F(LessonFileTest, aRecordThatChangesNothingIsRead)
{
    const QByteArray life = R"("life":{"acts":[[1,-90,5],[5,-60,5],[2,-60,5],"finish"],"canvas":[20,10],)"
                            R"("color":"#ffff0000","tool":"pencil","width":4})";
    EXPECT_EQ(openingSays("{\"inkboard\":1,\"size\":[20,10]}\n{\"do\":\"draw\",\"id\":1," + life +
                          ",\"page\":1}\n{\"do\":\"clear\",\"page\":1}\n{\"do\":\"clear\",\"page\":1}\n"),
              QString());
    EXPECT_EQ(opened->log().size(), 3U);
}
