#include "board/sharing/HeadlessLesson.h"

#include "board/playing/Player.h"
#include "board/sharing/DoorProcess.h"
#include "board/sharing/LessonLink.h"
#include "board/sharing/SharedLesson.h"

#include "lesson/log/RecordReader.h"
#include "lesson/output/PngFile.h"
#include "lesson/paper/PageSize.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QSaveFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTextStream>

#include <optional>

namespace Board {

namespace {

constexpr QSize kPage{1280, 800};

// Draws strokes at the pace of a hand.
class Player
{
public:
    Player(std::vector<InkLesson::Stroke> strokes, const InkLesson::Tool &tool, int pace)
        : m_strokes(std::move(strokes))
        , m_tool(tool)
        , m_pace(pace)
    {
        m_clock.start();
    }

    bool hasEnded() const { return m_stroke == m_strokes.size(); }

    // All that is due by now.
    void play(InkLesson::Author &author)
    {
        for (qint64 due = m_clock.elapsed() * m_pace / 1000; !hasEnded() && (m_pace == 0 || m_played < due);)
            m_pace == 0 ? playOne(author) : playPoint(author);
    }

private:
    void playOne(InkLesson::Author &author) { playStroke(m_strokes[m_stroke++], m_tool, author); }

    void playPoint(InkLesson::Author &author)
    {
        const InkLesson::Stroke &stroke = m_strokes[m_stroke];
        if (m_acts.empty()) {
            m_acts = pointerActs(stroke, m_tool);
            author.begin({QLatin1String(m_tool.name), {stroke.color, stroke.width}, author.canvas()});
        }
        const InkLesson::PointerAct &act = m_acts[m_act++];
        author.feed(act.code, act.pt);
        ++m_played;
        if (m_act < m_acts.size())
            return;
        author.finish();
        m_acts.clear();
        m_act = 0;
        ++m_stroke;
    }

    const std::vector<InkLesson::Stroke> m_strokes;
    const InkLesson::Tool &m_tool;
    const int m_pace; // points a second
    QElapsedTimer m_clock;
    qint64 m_played{};
    std::size_t m_stroke{};
    std::vector<InkLesson::PointerAct> m_acts; // of that stroke; empty before it has begun
    std::size_t m_act{};
};

class Headless
{
    Q_DECLARE_TR_FUNCTIONS(Board::HeadlessLesson)

public:
    explicit Headless(const SharingOrder &order)
        : m_order(order)
    {
    }

    QString hold();

private:
    QString readStrokes();
    QString openLatencyFile();
    void startDoor();
    void hold(const LessonLink &link);
    void follow(const InkLesson::StepId &record);
    void step();
    void end(const QString &problem);
    int objects() const;
    bool isDone() const;
    QString state() const;
    QString writeLink() const;

