// One board of a shared lesson that times what it does itself. bench/sharing/run.py starts it.
//
//   sharing_bench ink SECONDS [LINK]        own ink, 240 points a second, without LINK on a board that is not shared
//   sharing_bench fill OBJECTS PAGES LINK   draws so many, of a thousand points each, on so many pages alike
//   sharing_bench undo OBJECTS LINK         one's own last steps, once so many objects of others are there
//   sharing_bench picture FILE LINK         puts a picture on the page
//   sharing_bench still FOLDER              a lesson that is shared for a while, beside one that never is
//   sharing_bench presence BOARDS SECONDS LINK    so many people, each of whom tells thirty places a second
//
// Each prints numbers in one line: milliseconds, or counts.

#include "board/document/Document.h"
#include "board/sharing/DocumentSharing.h"
#include "board/sharing/LessonConnection.h"
#include "board/sharing/LessonLink.h"
#include "board/sharing/SharedLesson.h"

#include "lesson/objects/Life.h"

#include "PointerEvent.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QElapsedTimer>
#include <QtCore/QLoggingCategory>
#include <QtCore/QTextStream>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <cmath>
#include <random>

using namespace Board;
using InkLesson::Lesson;

namespace {

constexpr QSize kPage{1280, 800};
constexpr int kPace = 240; // points a second

bool waitUntil(const std::function<bool()> &isSo, int milliseconds = 120'000)
{
    QElapsedTimer clock;
    clock.start();
    while (!isSo() && clock.elapsed() < milliseconds)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
    return isSo();
}

std::unique_ptr<SharedLesson> joined(const QString &text)
{
    const LessonLink link = LessonLink::fromText(text).value();
    auto lesson =
        std::make_unique<SharedLesson>(link, freshSharing(link), QString(), nullptr, InkSharing::Client::From::Here);
    if (!waitUntil([&] { return lesson->author() && lesson->isOpen(); }))
        qFatal("not joined");
    return lesson;
}

// The same by somebody who looks at the first page.
std::unique_ptr<SharedLesson> joinedToLook(const QString &text)
{
    auto lesson = joined(text);
    lesson->lesson()->page(InkLesson::kFirstPage).surface();
    return lesson;
}

void print(std::initializer_list<double> numbers)
{
    QTextStream out(stdout);
    out.setRealNumberPrecision(12); // authors have ten digits
    for (const double number : numbers)
        out << number << ' ';
    out << '\n';
}

double quantile(std::vector<double> values, double part)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[std::min(values.size() - 1, std::size_t(part * double(values.size())))];
}

InkLesson::Life penLife()
{
    InkLesson::Life life{QStringLiteral("pencil")};
    life.ink.color = Qt::blue;
    life.ink.width = 4;
    life.canvas = kPage;
    return life;
}

// A wave over the page, a stroke for each four seconds.
class Pen
{
public:
    static constexpr int kStroke = 960; // points

