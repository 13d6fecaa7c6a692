// A fill of the page and of its own bitmap, against the literal form and against another library's fill with a copy.

#include "CInkFloodFill.h"
#include "LiteralFill.h"
#include "Pages.h"

#ifdef INK_BENCH_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

#include <fstream>

using namespace Bench;

namespace {

constexpr struct
{
    const char *name;
    QImage (*make)();
} kScenes[] = {{"empty", emptyPage}, {"written", writtenPage}, {"small", smallRegion},
               {"comb", comb},       {"spiral", spiral},       {"maze", maze}};

constexpr struct
{
    const char *name;
    QImage::Format format;
} kLayers[] = {{"premultiplied", QImage::Format_ARGB32_Premultiplied},
               {"argb32", QImage::Format_ARGB32},
               {"rgb32", QImage::Format_RGB32}};

enum class Form { Ours, Literal, Peer };

// Made once; some take longer than their fills.
QImage pageOf(QImage (*scene)(), QImage::Format format)
{
    static std::map<QImage (*)(), QImage> pages;
    auto found = pages.find(scene);
    if (found == pages.end())
        found = pages.emplace(scene, scene()).first;
    return found->second.convertToFormat(format);
}

// A page that is filled again and again, and the bitmap that mirrors it.
class Filling
{
public:
    Filling(QImage (*scene)(), QImage::Format format)
        : m_original(pageOf(scene, format))
        , m_page(m_original.copy())
    {
        QRect ignored;
        m_fill.SetColor(QColor(200, 30, 60));
        m_fill.AddPoint(PT_DOWN, kSeed, ignored);
        m_fill.m_pImage = new QImage(kCanvas, QImage::Format_ARGB32);
        reset();
    }

    // As before the first fill; all pages are real.
    void reset()
    {
        std::copy(m_original.constBits(), m_original.constBits() + m_original.sizeInBytes(), m_page.bits());
        m_fill.m_pImage->fill(0);
    }

    void run(Form form)
    {
        if (form == Form::Ours) {
            QPainter painter(&m_page);
            m_fill.FormFloodFillBmp(painter);
        } else if (form == Form::Literal) {
            literalFill(m_fill, m_page);
        } else {
            runPeer();
        }
    }

    QImage page() const { return m_page.copy(); }
    QImage bitmap() const { return m_fill.m_pImage->copy(); }

private:
    // The words of the pixels are compared as they are; the bitmap is a copy of the page.
    void runPeer()
    {
#ifdef INK_BENCH_OPENCV
        cv::Mat page(m_page.height(), m_page.width(), CV_32SC1, m_page.bits(), size_t(m_page.bytesPerLine()));
        QImage &bitmap = *m_fill.m_pImage;
        cv::Mat mirror(bitmap.height(), bitmap.width(), CV_32SC1, bitmap.bits(), size_t(bitmap.bytesPerLine()));
        cv::floodFill(page, cv::Point(kSeed.x(), kSeed.y()), cv::Scalar(int(m_fill.m_color.rgb())));
        page.copyTo(mirror);
#endif
    }

    CInkFloodFill m_fill{kCanvas};
    QImage m_original, m_page;
};

// Ours fills what the literal form fills; the peer's page must be the same, its bitmap is the whole page.
bool fillsAlike(QImage (*scene)(), QImage::Format format, Form form)
{
    Filling ours(scene, format);
    Filling literal(scene, format);
    const QImage before = ours.page();
    ours.run(form);
    literal.run(Form::Literal);
    return ours.page() == literal.page() && ours.page() != before &&
           (form == Form::Peer || ours.bitmap() == literal.bitmap());
}

void registerFill(const char *scene, QImage (*make)(), const char *layer, QImage::Format format, Form form,
                  const char *formName)
{
    const std::string name = std::string("fill/") + scene + '/' + layer;
    auto *made = benchmark::RegisterBenchmark(nameOf(name, formName, 0).c_str(), [=](benchmark::State &state) {
        if (form != Form::Literal && !isExact(state, name + formName, [&] { return fillsAlike(make, format, form); }))
            return;
        Filling filling(make, format);
        timeAfter(
            state, [&] { filling.reset(); }, [&] { filling.run(form); });
    });
    made->UseManualTime();
    if (form == Form::Literal)
        made->Iterations(1); // up to a second each
}

// The largest memory in use since the last call, in bytes.
double peakMemory()
{
    std::ifstream status("/proc/self/status");
    double peak = 0;
    for (std::string word; status >> word;) {
        if (word == "VmHWM:")
            status >> peak;
    }
    std::ofstream("/proc/self/clear_refs") << 5;
    return peak * 1024;
}

// What a fill takes beside page and bitmap. The literal form's list has a place of two ints for every pixel.
void memory(benchmark::State &state, bool isLiteral)
{
    for (auto iteration : state) {
        if (isLiteral) {
            state.counters["bytes"] = 8.0 * (double(kCanvas.width()) * kCanvas.height() + 1);
            continue;
        }
        double largest = 0;
        for (const auto &scene : kScenes) {
            Filling filling(scene.make, QImage::Format_ARGB32_Premultiplied);
            peakMemory();
            const double before = peakMemory();
            filling.run(Form::Ours);
            largest = std::max(largest, peakMemory() - before);
        }
        state.counters["bytes"] = largest;
    }
}

} // namespace

void Bench::registerFills()
{
    for (const auto &scene : kScenes) {
        for (const auto &layer : kLayers) {
            registerFill(scene.name, scene.make, layer.name, layer.format, Form::Ours, "ours");
            registerFill(scene.name, scene.make, layer.name, layer.format, Form::Literal, "literal");
#ifdef INK_BENCH_OPENCV
            registerFill(scene.name, scene.make, layer.name, layer.format, Form::Peer, "opencv");
#endif
        }
    }
    for (const bool isLiteral : {false, true})
        benchmark::RegisterBenchmark(nameOf("fill/memory", isLiteral ? "literal" : "ours", 0).c_str(),
                                     [=](benchmark::State &state) { memory(state, isLiteral); })
            ->Iterations(1);
}
