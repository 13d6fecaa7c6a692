// The whole window of the board at 1920 x 1080 page pixels: how long a stroke takes to be seen, and a step to be
// undone.

#include "Window.h"

#include "board/canvas/Canvas.h"
#include "board/playing/Player.h"

#include "lesson/strokes/StrokeFile.h"

#include <benchmark/benchmark.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QLoggingCategory>
#include <QtCore/QThread>
#include <QtGui/QMouseEvent>

#include <ctime>
#include <vector>

using namespace Board;

void registerPages();

namespace {

constexpr QSize kPage{1920, 1080};
constexpr double kScale = 1.35; // of the recorded drawing, so that it fills the page
constexpr int kObjects = 1'000;
constexpr std::size_t kEvents = 2'000; // of the drawing, at least

std::vector<InkLesson::Stroke> recordedStrokes()
{
    QString error;
    const auto file = InkLesson::readStrokeFile(QStringLiteral(INK_STROKES "/pathology.json"), error);
    return file ? file->strokes : std::vector<InkLesson::Stroke>();
}

void send(Canvas &canvas, QEvent::Type type, const QPoint &pt)
{
    const QPointF pos = QPointF(pt) * kScale;
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, pos, pos, pos, button, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&canvas, &event);
}

// The processor time of this thread, in seconds.
double threadSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

// Sends the points of a drawing to a board, each at its time.
class Player
{
public:
    Player(Canvas &canvas, double interval)
        : m_canvas(canvas)
        , m_interval(interval)
    {
        m_clock.start();
    }

    void play(QEvent::Type type, const QPoint &pt)
    {
        m_due += m_interval;
        while (m_clock.nsecsElapsed() < qint64(m_due * 1e9)) {
            processEvents();
            QThread::usleep(50);
        }
        if (type != QEvent::MouseButtonPress) // of a pencil, which is not seen yet
            m_open.push_back(m_clock.nsecsElapsed());
        const double begin = threadSeconds();
        send(m_canvas, type, pt);
        m_work += threadSeconds() - begin;
        processEvents();
    }

    std::vector<double> waits; // seconds from each event to the painted window
    std::vector<double> works; // seconds of processor time for each painting, with the events in it

private:
    void processEvents()
    {
        const int before = application().paintings();
        const double begin = threadSeconds();
        QApplication::processEvents();
        if (application().paintings() == before)
            return;
        works.push_back(m_work + threadSeconds() - begin);
        m_work = 0;
        for (const qint64 time : m_open)
            waits.push_back(double(m_clock.nsecsElapsed() - time) * 1e-9);
        m_open.clear();
    }

    Canvas &m_canvas;
    const double m_interval; // seconds
    QElapsedTimer m_clock;
    double m_due{};
    double m_work{};
    std::vector<qint64> m_open; // times of the events that are not yet painted
};

// One iteration is the beginning of the recorded drawing.
void playStrokes(benchmark::State &state)
{
    const std::vector<InkLesson::Stroke> strokes = recordedStrokes();
    if (strokes.empty()) {
        state.SkipWithError("the recorded strokes are missing");
        return;
    }
    auto window = shownWindow(kPage);
    Canvas &canvas = window->canvas();
    for (auto iteration : state) {
        Player player(canvas, 1.0 / double(state.range(0)));
        for (auto stroke = strokes.begin(); player.waits.size() < kEvents && stroke != strokes.end(); ++stroke) {
            canvas.setColor(stroke->color);
            canvas.setInkWidth(stroke->width);
            QPoint last = stroke->points.front(); // a move to where the pointer is paints nothing
            player.play(QEvent::MouseButtonPress, last);
            for (const QPoint &pt : stroke->points) {
                if (pt != last)
                    player.play(QEvent::MouseMove, last = pt);
            }
            player.play(QEvent::MouseButtonRelease, stroke->points.back());
        }
        state.SetIterationTime(percentile(player.waits, 0.99));
        state.counters["wait_median_ms"] = percentile(player.waits, 0.5) * 1e3;
        state.counters["wait_p99_ms"] = percentile(player.waits, 0.99) * 1e3;
        state.counters["work_median_ms"] = percentile(player.works, 0.5) * 1e3;
        state.counters["work_p99_ms"] = percentile(player.works, 0.99) * 1e3;
        state.counters["work_max_ms"] = percentile(player.works, 1) * 1e3;
    }
}

// Strokes, outlines, markers and textured pens in turn, all over the page.
void drawObjects(Document &document)
{
    constexpr const char *kTools[] = {"pencil", "rectangle", "ellipse",     "highlighter",
                                      "line",   "star-5",    "color-brush", "brush"};
    for (int i = 0; i < kObjects; ++i) {
        const InkLesson::Tool *tool = InkLesson::findTool(QLatin1String(kTools[i % 8]));
        if (!tool)
            tool = InkLesson::findTool(QStringLiteral("diamond"));
        const QPoint from(40 + i * 977 % 1700, 40 + i * 619 % 900);
        Gesture gesture;
        for (int step = 0; step <= 20; ++step)
            gesture.push_back(from + QPoint(step * 6, step % 5 * 8 + step * 3));
        document.author().begin({QLatin1String(tool->name), Ink{QColor::fromHsv(i * 37 % 360, 200, 200), 4}, kPage});
        playGesture(gesture, document.author());
        document.author().finish();
    }
}

// Undoes one step, and paints the window; also once the page has grown, which is nothing to undo.
void undoStep(benchmark::State &state, bool hasGrown)
{
    auto window = shownWindow(kPage);
    drawObjects(window->document());
    if (hasGrown)
        window->document().author().grow(window->document().page().rect().size() + QSize(1, 0));
    QApplication::processEvents();
    Canvas &canvas = window->canvas();
    for (auto iteration : state) {
        const int before = application().paintings();
        canvas.undo();
        while (application().paintings() == before)
            QApplication::processEvents();
        state.PauseTiming();
        canvas.redo();
        QApplication::processEvents();
        state.ResumeTiming();
    }
    state.counters["objects"] = double(window->document().page().items().size());
}

} // namespace

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    Application app(argc, argv);
    benchmark::RegisterBenchmark("board/event", playStrokes)
        ->Arg(60)
        ->Arg(125)
        ->Arg(1000)
        ->Iterations(1)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    for (const bool hasGrown : {false, true}) {
        benchmark::RegisterBenchmark(hasGrown ? "board/undo/repainted" : "board/undo", undoStep, hasGrown)
            ->UseRealTime()
            ->Unit(benchmark::kMillisecond);
    }
    registerPages();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
}
