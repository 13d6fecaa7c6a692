// Live events and whole strokes of the pens and the eraser, against their literal form and against a bare drawPath.

#include "CInkEraser.h"
#include "CInkHighLightPen.h"
#include "Live.h"

#include <memory>

using namespace Bench;

namespace {

const QColor kOpaque(20, 40, 160);
const QColor kTranslucent(20, 40, 160, 120);

// Paints the points of a stroke in its plainest form; the clip is set.
using PaintLiterally = void (*)(QPainter &painter, const QVector<QPointF> &points, const QColor &color);

void literalPencil(QPainter &painter, const QVector<QPointF> &points, const QColor &color)
{
    Literal::paintPencil(painter, points, kPencilWidth, color);
}

constexpr int kMarkerWidth = 16;
constexpr int kMarkerAlpha = 100;

void literalMarker(QPainter &painter, const QVector<QPointF> &points, const QColor &color)
{
    Literal::paintHighLight(painter, points, kMarkerWidth, color, kMarkerAlpha);
}

// The event of `Pen`, its literal form and, for the pencil, the bare call with the shortest path that will do.
template <typename Pen>
void registerLive(const std::string &scene, int count, int width, const QColor &color, PaintLiterally literal,
                  bool hasMinimal, bool hasLiteral = true)
{
    const auto make = [=] { return std::make_shared<LiveStroke<Pen>>(writingBack(count), width, color); };
    const auto paintPlain = [=](LiveStroke<Pen> &stroke, QPainter &painter) {
        painter.setClipRect(stroke.newest);
        literal(painter, stroke.points(), color);
    };
    const auto paintMinimal = [=](LiveStroke<Pen> &stroke, const QPainterPath &path, QPainter &painter) {
        painter.setClipRect(stroke.newest);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Literal::roundPen(color, width));
        painter.drawPath(path);
        painter.restore();
    };

