// The pixels that textured pens are lent while what they paint is noted.

#include "PageKit.h"

#include "lesson/objects/Tools.h"

#include "CInkColorBrush.h"

#include <algorithm>
#include <limits>

using namespace PageKit;

namespace {

constexpr QSize kSize(400, 100);
const QRect kAll(QPoint(), kSize);

Life brushLife(const QPoint &from, const QPoint &to, int width = 4)
{
    Life life = lineLife(from, to, QColor(kRed));
    life.ink.width = width;
    life.tool = QStringLiteral("color-brush");
    life.canvas = kSize;
    return life;
}

std::unique_ptr<CInkColorBrush> brush(const QPoint &from, const QPoint &to, int width = 4)
{
    return std::unique_ptr<CInkColorBrush>(
        static_cast<CInkColorBrush *>(live(brushLife(from, to, width)).object.release()));
}

std::shared_ptr<const Sprite> spriteOf(Sketch &sketch, CInkPenGraph &pen)
{
    return sketch.spriteOfPen(pen, kAll, kAll, kSize);
}

QImage painted(const Sprite &sprite)
{
    QImage page(kSize, QImage::Format_RGB32), ink(kSize, QImage::Format_ARGB32_Premultiplied);
    page.fill(Qt::white);
    ink.fill(Qt::transparent);
    sprite.paint(PixelRows(page), PixelRows(ink), kAll);
    return ink;
}

QImage paintedAlone(const QPoint &from, const QPoint &to)
{
    Sketch sketch;
    const auto pen = brush(from, to);
    return painted(*sketch.spriteOf(*pen, kAll, kAll, kSize));
}

} // namespace

// The second crosses the first.
TEST(Sketch, aPenFindsNothingOfTheOneBefore)
{
    Sketch sketch;
    const auto first = brush({20, 20}, {60, 60}), second = brush({60, 20}, {20, 60});
    EXPECT_TRUE(samePixels(painted(*spriteOf(sketch, *first)), paintedAlone({20, 20}, {60, 60})));
    EXPECT_EQ(first->m_pImage, nullptr);
    EXPECT_TRUE(samePixels(painted(*spriteOf(sketch, *second)), paintedAlone({60, 20}, {20, 60})));
    EXPECT_EQ(second->m_pImage, nullptr);
}

// The second lies where a smaller page has no pixels.
TEST(Sketch, pagesOfSeveralSizesAreSketched)
{
    constexpr QSize kLarge(1000, 400);
    Sketch sketch;
    const auto first = brush({20, 20}, {60, 60});
    EXPECT_TRUE(sketch.spriteOf(*first, kAll, kAll, kSize)->paintsIn({20, 20, 41, 41}));
    Life life = brushLife({900, 380}, {960, 340});
    life.canvas = kLarge;
    const auto second = live(life).object;
    const auto sprite = sketch.spriteOf(*second, QRect(QPoint(), kLarge), {880, 320, 120, 80}, kLarge);
    EXPECT_TRUE(sprite->paintsIn({900, 370, 11, 11}));
    EXPECT_FALSE(sprite->paintsIn({0, 0, 890, 400}));
    EXPECT_TRUE(samePixels(painted(*sketch.spriteOf(*first, kAll, kAll, kSize)), paintedAlone({20, 20}, {60, 60})));
}

// At every edge, and of every tool that renders.
TEST(Sketch, whatIsRenderedIsWipedToItsEdges)
{
    for (const Tool &tool : tools()) {
        if (!tool.rendersInto)
            continue;
        for (const auto &[from, to] :
             {std::pair(QPoint(0, 0), QPoint(399, 99)), std::pair(QPoint(-30, 50), QPoint(500, 50)),
              std::pair(QPoint(399, 0), QPoint(399, 99)), std::pair(QPoint(50, 50), QPoint(50, 51))}) {
            Sketch sketch;
            Life life = brushLife(from, to, 20);
            life.tool = QLatin1String(tool.name);
            for (int i = 0; i < 2; ++i) {
                const auto object = live(life).object;
                delete std::exchange(object->m_pImage, nullptr);
                auto &pen = static_cast<CInkPenGraph &>(*object);
                pen.m_nDrawnCount = 0;
                const auto sprite = spriteOf(sketch, pen);
                ASSERT_TRUE(sprite) << tool.name;
                pen.m_nDrawnCount = 0;
                Sketch fresh;
                EXPECT_TRUE(samePixels(painted(*sprite), painted(*fresh.spriteOf(pen, kAll, kAll, kSize))))
                    << tool.name;
            }
        }
    }
}

