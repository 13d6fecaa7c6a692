// The debug lines of the rectangle and of the picture: as they are while the category "default" is on, not even put
// together while it is off.

#include "CInkPicTure.h"
#include "CInkRectangle.h"
#include "Canvas.h"
#include "MessageLog.h"

#include <QtCore/QLoggingCategory>

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <new>

namespace {

int s_allocations = 0;

// Switches the category's debug level for the length of a scope.
class DebugLevel
{
public:
    explicit DebugLevel(bool isOn) { set(isOn); }
    ~DebugLevel() { set(true); }

private:
    Q_DISABLE_COPY(DebugLevel)
    static void set(bool isOn) { QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, isOn); }
};

struct Case
{
    const char *name;
    std::unique_ptr<CInkGraph> (*make)();
    const char *line;
};

void PrintTo(const Case &row, std::ostream *out)
{
    *out << row.name;
}

std::unique_ptr<CInkGraph> box()
{
    auto graph = std::make_unique<CInkRectangle>();
    feed(*graph, PT_DOWN, 100, 100);
    feed(*graph, PT_MOVE, 200, 150);
    return graph;
}

std::unique_ptr<CInkGraph> picture()
{
    QImage image(200, 100, QImage::Format_RGB32);
    image.fill(Qt::red);
    return std::make_unique<CInkPicTure>(&image, QPoint(100, 80));
}

class DebugLines : public ::testing::TestWithParam<Case>
{
protected:
    void SetUp() override { painter.setClipRect(QRect(17, 19, 5, 5)); }

    // The allocations of one Draw, of which a line that is put together takes some.
    int draw()
    {
        QRect none;
        const int before = s_allocations;
        graph->Draw(painter, none);
        return s_allocations - before;
    }

    std::unique_ptr<CInkGraph> graph{GetParam().make()};
    QImage image = blankCanvas();
    QPainter painter{&image};
};

} // namespace

void *operator new(std::size_t bytes)
{
    ++s_allocations;
    if (void *memory = std::malloc(bytes))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t /*bytes*/) noexcept
{
    std::free(memory);
}

TEST_P(DebugLines, textIsKept)
{
    const MessageLog log;
    draw();
    ASSERT_EQ(log.lines.size(), 1);
    EXPECT_EQ(log.lines[0].type, QtDebugMsg);
    EXPECT_EQ(log.lines[0].category.toStdString(), "default");
    EXPECT_EQ(log.lines[0].text.toStdString(), GetParam().line);
}

TEST_P(DebugLines, nothingIsPutTogetherForACategoryThatIsOff)
{
    const MessageLog log;
    draw(); // what is allocated only once
    painter.setClipRect(QRect(17, 19, 5, 5));
    const int withLine = draw();
    EXPECT_EQ(log.lines.size(), 2);

    const DebugLevel off(false);
    painter.setClipRect(QRect(17, 19, 5, 5));
    EXPECT_LT(draw(), withLine);
    EXPECT_EQ(log.lines.size(), 2);
}

TEST_P(DebugLines, paintingAndItsClipDoNotDependOnTheCategory)
{
    const MessageLog log;
    draw();
    const QRectF clip = painter.clipBoundingRect();
    const QImage loud = image.copy();
    painter.setClipping(false);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(image.rect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);

    const DebugLevel off(false);
    painter.setClipRect(QRect(17, 19, 5, 5));
    draw();
    EXPECT_EQ(painter.clipBoundingRect(), clip);
    EXPECT_FALSE(isBlank(loud));
    EXPECT_EQ(image, loud);
}

INSTANTIATE_TEST_SUITE_P(Tools, DebugLines,
                         ::testing::Values(Case{"rectangle", box,
                                                "CInkRectangle::Draw clip QRect(88,88 125x75) before "
                                                "QRectF(17,19 5x5) after QRectF(88,88 125x75)"},
                                           Case{"picture", picture,
                                                "CINKPicture QRectF(100,80 200x100) QRectF(0,0 200x100)"}),
                         [](const auto &row) { return std::string(row.param.name); });
