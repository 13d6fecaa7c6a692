// What no log holds, whoever wrote it, and what a lesson takes of memory.

#include "lesson/fold/Lesson.h"

#include "LessonKit.h"

#include "lesson/log/RecordCode.h"
#include "lesson/log/RecordReader.h"

#include <gtest/gtest.h>

#include <limits>
#include <sys/resource.h>

using namespace InkLesson;

namespace {

constexpr QRgb kWhite = 0xFFFFFFFF, kRed = 0xFFFF0000, kGreen = 0xFF00FF00;

long megabytesSoFar()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

Draw block(const QRect &place, QRgb color)
{
    return {blockLife(place, QColor(color))};
}

Change moved(const ObjectId &object, const QPoint &by)
{
    Change change{object};
    change.by = by;
    return change;
}

} // namespace

class LessonBounds : public ::testing::Test
{
protected:
    // The author's next record. Returns its name.
    StepId apply(int author, Deed deed, const PageId &page = kFirstPage)
    {
        const Record next = record(author, lesson.history().nextNumber(author), std::move(deed), page);
        EXPECT_EQ(lesson.apply(next), QString());
        return next.id;
    }
    QRgb at(int x, int y, const PageId &page = kFirstPage) const { return lesson.page(page).picture().pixel(x, y); }
    std::vector<ObjectId> order() const
    {
        std::vector<ObjectId> ids;
        for (const auto &item : lesson.page(kFirstPage).items())
            ids.push_back(item->id);
        return ids;
    }

    Lesson lesson{{{200, 150}, 1}};
};

// So that whoever goes on never runs out of them: up to a place any number may come, and from there on each in its
// turn.
TEST_F(LessonBounds, noNumberLeavesTooFewAfterIt)
{
    const QString tooFar = QStringLiteral("number: too far beyond the author's last one");
    EXPECT_EQ(lesson.apply(record(1, 1073741825, Clear())), tooFar);
    EXPECT_EQ(lesson.apply(record(1, 2147483646, Clear())), tooFar);
    EXPECT_TRUE(lesson.log().empty());
    EXPECT_EQ(lesson.history().nextNumber(1), 1);
    EXPECT_EQ(lesson.apply(record(1, 1073741824, Clear())), QString());
    EXPECT_EQ(lesson.apply(record(1, 1073741826, Clear())), tooFar);
    EXPECT_EQ(lesson.apply(record(1, 1073741825, Clear())), QString());
    EXPECT_EQ(lesson.apply(record(1, 1073741826, Clear())), QString());
    EXPECT_EQ(lesson.apply(record(1, 1073741825, Clear())), QString()) << "it is known";
    EXPECT_EQ(lesson.apply(record(2, 1073741825, Clear())), tooFar) << "each author has numbers of their own";
    EXPECT_EQ(lesson.log().size(), 3U);
}

// 256 pages of 2^26 pixels would be all that there may be, but the first has 30 000.
TEST_F(LessonBounds, thePagesHaveABoundInAll)
{
    const QString tooMany = QStringLiteral("size: the pages of a lesson have at most 17179869184 pixels in all");
    for (int i = 1; i <= 255; ++i)
        ASSERT_EQ(lesson.apply(record(1, i, AddPage{0, {16384, 4096}})), QString());
    EXPECT_EQ(lesson.apply(record(1, 256, AddPage{0, {16384, 4096}})), tooMany);
    EXPECT_EQ(lesson.pageCount(), 256);
    EXPECT_EQ(lesson.log().size(), 255U);
    lesson.apply(record(1, 256, RemovePage(), {1, 1}));
    lesson.apply(record(1, 257, Undo{{1, 2}}));
    EXPECT_EQ(lesson.apply(record(1, 258, AddPage{0, {16384, 4096}})), tooMany) << "both may come back";
    EXPECT_EQ(lesson.apply(record(1, 258, AddPage{0, {16384, 4094}})), QString()); // which leaves 2768
    EXPECT_EQ(lesson.apply(record(1, 259, Grow{{200, 164}})), tooMany);
    EXPECT_EQ(lesson.apply(record(1, 259, Grow{{200, 163}})), QString()); // which leaves 168
    EXPECT_EQ(lesson.apply(record(1, 260, Grow{{201, 10}})), QString());  // five
    EXPECT_EQ(lesson.apply(record(1, 261, Grow{{10, 164}})), tooMany);
    EXPECT_EQ(lesson.apply(record(1, 261, Grow{{10, 10}})), QString());
    EXPECT_EQ(lesson.apply(record(1, 262, Grow{{900, 900}}, {7, 7})), QString()) << "of no page";
    EXPECT_EQ(lesson.page(kFirstPage).rect(), QRect(0, 0, 201, 163));
}

