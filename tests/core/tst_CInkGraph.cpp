#include "Canvas.h"
#include "Exact.h"
#include "PlainGraph.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>

namespace {

// The units of a name field, and the units that a test expects there: the rest is zero.
::testing::AssertionResult holdsName(const ushort (&field)[32], const QString &expected)
{
    for (int i = 0; i < 32; ++i) {
        const ushort unit = i < expected.size() ? expected.at(i).unicode() : ushort(0);
        if (field[i] != unit)
            return ::testing::AssertionFailure() << "unit " << i << " is " << field[i] << ", not " << unit;
    }
    return ::testing::AssertionSuccess();
}

// Notes on which painter, and for which rectangle, it is asked to paint.
class LoggingGraph : public PlainGraph
{
public:
    using PlainGraph::Draw;
    using PlainGraph::PlainGraph;
    void Draw(QPainter &painter, QRect &rect) override
    {
        m_painters.append(&painter);
        m_rects.append(rect);
    }

    QVector<const QPainter *> m_painters;
    QVector<QRect> m_rects;
};

class FlaggedCache : public CInkWidthCache
{
public:
    explicit FlaggedCache(bool &gone)
        : m_gone(gone)
    {
    }
    ~FlaggedCache() override { m_gone = true; }

private:
    Q_DISABLE_COPY(FlaggedCache)
    bool &m_gone;
};

} // namespace

TEST(CInkGraph, freshObjectHoldsTheDefaults)
{
    // Over filled memory, so that a field left alone shows.
    alignas(PlainGraph) unsigned char storage[sizeof(PlainGraph)];
    std::memset(storage, 0xA5, sizeof storage);
    auto *graph = new (storage) PlainGraph;

    EXPECT_EQ(graph->m_nWidth, 1);
    EXPECT_EQ(graph->m_nPointCount, 0);
    EXPECT_EQ(graph->m_color.spec(), QColor::Rgb);
    EXPECT_EQ(graph->m_color.rgba(), 0xFF000000u);
    EXPECT_TRUE(graph->m_graphData.isEmpty());
    EXPECT_EQ(graph->m_modifyType, 1);
    EXPECT_EQ(graph->m_bFinished, 0);
    EXPECT_EQ(graph->m_bEditMode, 0);
    expectHandles(*graph, {});
    EXPECT_NULL_RECT(graph->m_rcHot);
    EXPECT_EQ(graph->m_fRotateAngle, 0.0f);
    EXPECT_POINT(graph->m_ptCenter, 0, 0);
    EXPECT_POINT(graph->m_ptLast, 0, 0);
    EXPECT_EQ(graph->m_pImage, nullptr);
    EXPECT_EQ(graph->m_nDrawnCount, 0);
    EXPECT_NULL_RECT(graph->m_rcName);
    EXPECT_NULL_RECT(graph->m_rcIcon);
    EXPECT_EQ(graph->m_sizeName.width(), 0);
    EXPECT_EQ(graph->m_sizeName.height(), 0);
    EXPECT_EQ(graph->m_pWidthCache, nullptr);
    EXPECT_EQ(graph->m_bShowDrawerName, 0);
    EXPECT_EQ(graph->m_bShowDrawerIcon, 0);
    EXPECT_EQ(graph->m_bSparePoint, 0);
    EXPECT_EQ(graph->m_bHideHotShape, 0);
    EXPECT_EQ(graph->m_nOwnerIP, 0u);
    EXPECT_EQ(graph->m_nDrawerIP, 0u);

    graph->~PlainGraph();
}

TEST(CInkGraph, objectsAreNotCopied)
{
    EXPECT_FALSE(std::is_copy_constructible_v<PlainGraph>);
    EXPECT_FALSE(std::is_copy_assignable_v<PlainGraph>);
    EXPECT_TRUE(std::has_virtual_destructor_v<CInkGraph>);
    EXPECT_TRUE(std::is_abstract_v<CInkGraph>);
}

