// What a page paints again by sprites, and what paints itself.

#include "PageKit.h"

using namespace PageKit;

// The lines meet in the middle; the one that is let go lies on top of all, or below the other.
TEST_F(PageTest, whatIsLetGoOnTopIsPaintedAlone)
{
    const Life life = lineLife({20, 20}, {60, 20}, QColor(255, 0, 0, 100));
    putOnTop(page, itemOf(kFirst, life));
    const Life other = lineLife({40, 10}, {40, 30}, QColor(0, 0, 255, 100));
    putOnTop(page, itemOf(kSecond, other));
    for (const auto &[id, held] : {std::pair(kFirst, life), std::pair(kSecond, other)}) {
        Hand hand = handOf(1, held);
        hand.held = id;
        perform(ReopenAct(), *hand.object);
        page.take(std::move(hand));
        page.drop(1);
        expectWhole();
    }
}

// Of one pixel it has none: its pieces are painted one over the other.
TEST_F(PageTest, whatPaintsNoPixelTwiceHasASprite)
{
    Life life = lineLife({20, 20}, {60, 20}, QColor(kRed));
    const auto hasSprite = [&](const ObjectId &id) {
        putOnTop(page, itemOf(id, life));
        return bool(page.item(id)->sprite);
    };
    EXPECT_TRUE(hasSprite(kFirst));
    life.ink.width = 2;
    EXPECT_TRUE(hasSprite(kSecond));
    life.ink.width = 1;
    EXPECT_FALSE(hasSprite(kThird));
    life.ink.width = 4;
    for (const char *tool : {"ellipse-label", "cloud-label", "eraser", "text"}) {
        life.tool = QLatin1String(tool);
        EXPECT_FALSE(hasSprite({2, life.ink.width++})) << tool;
    }
    EXPECT_EQ(page.item(kFirst)->sprite->rect(), QRect(18, 18, 44, 4));
    page.keepSprites(false);
    EXPECT_FALSE(page.item(kFirst)->sprite);
    life.tool = QStringLiteral("line");
    EXPECT_FALSE(hasSprite({2, 1}));
}

// The pixels that a pen has rendered are given back, and come back when somebody wants the object.
TEST_F(PageTest, aSpriteReplacesTheObjectsOwnPixels)
{
    Life life = lineLife({20, 20}, {60, 20}, QColor(kRed));
    life.tool = QStringLiteral("color-brush");
    page.relive = [life](const ObjectId &) { return live(life).object; };
    putOnTop(page, itemOf(kFirst, life));
    Item &item = *page.items().front();
    EXPECT_EQ(item.object->m_pImage, nullptr);
    const QImage painted = page.ink().copy();
    EXPECT_EQ(page.topmostAt({40, 20}), kFirst);
    EXPECT_EQ(page.topmostAt({40, 27}), kNothing);
    EXPECT_EQ(item.object->m_pImage, nullptr);
    EXPECT_TRUE(page.grow({200, 160}));
    page.repaint();
    EXPECT_TRUE(samePixels(page.ink().copy(0, 0, 200, 150), painted));
    EXPECT_EQ(item.object->m_pImage, nullptr);
    page.keepSprites(false);
    page.setPaper({});
    page.repaint();
    EXPECT_NE(item.object->m_pImage, nullptr);
    EXPECT_TRUE(samePixels(page.ink().copy(0, 0, 200, 150), painted));
}

TEST_F(PageTest, withoutAWayBackTheObjectKeepsItsPixels)
{
    Life life = lineLife({20, 20}, {60, 20}, QColor(kRed));
    life.tool = QStringLiteral("color-brush");
    putOnTop(page, itemOf(kFirst, life));
    EXPECT_TRUE(page.item(kFirst)->sprite);
    EXPECT_NE(page.items().front()->object->m_pImage, nullptr);
}

// Ahead of the first painting, when there are no pixels yet.
TEST(Page, whatTakesLongestIsDoneAhead)
{
    Page page({200, 150});
    page.put(itemOf(kFirst, lineLife({20, 20}, {60, 20}, QColor(kRed))), 9);
    page.put(blockOf(kSecond, {40, 30, 10, 10}, kGreen), 9);
    std::vector<double> told;
    page.prepare([&told](double share) { told.push_back(share); });
    EXPECT_EQ(told, std::vector<double>{1});
    EXPECT_TRUE(page.item(kFirst)->sprite);
    EXPECT_FALSE(page.item(kSecond)->sprite);
    EXPECT_FALSE(page.isPainted());
    EXPECT_EQ(page.picture().pixel(40, 20), kRed);
    EXPECT_EQ(page.picture().pixel(45, 35), kGreen);
}

// A few at a time, while there is something else to be done in between.
TEST(Page, isPreparedPieceByPiece)
{
    Page page({200, 150});
    for (const ObjectId &id : {kFirst, kSecond, kThird})
        page.put(itemOf(id, lineLife({20, 20}, {60, 20}, QColor(kRed))), 9);
    EXPECT_TRUE(page.prepareNext(2));
    EXPECT_TRUE(page.item(kSecond)->sprite);
    EXPECT_FALSE(page.item(kThird)->sprite);
    page.remove(kFirst);
    page.remove(kSecond);
    EXPECT_FALSE(page.prepareNext(2));
    page.put(itemOf(kFirst, lineLife({20, 20}, {60, 20}, QColor(kRed))), 9);
    EXPECT_FALSE(page.prepareNext(1));
    EXPECT_TRUE(page.item(kFirst)->sprite);
    EXPECT_FALSE(page.item(kThird)->sprite); // it was passed over, and waits until it is painted
    page.grow({260, 150});
    EXPECT_TRUE(page.prepareNext(1)); // all anew
    EXPECT_TRUE(page.item(kThird)->sprite);
}

// What has been away while the page grew reaches as far as the page does now.
TEST_F(PageTest, aSpriteOfASmallerPageIsNoneAnyMore)
{
    putOnTop(page, itemOf(kFirst, lineLife({150, 20}, {230, 20}, QColor(kRed))));
    EXPECT_EQ(page.item(kFirst)->sprite->rect(), QRect(148, 18, 52, 4));
    std::shared_ptr<Item> item = page.remove(kFirst);
    EXPECT_TRUE(page.grow({260, 150}));
    putOnTop(page, std::move(item));
    EXPECT_EQ(page.item(kFirst)->sprite->rect(), QRect(148, 18, 84, 4));
    EXPECT_EQ(committed(220, 20), kRed);
}
