// The one loop that every event runs over every point of a stroke. At 50 000 points it is most of what an event costs,
// so it takes three steps a point (least, greatest, sum) and nothing else.

#include "pens/culled_p.h"

#include <cmath>

using namespace InkInternal;

InkInternal::BlockScan InkInternal::scanBlocks(const QPointF *points, int blocks, const Box &clip)
{
    BlockScan scan;
    Box bounds{load(*points), load(*points)};
    Pair sum[2] = {}; // of all coordinates: finite where they all are
    for (int block = 0; block < blocks; ++block, points += kBlock) {
        const Pair first = load(points[kBlock]);
        Box even{first, first};
        Box odd = even;
        for (int i = 0; i < kBlock; i += 2) {
            const Pair a = load(points[i]);
            const Pair b = load(points[i + 1]);
            even = {least(even.low, a), greatest(even.high, a)};
            odd = {least(odd.low, b), greatest(odd.high, b)};
            sum[i / 2 % 2] += a + b;
        }
        const Box box = united(even, odd);
        bounds = united(bounds, box);
        if (meets(box, clip))
            scan.met.append(block);
    }
    const Pair total = sum[0] + sum[1] + load(*points);
    scan.isFinite = std::isfinite(total[0] + total[1]);
    scan.bounds = bounds;
    return scan;
}

#ifdef __x86_64__
// Two points in a register. Helpers would pass it the way that other code for the CPU does not.
__attribute__((target("avx2"))) InkInternal::BlockScan InkInternal::scanBlocksWithAvx2(const QPointF *points,
                                                                                       int blocks, const Box &clip)
{
    using Quad = double __attribute__((vector_size(32)));
    struct __attribute__((packed, may_alias)) Stored // at any address
    {
        Quad quad;
    };
    constexpr int kQuads = kBlock / 2;

    BlockScan scan;
    Box bounds{load(*points), load(*points)};
    Quad sums[2] = {};
    for (int block = 0; block < blocks; ++block, points += kBlock) {
        const Stored *quads = reinterpret_cast<const Stored *>(points);
        Quad low = quads[0].quad;
        Quad high = quads[0].quad;
        for (int i = 1; i < kQuads; ++i) {
            low = quads[i].quad < low ? quads[i].quad : low;
            high = quads[i].quad > high ? quads[i].quad : high;
        }
        for (int i = 0; i < kQuads; i += 4) {
            sums[0] += quads[i].quad + quads[i + 1].quad;
            sums[1] += quads[i + 2].quad + quads[i + 3].quad;
        }
        const Pair last = load(points[kBlock]);
        const Box box{least(least(Pair{low[0], low[1]}, Pair{low[2], low[3]}), last),
                      greatest(greatest(Pair{high[0], high[1]}, Pair{high[2], high[3]}), last)};
        bounds = united(bounds, box);
        if (meets(box, clip))
            scan.met.append(block);
    }
    const Quad sum = sums[0] + sums[1];
    const Pair last = load(*points);
    scan.isFinite = std::isfinite(sum[0] + sum[1] + sum[2] + sum[3] + last[0] + last[1]);
    scan.bounds = bounds;
    return scan;
}
#endif