TEST(CInkGraph, widthIsStoredAsGiven)
{
    PlainGraph graph;
    for (const int width : {7, 7, 0, -3, INT_MAX, INT_MIN}) {
        graph.SetWidth(width);
        EXPECT_EQ(graph.m_nWidth, width);
    }
}

TEST(CInkGraph, colorIsStoredWithItsAlphaAndModel)
{
    PlainGraph graph;
    graph.SetColor(QColor(10, 20, 30, 40));
    EXPECT_EQ(graph.m_color.rgba(), qRgba(10, 20, 30, 40));

    graph.SetColor(QColor(10, 20, 30, 41));
    EXPECT_EQ(graph.m_color.alpha(), 41);

    // The same red, but not equal as a QColor.
    graph.SetColor(QColor(255, 0, 0));
    graph.SetColor(QColor::fromHsv(0, 255, 255));
    EXPECT_EQ(graph.m_color.spec(), QColor::Hsv);

    graph.SetColor(QColor());
    EXPECT_FALSE(graph.m_color.isValid());
}

TEST(CInkGraph, colorThatComparesEqualKeepsTheOldOne)
{
    // QColor takes two HSL saturations less than 50 of 65535 apart for the same.
    PlainGraph graph;
    graph.SetColor(QColor::fromHslF(0.5, 0.5, 0.5));
    const qreal kept = graph.m_color.hslSaturationF();
    const QColor near = QColor::fromHslF(0.5, 0.5004, 0.5);
    ASSERT_NE(near.hslSaturationF(), kept);
    graph.SetColor(near);
    EXPECT_EQ(graph.m_color.hslSaturationF(), kept);

    const QColor other = QColor::fromHslF(0.5, 0.52, 0.5);
    graph.SetColor(other);
    EXPECT_EQ(graph.m_color.hslSaturationF(), other.hslSaturationF());
}

TEST(CInkGraph, addressesAndFlagsAreStoredAsGiven)
{
    PlainGraph graph;
    graph.SetOwnerIP(0xC0A80001u);
    graph.SetDrawerIP(0xFFFFFFFFu);
    EXPECT_EQ(graph.m_nOwnerIP, 3232235521u);
    EXPECT_EQ(graph.m_nDrawerIP, 4294967295u);

    graph.ShowDrawerName(1);
    graph.ShowDrawerIcon(-5);
    EXPECT_EQ(graph.m_bShowDrawerName, 1);
    EXPECT_EQ(graph.m_bShowDrawerIcon, -5);
    graph.ShowDrawerName(0);
    graph.ShowDrawerIcon(0);
    EXPECT_EQ(graph.m_bShowDrawerName, 0);
    EXPECT_EQ(graph.m_bShowDrawerIcon, 0);
}

TEST(CInkGraph, gettersReadTheirFields)
{
    PlainGraph graph{{1, 2}, {3, 4}, {5, 6}};
    graph.m_nPointCount = 9;
    graph.m_bSparePoint = 1;
    graph.m_fRotateAngle = 33.5f;
    graph.m_modifyType = 7;
    EXPECT_EQ(graph.GetPointCount(), 3) << "the points held, not m_nPointCount";
    EXPECT_EQ(graph.IsSparePoint(), 1);
    EXPECT_EQ(graph.GetRotateAngle(), 33.5f);
    EXPECT_EQ(graph.GetModifyType(), MT_LEFT_BOTTOM);
}

TEST(CInkGraph, shortNameIsFollowedByZeros)
{
    PlainGraph graph;
    graph.SetOwnerName(QStringLiteral("Ada"));
    EXPECT_EQ(graph.m_szOwnerName[0], u'A');
    EXPECT_EQ(graph.m_szOwnerName[1], u'd');
    EXPECT_EQ(graph.m_szOwnerName[2], u'a');
    EXPECT_EQ(graph.m_szOwnerName[3], 0);
    EXPECT_TRUE(holdsName(graph.m_szOwnerName, "Ada"));
}

