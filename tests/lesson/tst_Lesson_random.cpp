// The same log gives the same pixels, however it is come by; and what is painted in part is what is painted wholly.

#include "RandomLesson.h"

#include "lesson/log/RecordCode.h"
#include "lesson/log/RecordReader.h"
#include "lesson/output/PngFile.h"
#include "lesson/storage/Journal.h"
#include "lesson/storage/LessonFile.h"

#include <QtCore/QCborMap>
#include <QtCore/QCborValue>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

using namespace InkLesson;

namespace {

constexpr unsigned kLessons = 40;
constexpr double kDensities[] = {1, 1.5, 2};

double densityOf(unsigned seed)
{
    return kDensities[seed % std::size(kDensities)];
}

::testing::AssertionResult samePages(const Lesson &actual, const Lesson &expected)
{
    if (actual.pageCount() != expected.pageCount())
        return ::testing::AssertionFailure() << actual.pageCount() << " pages instead of " << expected.pageCount();
    for (int i = 0; i < actual.pageCount(); ++i) {
        const Page &page = actual.page(actual.pageId(i)), &other = expected.page(expected.pageId(i));
        if (page.picture() != other.picture())
            return ::testing::AssertionFailure() << "page " << i << " differs";
        if (page.ink() != other.ink())
            return ::testing::AssertionFailure() << "the ink of page " << i << " differs";
    }
    return ::testing::AssertionSuccess();
}

std::unique_ptr<Lesson> replayed(const Lesson &lesson)
{
    auto again = std::make_unique<Lesson>(lesson.header());
    for (const QByteArray &code : lesson.log()) {
        RecordReader reader;
        Record record;
        EXPECT_TRUE(reader.readCbor(code, record)) << reader.error().toStdString();
        again->apply(record);
    }
    return again;
}

// A journal of none is empty.
bool hasSteps(const Lesson &lesson)
{
    return std::any_of(lesson.log().begin(), lesson.log().end(), [](const QByteArray &code) {
        return QCborValue::fromCbor(code).toMap().value(QLatin1String("do")).toString() != QLatin1String("size");
    });
}

::testing::AssertionResult picturesAreThePages(const Lesson &lesson, const QString &file)
{
    for (int i = 0; i < lesson.pageCount(); ++i) {
        const QImage &picture = lesson.page(lesson.pageId(i)).picture();
        const QString problem = savePng(picture, file);
        if (!problem.isEmpty())
            return ::testing::AssertionFailure() << problem.toStdString();
        if (QImage(file).convertToFormat(picture.format()) != picture)
            return ::testing::AssertionFailure() << "the picture of page " << i << " differs";
    }
    return ::testing::AssertionSuccess();
}

// Whether each page has the pixels that it has when all objects paint themselves anew. Names those that are there where
// it has not.
::testing::AssertionResult partsAreTheWhole(Lesson &lesson)
{
    for (int i = 0; i < lesson.pageCount(); ++i) {
        Page &page = lesson.page(lesson.pageId(i));
        const QImage picture = page.picture().copy(), ink = page.ink().copy();
        page.keepSprites(false);
        page.setPaper(page.paper());
        page.repaint();
        page.keepSprites(true);
        if (picture == page.picture() && ink == page.ink())
            continue;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixel(x, y) == page.picture().pixel(x, y) && ink.pixel(x, y) == page.ink().pixel(x, y))
                    continue;
                auto failure = ::testing::AssertionFailure() << "page " << i << " at " << x << ',' << y << ':';
                for (const auto &item : page.items()) {
                    if (item->reach.contains(x, y))
                        failure << ' ' << (item->tool ? item->tool->name : "picture");
                }
                return failure;
            }
        }
    }
    return ::testing::AssertionSuccess();
}

} // namespace

TEST(Lesson, sameLogGivesTheSamePixels)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("lesson.inkboard"));
    const unsigned first = caseCount("INK_LESSON_SEED", 1);
    for (unsigned seed = first; seed < first + caseCount("INK_LESSON_CASES", kLessons); ++seed) {
        SCOPED_TRACE(seed);
        RandomLesson random(seed, 2, densityOf(seed));
        random.act(25);
        random.letGo();
        ASSERT_TRUE(samePages(*replayed(random.lesson()), random.lesson())) << "replayed";
        ASSERT_EQ(saveLesson(random.lesson(), file), QString());
        QString problem;
        const auto opened = openLesson(file, problem);
        ASSERT_EQ(problem.toStdString(), "");
        ASSERT_TRUE(samePages(*opened, random.lesson())) << "opened";
        EXPECT_EQ(opened->log(), random.lesson().log());
        Journal journal;
        ASSERT_TRUE(journal.keep(folder.path(), QStringLiteral("journal"), problem)) << problem.toStdString();
        ASSERT_TRUE(journal.follow(random.lesson(), SavedFile::at(file)));
        const auto recovered = openLesson(journal.fileName(), problem);
        ASSERT_EQ(problem.toStdString(), "");
        ASSERT_TRUE(hasSteps(random.lesson()) ? samePages(*recovered, random.lesson()) : !recovered) << "recovered";
        journal.discard();
        ASSERT_TRUE(picturesAreThePages(random.lesson(), folder.filePath(QStringLiteral("page.png")))) << "exported";
    }
}

// Whatever a host hands over, as CBOR and as a line.
TEST(Lesson, whatIsDoneCanBeReadAgain)
{
    const unsigned first = caseCount("INK_LESSON_SEED", 1);
    for (unsigned seed = first; seed < first + caseCount("INK_LESSON_CASES", kLessons); ++seed) {
        SCOPED_TRACE(seed);
        RandomLesson random(seed, 2, densityOf(seed), RandomLesson::Host::Odd);
        random.act(25);
        random.letGo();
        ASSERT_EQ(random.records().size(), random.lesson().log().size());
        for (const Record &record : random.records()) {
            const QByteArray code = toCbor(record);
            RecordReader reader;
            Record again;
            ASSERT_TRUE(reader.readCbor(code, again)) << reader.error().toStdString();
            ASSERT_EQ(toCbor(again), code);
            ASSERT_TRUE(reader.readJson(toJson(record), again)) << reader.error().toStdString();
            ASSERT_EQ(toCbor(again), code);
        }
        ASSERT_TRUE(samePages(*replayed(random.lesson()), random.lesson()));
    }
}

TEST(Lesson, partsArePaintedAsTheWhole)
{
    const unsigned first = caseCount("INK_LESSON_SEED", 1);
    for (unsigned seed = first; seed < first + caseCount("INK_LESSON_CASES", kLessons); ++seed) {
        SCOPED_TRACE(seed);
        RandomLesson random(seed, 1, densityOf(seed));
        for (int i = 0; i < 20; ++i) {
            random.act(1);
            random.letGo();
            ASSERT_TRUE(partsAreTheWhole(random.lesson())) << "after act " << i;
        }
    }
}
