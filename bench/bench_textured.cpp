// The textured pens and the spray: the first Draw, the events after it, what a stroke takes up, and a finished spray.

#include "Bench.h"
#include "LiteralTextured.h"
#include "Strokes.h"

#include <functional>
#include <memory>
#include <type_traits>

using namespace Bench;

namespace {

constexpr int kWidth = 20;
constexpr int kShortStroke = 60; // points

template <typename Pen>
std::unique_ptr<Pen> begun(const QVector<QPoint> &points)
{
    auto pen = std::make_unique<Pen>(kCanvas);
    pen->SetWidth(kWidth);
    pen->SetColor(Qt::darkRed);
    QRect ignored;
    for (int i = 0; i < points.size(); ++i)
        pen->AddPoint(i == 0 ? PT_DOWN : PT_MOVE, points.at(i), ignored);
    return pen;
}

template <typename Pen>
void drawLiterally(Pen &pen, Literal::Texture &texture, QPainter &painter, const QRect &rect)
{
    Literal::draw(pen, texture, painter, rect);
    if constexpr (std::is_same_v<Pen, CInkSprayGun>)
        pen.m_rcDirty = QRect(); // which its own Draw resets
}

// Feeds a position and paints what it reports, with the library or literally.
template <typename Pen>
void event(Pen &pen, Literal::Texture *texture, QPainter &painter, const QPoint &position)
{
    QRect update;
    pen.AddPoint(PT_MOVE, position, update);
    if (texture)
        drawLiterally(pen, *texture, painter, update);
    else
        pen.Draw(painter, update);
}

template <typename Pen>
bool strokesAreAlike()
{
    const QVector<QPoint> points = writing(kShortStroke);
    const auto ours = begun<Pen>(points.mid(0, 2));
    const auto plain = begun<Pen>(points.mid(0, 2));
    Literal::Texture texture(kCanvas);
    QImage a = canvas();
    QImage b = canvas();
    QPainter onA(&a), onB(&b);
    for (const QPoint &point : points) {
        event(*ours, nullptr, onA, point);
        event(*plain, &texture, onB, point);
    }
    QRect all(QPoint(), kCanvas);
    ours->Draw(onA, all);
    Literal::draw(*plain, texture, onB, all);
    return a == b && a != canvas();
}

// From a stroke that was never painted to one that is.
template <typename Pen>
void firstDraw(benchmark::State &state, bool isLiteral)
{
    QImage image = canvas();
    QPainter painter(&image);
    const QVector<QPoint> points = writing(6);
    std::unique_ptr<Pen> pen;
    std::unique_ptr<Literal::Texture> texture;
    QRect newest;
    timeAfter(
        state,
        [&] {
            texture.reset();
            pen = begun<Pen>(points);
            newest = pen->GetUpdateRect();
        },
        [&] {
            if (isLiteral) {
                texture = std::make_unique<Literal::Texture>(kCanvas);
                drawLiterally(*pen, *texture, painter, newest);
            } else {
                pen->Draw(painter, newest);
            }
        });
}

// One event after the other, on and on across the canvas.
template <typename Pen>
void events(benchmark::State &state, bool isLiteral)
{
    QImage image = canvas();
    QPainter painter(&image);
    const QVector<QPoint> points = writing(20'000);
    const auto pen = begun<Pen>(points.mid(0, 2));
    std::unique_ptr<Literal::Texture> texture;
    if (isLiteral)
        texture = std::make_unique<Literal::Texture>(kCanvas);
    event(*pen, texture.get(), painter, points.at(2));
    int i = 2;
    timeEach(state, [&] { event(*pen, texture.get(), painter, points.at(++i % points.size())); });
}

// Memory in use, in bytes.
qint64 memoryInUse()
{
    QFile file("/proc/self/statm");
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() * 4096 : 0;
}

template <typename Pen>
void memory(benchmark::State &state, bool isLiteral)
{
    QImage image = canvas();
    QPainter painter(&image);
    const QVector<QPoint> points = writing(kShortStroke);
    begun<Pen>(points);
    for (auto iteration : state) {
        const qint64 before = memoryInUse();
        const auto pen = begun<Pen>(points.mid(0, 2));
        std::unique_ptr<Literal::Texture> texture;
        if (isLiteral)
            texture = std::make_unique<Literal::Texture>(kCanvas);
        for (const QPoint &point : points)
            event(*pen, texture.get(), painter, point);
        state.counters["bytes"] = double(memoryInUse() - before);
    }
}

template <typename Pen>
void registerPen(const std::string &pen)
{
    const struct
    {
        const char *what;
        void (*run)(benchmark::State &, bool);
        bool isManual;
        bool isOnce;
    } rows[] = {{"first", firstDraw<Pen>, true, false},
                {"event", events<Pen>, false, false},
                {"memory", memory<Pen>, false, true}};
    for (const auto &row : rows) {
        for (const bool isLiteral : {false, true}) {
            const std::string name = pen + '/' + row.what;
            auto *made = benchmark::RegisterBenchmark(nameOf(name, isLiteral ? "literal" : "ours", 0).c_str(),
                                                      [=](benchmark::State &state) {
                                                          if (isExact(state, pen, strokesAreAlike<Pen>))
                                                              row.run(state, isLiteral);
                                                      });
            if (row.isManual)
                made->UseManualTime();
            if (row.isOnce)
                made->Iterations(1);
        }
    }
}

// A spray that was released repaints all of the canvas.
std::unique_ptr<CInkSprayGun> finishedSpray()
{
    QVector<QPoint> dots;
    for (int i = 0; i < 2'000; ++i)
        dots.append({1500 + i * 37 % 301, 900 + i * 91 % 307});
    auto spray = begun<CInkSprayGun>(dots);
    QRect ignored;
    spray->AddPoint(PT_UP, dots.first(), ignored);
    return spray;
}

void finished(benchmark::State &state, bool isLiteral)
{
    const auto spray = finishedSpray();
    QRect all(QPoint(), kCanvas);
    Literal::Texture texture(kCanvas);
    QImage a = canvas();
    QImage b = canvas();
    QPainter onA(&a), onB(&b);
    Literal::draw(*spray, texture, onB, all);
    spray->Draw(onA, all);
    if (!isExact(state, "spray/finished", [&] { return a == b && a != canvas(); }))
        return;
    timeEach(state, [&] {
        if (isLiteral)
            Literal::draw(*spray, texture, onB, all);
        else
            spray->Draw(onA, all);
    });
}

} // namespace

void Bench::registerTextured()
{
    registerPen<CInkColorBrush>("color-brush");
    registerPen<CInkCrayon>("crayon");
    registerPen<CInkSprayGun>("spray");
    for (const bool isLiteral : {false, true})
        benchmark::RegisterBenchmark(nameOf("spray/finished", isLiteral ? "literal" : "ours", 0).c_str(),
                                     [=](benchmark::State &state) { finished(state, isLiteral); });
}
