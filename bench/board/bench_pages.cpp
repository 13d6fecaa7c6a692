// The window of the board with a page of ten thousand objects: how long it takes until a change of one of them is seen.

#include "Window.h"

#include "board/canvas/Canvas.h"
#include "board/playing/Player.h"

#include "lesson/authoring/Author.h"
#include "lesson/storage/LessonFile.h"

#include "PointerEvent.h"

#include <benchmark/benchmark.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>
#include <QtGui/QMouseEvent>

#include <cmath>
#include <ctime>
#include <functional>
#include <random>

using namespace Board;

namespace {

constexpr int kObjects = 10'000;
constexpr int kAuthor = 1; // who has drawn them, and changes them
constexpr int kChanges = 200;
constexpr int kPatience = 1000; // milliseconds without a painting

// Strokes, outlines, markers and textured pens in turn, of 24 to 300 pixels, all over the page.
void drawObjects(InkLesson::Lesson &lesson, const InkLesson::PageId &id = InkLesson::kFirstPage, int count = kObjects)
{
    constexpr const char *kTools[] = {"pencil", "rectangle", "ellipse",     "highlighter",
                                      "line",   "star-5",    "color-brush", "brush"};
    std::mt19937 random(1);
    const auto below = [&random](int bound) { return int(random() % unsigned(bound)); };
    const QSize page = lesson.header().size;
    const InkLesson::Lesson::Batch batch(lesson);
    const int before = lesson.history().lastNumber(kAuthor);
    for (int i = 0; i < count; ++i) {
        const QSize size(24 + below(277), 24 + below(277));
        const QPoint from(below(page.width() - size.width()), below(page.height() - size.height()));
        Gesture gesture;
        for (int step = 0; step <= 20; ++step)
            gesture.push_back(from + QPoint(size.width() * step / 20, size.height() * (step + step % 5) / 24));
        const Ink ink{QColor::fromHsv(i * 37 % 360, 200, 200), 4};
        const InkLesson::Tool *tool = InkLesson::findTool(QLatin1String(kTools[i % 8]));
        InkLesson::Life life{QLatin1String(tool->name), ink, page};
        for (const InkLesson::PointerAct &act : pointerActs(InkLesson::Stroke{ink.color, ink.width, gesture}, *tool))
            life.acts.emplace_back(act);
        if (tool->hasHandles)
            life.acts.emplace_back(InkLesson::FinishAct());
        const int number = before + i + 1;
        lesson.apply({{kAuthor, number}, number, 0, id, InkLesson::Draw{exactLife(std::move(life))}});
    }
}

// A file of such a page, made once.
QString lessonFile(const QSize &page)
{
    static const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("%1.inkboard").arg(page.width()));
    if (!QFile::exists(name)) {
        InkLesson::Lesson lesson({page});
        drawObjects(lesson);
        InkLesson::saveLesson(lesson, name);
    }
    return name;
}

void send(Canvas &canvas, QEvent::Type type, const QPoint &pt)
{
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, pt, pt, pt, button, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&canvas, &event);
}

void tap(Canvas &canvas, const QPoint &pt)
{
    send(canvas, QEvent::MouseButtonPress, pt);
    send(canvas, QEvent::MouseButtonRelease, pt);
}

// Of what is resident, in MB.
double memory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

// Seconds until what was done was painted in the window, and those that the process worked for it.
struct Waits
{
    std::vector<double> seconds;
    std::vector<double> works;
};

double workedSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

// Notes them for one act; nothing where nothing is painted.
void seen(Waits &waits, const std::function<void()> &act)
{
    QApplication::processEvents();
    QElapsedTimer clock;
    clock.start();
    const double worked = workedSeconds();
    const int before = application().paintings();
    act();
    while (application().paintings() == before && clock.elapsed() < kPatience)
        QApplication::processEvents();
    if (application().paintings() == before)
        return;
    waits.seconds.push_back(double(clock.nsecsElapsed()) * 1e-9);
    waits.works.push_back(workedSeconds() - worked);
}

class Window
{
public:
    explicit Window(const QSize &size)
        : m_window(shownWindow(size))
    {
        m_window->document().open(lessonFile(size));
        QApplication::processEvents();
    }

    MainWindow &window() { return *m_window; }
    Canvas &canvas() { return m_window->canvas(); }
    Document &document() { return m_window->document(); }
    void choose(const char *tool) { canvas().setTool(*findTool(QLatin1String(tool))); }

    // Somewhere on the ink of a shape, where the pick tool takes that.
    QPoint somewhere()
    {
        for (;;) {
            const auto &items = document().page().items();
            const auto &item = items[m_random() % items.size()];
            if (!item->tool || !item->tool->hasHandles)
                continue;
            const QRect reach = item->reach & document().page().rect();
            for (int tries = 0; tries < 8; ++tries) {
                const QPoint pt(reach.left() + int(m_random() % unsigned(reach.width())), reach.center().y());
                if (document().page().topmostAt(pt) == item->id)
                    return pt;
            }
        }
    }

private:
    std::unique_ptr<MainWindow> m_window;
    std::mt19937 m_random{2};
};

