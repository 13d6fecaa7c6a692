// Colours of every model that QColor knows. A tool hands its colour to Qt as it is, or takes eight bits of each
// channel.

#include "CInkCrayon.h"
#include "Exact.h"
#include "HearingDevice.h"
#include "LiteralTextured.h"
#include "Lives.h"
#include "Protocol.h"
#include "RandomCases.h"

#include <QtCore/QStringList>

namespace {

constexpr unsigned kColors = 40; // of each model

enum Model { Hsv, Hsl, Cmyk, Extended, Rgb64 };
constexpr Model kModels[] = {Hsv, Hsl, Cmyk, Extended, Rgb64};

QColor color(Model model, Random &random)
{
    const auto any = [&random] { return random.below(65536) / 65535.0; };
    const double a = any(), b = any(), c = any(), alpha = random.oneIn(2) ? 1.0 : any();
    switch (model) {
    case Hsv:
        return QColor::fromHsvF(a, b, c, alpha);
    case Hsl:
        return QColor::fromHslF(a, b, c, alpha);
    case Cmyk:
        return QColor::fromCmykF(a, b, c, any() / 2, alpha);
    case Extended: // beyond what a screen shows, at both ends
        return QColor::fromRgbF(a * 1.5 - 0.25, b * 1.5 - 0.25, c, alpha);
    case Rgb64:
        return QColor(QRgba64::fromRgba64(quint16(65535 * a), quint16(65535 * b), quint16(65535 * c), 65535));
    }
    return {};
}

// With the eight bits of each channel that red() and its like tell.
QColor eightBits(const QColor &color)
{
    return {color.red(), color.green(), color.blue(), color.alpha()};
}

// Notes the colours of the pens and brushes that outlines are painted with.
class PenLog : public HearingDevice
{
public:
    PenLog()
        : HearingDevice({400, 300})
    {
    }

    QVector<QColor> pens;

protected:
    void hearPath(const QPainter &painter, const QPainterPath &) override { pens.append(painter.pen().color()); }
};

bool takesEightBits(const Tool &tool)
{
    return tool.name == "CInkColorBrush" || tool.name == "CInkSprayGun" || tool.name == "CInkFloodFill" ||
           tool.name == "CInkFloodFillEx";
}

// Renders the colour as part of a gradient, or not at all.
bool hasNoPenOfItsColor(const Tool &tool)
{
    return tool.name == "CInkCrayon" || tool.name == "CInkPicTure" || tool.name == "CInkText" ||
           tool.is(OwnDrawIsEmpty) || tool.name == "CInkLove" || tool.name == "CInkRgnSelect";
}

// What is on all layers after a life of `tool` in one colour.
std::array<QImage, 4> layersOf(const Tool &tool, const QColor &color)
{
    const Graph graph(tool.make());
    graph->SetCanvasSize({400, 300});
    graph->SetColor(color);
    tool.form(*graph);
    Layers formed;
    formed.draw(*graph);
    graph->FinishGraph();
    if (tool.handOver)
        tool.handOver(*graph);
    Layers layers;
    layers.page.fill(Qt::white);
    layers.draw(*graph);
    return {layers.page, layers.surface, layers.background, layers.ink};
}

template <typename Try>
void forEachColor(const Try &attempt)
{
    Random random(16);
    for (const Model model : kModels) {
        for (unsigned i = 0; i < kColors; ++i) {
            const QColor tried = color(model, random);
            SCOPED_TRACE(::testing::Message()
                         << "model " << model << ", colour " << i << ", #" << std::hex << tried.rgba());
            attempt(tried);
            if (::testing::Test::HasFatalFailure())
                return;
        }
    }
}

} // namespace

INK_OVER_ALL_TOOLS;

TEST_P(Protocol, colorKeepsItsModelUntilItIsPainted)
{
    forEachColor([](const QColor &tried) {
        const Graph object(GetParam().make());
        object->SetColor(tried);
        ASSERT_EQ(object->m_color, tried);
        ASSERT_EQ(object->m_color.spec(), tried.spec());
    });
}

TEST_P(Protocol, toolsThatTakeEightBitsOfEachChannelPaintAsWithAnRgbColor)
{
    if (!takesEightBits(GetParam()))
        return;
    forEachColor([](const QColor &tried) {
        const std::array<QImage, 4> layers = layersOf(GetParam(), tried);
        const std::array<QImage, 4> expected = layersOf(GetParam(), eightBits(tried));
        for (std::size_t i = 0; i < layers.size(); ++i)
            ASSERT_TRUE(samePixels(layers[i], expected[i])) << "layer p" << i + 1;
    });
}

TEST_P(Protocol, toolsWithAPenHandTheirColorToQtAsItIs)
{
    if (takesEightBits(GetParam()) || hasNoPenOfItsColor(GetParam()))
        return;
    const Silence silence;
    forEachColor([](const QColor &tried) {
        const Graph object(GetParam().make());
        object->SetColor(tried);
        GetParam().form(*object);
        object->FinishGraph();
        PenLog device;
        QPainter painter(&device);
        QRect area(0, 0, 400, 300);
        object->Draw(painter, area);
        QColor expected = tried;
        if (GetParam().name == "CInkHighLightPen")
            expected.setAlpha(100);
        ASSERT_FALSE(device.pens.isEmpty());
        ASSERT_TRUE(device.pens.contains(expected));
        for (const QColor &pen : device.pens)
            ASSERT_EQ(pen, expected);
    });
}

TEST(CInkCrayon, gradientIsOfTheColorAsItIs)
{
    forEachColor([](const QColor &tried) {
        CInkCrayon crayon(QSize(200, 200));
        crayon.SetColor(tried);
        crayon.m_graphData = {QPointF(20, 30), QPointF(60.5, 80), QPointF(120, 20)};
        Literal::Texture expected({200, 200});
        Literal::render(crayon, expected);
        drawn(crayon, {200, 200});
        ASSERT_TRUE(samePixels(*crayon.m_pImage, expected.pixels));
    });
}

// By hand: at hue 0 green and blue are 60 * (1 - 100 / 255) of 255, 36.47; in sixteen bits 9 373, not 36 * 257.
TEST(CInkColorBrush, passesAreOfEightBitsOfEachChannel)
{
    CInkColorBrush brush(QSize(100, 100));
    brush.SetColor(QColor::fromHsv(0, 100, 60));
    brush.m_graphData = {QPointF(20, 50), QPointF(80, 50)};
    drawn(brush, {100, 100});
    EXPECT_EQ(brush.m_color.spec(), QColor::Hsv);
    EXPECT_EQ(brush.m_color.alpha(), 60);

    QImage expected(100, 100, QImage::Format_ARGB32);
    expected.fill(0);
    QPainter painter(&expected);
    painter.setRenderHint(QPainter::Antialiasing);
    const struct
    {
        int alpha, width;
    } passes[] = {{60, 20}, {40, 16}, {60, 12}, {60, 8}};
    for (const auto &pass : passes) {
        painter.setPen(QPen(QColor(60, 36, 36, pass.alpha), pass.width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawLine(QPointF(20, 50), QPointF(80, 50));
    }
    painter.end();
    EXPECT_TRUE(samePixels(*brush.m_pImage, expected));
}
