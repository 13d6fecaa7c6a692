#pragma once

// What the benchmarks share: the canvas, a comparison before the clock runs, and a clock that leaves preparation out.

#include <benchmark/benchmark.h>

#include <QtGui/QColor>
#include <QtGui/QImage>

#include <ctime>
#include <map>
#include <string>

namespace Bench {

constexpr QSize kCanvas{3840, 2160};

// One file, one function; main() calls them all.
void registerStrokes();
void registerPeers();
void registerTextured();
void registerPage();
void registerFills();

inline QImage canvas(const QColor &color = Qt::white, QImage::Format format = QImage::Format_ARGB32_Premultiplied)
{
    QImage image(kCanvas, format);
    image.fill(color);
    return image;
}

// "scene/form/points"
inline std::string nameOf(const std::string &scene, const std::string &form, int points)
{
    return scene + '/' + form + '/' + std::to_string(points);
}

// Ends a benchmark whose form does not paint the pixels of the literal one. `agree()` is asked once for each `what`.
template <typename Agree>
bool isExact(benchmark::State &state, const std::string &what, const Agree &agree)
{
    static std::map<std::string, bool> known;
    auto found = known.find(what);
    if (found == known.end())
        found = known.emplace(what, agree()).first;
    if (!found->second)
        state.SkipWithError("the pixels differ from the literal form's");
    return found->second;
}

// The processor time of this thread, in seconds.
inline double threadSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

// Times `run()` alone; the benchmark is registered with UseManualTime().
template <typename Prepare, typename Run>
void timeAfter(benchmark::State &state, const Prepare &prepare, const Run &run)
{
    for (auto iteration : state) {
        prepare();
        const double begin = threadSeconds();
        run();
        state.SetIterationTime(threadSeconds() - begin);
    }
}

template <typename Run>
void timeEach(benchmark::State &state, const Run &run)
{
    for (auto iteration : state)
        run();
}

} // namespace Bench
