#include "lesson/authoring/Pointer.h"

#include "PointerEvent.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>

#include <gtest/gtest.h>

using namespace InkLesson;

namespace {

constexpr QRgb kWhite = 0xFFFFFFFF, kRed = 0xFFFF0000;

class PointerTest : public ::testing::Test
{
protected:
    QRgb at(int x, int y) const { return lesson.page(kFirstPage).picture().pixel(x, y); }
    QRgb shown(int x, int y) const { return lesson.page(kFirstPage).surface().pixel(x, y); }
    const Page::Items &items() const { return lesson.page(kFirstPage).items(); }
    Life newest() const { return *lesson.life(items().back()->id); }

    void take(const char *tool, int width = 4)
    {
        pointer.setTool(QString::fromLatin1(tool));
        pointer.setInk({QColor(kRed), width});
    }
    void drag(const QPoint &from, const QPoint &to)
    {
        pointer.press(from);
        pointer.move(to);
        pointer.release(to);
    }

    Lesson lesson{{{200, 150}, 1}};
    Author author{lesson, 1, [] { return qint64(1); }};
    Pointer pointer{author, 7};
};

} // namespace

TEST_F(PointerTest, strokesFollowThePointer)
{
    take("pencil");
    drag({20, 20}, {60, 20});
    drag({20, 60}, {60, 60});
    ASSERT_EQ(items().size(), 2U);
    EXPECT_EQ(newest().tool, QStringLiteral("pencil"));
    EXPECT_EQ(newest().canvas, QSize(200, 150));
    EXPECT_EQ(newest().acts.size(), 3U); // press, move and release
    EXPECT_EQ(at(40, 20), kRed);
    EXPECT_EQ(at(40, 60), kRed);
    EXPECT_EQ(at(40, 40), kWhite);
}

TEST_F(PointerTest, firstToolIsAPencil)
{
    EXPECT_EQ(pointer.tool(), QStringLiteral("pencil"));
    drag({20, 20}, {60, 20});
    EXPECT_EQ(at(40, 20), 0xFF000000);
}

TEST_F(PointerTest, nothingIsDrawnWithoutAPress)
{
    take("pencil");
    pointer.move({20, 20});
    pointer.move({60, 20});
    pointer.release({60, 20});
    EXPECT_TRUE(items().empty());
    drag({20, 20}, {60, 20});
    pointer.move({60, 60});
    EXPECT_EQ(newest().acts.size(), 3U);
    EXPECT_EQ(author.hand(), nullptr);
}

// A box from (50,50) to (90,90), its frame 10 pixels around it.
TEST_F(PointerTest, pressBesideAShapeOnlyLetsItGo)
{
    take("rectangle");
    drag({50, 50}, {90, 90});
    ASSERT_NE(author.hand(), nullptr);
    drag({70, 70}, {80, 70}); // by its inside
    ASSERT_NE(author.hand(), nullptr);
    EXPECT_EQ(shown(60, 70), kRed);
    EXPECT_EQ(shown(51, 85), kWhite); // where its left side was

    drag({150, 20}, {180, 50});
    EXPECT_EQ(author.hand(), nullptr);
    EXPECT_EQ(items().size(), 1U);
    EXPECT_EQ(at(165, 20), kWhite);
    drag({150, 20}, {180, 50});
    EXPECT_EQ(shown(165, 20), kRed);
}

TEST_F(PointerTest, anotherToolLetsTheShapeGo)
{
    take("rectangle");
    drag({50, 50}, {90, 90});
    EXPECT_EQ(at(50, 70), kWhite);
    pointer.setTool(QStringLiteral("line"));
    EXPECT_EQ(author.hand(), nullptr);
    EXPECT_EQ(at(50, 70), kRed);
}

TEST_F(PointerTest, inkIsOfTheNextObject)
{
    take("rectangle");
    drag({50, 50}, {90, 90});
    pointer.setInk({QColor(0, 0, 255), 8});
    EXPECT_EQ(pointer.ink().width, 8);
    author.finish();
    EXPECT_EQ(at(50, 70), kRed);
    drag({120, 50}, {160, 90});
    EXPECT_EQ(shown(123, 70), 0xFF0000FF);
}

TEST_F(PointerTest, tapOfAnEraserIsOnePoint)
{
    take("pencil", 20);
    drag({20, 20}, {60, 20});
    take("eraser", 8);
    pointer.press({40, 20});
    pointer.move({40, 20});
    pointer.release({40, 20});
    ASSERT_EQ(newest().tool, QStringLiteral("eraser"));
    EXPECT_EQ(newest().acts.size(), 2U); // press and finish
    EXPECT_EQ(at(40, 20), kWhite);
    EXPECT_EQ(at(30, 20), kRed);

    drag({25, 20}, {26, 20});
    EXPECT_EQ(newest().acts.size(), 3U);
}

TEST_F(PointerTest, releaseElsewhereIsNoTap)
{
    take("pencil", 20);
    drag({20, 20}, {60, 20});
    take("eraser", 8);
    pointer.press({40, 20});
    pointer.release({50, 20});
    EXPECT_EQ(newest().acts.size(), 2U); // press and release
    EXPECT_EQ(at(45, 20), kWhite);
}

// The gun of width 3 strews 7 dots each time.
TEST_F(PointerTest, sprayIsScattered)
{
    take("spray-gun", 3);
    pointer.scatter();
    pointer.press({100, 70});
    pointer.scatter();
    pointer.move({110, 70});
    ASSERT_NE(author.hand(), nullptr);
    EXPECT_EQ(author.hand()->life.acts.size(), 22U); // the press, and three times 7
    pointer.release({110, 70});
    EXPECT_EQ(newest().acts.size(), 23U);
    pointer.scatter();
    EXPECT_EQ(newest().acts.size(), 23U);
    EXPECT_EQ(items().size(), 1U);
    for (const Act &act : newest().acts) {
        const QPoint off = std::get<PointerAct>(act).pt - QPoint(105, 70);
        EXPECT_LE(off.manhattanLength(), 16); // at most 6 from either centre
    }
}