TEST(Sketch, aPointThatIsNoNumberIsWipedToo)
{
    Sketch sketch;
    const auto odd = brush({20, 20}, {60, 60}), second = brush({60, 20}, {20, 60});
    odd->m_graphData[0].setX(std::numeric_limits<double>::quiet_NaN());
    spriteOf(sketch, *odd);
    EXPECT_TRUE(samePixels(painted(*spriteOf(sketch, *second)), paintedAlone({60, 20}, {20, 60})));
}

// Some ten thousand pixels of many colours: without a sprite the pen paints itself, from what it has rendered.
TEST(Sketch, aPenThatIsTooRichKeepsWhatItHasRendered)
{
    constexpr QSize kLarge(1000, 400);
    const QRect all(QPoint(), kLarge);
    Life life = brushLife({150, 200}, {850, 200}, 200);
    life.canvas = kLarge;
    const auto object = live(life).object;
    auto &pen = static_cast<CInkPenGraph &>(*object);
    Sketch sketch;
    EXPECT_FALSE(sketch.spriteOfPen(pen, all, all, kLarge));
    ASSERT_NE(pen.m_pImage, nullptr);
    EXPECT_NE(qAlpha(pen.m_pImage->pixel(500, 200)), 0);
    life = brushLife({150, 200}, {160, 200});
    life.canvas = kLarge;
    const auto other = live(life).object;
    const auto sprite = sketch.spriteOfPen(static_cast<CInkPenGraph &>(*other), all, all, kLarge);
    ASSERT_TRUE(sprite);
    EXPECT_FALSE(sprite->paintsIn(QRect(400, 150, 200, 100)));
}

// A page that knows how to give objects anew lends them pixels; where a page is larger than it was, the object's own
// are not those.
TEST_F(PageTest, pensOfAPageAreLentPixels)
{
    Life life = lineLife({20, 20}, {60, 20}, QColor(kRed));
    life.tool = QStringLiteral("color-brush");
    const Life crossing = [&life] {
        Life other = life;
        other.acts = lineLife({40, 10}, {40, 40}, QColor(kRed)).acts;
        return other;
    }();
    page.relive = [&](const ObjectId &id) { return live(id == kFirst ? life : crossing).object; };
    page.put(itemOf(kFirst, life), 0);
    page.put(itemOf(kSecond, crossing), 1);
    page.prepare([](double) {});
    page.repaint();
    for (const auto &item : page.items()) {
        EXPECT_TRUE(item->isBare);
        EXPECT_EQ(item->object->m_pImage, nullptr);
    }
    expectWhole();
    EXPECT_TRUE(page.grow({200, 160}));
    page.prepare([](double) {});
    page.repaint();
    expectWhole();
}

// Sprites of one page take 48 MiB at most. A pen that was lent pixels beyond that has none, and is made anew to paint
// itself.
TEST(Page, pensForWhichThereIsNoRoomAreMadeAnew)
{
    const QSize wide(1000, 100);
    constexpr std::size_t kPens = 300; // of some 200 kB each
    Page page(wide);
    const auto lifeOf = [&wide](int number) {
        Life life = brushLife({50, 40 + number % 20}, {950, 60 - number % 20}, 64);
        life.ink.color = QColor::fromHsv(number, 255, 200);
        life.canvas = wide;
        return life;
    };
    page.relive = [&](const ObjectId &id) { return live(lifeOf(id.number)).object; };
    for (std::size_t i = 0; i < kPens; ++i)
        page.put(itemOf({1, int(i) + 1}, lifeOf(int(i) + 1)), i);
    page.prepare([](double) {});
    const auto hasSprite = [](const auto &item) { return bool(item->sprite); };
    const auto first = std::find_if_not(page.items().begin(), page.items().end(), hasSprite);
    ASSERT_NE(first, page.items().begin());
    ASSERT_NE(first, page.items().end());
    EXPECT_TRUE((*first)->isBare);
    const QImage picture = page.picture().copy();
    page.keepSprites(false);
    page.spoil();
    page.repaint();
    EXPECT_TRUE(samePixels(page.picture(), picture));
}