TEST(CInkGraph, nameOf31UnitsKeepsItsTerminator)
{
    PlainGraph graph;
    graph.SetDrawerName(QString(31, QLatin1Char('x')));
    EXPECT_EQ(graph.m_szDrawerName[30], u'x');
    EXPECT_EQ(graph.m_szDrawerName[31], 0);
}

TEST(CInkGraph, nameOf32UnitsFillsTheField)
{
    PlainGraph graph;
    graph.SetDrawerName(QString(31, QLatin1Char('x')) + QLatin1Char('y'));
    EXPECT_EQ(graph.m_szDrawerName[30], u'x');
    EXPECT_EQ(graph.m_szDrawerName[31], u'y');
}

TEST(CInkGraph, nameOf40UnitsIsCutWithoutTerminator)
{
    const QString name = QStringLiteral("abcdefghijklmnopqrstuvwxyz0123456789ABCD");
    ASSERT_EQ(name.size(), 40);
    PlainGraph graph;
    graph.SetOwnerName(name);
    EXPECT_EQ(graph.m_szOwnerName[31], u'5');
    EXPECT_TRUE(holdsName(graph.m_szOwnerName, "abcdefghijklmnopqrstuvwxyz012345"));
}

TEST(CInkGraph, shorterNameLeavesNothingOfALongerOne)
{
    PlainGraph graph;
    graph.SetOwnerName(QString(40, QLatin1Char('x')));
    graph.SetOwnerName(QStringLiteral("Bo"));
    EXPECT_TRUE(holdsName(graph.m_szOwnerName, "Bo"));
}

TEST(CInkGraph, emptyAndNullNamesAreAllZeros)
{
    PlainGraph graph;
    graph.SetOwnerName(QString(40, QLatin1Char('x')));
    graph.SetDrawerName(QString(40, QLatin1Char('x')));
    graph.SetOwnerName(QStringLiteral(""));
    graph.SetDrawerName(QString());
    EXPECT_TRUE(holdsName(graph.m_szOwnerName, {}));
    EXPECT_TRUE(holdsName(graph.m_szDrawerName, {}));
}

TEST(CInkGraph, namesDoNotReachEachOther)
{
    PlainGraph graph;
    graph.m_nDrawerIP = 0x01020304u;
    graph.SetDrawerName(QString(40, QLatin1Char('d')));
    graph.SetOwnerName(QString(40, QLatin1Char('o')));
    EXPECT_TRUE(holdsName(graph.m_szOwnerName, QString(32, QLatin1Char('o'))));
    EXPECT_TRUE(holdsName(graph.m_szDrawerName, QString(32, QLatin1Char('d'))));
    EXPECT_EQ(graph.m_nDrawerIP, 0x01020304u);
}

TEST(CInkGraph, nameWithoutTerminatorInMemoryIsReadNoFurther)
{
    const std::unique_ptr<QChar[]> units(new QChar[5]);
    std::fill_n(units.get(), 5, QChar(0x4E2D));
    PlainGraph graph;
    graph.SetOwnerName(QString::fromRawData(units.get(), 5));
    EXPECT_TRUE(holdsName(graph.m_szOwnerName, QString(5, QChar(0x4E2D))));
}

TEST(CInkGraph, nameIsCopiedPastAnEmbeddedZero)
{
    PlainGraph graph;
    graph.SetOwnerName(QString::fromUtf16(u"a\0b", 3));
    EXPECT_EQ(graph.m_szOwnerName[0], u'a');
    EXPECT_EQ(graph.m_szOwnerName[1], 0);
    EXPECT_EQ(graph.m_szOwnerName[2], u'b');
    EXPECT_EQ(graph.m_szOwnerName[3], 0);
}

