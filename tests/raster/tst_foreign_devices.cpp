// Raster tools and the eraser on layers that are no images, or not the images that they expect: what can be painted is,
// the rest is left alone, and nothing is said.

#include "CInkEraser.h"
#include "CInkFloodFill.h"
#include "CInkFloodFillEx.h"
#include "CInkPicTure.h"
#include "CInkRgnSelect.h"
#include "CInkText.h"
#include "Canvas.h"
#include "Exact.h"
#include "MessageLog.h"

#include <QtCore/QBuffer>
#include <QtGui/QPdfWriter>
#include <QtGui/QPicture>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <array>
#include <cstdlib>
#include <functional>
#include <memory>

namespace {

constexpr QSize kSize(120, 90);

// Pixmaps and widgets need an application.
class Application : public ::testing::Environment
{
public:
    void SetUp() override { m_application = std::make_unique<QApplication>(m_count, m_names); }
    void TearDown() override { m_application.reset(); }

private:
    int m_count{1};
    char m_name[20] = "tst_foreign_devices";
    char *m_names[2] = {m_name, nullptr};
    std::unique_ptr<QApplication> m_application;
};

[[maybe_unused]] const auto *const s_application = ::testing::AddGlobalTestEnvironment(new Application);

using Paint = std::function<void(QPaintDevice *)>;

class PaintedWidget : public QWidget
{
public:
    PaintedWidget(const QImage &picture, const Paint &paint)
        : m_picture(picture)
        , m_paint(paint)
    {
        setAttribute(Qt::WA_NoSystemBackground);
        resize(picture.size());
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter(this).drawImage(0, 0, m_picture);
        m_paint(this);
    }

private:
    QImage m_picture;
    Paint m_paint;
};

// Each shows `picture`, lets `paint` paint on it, and returns what is then to be seen.
QImage onPixmap(const QImage &picture, const Paint &paint)
{
    QPixmap pixmap = QPixmap::fromImage(picture);
    paint(&pixmap);
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage onWidget(const QImage &picture, const Paint &paint)
{
    PaintedWidget widget(picture, paint);
    QImage seen = blankCanvas(picture.size());
    widget.render(&seen, QPoint(), QRegion(), QWidget::DrawChildren);
    return seen;
}

QImage onRecording(const QImage &picture, const Paint &paint)
{
    QPicture before, recording;
    QPainter(&before).drawImage(0, 0, picture);
    paint(&recording);
    return painted(
        [&](QPainter &painter) {
            painter.drawPicture(0, 0, before);
            painter.drawPicture(0, 0, recording);
        },
        picture.size());
}

// What a page shows is not looked at.
QImage onPdf(const QImage &picture, const Paint &paint)
{
    QByteArray bytes;
    QBuffer file(&bytes);
    file.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&file);
        paint(&writer);
    }
    EXPECT_TRUE(bytes.startsWith("%PDF"));
    return picture;
}

QImage onNothing(const QImage &picture, const Paint &paint)
{
    paint(nullptr);
    return picture;
}

struct Device
{
    const char *name;
    QImage (*show)(const QImage &, const Paint &);
    bool isSeen; // compared with an image in its place
};

const Device kDevices[] = {
    {"pixmap", onPixmap, true}, {"widget", onWidget, true},    {"recording", onRecording, true},
    {"pdf", onPdf, false},      {"nothing", onNothing, false},
};

// Page, surface, background, ink: numbers 1 to 4 at 0 to 3.
using Images = std::array<QImage, 4>;

Images usedLayers(const QSize &size = kSize)
{
    Images layers{blankCanvas(size, Qt::white), blankCanvas(size), blankCanvas(size, QColor(20, 120, 220)),
                  blankCanvas(size, QColor(200, 40, 40, 120))};
    QPainter(&layers[0]).fillRect(30, 20, 20, 50, Qt::black);
    return layers;
}

void drawOn(CInkGraph &graph, Images &layers)
{
    std::array<QPainter, 4> painters;
    for (std::size_t i = 0; i < layers.size(); ++i)
        painters[i].begin(&layers[i]);
    graph.Draw(painters[0], painters[1], painters[2], painters[3], QRect({}, kSize), 0, 0);
}

