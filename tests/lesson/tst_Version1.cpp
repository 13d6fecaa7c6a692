// Lessons of version 1, drawn and saved by the board that wrote them, open with every pixel that it showed.

#include "Exact.h"

#include "lesson/objects/Tools.h"
#include "lesson/storage/LessonFile.h"

#include <QtCore/QDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>

using namespace InkLesson;

namespace {

const QString kFolder = QStringLiteral(VERSION1);

std::unique_ptr<Lesson> opened(const QString &file)
{
    QString problem;
    auto lesson = openLesson(file, problem);
    EXPECT_EQ(problem.toStdString(), "");
    return lesson;
}

QImage picture(const QString &name)
{
    return QImage(QDir(kFolder).filePath(name)).convertToFormat(QImage::Format_RGB32);
}

// Its pixels stand in the file as they are, with their colours multiplied by their alpha: a PNG that knew of that would
// round them.
QImage ink(const QString &name)
{
    QImage image = QImage(QDir(kFolder).filePath(name)).convertToFormat(QImage::Format_ARGB32);
    image.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
    return image;
}

struct Written
{
    const char *name;
    int pages;
};

std::ostream &operator<<(std::ostream &out, const Written &lesson)
{
    return out << lesson.name;
}

class Version1 : public ::testing::TestWithParam<Written>
{
};

} // namespace

TEST_P(Version1, opensPixelForPixel)
{
    const QString name = QString::fromLatin1(GetParam().name);
    const auto lesson = opened(QDir(kFolder).filePath(name + QStringLiteral(".inkboard")));
    ASSERT_NE(lesson, nullptr);
    ASSERT_EQ(lesson->pageCount(), GetParam().pages);
    for (int i = 0; i < lesson->pageCount(); ++i) {
        SCOPED_TRACE(i);
        const Page &page = lesson->page(lesson->pageId(i));
        const QString stem = QStringLiteral("%1-%2").arg(name).arg(i + 1);
        EXPECT_TRUE(samePixels(page.picture(), picture(stem + QStringLiteral(".png"))));
        EXPECT_TRUE(samePixels(page.ink(), ink(stem + QStringLiteral("-ink.png"))));
    }
}

INSTANTIATE_TEST_SUITE_P(All, Version1,
                         ::testing::Values(Written{"dense", 1}, Written{"everything", 2}, Written{"fills-again", 1},
                                           Written{"fills", 2}, Written{"half-dense", 2}, Written{"long", 1},
                                           Written{"pages", 1}, Written{"pens", 1}, Written{"pictures", 1},
                                           Written{"rest", 3}, Written{"selections", 2}, Written{"shapes", 1}),
                         [](const auto &lesson) {
                             std::string name = lesson.param.name;
                             name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
                             return name;
                         });

TEST(Version1Files, areAllTried)
{
    EXPECT_EQ(QDir(kFolder).entryList({QStringLiteral("*.inkboard")}).size(), 12);
}

// Together they hold all that a board of version 1 could do.
TEST(Version1Files, holdEveryKindOfRecord)
{
    QByteArray all;
    for (const QFileInfo &info : QDir(kFolder).entryInfoList({QStringLiteral("*.inkboard")})) {
        QFile file(info.filePath());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        all += file.readAll();
    }
    for (const char *kind : {"draw", "replace", "delete", "order", "clear", "paper", "size", "add-page", "remove-page",
                             "move-page", "undo", "redo"})
        EXPECT_TRUE(all.contains(QByteArray("\"do\":\"") + kind + '"')) << kind;
    for (const char *text : {"\"succeeds\":true", "\"kind\":\"picture\"", "\"reopen\"", "\"tool\":\"picture\"",
                             "{\"dash\":", "{\"width\":", "{\"color\":", "\"text\":", "\"option\":", "\"density\":"})
        EXPECT_TRUE(all.contains(text)) << text;
    for (const Tool &tool : tools()) {
        const QByteArray name = tool.name;
        const bool isOfVersion1 = name != kAreaTool && name != "water-color-pen" && name != "heart"; // leave no mark
        EXPECT_EQ(all.contains("\"tool\":\"" + name + '"'), isOfVersion1) << tool.name;
    }
}

TEST(Version1Files, theLessonOfAllToolsIsThePictureInTheDocuments)
{
    const auto lesson = opened(QStringLiteral(TOOLS_LESSON));
    ASSERT_NE(lesson, nullptr);
    EXPECT_TRUE(samePixels(lesson->page(lesson->pageId(0)).picture(),
                           QImage(QStringLiteral(TOOLS_PICTURE)).convertToFormat(QImage::Format_RGB32)));
}