TEST(CInkGraph, distanceOfPoints)
{
    PlainGraph graph;
    EXPECT_EQ(graph.CalcGapOfpoints(QPointF(0, 0), QPointF(3, 4)), 5.0f);
    EXPECT_EQ(graph.CalcGapOfpoints(QPointF(3, 4), QPointF(0, 0)), 5.0f);
    EXPECT_EQ(graph.CalcGapOfpoints(QPointF(-1.5, 2.5), QPointF(-1.5, 2.5)), 0.0f);
    EXPECT_EQ(graph.CalcGapOfpoints(QPoint(-5, 7), QPoint(0, -5)), 13.0f);
    EXPECT_EQ(graph.CalcGapOfpoints(QPoint(0, 0), QPoint(1, 1)), 1.41421354f);
}

TEST(CInkGraph, distanceSquaresAndSumsInSinglePrecision)
{
    PlainGraph graph;
    // The squares add up to 17028101, which has no single-precision value; in double the root is 4126.51221.
    EXPECT_EQ(graph.CalcGapOfpoints(QPointF(0, 0), QPointF(4001, 1010)), 4126.51172f);
    // The squares overflow although the distance would not.
    EXPECT_EQ(graph.CalcGapOfpoints(QPointF(0, 0), QPointF(1e20, 0)), INFINITY);
    // The squares underflow although the distance would not.
    EXPECT_EQ(graph.CalcGapOfpoints(QPointF(0, 0), QPointF(1e-30, 1e-30)), 0.0f);
}

TEST(CInkGraph, distanceSubtractsInDoubleAndThenNarrows)
{
    PlainGraph graph;
    EXPECT_EQ(graph.CalcGapOfpoints(QPointF(16777217, 0), QPointF(16777216, 0)), 1.0f);
    EXPECT_EQ(graph.CalcGapOfpoints(QPointF(16777217, 0), QPointF(0, 0)), 16777216.0f);
    EXPECT_EQ(graph.CalcGapOfpoints(QPointF(0, 10.0000001), QPointF(0, 0)), 10.0f);
    EXPECT_GT(graph.CalcGapOfpoints(QPointF(0, 10.000001), QPointF(0, 0)), 10.0f);
}

TEST(CInkGraph, distanceOfPixelsWidensThemThroughSinglePrecision)
{
    PlainGraph graph;
    EXPECT_EQ(graph.CalcGapOfpoints(QPoint(16777217, 0), QPoint(16777216, 0)), 0.0f);
    EXPECT_EQ(graph.CalcGapOfpoints(QPoint(0, 16777219), QPoint(0, 16777217)), 4.0f);
}

TEST(CInkGraph, baseOperationsThatDoNothing)
{
    PlainGraph graph{{10, 10}, {20, 20}};
    graph.m_nWidth = 4;
    graph.SetCanvasSize(QSize(800, 600));
    const QImage image = painted([&](QPainter &painter) {
        painter.setClipRect(1, 2, 3, 4);
        painter.setPen(Qt::red);
        QRect rect(0, 0, 400, 300);
        graph.Draw(painter, rect);
        graph.DrawStudentName(painter);
        graph.DrawGraphIcon(painter);
        EXPECT_EQ(painter.clipBoundingRect(), QRectF(1, 2, 3, 4));
        EXPECT_EQ(painter.pen(), QPen(Qt::red));
        EXPECT_EDGES(rect, 0, 0, 399, 299);
    });
    EXPECT_TRUE(isBlank(image));
    EXPECT_EQ(graph.m_graphData.size(), 2);
    EXPECT_EQ(graph.m_pImage, nullptr);
    EXPECT_EQ(graph.m_nWidth, 4);
}

TEST(CInkGraph, unfinishedObjectIsPaintedOnTheSurfaceOnly)
{
    LoggingGraph graph;
    Layers layers;
    graph.Draw(layers.p1, layers.p2, layers.p3, layers.p4, QRect(5, 6, 7, 8), 0, 0);
    ASSERT_EQ(graph.m_painters.size(), 1);
    EXPECT_EQ(graph.m_painters[0], &layers.p2);
    EXPECT_EDGES(graph.m_rects[0], 5, 6, 11, 13);
}

