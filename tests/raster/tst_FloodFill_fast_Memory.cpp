// What a fill takes from the heap while it runs.

#include "CInkFloodFill.h"
#include "Canvas.h"

#include <gtest/gtest.h>

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <random>

namespace {

std::size_t s_now = 0;
std::size_t s_peak = 0;

void *take(std::size_t size)
{
    void *memory = std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    s_now += malloc_usable_size(memory);
    s_peak = std::max(s_peak, s_now);
    return memory;
}

void give(void *memory)
{
    s_now -= memory ? malloc_usable_size(memory) : 0;
    std::free(memory);
}

} // namespace

void *operator new(std::size_t size)
{
    return take(size);
}

void *operator new[](std::size_t size)
{
    return take(size);
}

void operator delete(void *memory) noexcept
{
    give(memory);
}

void operator delete[](void *memory) noexcept
{
    give(memory);
}

void operator delete(void *memory, std::size_t /*size*/) noexcept
{
    give(memory);
}

void operator delete[](void *memory, std::size_t /*size*/) noexcept
{
    give(memory);
}

TEST(FloodFillFastMemory, isATenthOfAListOfAllPositions)
{
    constexpr std::size_t kList = (std::size_t(1920) * 1080 + 1) * 8; // two ints for each pixel, and one more
    for (const int wallsInAHundred : {0, 5, 30, 40}) {
        SCOPED_TRACE(wallsInAHundred);
        std::mt19937 random(3);
        QImage page(1920, 1080, QImage::Format_RGB32);
        page.fill(Qt::white);
        for (int y = 1; y < page.height(); ++y) {
            auto *row = reinterpret_cast<QRgb *>(page.scanLine(y));
            for (int x = 0; x < page.width(); ++x)
                row[x] = int(random() % 100) < wallsInAHundred ? 0xff000000U : 0xffffffffU;
        }
        CInkFloodFill fill(page.size());
        fill.SetColor(Qt::red);
        fill.m_pImage = new QImage(page.size(), QImage::Format_ARGB32);
        fill.m_pImage->fill(0);
        QPainter painter(&page);
        const std::size_t before = s_peak = s_now;
        fill.FormFloodFillBmp(painter);
        EXPECT_EQ(fill.m_bFilled, 1);
        EXPECT_EQ(fill.m_rcFillBounds.bottom(), 1079);
        EXPECT_EQ(s_now, before);
        EXPECT_GT(s_peak - before, 1920U * 1080 / 8); // the counting works
        EXPECT_LE(s_peak - before, kList / 10);
    }
}
