// What a painter was used for before it was begun changes nothing that a tool paints.

#include "Exact.h"
#include "Lives.h"
#include "Protocol.h"
#include "RandomCases.h"

#include <QtGui/QPainterPath>

#include <array>

namespace {

constexpr QSize kCanvas(120, 120);
constexpr int kLayers = 4;
constexpr unsigned kLivesOfATool = 30;

using Painters = std::array<QPainter, kLayers>;

// What a host does to a painter before it paints.
struct Use
{
    explicit Use(Random &random)
        : transforms(random.oneIn(2))
        , shift(random.from(-60, 60), random.from(-60, 60))
        , scale(random.of({1.0, 1.0, 0.5, 1.5, 3.0}))
        , clip(random.from(-20, 60), random.from(-20, 60), random.from(1, 90), random.from(1, 90))
        , clips(random.oneIn(2))
        , savedStates(random.of({0, 0, 1, 3}))
        , asksBefore(random.oneIn(2))
        , asksAfter(random.oneIn(2))
    {
    }

    void begin(QPainter &painter, QImage &image) const
    {
        painter.begin(&image);
        if (transforms) {
            painter.translate(shift);
            painter.scale(scale, scale);
        }
        if (clips)
            painter.setClipRect(clip);
        for (int i = 0; i < savedStates; ++i)
            painter.save();
        if (asksBefore)
            ask(painter);
    }

    void end(QPainter &painter) const
    {
        if (asksAfter)
            ask(painter);
        painter.end();
    }

    static void ask(QPainter &painter)
    {
        painter.clipBoundingRect();
        painter.clipRegion();
        painter.clipPath();
    }

    bool transforms; // or has it as begin() leaves it
    QPoint shift;
    double scale;
    QRect clip;
    bool clips;
    int savedStates;
    bool asksBefore, asksAfter;
};

// An object of `tool`, and the layers that it is painted on. Two of one seed differ in the painters alone.
class Twin
{
public:
    Twin(const Tool &tool, unsigned seed)
        : m_tool(tool)
        , m_random(seed)
        , m_graph(tool.make())
    {
        m_graph->SetCanvasSize(kCanvas);
        m_graph->SetWidth(m_random.from(1, 12));
        m_graph->SetColor(
            QColor(m_random.below(256), m_random.below(256), m_random.below(256), m_random.from(60, 255)));
    }

    // From a press to the commit; `draw` is called in between.
    template <typename Draw>
    void live(const Draw &draw)
    {
        event(PT_DOWN);
        for (int moves = m_random.from(2, 40); moves > 0; --moves) {
            event(PT_MOVE);
            if (m_random.oneIn(8))
                draw(*this);
        }
        event(PT_UP);
        for (const QPoint &tap : m_tool.taps)
            drag(*m_graph, tap, tap);
        if (m_random.oneIn(3))
            m_graph->m_fRotateAngle = float(m_random.below(360));
        draw(*this);
        m_graph->FinishGraph();
        if (m_tool.handOver)
            m_tool.handOver(*m_graph);
        draw(*this);
    }

    void paint(Painters &painters)
    {
        const Use use(m_random);
        for (std::size_t i = 0; i < kLayers; ++i)
            use.begin(painters[i], layers[i]);
        m_graph->Draw(painters[0], painters[1], painters[2], painters[3], area(), 0, 0);
        for (QPainter &painter : painters)
            use.end(painter);
        use.begin(painters[0], alone);
        QRect rect = area();
        m_graph->Draw(painters[0], rect);
        use.end(painters[0]);
    }

    std::array<QImage, kLayers> layers{blankCanvas(kCanvas, Qt::white), blankCanvas(kCanvas),
                                       blankCanvas(kCanvas, Qt::blue), blankCanvas(kCanvas)};
    QImage alone = blankCanvas(kCanvas); // painted by the Draw of one painter

private:
    void event(int code) { feed(*m_graph, code, m_random.from(-20, 139), m_random.from(-20, 139)); }
    QRect area()
    {
        return m_random.oneIn(2) ? QRect(QPoint(), kCanvas)
                                 : QRect(m_random.below(90), m_random.below(90), m_random.from(1, 60), 40);
    }

    const Tool &m_tool;
    Random m_random;
    const Graph m_graph;
};

// Something else is painted first, by the same painters.
void wear(Painters &painters, Random &random)
{
    const Use use(random);
    QImage image = blankCanvas(kCanvas);
    for (QPainter &painter : painters) {
        use.begin(painter, image);
        use.end(painter);
    }
}

} // namespace

INK_OVER_ALL_TOOLS;

TEST_P(Protocol, paintersThatWereUsedBeforePaintAsFreshOnes)
{
    const Silence silence;
    Painters reused;
    Random habits(1);
    for (unsigned seed = 0; seed < caseCount("INK_REUSED_CASES", kLivesOfATool); ++seed) {
        SCOPED_TRACE(seed);
        Twin fresh(GetParam(), seed), worn(GetParam(), seed);
        fresh.live([](Twin &twin) {
            Painters painters;
            twin.paint(painters);
        });
        worn.live([&](Twin &twin) {
            wear(reused, habits);
            twin.paint(reused);
        });
        for (std::size_t i = 0; i < kLayers; ++i)
            ASSERT_TRUE(samePixels(worn.layers[i], fresh.layers[i])) << "layer p" << i + 1;
        ASSERT_TRUE(samePixels(worn.alone, fresh.alone));
    }
}