TEST(CInkGraph, committedObjectIsPaintedOnSurfaceInkAndPageInThisOrder)
{
    LoggingGraph graph;
    graph.m_bFinished = 1;
    Layers layers;
    graph.Draw(layers.p1, layers.p2, layers.p3, layers.p4, QRect(5, 6, 7, 8), 0, 0);
    ASSERT_EQ(graph.m_painters.size(), 3);
    EXPECT_EQ(graph.m_painters[0], &layers.p2);
    EXPECT_EQ(graph.m_painters[1], &layers.p4);
    EXPECT_EQ(graph.m_painters[2], &layers.p1);
    for (const QRect &rect : graph.m_rects)
        EXPECT_EDGES(rect, 5, 6, 11, 13);
}

TEST(CInkGraph, reservedArgumentHasNoMeaning)
{
    LoggingGraph graph;
    Layers layers;
    graph.Draw(layers.p1, layers.p2, layers.p3, layers.p4, QRect(), 1, 0);
    EXPECT_EQ(graph.m_painters.size(), 1);
}

TEST(CInkGraph, skipSuppressesAllPainting)
{
    LoggingGraph graph;
    Layers layers;
    for (const int finished : {0, 1}) {
        graph.m_bFinished = finished;
        for (const int skip : {1, 2, -1})
            graph.Draw(layers.p1, layers.p2, layers.p3, layers.p4, QRect(0, 0, 400, 300), 0, skip);
    }
    EXPECT_TRUE(graph.m_painters.isEmpty());
}

TEST(CInkGraph, nameAndIconPaintNothingInAnyPhase)
{
    for (const int finished : {0, 1}) {
        for (const int editing : {0, 1}) {
            for (const int points : {0, 1, 2}) {
                LoggingGraph graph;
                graph.m_graphData = QVector<QPointF>(points, QPointF(50, 50));
                graph.ShowDrawerName(1);
                graph.ShowDrawerIcon(1);
                graph.m_rcName = QRect(10, 10, 50, 20);
                graph.m_rcIcon = QRect(70, 10, 20, 20);
                graph.m_bFinished = finished;
                graph.m_bEditMode = editing;
                Layers layers;
                layers.draw(graph);
                EXPECT_EQ(graph.m_painters.size(), finished ? 3 : 1);
                EXPECT_TRUE(isBlank(layers.page));
                EXPECT_TRUE(isBlank(layers.surface));
                EXPECT_TRUE(isBlank(layers.background));
                EXPECT_TRUE(isBlank(layers.ink));
            }
        }
    }
}

TEST(CInkGraph, destructorFreesTheImage)
{
    static uchar pixel[4];
    bool freed = false;
    std::unique_ptr<CInkGraph> graph = std::make_unique<PlainGraph>();
    graph->m_pImage = new QImage(
        pixel, 1, 1, 4, QImage::Format_ARGB32, [](void *flag) { *static_cast<bool *>(flag) = true; }, &freed);
    EXPECT_FALSE(freed);
    graph.reset();
    EXPECT_TRUE(freed);
}

TEST(CInkGraph, destructorReleasesThePoints)
{
    std::unique_ptr<CInkGraph> graph = std::make_unique<PlainGraph>();
    graph->m_graphData = {{1, 2}, {3, 4}};
    const QVector<QPointF> shared = graph->m_graphData;
    EXPECT_FALSE(shared.isDetached());
    graph.reset();
    EXPECT_TRUE(shared.isDetached());
}

TEST(CInkGraph, destructorLeavesTheWidthCache)
{
    bool gone = false;
    const std::unique_ptr<CInkWidthCache> cache = std::make_unique<FlaggedCache>(gone);
    {
        PlainGraph graph;
        graph.m_pWidthCache = cache.get();
        graph.SetWidth(9);
        EXPECT_EQ(graph.m_pWidthCache, cache.get());
    }
    EXPECT_FALSE(gone);
}
