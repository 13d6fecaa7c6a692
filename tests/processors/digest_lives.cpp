// Draws, edits, commits and paints random objects of all tools, the same ones on every machine, and prints a line for
// each: its number, its tool, a digest of its geometry and one of the pixels of its layers.
//
// usage: digest_lives OBJECTS

#include "Geometry.h"
#include "Lives.h"
#include "RandomCases.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr QSize kCanvas(160, 120);
constexpr int kKnob = 8; // of m_hotPts

// Random numbers are drawn in braces or in statements of their own: the order of a call's arguments is the compiler's.
class Life
{
public:
    Life(const Tool &tool, unsigned seed)
        : m_tool(tool)
        , m_random(seed)
        , m_layers(kCanvas)
        , m_graph(tool.make())
    {
        m_graph->SetCanvasSize(kCanvas);
        m_graph->SetWidth(m_random.from(1, 30));
        m_graph->SetColor(QColor{m_random.below(256), m_random.below(256), m_random.below(256), m_random.from(1, 255)});
    }

    void run()
    {
        draw();
        paint();
        const int edits = m_random.from(2, 6);
        for (int i = 0; i < edits; ++i)
            edit();
        paint();
        m_graph->FinishGraph();
        if (m_tool.handOver)
            m_tool.handOver(*m_graph);
        paint();
    }

    quint64 geometry() const { return m_geometry.value(); }
    quint64 pixels() const { return m_pixels.value(); }

private:
    QPoint anywhere() { return {m_random.from(-20, kCanvas.width() + 20), m_random.from(-20, kCanvas.height() + 20)}; }

    // Anywhere, or straight beside, above or below the pivot, where a turn by whole degrees leaves whole pixels and the
    // last bit tells which.
    QPoint target()
    {
        QPoint to = anywhere();
        switch (m_random.below(4)) {
        case 0:
            to.setX(int(m_graph->m_ptCenter.x()));
            break;
        case 1:
            to.setY(int(m_graph->m_ptCenter.y()));
            break;
        default:
            break;
        }
        return to;
    }

    void event(int code, const QPoint &at)
    {
        QRect update;
        m_graph->AddPoint(code, at, update);
        m_geometry.add(update);
        note();
    }

    void note()
    {
        add(m_geometry, Snapshot(*m_graph));
        m_geometry.add(m_graph->GetUpdateRect());
    }

    void draw()
    {
        const QPoint start{m_random.from(20, 60), m_random.from(20, 60)};
        event(PT_DOWN, start);
        const int moves = m_random.from(1, 8);
        for (int i = 0; i < moves; ++i)
            event(PT_MOVE, anywhere());
        event(PT_UP, start + QPoint{m_random.from(20, 90), m_random.from(20, 50)});
        // From (100,100) in the table of tools: a tap there closes what began there.
        for (const QPoint &tap : m_tool.taps) {
            const QPoint at = start + (tap - QPoint(100, 100)) / 2;
            event(PT_DOWN, at);
            event(PT_UP, at);
        }
    }

    // Where handle `index` lies on the canvas.
    QPoint handle(int index) const
    {
        const QPointF way = m_graph->m_hotPts[index] - m_graph->m_ptCenter;
        const double radians = double(m_graph->m_fRotateAngle) * (M_PI / 180);
        const QPointF turned(way.x() * std::cos(radians) - way.y() * std::sin(radians),
                             way.x() * std::sin(radians) + way.y() * std::cos(radians));
        const QPointF at = m_graph->m_ptCenter + turned;
        return {int(std::floor(at.x() + 0.5)), int(std::floor(at.y() + 0.5))};
    }

    void edit()
    {
        if (m_tool.is(NeverEdited))
            return editByCalls();
        const int what = m_random.below(12);
        const QPoint grip = what < kKnob ? handle(what) : what < 11 ? handle(kKnob) : m_graph->m_ptCenter.toPoint();
        event(PT_DOWN, grip);
        const int moves = m_random.from(1, 4);
        for (int i = 0; i < moves; ++i)
            event(PT_MOVE, target());
        event(PT_UP, target());
    }

    // What a host may do to an object that hears no event any more.
    void editByCalls()
    {
        const int margin = m_random.below(10);
        m_graph->SetHotData(margin, m_random.below(10));
        m_graph->m_modifyType = m_random.from(MT_LEFT_TOP, MT_RIGHT_BOTTOM);
        m_graph->ModifyGraph(target(), MT_ROTATE);
        note();
        m_graph->ModifyGraph(target(), ModifyType(m_graph->m_modifyType));
        note();
        m_graph->AdjustGraph(m_graph->m_fRotateAngle);
        m_graph->ModifyGraph(target(), MT_MOVE);
        note();
    }

    void paint()
    {
        m_layers.draw(m_tool, *m_graph);
        note();
        for (const QImage &layer : m_layers.images)
            m_pixels.add(layer);
    }

    const Tool &m_tool;
    Random m_random;
    OpenLayers m_layers;
    const Graph m_graph;
    Digest m_geometry, m_pixels;
};

} // namespace

int main(int argc, char **argv)
{
    const int count = argc > 1 ? std::atoi(argv[1]) : 0;
    if (count <= 0) {
        std::fprintf(stderr, "usage: %s OBJECTS\n", argv[0]);
        return EXIT_FAILURE;
    }
    const Silence silence;
    for (int i = 0; i < count; ++i) {
        const Tool &tool = allTools()[std::size_t(i) % allTools().size()];
        Life life(tool, unsigned(i));
        life.run();
        std::printf("%d %s %016llx %016llx\n", i, tool.name.c_str(), life.geometry(), life.pixels());
    }
    return EXIT_SUCCESS;
}