    explicit Pen(InkLesson::Author &author)
        : m_author(author)
    {
    }
    void next()
    {
        const int at = m_points++ % kStroke;
        const QPoint pt(100 + at, 400 + int(200 * std::sin(m_points / 20.0)));
        if (at == 0)
            m_author.begin(penLife());
        m_author.feed(at == 0 ? PT_DOWN : at == kStroke - 1 ? PT_UP : PT_MOVE, pt);
        if (at == kStroke - 1)
            m_author.finish();
    }

private:
    InkLesson::Author &m_author;
    int m_points{};
};

// From when a point is due, as long as the board was busy with other things, to its pixels.
int ink(int seconds, const QString &link)
{
    std::unique_ptr<SharedLesson> shared;
    std::unique_ptr<Lesson> alone;
    std::unique_ptr<InkLesson::Author> author;
    if (link.isEmpty()) {
        alone = std::make_unique<Lesson>(InkLesson::Header{kPage, 1});
        alone->page(InkLesson::kFirstPage).surface();
        author = std::make_unique<InkLesson::Author>(*alone, 1, [] { return QDateTime::currentMSecsSinceEpoch(); });
    } else {
        shared = joinedToLook(link);
    }
    Pen pen(shared ? *shared->author() : *author);
    std::vector<double> took;
    QElapsedTimer clock;
    clock.start();
    while (int(took.size()) < seconds * kPace) {
        const double due = double(took.size()) * 1000 / kPace;
        while (double(clock.nsecsElapsed()) / 1e6 < due) {
            QCoreApplication::processEvents();
            QThread::usleep(300);
        }
        pen.next();
        took.push_back(double(clock.nsecsElapsed()) / 1e6 - due);
    }
    print({quantile(took, 0.5), quantile(took, 0.99)});
    return 0;
}

int undo(int objects, const QString &link)
{
    constexpr int kSteps = 20;
    const auto shared = joinedToLook(link);
    Pen pen(*shared->author());
    for (int point = 0; point < kSteps * Pen::kStroke; ++point)
        pen.next();
    const Lesson &lesson = *shared->lesson();
    QTextStream(stdout) << "drawn" << Qt::endl;
    const auto areThere = [&] { return int(lesson.page(InkLesson::kFirstPage).items().size()) >= objects + kSteps; };
    if (!waitUntil(areThere))
        qFatal("the others' objects did not come");
    std::vector<double> took;
    for (int step = 0; step < kSteps; ++step) {
        QElapsedTimer clock;
        clock.start();
        if (!shared->author()->undo())
            qFatal("nothing to undo");
        took.push_back(double(clock.nsecsElapsed()) / 1e6);
    }
    print({quantile(took, 0.5), quantile(took, 1)});
    return waitUntil([&] { return shared->client().pending() == 0; }) ? 0 : 1;
}

// As a hand writes: a pixel from point to point, in gentle curves.
InkLesson::Life scrawl(std::mt19937 &random)
{
    constexpr int kPoints = 1100;
    constexpr double kTurn = 0.15; // radians a point
    std::uniform_real_distribution<double> across(50, kPage.width() - 50), down(50, kPage.height() - 50),
        turn(-kTurn, kTurn);
    double x = across(random), y = down(random), angle = turn(random) * 20, bend = 0;
    InkLesson::Life life = penLife();
    for (int i = 0; i < kPoints; ++i) {
        const int code = i == 0 ? PT_DOWN : i == kPoints - 1 ? PT_UP : PT_MOVE;
        life.acts.emplace_back(InkLesson::PointerAct{code, {qRound(x), qRound(y)}});
        bend = 0.9 * bend + 0.3 * turn(random);
        angle += bend;
        x = std::clamp(x + std::cos(angle), 5.0, kPage.width() - 5.0);
        y = std::clamp(y + std::sin(angle), 5.0, kPage.height() - 5.0);
    }
    return life;
}

int fill(int objects, int pages, const QString &link)
{
    const auto shared = joined(link);
    InkLesson::Author &author = *shared->author();
    std::mt19937 random(1);
    for (int page = 0; page < pages; ++page) {
        if (page > 0)
            author.turnTo(author.addPage(page, kPage));
        for (int object = 0; object < objects / pages; ++object) {
            const int number = shared->lesson()->history().nextNumber(author.number());
            shared->lesson()->apply(
                {{author.number(), number}, number, 0, author.page(), InkLesson::Draw{scrawl(random)}});
            waitUntil([&] { return shared->client().pending() < 50; });
        }
    }
    print({double(objects)});
    return waitUntil([&] { return shared->client().pending() == 0; }) ? 0 : 1;
}

int picture(const QString &file, const QString &link)
{
    const auto shared = joinedToLook(link);
    InkLesson::Life life{QLatin1String(InkLesson::kPictureTool)};
    life.canvas = kPage;
    life.picture = InkLesson::exactImage(QImage(file));
    shared->author()->insert(life);
    shared->author()->finish();
    QElapsedTimer clock;
    clock.start();
    const bool isSent = waitUntil([&] { return shared->client().pending() == 0; });
    print({double(clock.elapsed()), double(shared->client().author())});
    return isSent ? 0 : 1;
}

// Two documents in which the same hand does the same at the same times.
class Twins
{
public:
    Document alone{kPage}, shared{kPage};