    benchmark::RegisterBenchmark(nameOf(scene, "ours", count).c_str(), [=](benchmark::State &state) {
        const auto stroke = make();
        if (!isExact(state, nameOf(scene, "ours", count), [&] {
                return paintAlike([&](QPainter &painter) { stroke->draw(painter); },
                                  [&](QPainter &painter) { paintPlain(*stroke, painter); });
            }))
            return;
        QImage image = canvas();
        QPainter painter(&image);
        timeEach(state, [&] { stroke->draw(painter); });
    });
    if (hasLiteral) {
        auto *plain =
            benchmark::RegisterBenchmark(nameOf(scene, "literal", count).c_str(), [=](benchmark::State &state) {
                const auto stroke = make();
                QImage image = canvas();
                QPainter painter(&image);
                timeEach(state, [&] { paintPlain(*stroke, painter); });
            });
        if (count >= 10'000)
            plain->Iterations(1); // a fraction of a second each
    }
    if (!hasMinimal)
        return;
    benchmark::RegisterBenchmark(nameOf(scene, "minimal", count).c_str(), [=](benchmark::State &state) {
        const auto stroke = make();
        const QPainterPath path = Literal::minimalPath(stroke->points(), stroke->newest, width);
        if (!isExact(state, nameOf(scene, "minimal", count), [&] {
                return paintAlike([&](QPainter &painter) { paintMinimal(*stroke, path, painter); },
                                  [&](QPainter &painter) { paintPlain(*stroke, painter); });
            }))
            return;
        QImage image = canvas();
        QPainter painter(&image);
        timeEach(state, [&] { paintMinimal(*stroke, path, painter); });
    });
}

// Four layers, of which a live eraser changes the surface.
struct ErasedLayers
{
    QImage page{canvas()}, surface{canvas(Qt::darkGreen)}, background{canvas(Qt::yellow)}, ink{canvas(Qt::transparent)};
    QPainter p1{&page}, p2{&surface}, p3{&background}, p4{&ink};
};

void registerEraser(int count)
{
    constexpr int width = 24;
    const std::string scene = "live/eraser";
    const auto draw = [](LiveStroke<CInkEraser> &stroke, ErasedLayers &layers) {
        stroke.pen.Draw(layers.p1, layers.p2, layers.p3, layers.p4, stroke.newest, 0, 0);
    };
    const auto drawPlain = [](const LiveStroke<CInkEraser> &stroke, ErasedLayers &layers, const QPen &pen) {
        for (QPainter *painter : {&layers.p2, &layers.p1, &layers.p4}) {
            painter->setClipRect(stroke.newest.adjusted(-1, -1, 1, 1));
            painter->save();
        }
        Literal::paintErased(layers.p2, stroke.points(), width, pen);
        for (QPainter *painter : {&layers.p2, &layers.p1, &layers.p4})
            painter->restore();
    };
    benchmark::RegisterBenchmark(nameOf(scene, "ours", count).c_str(), [=](benchmark::State &state) {
        LiveStroke<CInkEraser> stroke(writingBack(count), width, Qt::black);
        ErasedLayers layers;
        if (!isExact(state, nameOf(scene, "ours", count), [&] {
                ErasedLayers plain;
                const QImage before = plain.surface.copy();
                drawPlain(stroke, plain, Literal::texturePen(plain.background, width));
                draw(stroke, layers);
                return layers.surface == plain.surface && plain.surface != before;
            }))
            return;
        draw(stroke, layers); // makes the pen
        timeEach(state, [&] { draw(stroke, layers); });
    });
    auto *plain = benchmark::RegisterBenchmark(nameOf(scene, "literal", count).c_str(), [=](benchmark::State &state) {
        const LiveStroke<CInkEraser> stroke(writingBack(count), width, Qt::black);
        ErasedLayers layers;
        const QPen pen = Literal::texturePen(layers.background.copy(), width);
        timeEach(state, [&] { drawPlain(stroke, layers, pen); });
    });
    if (count >= 10'000)
        plain->Iterations(1);
}

// Strokes that are finished, repainted whole one after the other.
struct Finished
{
    explicit Finished(const QVector<Stroke> &strokes)
    {
        for (const Stroke &stroke : strokes) {
            auto pencil = std::make_unique<CInkPencil>();
            pencil->SetWidth(stroke.width);
            pencil->SetColor(stroke.color);
            QRect ignored;
            for (const QPoint &point : stroke.points)
                pencil->AddPoint(PT_MOVE, point, ignored);
            pencil->FinishGraph();
            pencils.push_back(std::move(pencil));
        }
    }

    void draw(QPainter &painter) const
    {
        QRect all(QPoint(), kCanvas);
        for (const auto &pencil : pencils)
            pencil->Draw(painter, all);
    }

    void drawPlain(QPainter &painter) const
    {
        for (const auto &pencil : pencils) {
            painter.setClipRect(pencil->GetUpdateRect());
            Literal::paintPencil(painter, pencil->m_graphData, pencil->m_nWidth, pencil->m_color);
        }
    }

    std::vector<std::unique_ptr<CInkPencil>> pencils;
};

void registerWhole(const std::string &scene, int count, const std::function<QVector<Stroke>()> &strokes)
{
    benchmark::RegisterBenchmark(nameOf(scene, "ours", count).c_str(), [=](benchmark::State &state) {
        const Finished finished(strokes());
        if (finished.pencils.empty())
            return state.SkipWithError("no recorded strokes");
        if (!isExact(state, nameOf(scene, "ours", count), [&] {
                return paintAlike([&](QPainter &painter) { finished.draw(painter); },
                                  [&](QPainter &painter) { finished.drawPlain(painter); });
            }))
            return;
        QImage image = canvas();
        QPainter painter(&image);
        timeEach(state, [&] { finished.draw(painter); });
    });
    auto *plain = benchmark::RegisterBenchmark(nameOf(scene, "literal", count).c_str(), [=](benchmark::State &state) {
        const Finished finished(strokes());
        if (finished.pencils.empty())
            return state.SkipWithError("no recorded strokes");
        QImage image = canvas();
        QPainter painter(&image);
        timeEach(state, [&] { finished.drawPlain(painter); });
    });
    if (count >= 10'000)
        plain->Iterations(1);
}

} // namespace

void Bench::registerStrokes()
{
    for (const int count : {100, 1'000, 10'000, 50'000})
        registerLive<CInkPencil>("live/pencil", count, kPencilWidth, kOpaque, literalPencil, true);
    for (const int count : {1'000, 10'000}) {
        registerLive<CInkPencil>("live/translucent", count, kPencilWidth, kTranslucent, literalPencil, true, false);
        registerLive<CInkHighLightPen>("live/marker", count, kMarkerWidth, kOpaque, literalMarker, false);
        registerEraser(count);
    }
    for (const int count : {2, 10, 100, 300, 1'000, 10'000, 50'000})
        registerWhole("whole/writing", count, [count] { return QVector<Stroke>{{kOpaque, 4, writing(count)}}; });
    for (const int count : {30, 100, 300, 400, 1'000, 5'000})
        registerWhole("whole/scribble", count, [count] { return QVector<Stroke>{{kOpaque, 4, scribble(count)}}; });
    for (const int count : {10, 100, 300})
        registerWhole("whole/crossing", count, [count] { return QVector<Stroke>{{kOpaque, 4, crossings(count)}}; });
    registerWhole("whole/recorded", 0, [] { return recorded(); });
}