// Two hundred pages of 3840 x 2160 on a screen of twice the density, drawn on and undone.
TEST_F(LessonBounds, pagesThatNobodyLooksAtTakeNoMemory)
{
    const long before = megabytesSoFar();
    const Draw line{lineLife({100, 100}, {5000, 4000}, QColor(kRed))};
    PageId page = kFirstPage;
    for (int i = 0; i < 200; ++i) {
        page = apply(1, AddPage{0, {7680, 4320}});
        const ObjectId gone = apply(1, line, page);
        apply(1, Draw{lineLife({20, 20}, {7000, 20}, QColor(kRed))}, page);
        apply(1, SetPaper{{Paper::Kind::Ruled, {}}}, page);
        apply(1, Undo{gone});
    }
    EXPECT_EQ(lesson.pageCount(), 201);
    EXPECT_LT(megabytesSoFar() - before, 100);
    lesson.apply(record(1, 1001, AddPage{0, {300, 50}}));
    lesson.apply(record(1, 1002, Draw{lineLife({20, 20}, {280, 20}, QColor(kRed))}, {1, 1001}));
    EXPECT_EQ(at(150, 20, {1, 1001}), kRed);
}

// A time that no file can tell.
TEST_F(LessonBounds, whatAHostMadeAndNobodyCanReadHasNoEffectOnceItIsRead)
{
    const ObjectId a = apply(1, block({20, 30, 30, 30}, kRed));
    const ObjectId b = apply(1, block({30, 30, 30, 30}, kGreen));
    int number = 2;
    for (const Deed &deed : {Deed(Order{a, b}), Deed(SetPaper{{Paper::Kind::Ruled, {}}}),
                             Deed(Draw{lineLife({70, 0}, {190, 0}, QColor(kRed))})}) {
        Record odd = record(1, ++number, deed);
        odd.time = 1LL << 60;
        lesson.apply(odd);
    }
    EXPECT_EQ(at(10, 32), kWhite) << "the paper";
    apply(2, moved({1, 5}, {0, 50}));
    EXPECT_EQ(at(80, 50), kWhite) << "the line";
    for (int i = 3; i <= 5; ++i)
        apply(1, Undo{{1, i}});
    EXPECT_EQ(order(), (std::vector<ObjectId>{a, b}));
}

TEST_F(LessonBounds, aRecordThatWasMadeHereIsAsItIsRead)
{
    Life life = blockLife({40, 30, 10, 10}, QColor(kRed));
    life.picture = life.picture.convertToFormat(QImage::Format_RGB32);
    Record made = record(1, 1, Draw{life});
    EXPECT_EQ(lesson.applyMade(made), QString());
    EXPECT_EQ(std::get<Draw>(made.deed).life.picture.format(), QImage::Format_ARGB32);
    Record wrong = record(1, 2, AddPage{-1, {50, 50}});
    EXPECT_EQ(lesson.applyMade(wrong), QStringLiteral("at: not a number that this can be"));
    EXPECT_EQ(lesson.log().size(), 1U);
    EXPECT_EQ(lesson.history().nextNumber(1), 2);
}

// A text is at most a million letters; of sixty-six such texts no line of a file can tell.
TEST_F(LessonBounds, aRecordThatNoLineHoldsIsRefused)
{
    QImage image(1, 1, QImage::Format_ARGB32);
    image.fill(kRed);
    Change change{{1, 1}};
    const auto write = [&](int texts, QChar letter) {
        change.acts.assign(std::size_t(texts), TextAct{QString(1 << 20, letter), image});
        Record made = record(1, lesson.history().nextNumber(1), change);
        return lesson.applyMade(made);
    };
    const QString tooLong = QStringLiteral("it is longer than any board writes");
    EXPECT_EQ(write(66, QLatin1Char('x')), tooLong);
    EXPECT_EQ(write(11, QChar(1)), tooLong) << "each letter is six in a file";
    EXPECT_EQ(write(5, QLatin1Char(',')), tooLong) << "which might be so many parts";
    EXPECT_TRUE(lesson.log().empty());
    EXPECT_EQ(write(60, QLatin1Char('x')), QString());
    EXPECT_EQ(write(3, QLatin1Char(',')), QString());
    for (const QByteArray &code : lesson.log()) {
        RecordReader reader;
        Record read;
        EXPECT_TRUE(reader.readCbor(code, read));
        EXPECT_TRUE(reader.readJson(jsonLine(code), read));
    }
}

// An area at the end of an int has its pixels there.
TEST(LessonBoundsOfPlaces, anAreaMayLieAnywhere)
{
    Lesson lesson({{42, 54}});
    const int least = std::numeric_limits<int>::min(), most = std::numeric_limits<int>::max();
    int number = 0;
    for (const QPoint &far : {QPoint(most, 5), QPoint(5, most), QPoint(least, 5), QPoint(5, least)}) {
        Life area = blockLife({0, 0, 9, 9}, Qt::blue);
        area.position = far;
        lesson.apply(record(1, ++number, Draw{area}));
        const QRect there = lesson.page(kFirstPage).items().back()->object->m_rcHot;
        EXPECT_EQ(there.size(), QSize(9, 9));
        EXPECT_FALSE(there.intersects({-16384, -16384, 32768, 32768}));
        lesson.apply(record(1, number + 1, moved({1, number}, {1, 1})));
        ++number;
    }
    EXPECT_EQ(lesson.page(kFirstPage).picture().pixel(41, 5), kWhite);
}