    // Draws until it is so, and at least a stroke.
    bool drawUntil(const std::function<bool()> &isSo)
    {
        QElapsedTimer clock;
        clock.start();
        do {
            for (int point = 0; point < Pen::kStroke; ++point) {
                m_pens[0].next();
                m_pens[1].next();
                QCoreApplication::processEvents();
            }
        } while (!isSo() && clock.elapsed() < 60'000);
        return isSo();
    }
    void undo()
    {
        alone.undo();
        shared.undo();
    }
    bool areAlike() const
    {
        return alone.page().picture() == shared.page().picture() && alone.page().ink() == shared.page().ink() &&
               alone.stepsToUndo() == shared.stepsToUndo();
    }

private:
    Pen m_pens[2] = {Pen(alone.author()), Pen(shared.author())};
};

// What is saved in the end is opened again, and looked at.
bool isAlikeAsAFile(const Document &document, Document &saved, const QString &file)
{
    Document opened(kPage);
    return saved.save(file).isEmpty() && opened.open(file).isEmpty() &&
           opened.page().picture() == document.page().picture();
}

int still(const QString &folder)
{
    Twins twins;
    DocumentSharing sharing(twins.shared);
    sharing.setFolder(folder);
    sharing.setPort(0);
    const auto always = [] { return true; };
    bool areAlike = twins.drawUntil(always);
    QElapsedTimer clock;
    clock.start();
    sharing.share();
    if (!twins.drawUntil([&] { return sharing.isConnected(); }))
        qFatal("not shared");
    const double began = double(clock.elapsed());
    const auto pupil = joined(sharing.link().text());
    areAlike = areAlike && twins.drawUntil(always);
    twins.undo();
    areAlike = areAlike && twins.areAlike();
    if (!waitUntil([&] { return sharing.unsent() == 0 && pupil->lesson()->log() == twins.shared.lesson().log(); }))
        qFatal("the pupil has not all of it");
    const InkLesson::Page &seen = pupil->lesson()->page(InkLesson::kFirstPage);
    areAlike = areAlike && seen.picture() == twins.alone.page().picture();
    clock.start();
    sharing.end();
    if (!twins.drawUntil([&] { return sharing.isIdle(); }))
        qFatal("still shared");
    const double ended = double(clock.elapsed());
    twins.drawUntil(always);
    twins.undo();
    areAlike = areAlike && twins.areAlike() &&
               isAlikeAsAFile(twins.alone, twins.shared, folder + QStringLiteral("/still.inkboard"));
    print({areAlike ? 1.0 : 0.0, began, ended});
    return 0;
}

int presence(int boards, int seconds, const QString &link)
{
    std::vector<std::unique_ptr<SharedLesson>> all;
    int heard = 0;
    for (int board = 0; board < boards; ++board) {
        all.push_back(joinedToLook(link));
        QObject::connect(all.back().get(), &SharedLesson::shown, [&heard] { ++heard; });
    }
    QTimer moves;
    moves.setTimerType(Qt::PreciseTimer);
    int place = 0;
    QObject::connect(&moves, &QTimer::timeout, [&] {
        InkSharing::Presence presence;
        presence.pointer = QPoint(++place % kPage.width(), 5);
        for (const auto &one : all)
            one->setPresence(presence);
    });
    moves.start(33);
    waitUntil([] { return false; }, 1000); // all have begun
    heard = 0;
    waitUntil([] { return false; }, seconds * 1000);
    const double each = double(heard) / seconds / boards / (boards - 1);
    moves.stop();
    const auto &last = *all.front();
    const int before = int(last.others()->all().size());
    while (all.size() > 1)
        all.pop_back();
    QElapsedTimer clock;
    clock.start();
    waitUntil([&] { return last.others()->all().size() + std::size_t(boards) <= std::size_t(before) + 1; }, 20'000);
    print({each, double(clock.elapsed())});
    return 0;
}

int run(const QStringList &words)
{
    const QString &what = words.value(1);
    if (what == QLatin1String("ink"))
        return ink(words.value(2).toInt(), words.value(3));
    if (what == QLatin1String("fill"))
        return fill(words.value(2).toInt(), words.value(3).toInt(), words.value(4));
    if (what == QLatin1String("undo"))
        return undo(words.value(2).toInt(), words.value(3));
    if (what == QLatin1String("picture"))
        return picture(words.value(2), words.value(3));
    if (what == QLatin1String("still"))
        return still(words.value(2));
    if (what == QLatin1String("presence"))
        return presence(words.value(2).toInt(), words.value(3).toInt(), words.value(4));
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    const QGuiApplication application(argc, argv);
    return run(QCoreApplication::arguments());
}