TEST_F(PointerTest, sameSeedScattersTheSame)
{
    Lesson copy({{200, 150}, 1});
    Author second(copy, 1, [] { return qint64(1); });
    Pointer same(second, 7), another(second, 8);
    take("spray-gun");
    drag({100, 70}, {110, 70});
    for (Pointer *other : {&same, &another}) {
        other->setTool(QStringLiteral("spray-gun"));
        other->setInk({QColor(kRed), 4});
        other->press({100, 70});
        other->move({110, 70});
        other->release({110, 70});
        const Life life = *copy.life(copy.page(kFirstPage).items().back()->id);
        EXPECT_EQ(std::get<PointerAct>(life.acts[3]).pt == std::get<PointerAct>(newest().acts[3]).pt, other == &same);
    }
}

TEST_F(PointerTest, areaIsPouredWhereItIsPressed)
{
    take("area");
    drag({100, 70}, {110, 70});
    ASSERT_EQ(items().size(), 1U);
    EXPECT_EQ(newest().tool, QStringLiteral("area"));
    EXPECT_EQ(at(5, 5), kRed);
    EXPECT_EQ(author.hand(), nullptr);
}

// The triangle (50,50), (150,50), (100,100), of which the double click places the last corner.
TEST_F(PointerTest, doubleClickCompletesAPolygon)
{
    for (const bool isToldOfThePress : {false, true}) {
        take("polygon");
        drag({50, 50}, {150, 50});
        drag({100, 100}, {100, 100});
        EXPECT_TRUE(author.hand()->isForming());
        if (isToldOfThePress)
            pointer.press({100, 100});
        pointer.doubleClick({100, 100});
        pointer.release({100, 100});
        EXPECT_FALSE(author.hand()->isForming());
        EXPECT_EQ(shown(75, 75), kRed); // the edge that closes it
        author.discard();
    }
}

TEST_F(PointerTest, doubleClickIsTheBeginningOfAStroke)
{
    for (const bool isToldOfThePress : {false, true}) {
        take("pencil");
        drag({20, 20}, {22, 20});
        if (isToldOfThePress)
            pointer.press({22, 20});
        pointer.doubleClick({22, 20});
        pointer.move({22, 80});
        pointer.release({22, 80});
        EXPECT_EQ(newest().acts.size(), 3U); // and no double click
        EXPECT_EQ(at(22, 60), kRed);
    }
    EXPECT_EQ(items().size(), 4U);
}

TEST_F(PointerTest, editedShapeIsNotToldOfADoubleClick)
{
    take("rectangle");
    drag({50, 50}, {90, 90});
    ASSERT_NE(author.hand(), nullptr);
    const std::size_t acts = author.hand()->life.acts.size();
    pointer.doubleClick({70, 70});
    ASSERT_EQ(author.hand()->life.acts.size(), acts + 1);
    EXPECT_EQ(std::get<PointerAct>(author.hand()->life.acts.back()).code, PT_DOWN);
}

// A frame of 121 x 101 pixels from (20,20) on: without the strip of 16 pixels below it, the text has 111 x 75 of them.
TEST_F(PointerTest, textIsWrittenIntoItsFrame)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(20);
    take("text");
    EXPECT_FALSE(pointer.awaitsText());
    pointer.press({20, 20});
    pointer.move({140, 120});
    EXPECT_FALSE(pointer.awaitsText());
    pointer.enterText(QStringLiteral("too early"), font);
    pointer.release({140, 120});
    ASSERT_TRUE(pointer.awaitsText());
    pointer.enterText(QStringLiteral("two words that wrap"), font);
    EXPECT_FALSE(pointer.awaitsText());
    EXPECT_EQ(author.hand(), nullptr);
    ASSERT_EQ(items().size(), 1U);
    EXPECT_EQ(std::get<TextAct>(newest().acts[3]).text, QStringLiteral("two words that wrap"));
    EXPECT_EQ(std::get<TextAct>(newest().acts[3]).image.size(), QSize(111, 75));

    QImage written(111, 75, QImage::Format_ARGB32_Premultiplied);
    written.fill(Qt::transparent);
    {
        QPainter painter(&written);
        painter.setFont(font);
        painter.setPen(QColor(kRed));
        painter.drawText(QRect(0, 0, 111, 75), Qt::TextWordWrap, QStringLiteral("two words that wrap"));
    }
    QImage expected(200, 150, QImage::Format_RGB32);
    expected.fill(Qt::white);
    QPainter(&expected).drawImage(25, 25, exactImage(written));
    EXPECT_EQ(lesson.page(kFirstPage).picture(), expected);
}

TEST_F(PointerTest, frameWithoutTextIsForgotten)
{
    take("text");
    drag({20, 20}, {140, 120});
    pointer.enterText(QString(), QFont());
    EXPECT_EQ(author.hand(), nullptr);
    EXPECT_TRUE(lesson.log().empty());
    pointer.enterText(QStringLiteral("nowhere"), QFont());
    EXPECT_TRUE(lesson.log().empty());
}

TEST_F(PointerTest, unknownToolDrawsNothing)
{
    take("spoon");
    drag({20, 20}, {60, 20});
    pointer.doubleClick({20, 20});
    EXPECT_TRUE(items().empty());
    EXPECT_TRUE(lesson.log().empty());
}

// Fonts need an application.
int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