void report(benchmark::State &state, const Waits &waits)
{
    state.SetIterationTime(percentile(waits.seconds, 0.99));
    state.counters["median_ms"] = percentile(waits.seconds, 0.5) * 1e3;
    state.counters["p99_ms"] = percentile(waits.seconds, 0.99) * 1e3;
    state.counters["work_median_ms"] = percentile(waits.works, 0.5) * 1e3;
    state.counters["work_p99_ms"] = percentile(waits.works, 0.99) * 1e3;
    state.counters["memory_mb"] = memory();
}

QSize sizeOf(const benchmark::State &state)
{
    return {int(state.range(0)), int(state.range(0)) * 9 / 16};
}

void pick(benchmark::State &state)
{
    for (auto iteration : state) {
        Window window(sizeOf(state));
        window.choose("pick");
        Waits waits;
        for (int i = 0; i < kChanges; ++i) {
            const QPoint pt = window.somewhere();
            seen(waits, [&] { tap(window.canvas(), pt); });
            seen(waits, [&] { window.canvas().finish(); });
        }
        report(state, waits);
    }
}

void change(benchmark::State &state, const std::function<void(Canvas &, int)> &act)
{
    for (auto iteration : state) {
        Window window(sizeOf(state));
        window.choose("pick");
        Waits waits;
        for (int i = 0; i < kChanges; ++i) {
            tap(window.canvas(), window.somewhere());
            seen(waits, [&] { act(window.canvas(), i); });
            window.canvas().finish();
        }
        report(state, waits);
    }
}

// A drag of 300 pixels over dense objects, a move of 10 pixels at a time.
void removeAlong(benchmark::State &state)
{
    for (auto iteration : state) {
        Window window(sizeOf(state));
        window.choose("remove");
        Waits waits;
        for (int row = 1; row < 8; ++row) {
            const QPoint from(sizeOf(state).width() / 3, sizeOf(state).height() * row / 8);
            seen(waits, [&] { send(window.canvas(), QEvent::MouseButtonPress, from); });
            for (int x = 10; x <= 300; x += 10)
                seen(waits, [&] { send(window.canvas(), QEvent::MouseMove, from + QPoint(x, 0)); });
            send(window.canvas(), QEvent::MouseButtonRelease, from + QPoint(300, 0));
        }
        report(state, waits);
    }
}

void paper(benchmark::State &state)
{
    for (auto iteration : state) {
        Window window(sizeOf(state));
        Waits waits;
        for (int i = 0; i < 20; ++i) {
            const auto kind = i % 2 == 0 ? InkLesson::Paper::Kind::Ruled : InkLesson::Paper::Kind::Squared;
            seen(waits, [&] { window.document().author().setPaper({kind, {}}); });
        }
        report(state, waits);
    }
}

void undo(benchmark::State &state)
{
    for (auto iteration : state) {
        Window window(sizeOf(state));
        Waits waits;
        for (int i = 0; i < kChanges; ++i)
            seen(waits, [&] { window.canvas().undo(); });
        for (int i = 0; i < kChanges; ++i)
            seen(waits, [&] { window.canvas().redo(); });
        report(state, waits);
    }
}

// Seconds until the page is painted again after one object was put in its own stead.
Waits repaints(InkLesson::Page &page, int times)
{
    std::mt19937 random(3);
    Waits waits;
    for (int i = 0; i < times; ++i) {
        const std::shared_ptr<InkLesson::Item> item = page.items()[random() % page.items().size()];
        QElapsedTimer clock;
        clock.start();
        const double worked = workedSeconds();
        page.put(item, page.items().size());
        page.repaint();
        waits.seconds.push_back(double(clock.nsecsElapsed()) * 1e-9);
        waits.works.push_back(workedSeconds() - worked);
    }
    return waits;
}

// By sprites, and by the objects themselves in the same run.
void repaint(benchmark::State &state)
{
    constexpr int kTimes = 50;
    for (auto iteration : state) {
        Document document(sizeOf(state));
        document.open(lessonFile(sizeOf(state)));
        InkLesson::Page &page = document.lesson().page(document.author().page());
        page.surface();
        const Waits sprites = repaints(page, kTimes);
        page.keepSprites(false);
        const Waits objects = repaints(page, kTimes);
        report(state, sprites);
        state.counters["ratio"] = percentile(objects.works, 0.5) / percentile(sprites.works, 0.5);
    }
}

