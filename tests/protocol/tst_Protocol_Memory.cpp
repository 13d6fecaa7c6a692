// What every tool allocates: nothing is left of its life, and a committed object holds no more than its row says.

#include "Allocations.h"
#include "Lives.h"
#include "Protocol.h"

#include <memory>

namespace {

constexpr int kLives = 10000;
constexpr int kWarmUp = 100; // Qt keeps gradients, engines and buffers of its own

// The C library rounds blocks as its heap happens to lie, so a buffer that Qt gets anew may be a few bytes larger. A
// leak shows in the number of blocks.
constexpr long long kSlack = 1024;

} // namespace

INK_OVER_ALL_TOOLS;

TEST_P(Protocol, tenThousandLivesLeaveNothing)
{
    const Silence silence;
    OpenLayers layers({32, 24});
    for (int life = 0; life < kWarmUp; ++life)
        live(GetParam(), layers, life);
    const Allocations before = Allocations::alive();
    for (int life = 0; life < kLives; ++life)
        live(GetParam(), layers, life);
    const Allocations after = Allocations::alive();
    EXPECT_EQ(after.blocks, before.blocks);
    EXPECT_LE(after.bytes - before.bytes, kSlack);
}

TEST_P(Protocol, committedObjectHoldsNoMoreThanItsBoundAndGivesItBack)
{
    constexpr QSize canvas(1000, 1000);
    const Silence silence;
    OpenLayers layers(canvas);
    const auto held = [&] {
        const Allocations before = Allocations::alive();
        const Graph object = make();
        object->SetCanvasSize(canvas);
        object->SetColor(QColor(200, 0, 0));
        feed(*object, PT_DOWN, 100, 100);
        feed(*object, PT_MOVE, 190, 130);
        feed(*object, PT_UP, 200, 160);
        object->FinishGraph();
        if (GetParam().handOver)
            GetParam().handOver(*object);
        layers.draw(GetParam(), *object);
        return Allocations::alive().bytes - before.bytes;
    };
    // One of 1000 x 1000 pixels, with the rounding to whole pages and the spare page at each end.
    constexpr long long kImage = 4'000'000 + 3 * 4096;
    held(); // what Qt makes at its first use is not the object's
    const long long bound = GetParam().heldImages * kImage + static_cast<long long>(GetParam().heldBytes);
    const Allocations before = Allocations::alive();
    const long long bytes = held();
    const Allocations after = Allocations::alive();
    EXPECT_LE(bytes, bound);
    EXPECT_GT(bytes, 0);
    EXPECT_EQ(after.blocks, before.blocks);
    EXPECT_LE(after.bytes - before.bytes, kSlack);
}

TEST(Allocations, areCounted)
{
    const Allocations before = Allocations::alive();
    auto image = std::make_unique<QImage>(100, 100, QImage::Format_ARGB32);
    const Allocations during = Allocations::alive();
    EXPECT_GE(during.bytes - before.bytes, 40000);
    EXPECT_GE(during.blocks - before.blocks, 2);
    image.reset();
    EXPECT_EQ(Allocations::alive().bytes, before.bytes);
    EXPECT_EQ(Allocations::alive().blocks, before.blocks);
}
