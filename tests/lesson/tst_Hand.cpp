// What an object in the hand shows and reports, from its first event until it is committed.

#include "lesson/pages/Hand.h"

#include "Exact.h"
#include "MessageLog.h"

#include "lesson/authoring/Author.h"

#include "PointerEvent.h"

#include <QtGui/QPainter>

#include <gtest/gtest.h>

using namespace InkLesson;

namespace {

constexpr QRgb kWhite = 0xFFFFFFFF, kRed = 0xFFFF0000, kBlue = 0xFF0000FF, kKnob = 0xFF4040FF;
constexpr QRgb kRule = 0xFFCBD8EA;
constexpr QSize kSize{400, 300};

Life fresh(const char *tool, const QColor &color = Qt::red, int width = 4)
{
    Life life{QString::fromLatin1(tool)};
    life.ink.color = color;
    life.ink.width = width;
    life.canvas = kSize;
    return life;
}

void drag(Author &author, const QPoint &from, const QPoint &to)
{
    author.feed(PT_DOWN, from);
    author.feed(PT_MOVE, to);
    author.feed(PT_UP, to);
}

void draw(Author &author, const Life &life, const QPoint &from, const QPoint &to)
{
    author.begin(life);
    drag(author, from, to);
    author.finish();
}

// White paper, or transparent ink, with what `paint` leaves on it.
template <typename Paint>
QImage painted(QImage::Format format, Paint paint)
{
    QImage image(kSize, format);
    image.fill(format == QImage::Format_RGB32 ? Qt::white : Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paint(painter);
    painter.end();
    return image;
}

void paintLine(QPainter &painter, const QColor &color, int width, const QPoint &from, const QPoint &to)
{
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawLine(QPointF(from), QPointF(to));
}

void paintBox(QPainter &painter, const QColor &color, int width, const QPoint &topLeft, const QPoint &bottomRight)
{
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    painter.drawRect(QRect(topLeft, bottomRight));
}

QImage paperWithBox()
{
    return painted(QImage::Format_RGB32, [](QPainter &painter) {
        paintBox(painter, Qt::red, 4, {100, 100}, {200, 160});
    });
}

// All that a page is painted on.
struct Layers
{
    explicit Layers(const Page &page)
        : surface(page.surface().copy())
        , picture(page.picture().copy())
        , ink(page.ink().copy())
    {
    }

    QImage surface, picture, ink;
};

QImage without(const QImage &image, const QRegion &area)
{
    QImage rest = image;
    QPainter painter(&rest);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect &part : area)
        painter.fillRect(part, Qt::white);
    painter.end();
    return rest;
}

} // namespace

class HandTest : public ::testing::Test
{
protected:
    HandTest()
    {
        lesson.pageChanged = [this](const PageId & /*page*/, const QRegion &part) { area |= part; };
    }

    const Page &page() const { return lesson.page(kFirstPage); }
    QRgb shown(int x, int y) const { return page().surface().pixel(x, y); }
    QRgb committed(int x, int y) const { return page().picture().pixel(x, y); }
    QRgb ink(int x, int y) const { return page().ink().pixel(x, y); }

    // What one event asks to be shown.
    QRegion feed(int code, const QPoint &pt)
    {
        area = QRegion();
        me.feed(code, pt);
        return area;
    }

    void expectSameOutside(const Layers &before, const QRegion &changed) const
    {
        EXPECT_TRUE(samePixels(without(page().surface(), changed), without(before.surface, changed)));
        EXPECT_TRUE(samePixels(without(page().picture(), changed), without(before.picture, changed)));
        EXPECT_TRUE(samePixels(without(page().ink(), changed), without(before.ink, changed)));
    }

    Lesson lesson{{kSize, 1}};
    QRegion area; // that was told of
    Author me{lesson, 1, [] { return qint64(0); }};
};

// Four pixels wide around y = 50: the rows 48 to 51.
TEST_F(HandTest, aStrokeComesOnAllLayersAtItsRelease)
{
    me.begin(fresh("pencil"));
    me.feed(PT_DOWN, QPoint(20, 50));
    me.feed(PT_MOVE, QPoint(80, 50));
    EXPECT_EQ(shown(50, 48), kRed);
    EXPECT_EQ(committed(50, 48), kWhite);
    EXPECT_EQ(ink(50, 48), 0U);
    me.feed(PT_UP, QPoint(81, 50));
    for (const int y : {48, 51}) {
        EXPECT_EQ(shown(50, y), kRed);
        EXPECT_EQ(committed(50, y), kRed);
        EXPECT_EQ(ink(50, y), kRed);
    }
    for (const int y : {47, 52}) {
        EXPECT_EQ(shown(50, y), kWhite);
        EXPECT_EQ(committed(50, y), kWhite);
        EXPECT_EQ(ink(50, y), 0U);
    }
}