// Turns to pages that were left, with `count` objects on each; others are shown in between.
void turn(benchmark::State &state, int count)
{
    constexpr int kPages = 5;
    for (auto iteration : state) {
        const auto window = shownWindow(sizeOf(state));
        Document &document = window->document();
        for (int page = 0; page < kPages; ++page) {
            if (page > 0)
                document.addPage(page);
            drawObjects(document.lesson(), document.author().page(), count);
        }
        Waits waits;
        for (int i = 0; i < 4 * kPages; ++i) {
            Waits first; // of each page, when it is painted
            seen(i < kPages ? first : waits, [&] { document.showPage(i % kPages); });
            QThread::msleep(400); // nobody waits
            QApplication::processEvents();
        }
        report(state, waits);
        std::size_t packed = 0;
        for (int page = 0; page < kPages; ++page)
            packed = std::max(packed, document.page(page).packedBytes());
        state.counters["packed_kb"] = double(packed) / 1024;
    }
}

// A stroke of one of several people, who goes round and round.
class Person
{
public:
    Person(InkLesson::Lesson &lesson, int number, const QSize &page)
        : m_author(lesson, number, [] { return qint64(0); })
        , m_center(page.width() * (number - 1) / (kPeople + 1), page.height() / 2)
        , m_page(page)
    {
        begin();
    }

    void move() { m_author.feed(PT_MOVE, next()); }

    // Lets the stroke go and takes another one.
    void begin()
    {
        m_author.finish();
        m_author.begin({QStringLiteral("pencil"), Ink{Qt::blue, 4}, m_page});
        m_author.feed(PT_DOWN, next());
    }

    static constexpr int kPeople = 5;

private:
    QPoint next()
    {
        ++m_step;
        return m_center +
               QPoint(int(130 * std::cos(m_step * 0.05)), int((60 + m_step % 300) * std::sin(m_step * 0.05)));
    }

    InkLesson::Author m_author;
    const QPoint m_center;
    const QSize m_page;
    int m_step{};
};

// Five people draw at once, 125 events a second each. A stroke has 150.
void people(benchmark::State &state)
{
    constexpr int kEvents = 3000, kOfAStroke = 150, kRate = 625; // of all together
    for (auto iteration : state) {
        Window window(sizeOf(state));
        std::vector<std::unique_ptr<Person>> people;
        for (int i = 0; i < Person::kPeople; ++i)
            people.push_back(std::make_unique<Person>(window.document().lesson(), kAuthor + 1 + i, sizeOf(state)));
        Waits waits;
        QElapsedTimer clock;
        clock.start();
        for (int i = 0; i < kEvents; ++i) {
            while (clock.nsecsElapsed() < qint64(i) * 1'000'000'000 / kRate)
                QThread::usleep(50);
            Person &person = *people[std::size_t(i % Person::kPeople)];
            if (i / Person::kPeople % kOfAStroke == kOfAStroke - 1)
                person.begin();
            else
                seen(waits, [&] { person.move(); });
        }
        report(state, waits);
    }
}

// From nothing to the window with the page: as a lesson of which nothing is known, or one that was opened before.
void open(benchmark::State &state, bool isKnown)
{
    const QString file = lessonFile(sizeOf(state));
    const QTemporaryDir pictures;
    if (isKnown) {
        Document document(sizeOf(state));
        document.open(file);
        document.page().surface();
        PagePictures(pictures.path()).keep(document.lesson(), document.author().page());
    }
    for (auto iteration : state) {
        Waits waits;
        for (int i = 0; i < 3; ++i) {
            QElapsedTimer clock;
            clock.start();
            const double worked = workedSeconds();
            const std::unique_ptr<MainWindow> window = shownWindow(sizeOf(state));
            if (isKnown)
                window->document().keepPictures(pictures.path());
            const int before = application().paintings();
            window->document().open(file);
            while (application().paintings() == before)
                QApplication::processEvents();
            waits.seconds.push_back(double(clock.nsecsElapsed()) * 1e-9);
            waits.works.push_back(workedSeconds() - worked);
        }
        report(state, waits);
    }
}

} // namespace

void registerPages()
{
    const auto add = [](const char *name, auto run) {
        for (const int width : {1920, 3840})
            benchmark::RegisterBenchmark(name, run)->Arg(width)->Iterations(1)->UseManualTime()->Unit(
                benchmark::kMillisecond);
    };
    const auto addChange = [&add](const char *name, const std::function<void(Canvas &, int)> &act) {
        add(name, [act](benchmark::State &state) { change(state, act); });
    };
    add("page/open", [](benchmark::State &state) { open(state, false); });
    add("page/open-again", [](benchmark::State &state) { open(state, true); });
    add("page/people", people);
    add("page/repaint", repaint);
    add("page/turn/500", [](benchmark::State &state) { turn(state, 500); });
    add("page/turn/10000", [](benchmark::State &state) { turn(state, kObjects); });
    add("page/pick", pick);
    addChange("page/delete", [](Canvas &canvas, int) { canvas.discard(); });
    addChange("page/colour", [](Canvas &canvas, int i) { canvas.setColor(QColor::fromHsv(i % 360, 255, 255)); });
    addChange("page/raise", [](Canvas &canvas, int) { canvas.raise(); });
    add("page/remove", removeAlong);
    add("page/paper", paper);
    add("page/undo", undo);
}