    const SharingOrder m_order;
    QEventLoop m_loop;
    std::optional<QString> m_result;
    QTemporaryDir m_folder;
    std::unique_ptr<DoorProcess> m_door;
    std::unique_ptr<SharedLesson> m_lesson;
    std::unique_ptr<Player> m_player;
    std::vector<InkLesson::Stroke> m_strokes;
    std::optional<LessonLink> m_link;
    QSize m_size{kPage};
    QFile m_latencies;
    bool m_isTold{}; // the link
};

QString Headless::hold()
{
    QString problem = readStrokes();
    if (problem.isEmpty())
        problem = openLatencyFile();
    if (!problem.isEmpty())
        return problem;
    QTimer::singleShot(m_order.timeout * 1000, &m_loop,
                       [this] { end(tr("it took longer than %1 s; %2").arg(m_order.timeout).arg(state())); });
    if (m_order.isJoining) {
        const auto link = LessonLink::fromText(m_order.link);
        if (!link)
            return tr("%1: no link to a lesson").arg(m_order.link);
        hold(*link);
    } else if (!m_order.door.isEmpty()) {
        hold(LessonLink::fresh(QUrl(m_order.door)));
    } else {
        startDoor();
    }
    if (!m_result)
        m_loop.exec();
    m_lesson.reset();
    m_door.reset(); // hands everybody what it has
    return *m_result;
}

QString Headless::readStrokes()
{
    if (m_order.strokes.isEmpty())
        return {};
    QString error;
    auto file = InkLesson::readStrokeFile(m_order.strokes, error);
    if (!file)
        return error;
    m_strokes = std::move(file->strokes);
    m_size = file->size;
    return InkLesson::pageSizeProblem(m_size);
}

QString Headless::openLatencyFile()
{
    m_latencies.setFileName(m_order.latencyFile);
    if (m_order.latencyFile.isEmpty() || m_latencies.open(QIODevice::WriteOnly))
        return {};
    return tr("%1: cannot be written: %2").arg(m_order.latencyFile, m_latencies.errorString());
}

void Headless::startDoor()
{
    if (!DoorProcess::hasEngine())
        QTextStream(stderr) << tr("nats-server is not installed: the lesson is in the door's memory until that ends")
                            << '\n';
    m_door = std::make_unique<DoorProcess>();
    QObject::connect(m_door.get(), &DoorProcess::failed, &m_loop, [this](const QString &words) { end(words); });
    QObject::connect(m_door.get(), &DoorProcess::ready, &m_loop,
                     [this](const QUrl &address) { hold(LessonLink::fresh(address)); });
    m_door->start(m_order.port, m_folder.filePath(QStringLiteral("engine")));
}

void Headless::hold(const LessonLink &link)
{
    m_link = link;
    auto begun = m_order.isJoining ? nullptr : std::make_unique<InkLesson::Lesson>(InkLesson::Header{m_size, 1});
    m_lesson = std::make_unique<SharedLesson>(link, m_order.name, std::move(begun));
    QObject::connect(m_lesson.get(), &SharedLesson::advanced, &m_loop, [this] { step(); });
    QObject::connect(m_lesson.get(), &SharedLesson::settled, &m_loop,
                     [this](const InkLesson::StepId &record) { follow(record); });
}

// How long it took from the last point of another's object to its pixels here.
void Headless::follow(const InkLesson::StepId &record)
{
    if (!m_latencies.isOpen())
        return;
    InkLesson::Record read;
    const InkLesson::Lesson &lesson = *m_lesson->lesson();
    if (!InkLesson::RecordReader().readCbor(lesson.log()[lesson.settled() - 1], read) ||
        !std::holds_alternative<InkLesson::Draw>(read.deed))
        return;
    QTextStream(&m_latencies) << record.author << ' ' << record.number << ' '
                              << QDateTime::currentMSecsSinceEpoch() - read.time << '\n';
}

void Headless::step()
{
    if (m_lesson->isGone())
        return end(tr("the door does not let this board in (%1)").arg(int(m_lesson->client().reason())));
    if (!m_lesson->author() || (!m_isTold && !m_lesson->isOpen()))
        return;
    if (!m_isTold) {
        m_isTold = true;
        if (const QString problem = writeLink(); !problem.isEmpty())
            return end(problem);
        m_lesson->lesson()->page(InkLesson::kFirstPage).surface(); // somebody looks
        m_player = std::make_unique<Player>(std::move(m_strokes), *m_order.tool->kind, m_order.pace);
    }
    m_player->play(*m_lesson->author());
    if (isDone())
        end(m_order.png.isEmpty()
                ? QString()
                : InkLesson::savePng(m_lesson->lesson()->page(InkLesson::kFirstPage).picture(), m_order.png));
}

// On the first page, by whomever.
int Headless::objects() const
{
    return int(m_lesson->lesson()->page(InkLesson::kFirstPage).items().size());
}

bool Headless::isDone() const
{
    return m_player->hasEnded() && m_lesson->client().pending() == 0 && objects() >= m_order.until;
}

// What is still missing.
QString Headless::state() const
{
    if (!m_lesson || !m_lesson->author())
        return tr("there is no lesson yet");
    return tr("%1 of %2 objects are there, %3 steps are not with the others")
        .arg(objects())
        .arg(m_order.until)
        .arg(m_lesson->client().pending());
}

QString Headless::writeLink() const
{
    if (m_order.isJoining || m_order.linkFile.isEmpty())
        return {};
    QSaveFile file(m_order.linkFile);
    const QByteArray text = m_link->text().toUtf8() + '\n';
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
    return isWritten ? QString() : tr("%1: cannot be written: %2").arg(m_order.linkFile, file.errorString());
}

void Headless::end(const QString &problem)
{
    if (!m_result)
        m_result = problem;
    m_loop.quit();
}

} // namespace

QString holdLesson(const SharingOrder &order)
{
    return Headless(order).hold();
}

} // namespace Board