TEST_F(HandTest, eachEventTellsWhatItChanges)
{
    me.begin(fresh("pencil"));
    // One point paints nothing yet.
    EXPECT_EQ(feed(PT_DOWN, {120, 150}), QRegion());
    // The segment (120,150)-(180,150), made 4 pixels higher below and grown by 20.
    EXPECT_EQ(feed(PT_MOVE, {180, 150}), QRegion(QRect(QPoint(100, 130), QPoint(200, 174))));
    // Where it was in the hand; what it is on the page lies within.
    EXPECT_EQ(feed(PT_UP, {180, 150}), QRegion(QRect(QPoint(100, 130), QPoint(200, 174))));
}

// The box (100,100)-(200,160) has its frame at (90,90)-(210,170) and its knob, 20 pixels wide, at (150,60).
TEST_F(HandTest, handlesAreOnTheSurfaceAlone)
{
    me.begin(fresh("rectangle"));
    drag(me, {100, 100}, {200, 160});
    EXPECT_EQ(shown(150, 60), kKnob);
    EXPECT_EQ(shown(150, 100), kRed);
    EXPECT_EQ(committed(150, 60), kWhite);
    EXPECT_EQ(committed(150, 100), kWhite);
    EXPECT_EQ(ink(150, 60), 0U);
}

TEST_F(HandTest, aPressBesideItTakesTheHandlesAway)
{
    me.begin(fresh("rectangle"));
    drag(me, {100, 100}, {200, 160});
    const Layers before(page());
    const QRegion changed = feed(PT_DOWN, {300, 20});
    EXPECT_EQ(me.hand(), nullptr);
    EXPECT_TRUE(changed.contains(QRect(140, 50, 20, 20))); // the knob
    expectSameOutside(before, changed);
    EXPECT_TRUE(samePixels(page().picture(), paperWithBox()));
    EXPECT_TRUE(samePixels(page().surface(), paperWithBox()));
    EXPECT_EQ(feed(PT_MOVE, {320, 40}), QRegion());
}

TEST_F(HandTest, lettingGoTakesTheHandlesAway)
{
    me.begin(fresh("rectangle"));
    drag(me, {100, 100}, {200, 160});
    const Layers before(page());
    area = QRegion();
    me.finish();
    EXPECT_TRUE(area.contains(QRect(140, 50, 20, 20)));
    expectSameOutside(before, area);
    EXPECT_TRUE(samePixels(page().picture(), paperWithBox()));
    EXPECT_TRUE(samePixels(page().surface(), paperWithBox()));
}

TEST_F(HandTest, whatIsDrawnIsWhatAPainterPaints)
{
    draw(me, fresh("line"), {20, 30}, {300, 200});
    draw(me, fresh("rectangle", Qt::blue, 7), {250, 250}, {50, 60});
    draw(me, fresh("arrow-line", Qt::green, 12), {300, 40}, {30, 240});
    const auto paint = [](QPainter &painter) {
        paintLine(painter, Qt::red, 4, {20, 30}, {300, 200});
        paintBox(painter, Qt::blue, 7, {50, 60}, {250, 250});
        paintLine(painter, Qt::green, 12, {300, 40}, {30, 240});
    };
    EXPECT_TRUE(samePixels(page().picture(), painted(QImage::Format_RGB32, paint)));
    EXPECT_TRUE(samePixels(page().surface(), painted(QImage::Format_RGB32, paint)));
    EXPECT_TRUE(samePixels(page().ink(), painted(QImage::Format_ARGB32_Premultiplied, paint)));
}

// It leaves states on the stack of its painter, of which Qt would complain.
TEST_F(HandTest, anArrowLineIsCleanedUpAfter)
{
    const MessageLog log;
    draw(me, fresh("arrow-line"), {20, 30}, {300, 200});
    me.undo();
    EXPECT_EQ(log.lines.size(), log.debugLines());
}

// The stroke is clipped to (-12,-12)-(62,52).
TEST_F(HandTest, noClipStaysBehind)
{
    draw(me, fresh("pencil"), {20, 20}, {30, 20});
    draw(me, fresh("line", Qt::blue), {200, 200}, {300, 200});
    EXPECT_EQ(shown(250, 200), kBlue);
    EXPECT_EQ(committed(250, 200), kBlue);
    EXPECT_EQ(ink(250, 200), kBlue);
}

TEST_F(HandTest, whatIsTooSmallIsForgotten)
{
    struct Row
    {
        const char *tool;
        QPoint from, to;
    };
    for (const Row &row : {Row{"pencil", {50, 50}, {50, 50}}, Row{"rectangle", {50, 50}, {56, 50}},
                           Row{"rounded-rectangle", {50, 50}, {50, 56}}, Row{"line", {-400, -400}, {-500, -500}}}) {
        draw(me, fresh(row.tool), row.from, row.to);
        EXPECT_EQ(me.hand(), nullptr) << row.tool;
        EXPECT_FALSE(me.canUndo()) << row.tool;
        EXPECT_EQ(shown(50, 50), kWhite) << row.tool;
    }
    draw(me, fresh("rectangle"), {50, 50}, {57, 50}); // is large enough
    EXPECT_TRUE(me.canUndo());
}

