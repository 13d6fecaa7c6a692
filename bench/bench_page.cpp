// A page of a thousand committed objects, against the calls of QPainter that paint the same.

#include "Bench.h"
#include "CInkDiamond.h"
#include "CInkEllipse.h"
#include "CInkHighLightPen.h"
#include "CInkLine.h"
#include "CInkPencil.h"
#include "CInkRectangle.h"
#include "LiteralPens.h"
#include "Strokes.h"

#include <functional>
#include <memory>
#include <vector>

using namespace Bench;

namespace {

constexpr int kObjects = 1'000;
constexpr int kWidth = 4;
const QColor kColor(20, 40, 160);

// An object and the bare calls for it, in the clip that the object sets.
struct Entry
{
    std::unique_ptr<CInkGraph> graph;
    std::function<void(QPainter &)> bare;
    QRect clip{};
};

QPen squarePen()
{
    return {QBrush(kColor), kWidth, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin};
}

template <typename Shape, typename Bare>
Entry shape(const QPoint &from, const QPoint &to, const Bare &bare)
{
    auto graph = std::make_unique<Shape>();
    QRect ignored;
    graph->AddPoint(PT_DOWN, from, ignored);
    graph->AddPoint(PT_MOVE, to, ignored);
    graph->AddPoint(PT_UP, to, ignored);
    const QVector<QPointF> points = graph->m_graphData;
    return {std::move(graph), [bare, points](QPainter &painter) {
                painter.setRenderHint(QPainter::Antialiasing);
                painter.setPen(squarePen());
                bare(painter, points);
            }};
}

template <typename Pen, typename Bare>
Entry stroke(const QPoint &from, const Bare &bare)
{
    auto graph = std::make_unique<Pen>();
    QRect ignored;
    for (const QPoint &point : writing(40))
        graph->AddPoint(PT_MOVE, from + point, ignored);
    const QVector<QPointF> points = graph->m_graphData;
    return {std::move(graph), [bare, points](QPainter &painter) { bare(painter, points); }};
}

Entry entry(int i)
{
    const QPoint from(100 + i * 977 % 3500, 100 + i * 619 % 1800);
    const QPoint to = from + QPoint(40 + i % 7 * 30, 30 + i % 5 * 40);
    switch (i % 6) {
    case 0:
        return shape<CInkRectangle>(
            from, to, [from, to](QPainter &painter, const QVector<QPointF> &) { painter.drawRect(QRect(from, to)); });
    case 1:
        return shape<CInkEllipse>(from, to, [from, to](QPainter &painter, const QVector<QPointF> &) {
            painter.drawEllipse(QRect(from, to));
        });
    case 2:
        return shape<CInkDiamond>(from, to, [](QPainter &painter, const QVector<QPointF> &points) {
            painter.drawPolygon(points.constData(), 4);
        });
    case 3:
        return shape<CInkLine>(from, to, [](QPainter &painter, const QVector<QPointF> &points) {
            painter.setPen(Literal::roundPen(kColor, kWidth));
            painter.drawLine(points.at(0), points.at(1));
        });
    case 4:
        return stroke<CInkPencil>(from, [](QPainter &painter, const QVector<QPointF> &points) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Literal::roundPen(kColor, kWidth));
            painter.drawPath(Literal::strokePath(points));
        });
    default:
        return stroke<CInkHighLightPen>(from, [](QPainter &painter, const QVector<QPointF> &points) {
            painter.setRenderHint(QPainter::Antialiasing);
            QColor color = kColor;
            color.setAlpha(100);
            painter.setPen(Literal::roundPen(color, kWidth));
            painter.drawPath(Literal::strokePath(points));
        });
    }
}

class Page
{
public:
    Page()
    {
        QImage image = canvas();
        QPainter painter(&image);
        for (int i = 0; i < kObjects; ++i) {
            m_entries.push_back(entry(i));
            Entry &made = m_entries.back();
            made.graph->SetColor(kColor);
            made.graph->SetWidth(kWidth);
            made.graph->FinishGraph();
            QRect rect = made.graph->GetUpdateRect();
            made.graph->Draw(painter, rect);
            made.clip = painter.clipBoundingRect().toRect();
        }
    }

    void draw(QPainter &painter) const
    {
        for (const Entry &entry : m_entries) {
            QRect rect = entry.clip;
            entry.graph->Draw(painter, rect);
        }
    }

    void drawBare(QPainter &painter) const
    {
        for (const Entry &entry : m_entries) {
            painter.setClipRect(entry.clip);
            painter.save();
            entry.bare(painter);
            painter.restore();
        }
    }

private:
    std::vector<Entry> m_entries;
};

void paintPage(benchmark::State &state, bool isBare)
{
    const Page page;
    const auto agree = [&] {
        QImage a = canvas();
        QImage b = canvas();
        QPainter onA(&a), onB(&b);
        page.draw(onA);
        page.drawBare(onB);
        return a == b && a != canvas();
    };
    if (!isExact(state, "page", agree))
        return;
    QImage image = canvas();
    QPainter painter(&image);
    timeEach(state, [&] { isBare ? page.drawBare(painter) : page.draw(painter); });
}

} // namespace

void Bench::registerPage()
{
    for (const bool isBare : {false, true})
        benchmark::RegisterBenchmark(nameOf("page", isBare ? "bare" : "ours", kObjects).c_str(),
                                     [=](benchmark::State &state) { paintPage(state, isBare); });
}
