#pragma once

// A page that somebody looks at, and what is put on it.

#include "Exact.h"
#include "LessonKit.h"

#include "lesson/pages/Page.h"

#include <gtest/gtest.h>

namespace PageKit {

using namespace InkLesson;

constexpr QRgb kWhite = 0xFFFFFFFF, kRed = 0xFFFF0000, kGreen = 0xFF00FF00, kBlue = 0xFF0000FF;
constexpr ObjectId kFirst{1, 1}, kSecond{1, 2}, kThird{1, 3};

inline std::shared_ptr<Item> itemOf(const ObjectId &id, const Life &life)
{
    LivedObject lived = live(life);
    auto item = std::make_shared<Item>();
    item->id = id;
    item->tool = lived.tool;
    item->isWhole = !lived.tool || lived.tool->takesText;
    item->asked = lived.reach;
    item->object = std::move(lived.object);
    return item;
}

inline std::shared_ptr<Item> blockOf(const ObjectId &id, const QRect &block, QRgb color)
{
    return itemOf(id, blockLife(block, QColor(color)));
}

inline Hand handOf(int author, const Life &life)
{
    return Hand{author, life, live(life).object};
}

// On top of all others, and painted.
inline QRegion putOnTop(Page &page, std::shared_ptr<Item> item)
{
    page.put(std::move(item), page.items().size());
    return page.repaint();
}

class PageTest : public ::testing::Test
{
protected:
    PageTest()
    {
        page.surface(); // somebody looks from the start
    }

    Page page{{200, 150}};

    QRgb shown(int x, int y) const { return page.surface().pixel(x, y); }
    QRgb committed(int x, int y) const { return page.picture().pixel(x, y); }
    QRgb ink(int x, int y) const { return page.ink().pixel(x, y); }

    // As it is when all objects paint themselves anew.
    void expectWhole()
    {
        const QImage picture = page.picture().copy(), inked = page.ink().copy(), surface = page.surface().copy();
        page.keepSprites(false);
        page.setPaper(page.paper());
        EXPECT_EQ(page.repaint(), QRegion(page.rect()));
        page.keepSprites(true);
        EXPECT_TRUE(samePixels(picture, page.picture()));
        EXPECT_TRUE(samePixels(inked, page.ink()));
        EXPECT_TRUE(samePixels(surface, page.surface()));
    }
};

} // namespace PageKit