// A committed stroke is clipped 32 pixels beyond its points, at x = 68. The live one is 50 pixels thick on each side,
// so it reaches to x = 50.
TEST_F(HandTest, liveInkBeyondTheClipIsWiped)
{
    me.begin(fresh("pencil", Qt::red, 100));
    me.feed(PT_DOWN, QPoint(100, 150));
    me.feed(PT_MOVE, QPoint(110, 150));
    me.feed(PT_MOVE, QPoint(300, 200));
    EXPECT_EQ(shown(55, 150), kRed);
    EXPECT_TRUE(feed(PT_UP, {350, 250}).contains(QPoint(55, 150)));
    EXPECT_EQ(shown(55, 150), kWhite);
    EXPECT_EQ(shown(75, 150), kRed);
    EXPECT_TRUE(samePixels(page().surface(), page().picture()));
}

// The box shrinks from (100,100)-(300,250) to (100,100)-(150,120).
TEST_F(HandTest, theNewestShapeAloneIsShown)
{
    me.begin(fresh("rectangle"));
    me.feed(PT_DOWN, QPoint(100, 100));
    me.feed(PT_MOVE, QPoint(300, 250));
    EXPECT_TRUE(feed(PT_MOVE, {150, 120}).contains(QRect(QPoint(98, 98), QPoint(302, 252))));
    EXPECT_TRUE(samePixels(page().surface(), painted(QImage::Format_RGB32, [](QPainter &painter) {
                               paintBox(painter, Qt::red, 4, {100, 100}, {150, 120});
                           })));
}

// Until its release, a spray cannot be finished. Its last dot is not shown.
TEST_F(HandTest, whatCannotBeFinishedIsDropped)
{
    me.begin(fresh("spray-gun"));
    me.feed(PT_DOWN, QPoint(50, 50));
    me.feed(PT_MOVE, QPoint(60, 50));
    EXPECT_EQ(shown(50, 50), kRed);
    area = QRegion();
    me.finish();
    EXPECT_TRUE(area.contains(QPoint(50, 50)));
    EXPECT_EQ(me.hand(), nullptr);
    EXPECT_FALSE(me.canUndo());
    EXPECT_EQ(shown(50, 50), kWhite);
}

// Draws, and where the tool lets it be edited drags the lower right corner and the knob, moves it and lets it go.
TEST_F(HandTest, nothingChangesOutsideWhatIsToldOf)
{
    const std::pair<int, QPoint> events[] = {{PT_DOWN, {100, 100}}, {PT_MOVE, {103, 130}}, {PT_MOVE, {180, 140}},
                                             {PT_MOVE, {150, 90}},  {PT_UP, {200, 160}},   {PT_DOWN, {210, 170}},
                                             {PT_MOVE, {240, 200}}, {PT_UP, {250, 210}},   {PT_DOWN, {170, 60}},
                                             {PT_MOVE, {260, 90}},  {PT_UP, {250, 140}},   {PT_DOWN, {160, 140}},
                                             {PT_MOVE, {140, 150}}, {PT_UP, {180, 160}},   {PT_DOWN, {390, 10}}};
    draw(me, fresh("line", Qt::blue), {5, 5}, {390, 290});
    for (const Tool &tool : tools()) {
        SCOPED_TRACE(tool.name);
        me.begin(fresh(tool.name, Qt::red, 6));
        for (const auto &[code, pt] : events) {
            const Layers before(page());
            expectSameOutside(before, feed(code, pt));
        }
        const Layers before(page()); // a tool of several gestures is still being drawn
        area = QRegion();
        me.finish();
        expectSameOutside(before, area);
        EXPECT_EQ(me.hand(), nullptr);
        EXPECT_TRUE(samePixels(page().surface(), page().picture()));
    }
}

TEST_F(HandTest, theObjectStaysInTheHandWhenThePageGrows)
{
    Lesson small{{{300, 200}, 1}};
    Author author{small, 1, [] { return qint64(0); }};
    author.begin(fresh("rectangle"));
    drag(author, {100, 100}, {200, 160});
    author.grow(kSize);
    EXPECT_EQ(small.page(kFirstPage).surface().pixel(150, 60), kKnob);
    EXPECT_EQ(small.page(kFirstPage).picture().pixel(150, 100), kWhite);
    author.finish();
    EXPECT_TRUE(samePixels(small.page(kFirstPage).picture(), paperWithBox()));
    EXPECT_TRUE(samePixels(small.page(kFirstPage).surface(), paperWithBox()));
}

// The eraser's stroke goes on below the page that it was made on.
TEST_F(HandTest, anEraserShowsPaperThatHasGrown)
{
    me.setPaper({Paper::Kind::Ruled, {}});
    draw(me, fresh("line"), {200, 20}, {200, 280});
    draw(me, fresh("eraser", Qt::red, 40), {200, 150}, {200, 500});
    me.grow({400, 600});
    const auto expectErased = [this] {
        EXPECT_EQ(committed(200, 100), kRed);
        EXPECT_EQ(committed(200, 200), kWhite);
        EXPECT_EQ(committed(200, 320), kRule);
        EXPECT_EQ(committed(200, 321), kWhite);
    };
    expectErased();
    me.undo();
    EXPECT_EQ(committed(200, 200), kRed);
    me.redo();
    expectErased();
}