// Draws with `device` in the place of layer `number`, and leaves in its image what is to be seen there.
void drawOn(CInkGraph &graph, Images &layers, int number, const Device &device)
{
    const auto foreign = std::size_t(number - 1);
    layers[foreign] = device.show(layers[foreign], [&](QPaintDevice *target) {
        std::array<QPainter, 4> painters;
        for (std::size_t i = 0; i < layers.size(); ++i) {
            if (i != foreign)
                painters[i].begin(&layers[i]);
            else if (target)
                painters[i].begin(target);
        }
        graph.Draw(painters[0], painters[1], painters[2], painters[3], QRect({}, kSize), 0, 0);
    });
}

template <typename Class>
std::unique_ptr<CInkGraph> fill()
{
    auto fill = std::make_unique<Class>(kSize);
    fill->SetColor(Qt::darkGreen);
    feed(*fill, PT_DOWN, 10, 10);
    fill->FinishGraph();
    return fill;
}

std::unique_ptr<CInkGraph> selection()
{
    auto select = std::make_unique<CInkRgnSelect>();
    drag(*select, {20, 10}, {70, 60});
    return select;
}

QImage pictureToPlace()
{
    QImage image(40, 30, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::magenta);
    return image;
}

std::unique_ptr<CInkGraph> placed()
{
    QImage image = pictureToPlace();
    auto picture = std::make_unique<CInkPicTure>(&image, QPoint(20, 15));
    picture->FinishGraph();
    return picture;
}

std::unique_ptr<CInkGraph> text()
{
    QImage image = pictureToPlace();
    auto text = std::make_unique<CInkText>();
    drag(*text, {5, 5}, {110, 80});
    text->SetTextImage(&image);
    return text;
}

std::unique_ptr<CInkGraph> eraser()
{
    auto eraser = std::make_unique<CInkEraser>();
    eraser->SetWidth(12);
    drag(*eraser, {20, 20}, {80, 60});
    return eraser;
}

// `sources` are the layers whose pixels a tool reads. Where one of them is no image, `lost` are the layers that stay as
// they are: what comes from the pixels is missing there. On `composes` another composition mode is set.
struct Tool
{
    const char *name;
    std::unique_ptr<CInkGraph> (*make)();
    std::string sources;
    std::string lost;
    std::string composes;
};

const Tool kTools[] = {
    {"CInkFloodFill", fill<CInkFloodFill>, "1", "124", ""},
    {"CInkFloodFillEx", fill<CInkFloodFillEx>, "1", "124", ""},
    {"CInkRgnSelect", selection, "3", "1", "4"},
    {"CInkPicTure", placed, "", "", ""},
    {"CInkText", text, "", "", ""},
    {"CInkEraser", eraser, "3", "12", "14"},
};

bool contains(const std::string &numbers, int number)
{
    return numbers.find(char('0' + number)) != std::string::npos;
}

std::ostream &operator<<(std::ostream &out, const Tool &tool)
{
    return out << tool.name;
}

class ForeignDevices : public ::testing::TestWithParam<Tool>
{
};

// Nothing is said but the tools' lines at debug level, and what Qt says of painters that are not active and of pages,
// which know no composition modes.
void expectQuiet(const MessageLog &log, const Device &device, bool composes)
{
    for (const MessageLog::Line &line : log.lines) {
        const bool onIdle = device.show == onNothing && line.text.startsWith("QPainter::");
        const bool onPage = device.show == onPdf && composes &&
                            line.text == "QPainter::setCompositionMode: PorterDuff modes not supported on device";
        EXPECT_TRUE(line.type == QtDebugMsg || onIdle || onPage) << line.text.toStdString();
    }
}

