// Lives of single objects, in every order and with every value that a host may come up with. Nothing is expected but
// that each step ends, within four seconds and what the points and the image of the object take to be rendered.

#include "Input.h"
#include "Stage.h"
#include "Tools.h"

#include <QtCore/QtGlobal>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <optional>

namespace {

using Fuzz::Bytes;
using Fuzz::Layer;
using Fuzz::Tool;

constexpr int kMostSteps = 100;
constexpr int kFewPoints = 64;       // what a life keeps of more, unless it is one of the long ones
constexpr double kMostSeconds = 4.0; // a header of some bytes asks for 256 megapixels, which are made and freed
constexpr double kMostSecondsPerPoint = 5e-4; // four wide translucent lines with round caps
constexpr double kMostSecondsPerPixel = 4e-7; // of the object's image, recorded in four pictures, which compress it

double seconds(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

int eventCode(Bytes &bytes)
{
    constexpr int kCodes[] = {PT_DOWN, PT_MOVE, PT_UP, PT_DOWN, PT_MOVE, PT_UP, PT_DBLCLK, 0, 3, -1};
    const int kind = bytes.below(11);
    return kind < 10 ? kCodes[kind] : bytes.integer();
}

void setField(CInkGraph &graph, Bytes &bytes)
{
    int *const numbers[] = {&graph.m_nWidth,          &graph.m_nPointCount,     &graph.m_modifyType,
                            &graph.m_bFinished,       &graph.m_bEditMode,       &graph.m_nDrawnCount,
                            &graph.m_bShowDrawerName, &graph.m_bShowDrawerIcon, &graph.m_bSparePoint,
                            &graph.m_bHideHotShape};
    switch (bytes.below(12)) {
    case 0:
        graph.m_graphData = bytes.points();
        break;
    case 1:
        graph.m_rcHot = bytes.rect();
        break;
    case 2:
        graph.m_fRotateAngle = bytes.real();
        break;
    case 3:
        graph.m_ptCenter = bytes.pointF();
        break;
    case 4:
        graph.m_ptLast = bytes.pointF();
        break;
    case 5:
        delete graph.m_pImage;
        graph.m_pImage = bytes.flag() ? new QImage(bytes.image()) : nullptr;
        break;
    case 6:
        graph.m_hotPts[bytes.below(9)] = bytes.pointF();
        break;
    case 7:
        graph.m_sizeName = QSize(bytes.integer(), bytes.integer());
        break;
    case 8:
        (bytes.flag() ? graph.m_rcName : graph.m_rcIcon) = bytes.rect();
        break;
    default:
        *numbers[bytes.below(10)] = bytes.integer();
    }
}

void set(CInkGraph &graph, Bytes &bytes)
{
    switch (bytes.below(8)) {
    case 0:
        graph.SetWidth(bytes.integer());
        break;
    case 1:
        graph.SetColor(bytes.color());
        break;
    case 2:
        graph.SetCanvasSize(bytes.canvasSize());
        break;
    case 3:
        graph.SetOwnerIP(bytes.byte());
        break;
    case 4:
        graph.SetDrawerIP(bytes.byte());
        break;
    case 5:
        graph.SetOwnerName(bytes.text());
        graph.SetDrawerName(bytes.text());
        break;
    case 6:
        graph.ShowDrawerName(bytes.integer());
        break;
    default:
        graph.ShowDrawerIcon(bytes.integer());
    }
}

void call(CInkGraph &graph, Bytes &bytes)
{
    switch (bytes.below(16)) {
    case 0:
        graph.FinishGraph();
        break;
    case 1:
        graph.GetPointCount();
        graph.GetUpdateRect();
        break;
    case 2:
        graph.AroundHotPts(bytes.point());
        break;
    case 3:
        graph.ResetHotData(bytes.rect());
        break;
    case 4:
        graph.IsPtInModifyZone(bytes.point());
        break;
    case 5:
        graph.m_modifyType = graph.DecideModiFyType(bytes.point());
        graph.GetModifyType();
        break;
    case 6: {
        const QPoint pt = bytes.point();
        graph.ModifyGraph(pt, ModifyType(bytes.integer()));
        break;
    }
    case 7:
        graph.StretchGraph(bytes.point());
        break;
    case 8: {
        const float dx = bytes.real();
        graph.MoveGraph(dx, bytes.real());
        break;
    }
    case 9: {
        const QPoint to = bytes.point();
        graph.MoveGraph(to, bytes.point());
        break;
    }
    case 10: {
        const int mx = bytes.integer();
        graph.SetHotData(mx, bytes.integer());
        break;
    }
    case 11: {
        const QPoint pt = bytes.point();
        graph.CalcRotateAngle(pt, bytes.pointF());
        break;
    }
    case 12:
        graph.AdjustGraph(bytes.real());
        graph.IsSparePoint();
        graph.GetRotateAngle();
        break;
    case 13: {
        const float dx = bytes.real();
        graph.MoveHotData(dx, bytes.real());
        break;
    }
    case 14: {
        QPoint topLeft = bytes.point();
        QPoint bottomRight = bytes.point();
        QPointF anchor;
        graph.CalcStretchPoint(topLeft, bottomRight, bytes.point(), anchor);
        break;
    }
    default:
        QVector<QPointF> points = bytes.points();
        graph.GetRect(points);
        graph.GetRotateUpDateRect();
    }
}

void decode(CInkGraph &graph, Bytes &bytes)
{
    QByteArray file = bytes.imageFile();
    delete graph.ImageFromMem(file.data(), bytes.flag() ? file.size() : bytes.below(2) - 1);
}

// One object and the layers it is painted on.
class Life
{
public:
    explicit Life(Bytes &bytes)
        : m_bytes(bytes)
        , m_isLong(bytes.below(64) == 63)
        , m_tool(Fuzz::chooseTool(bytes))
        , m_graph(m_tool.make(bytes))
    {
    }

    void step()
    {
        switch (m_bytes.below(16)) {
        case 0:
        case 1:
        case 2:
        case 3:
        case 4:
            event();
            break;
        case 5:
            set(*m_graph, m_bytes);
            break;
        case 6:
            setField(*m_graph, m_bytes);
            break;
        case 7:
        case 8:
            call(*m_graph, m_bytes);
            break;
        case 9:
        case 10:
            m_tool.meddle(*m_graph, layer(1).painter(), m_bytes);
            break;
        case 11:
            m_graph->DrawHotShape(layer(m_bytes.below(4)).painter());
            break;
        case 12:
            paint();
            break;
        case 13:
            decodeOrReplace();
            break;
        default:
            paintLayers();
        }
    }

    // What the step that was the last may have taken.
    double mostSeconds() const
    {
        const QSize image = m_graph->m_pImage ? m_graph->m_pImage->size() : QSize(0, 0);
        return kMostSeconds + kMostSecondsPerPoint * points() + kMostSecondsPerPixel * image.width() * image.height();
    }

    // Leaves the first of many points and the last. A wild move makes tens of thousands, and every further step of the
    // life would spend its time on them.
    void thinOut()
    {
        if (!m_isLong && points() > kFewPoints)
            m_graph->m_graphData.remove(kFewPoints / 2, points() - kFewPoints);
    }

private:
    Q_DISABLE_COPY(Life)

    int points() const { return m_graph->m_graphData.size(); }

    // Made when it is first needed: most lives are not painted on all.
    Layer &layer(int index)
    {
        if (!m_layers[index])
            m_layers[index].emplace(m_bytes);
        return *m_layers[index];
    }

    void event()
    {
        const int code = eventCode(m_bytes);
        m_graph->AddPoint(code, m_bytes.point(), m_update);
    }

    void paint()
    {
        QRect area = m_bytes.flag() ? m_update : m_bytes.rect();
        m_graph->Draw(layer(m_bytes.below(4)).painter(), area);
    }

    void paintLayers()
    {
        // A host may pass one painter for several layers.
        const int shared = m_bytes.byte() < 16 ? 1 : 4;
        QPainter &p1 = layer(0).painter();
        QPainter &p2 = layer(1 % shared).painter();
        QPainter &p3 = layer(2 % shared).painter();
        QPainter &p4 = layer(3 % shared).painter();
        const int kind = m_bytes.byte();
        const QRect area = kind & 1 ? m_update : kind & 2 ? QRect(0, 0, 48, 40) : m_bytes.rect();
        m_graph->Draw(p1, p2, p3, p4, area, kind & 4, kind < 248 ? 0 : 1);
    }

    void decodeOrReplace()
    {
        if (m_bytes.below(4) == 0)
            decode(*m_graph, m_bytes);
        else
            m_layers[m_bytes.below(4)].reset();
    }

    Bytes &m_bytes;
    const bool m_isLong;
    const Tool &m_tool;
    std::unique_ptr<CInkGraph> m_graph;
    std::optional<Layer> m_layers[4];
    QRect m_update;
};

} // namespace

void Fuzz::run(const std::uint8_t *data, std::size_t size)
{
    Bytes bytes(data, size);
    const double born = seconds(CLOCK_THREAD_CPUTIME_ID);
    Life life(bytes);
    for (int step = 0; step < kMostSteps && !bytes.isEmpty(); ++step) {
        const double begin = seconds(CLOCK_MONOTONIC);
        life.step();
        const double most = life.mostSeconds();
        life.thinOut();
        if (seconds(CLOCK_MONOTONIC) - begin <= most)
            continue;
        // Other programs may have had the processor meanwhile. The whole life's time is cheaper to know than a step's.
        const double spent = seconds(CLOCK_THREAD_CPUTIME_ID) - born;
        if (spent > most) {
            std::fprintf(stderr, "step %d took %.2f seconds\n", step, spent);
            std::abort();
        }
    }
}
