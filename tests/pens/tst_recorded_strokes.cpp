// Strokes that people drew, played as pencil strokes onto the layers of a host.

#include "CInkPencil.h"
#include "Canvas.h"
#include "Exact.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtGui/QPainterPath>

#include <gtest/gtest.h>

#include <memory>

namespace {

struct Stroke
{
    QColor color;
    int width;
    QVector<QPoint> points; // at least two
};

struct Recording
{
    QSize page;
    QVector<Stroke> strokes;
};

Recording load(const QString &name)
{
    QFile file(QStringLiteral(INK_STROKES "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QJsonObject root = QJsonDocument::fromJson(file.readAll()).object();
    Recording recording{{root["width"].toInt(), root["height"].toInt()}, {}};
    for (const QJsonValue &entry : root["strokes"].toArray()) {
        Stroke stroke{QColor(entry["color"].toString()), entry["width"].toInt(), {}};
        for (const QJsonValue &point : entry["points"].toArray())
            stroke.points.append(QPoint(int(point[0].toDouble()), int(point[1].toDouble())));
        recording.strokes.append(stroke);
    }
    return recording;
}

int pointsOf(const Recording &recording)
{
    int count = 0;
    for (const Stroke &stroke : recording.strokes)
        count += stroke.points.size();
    return count;
}

int codeOf(const Stroke &stroke, int i)
{
    if (i == 0)
        return PT_DOWN;
    return i == stroke.points.size() - 1 ? PT_UP : PT_MOVE;
}

// The first `count` points of a stroke at once.
void paintDirectly(QPainter &painter, const Stroke &stroke, int count)
{
    QPainterPath path(stroke.points[0]);
    for (int i = 1; i < count; ++i)
        path.quadTo(stroke.points[i - 1], stroke.points[i]);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QBrush(stroke.color), stroke.width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
}

QImage paintedDirectly(const Recording &recording)
{
    return painted(
        [&](QPainter &painter) {
            for (const Stroke &stroke : recording.strokes)
                paintDirectly(painter, stroke, stroke.points.size());
        },
        recording.page);
}

// Feeds events to one pencil after the other and repaints what they report.
class Host
{
public:
    explicit Host(const QSize &size)
        : layers(size)
    {
    }

    void begin(const Stroke &stroke)
    {
        m_pencil = std::make_unique<CInkPencil>();
        m_pencil->SetColor(stroke.color);
        m_pencil->SetWidth(stroke.width);
    }

    void feedAndRepaint(int code, const QPoint &pt)
    {
        QRect update;
        m_pencil->AddPoint(code, pt, update);
        repaint(update);
    }

    void feedOnly(int code, const QPoint &pt)
    {
        QRect update;
        m_pencil->AddPoint(code, pt, update);
    }

    void repaint(const QRect &update)
    {
        const QRect dirty = (update | m_pencil->GetUpdateRect()) & layers.page.rect();
        for (QPainter *painter : {&layers.p1, &layers.p2, &layers.p3, &layers.p4})
            painter->setClipping(false);
        layers.p2.setCompositionMode(QPainter::CompositionMode_Source);
        layers.p2.drawImage(dirty.topLeft(), layers.page, dirty);
        layers.p2.setCompositionMode(QPainter::CompositionMode_SourceOver);
        m_pencil->Draw(layers.p1, layers.p2, layers.p3, layers.p4, dirty, 0, 0);
    }

    CInkPencil &pencil() { return *m_pencil; }

    Layers layers;

private:
    std::unique_ptr<CInkPencil> m_pencil;
};

void expectLayers(const Layers &layers, const QImage &expected)
{
    EXPECT_FALSE(isBlank(expected));
    EXPECT_TRUE(samePixels(layers.ink, expected));
    EXPECT_TRUE(samePixels(layers.page, expected));
    EXPECT_TRUE(samePixels(layers.surface, expected));
    EXPECT_TRUE(isBlank(layers.background));
}

struct File
{
    const char *name;
    int strokes;
    int points;
};

void PrintTo(const File &file, std::ostream *out)
{
    *out << file.name;
}

class RecordedStrokes : public ::testing::TestWithParam<File>
{
protected:
    void SetUp() override
    {
        recording = load(GetParam().name);
        if (recording.strokes.isEmpty())
            GTEST_SKIP() << "no recorded strokes at " INK_STROKES "/" << GetParam().name;
    }

    Recording recording;
};

} // namespace

TEST_P(RecordedStrokes, fileHoldsItsStrokes)
{
    EXPECT_EQ(recording.page, QSize(1280, 800));
    EXPECT_EQ(recording.strokes.size(), GetParam().strokes);
    EXPECT_EQ(pointsOf(recording), GetParam().points);
}

// Repaints at each release only.
TEST_P(RecordedStrokes, committedStrokesLookAsPaintedAtOnce)
{
    Host host(recording.page);
    for (const Stroke &stroke : recording.strokes) {
        host.begin(stroke);
        for (int i = 0; i < stroke.points.size() - 1; ++i)
            host.feedOnly(codeOf(stroke, i), stroke.points[i]);
        host.feedAndRepaint(PT_UP, stroke.points.last());
        EXPECT_EQ(host.pencil().m_bFinished, 1);
        EXPECT_EQ(host.pencil().GetPointCount(), stroke.points.size());
    }
    expectLayers(host.layers, paintedDirectly(recording));
}

INSTANTIATE_TEST_SUITE_P(Files, RecordedStrokes,
                         ::testing::Values(File{"biology.json", 159, 7462}, File{"pathology.json", 280, 13747},
                                           File{"line-drawings.json", 66, 4997}, File{"maps.json", 64, 1190}));

// Repaints after every event; the surface is looked at in mid-stroke too.
TEST(RecordedStrokesLive, growingStrokesLookAsPaintedAtOnce)
{
    const Recording recording = load("maps.json");
    if (recording.strokes.isEmpty())
        GTEST_SKIP() << "no recorded strokes at " INK_STROKES "/maps.json";

    Host host(recording.page);
    QImage committed = blankCanvas(recording.page);
    for (int s = 0; s < recording.strokes.size(); ++s) {
        SCOPED_TRACE(::testing::Message() << "stroke " << s);
        const Stroke &stroke = recording.strokes[s];
        host.begin(stroke);
        for (int i = 0; i < stroke.points.size(); ++i) {
            host.feedAndRepaint(codeOf(stroke, i), stroke.points[i]);
            if (i != stroke.points.size() / 2)
                continue;
            QImage expected = committed;
            QPainter painter(&expected);
            paintDirectly(painter, stroke, i + 1);
            painter.end();
            EXPECT_TRUE(samePixels(host.layers.surface, expected));
            EXPECT_TRUE(samePixels(host.layers.page, committed));
            EXPECT_TRUE(samePixels(host.layers.ink, committed));
        }
        QPainter painter(&committed);
        paintDirectly(painter, stroke, stroke.points.size());
    }
    expectLayers(host.layers, committed);
    EXPECT_TRUE(samePixels(committed, paintedDirectly(recording)));
}