// Every channel within a level of formats that have four bits to a channel.
bool isNear(QRgb a, QRgb b)
{
    return std::abs(qRed(a) - qRed(b)) <= 17 && std::abs(qGreen(a) - qGreen(b)) <= 17 &&
           std::abs(qBlue(a) - qBlue(b)) <= 17;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Tools, ForeignDevices, ::testing::ValuesIn(kTools),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_P(ForeignDevices, whatCanBePaintedIs)
{
    const Tool &tool = GetParam();
    Images whole = usedLayers();
    {
        const MessageLog log;
        drawOn(*tool.make(), whole);
    }
    const Images before = usedLayers();
    EXPECT_NE(whole, before);
    for (const Device &device : kDevices) {
        for (const int number : {1, 2, 3, 4}) {
            SCOPED_TRACE(::testing::Message() << device.name << " as layer " << number);
            const MessageLog log;
            Images layers = usedLayers();
            drawOn(*tool.make(), layers, number, device);
            for (const int other : {1, 2, 3, 4}) {
                const auto i = std::size_t(other - 1);
                const bool lost = contains(tool.sources, number) && contains(tool.lost, other);
                if (other == number && !device.isSeen)
                    continue;
                EXPECT_TRUE(samePixels(layers[i], lost ? before[i] : whole[i])) << "layer " << other;
            }
            expectQuiet(log, device, contains(tool.composes, number));
        }
    }
}

TEST_P(ForeignDevices, noLayerIsAnImage)
{
    for (const Device &device : kDevices) {
        SCOPED_TRACE(device.name);
        const MessageLog log;
        const auto graph = GetParam().make();
        const QImage blank = blankCanvas(kSize);
        int painters = 0;
        device.show(blank, [&](QPaintDevice *first) {
            device.show(blank, [&](QPaintDevice *second) {
                device.show(blank, [&](QPaintDevice *third) {
                    device.show(blank, [&](QPaintDevice *fourth) {
                        QPainter p1, p2, p3, p4;
                        for (const auto &[painter, target] :
                             {std::pair(&p1, first), {&p2, second}, {&p3, third}, {&p4, fourth}})
                            painters += target && painter->begin(target);
                        graph->Draw(p1, p2, p3, p4, QRect({}, kSize), 0, 0);
                    });
                });
            });
        });
        EXPECT_EQ(painters, device.show == onNothing ? 0 : 4);
        expectQuiet(log, device, !GetParam().composes.empty());
    }
}

TEST_P(ForeignDevices, layersOfOtherSizesThanTheCanvas)
{
    const QSize sizes[] = {{1, 1}, {40, 30}, {300, 20}, {500, 400}};
    for (const QSize &size : sizes) {
        for (const std::size_t odd : {0, 1, 2, 3}) {
            SCOPED_TRACE(::testing::Message() << size.width() << " x " << size.height() << " as layer " << odd + 1);
            const MessageLog log;
            Images layers = usedLayers();
            layers[odd] = usedLayers(size)[odd];
            drawOn(*GetParam().make(), layers);
            EXPECT_EQ(layers[odd].size(), size);
            for (const MessageLog::Line &line : log.lines)
                EXPECT_EQ(line.type, QtDebugMsg) << line.text.toStdString();
        }
    }
}

TEST_P(ForeignDevices, layersOfEveryFormat)
{
    Images whole = usedLayers();
    {
        const MessageLog log;
        drawOn(*GetParam().make(), whole);
    }
    for (int format = QImage::Format_Mono; format < QImage::NImageFormats; ++format) {
        if (format == QImage::Format_Indexed8)
            continue; // no painter paints on it
        SCOPED_TRACE(::testing::Message() << "format " << format);
        const MessageLog log;
        Images layers = usedLayers();
        for (QImage &layer : layers)
            layer = layer.convertToFormat(QImage::Format(format));
        drawOn(*GetParam().make(), layers);
        for (std::size_t i = 0; i < layers.size(); ++i)
            EXPECT_EQ(layers[i].format(), QImage::Format(format));

        const QPixelFormat pixels = layers[0].pixelFormat();
        if (pixels.colorModel() != QPixelFormat::RGB || pixels.bitsPerPixel() < 16)
            continue;
        // The page is opaque in every format that has colours.
        for (const QPoint &at : {QPoint(5, 5), QPoint(40, 40), QPoint(60, 45), QPoint(100, 80)})
            EXPECT_TRUE(isNear(layers[0].pixel(at), whole[0].pixel(at)))
                << at.x() << ',' << at.y() << std::hex << " is " << layers[0].pixel(at);
    }
}

TEST(ForeignDevicesOfSelection, inkThatIsNoImageIsNotLifted)
{
    for (const Device &device : kDevices) {
        const MessageLog log;
        Images layers = usedLayers();
        const auto graph = selection();
        drawOn(*graph, layers, 4, device);
        EXPECT_EQ(graph->m_pImage, nullptr) << device.name;
    }
}

TEST(ForeignDevicesOfFills, pageThatIsNoImageLeavesTheFillUndone)
{
    for (const Device &device : kDevices) {
        const MessageLog log;
        Images layers = usedLayers();
        CInkFloodFill fill(kSize);
        feed(fill, PT_DOWN, 10, 10);
        drawOn(fill, layers, 1, device);
        EXPECT_EQ(fill.m_bFilled, 0) << device.name;
        drawOn(fill, layers);
        EXPECT_EQ(fill.m_bFilled, 1) << device.name;
    }
}
