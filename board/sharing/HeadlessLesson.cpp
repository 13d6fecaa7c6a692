#include "board/sharing/HeadlessLesson.h"

#include "board/document/ThreadWorkers.h"
#include "board/sharing/DoorProcess.h"
#include "board/sharing/KeptLesson.h"
#include "board/sharing/Latencies.h"
#include "board/sharing/LessonLink.h"
#include "board/sharing/SharedLesson.h"
#include "board/sharing/StrokePlayer.h"

#include "lesson/log/RecordReader.h"
#include "lesson/output/PngFile.h"
#include "lesson/paper/PageSize.h"

#include <QtCore/QCborMap>
#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QSaveFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTextStream>
#include <QtCore/QTimer>

#include <algorithm>
#include <optional>

namespace Board {

namespace {

constexpr QSize kPage{1280, 800};
constexpr int kBeginner = 1;
constexpr std::size_t kAhead = 64; // objects that are prepared at once

// A record, but of one with a large picture no more than its time, so that the picture is not decoded once more.
bool readForTime(const QByteArray &code, const InkLesson::StepId &id, InkLesson::Record &record)
{
    constexpr int kLarge = 1 << 18; // bytes
    if (code.size() < kLarge)
        return InkLesson::RecordReader().readCbor(code, record);
    const QCborMap map = QCborValue::fromCbor(code).toMap();
    record = {id, id.number, map.value(QLatin1String("time")).toInteger(), InkLesson::kFirstPage, {}};
    if (map.value(QLatin1String("do")).toString() == QLatin1String("draw"))
        record.deed = InkLesson::Draw();
    return true;
}

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
    void recordLatency(const InkLesson::StepId &id);
    void draw();
    std::ptrdiff_t drawnBefore() const;
    std::unique_ptr<InkLesson::Lesson> leftLesson();
    void step();
    QString keep();
    QString begin();
    void finish();
    void end(const QString &problem);
    bool isLooking() const { return !m_order.png.isEmpty() || m_latencyFile.isOpen(); }
    int objects() const;
    bool isDone() const;
    QString state() const;
    QString writeLink() const;

    const SharingOrder m_order;
    QEventLoop m_loop;
    std::optional<QString> m_result;
    QTemporaryDir m_folder;
    std::unique_ptr<DoorProcess> m_door;
    ThreadWorkers m_workers; // outlive the lesson
    std::unique_ptr<SharedLesson> m_lesson;
    std::unique_ptr<KeptLesson> m_kept;     // once there is a lesson; null where no journal is wanted
    std::unique_ptr<StrokePlayer> m_player; // once the lesson is open
    std::vector<InkLesson::Stroke> m_strokes;
    std::optional<LessonLink> m_link;
    InkLesson::Sharing m_sharing{};
    QString m_before;
    QSize m_size{kPage};
    QTimer m_points; // is due when the next one is
    QFile m_latencyFile;
    Latencies m_latencies;
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
    m_kept.reset();
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
    m_latencyFile.setFileName(m_order.latencyFile);
    if (m_order.latencyFile.isEmpty() || m_latencyFile.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return {};
    return tr("%1: cannot be written: %2").arg(m_order.latencyFile, m_latencyFile.errorString());
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
    m_sharing = freshSharing(link, m_order.isJoining ? std::vector<int>() : std::vector<int>{kBeginner});
    auto lesson = m_order.isJoining ? nullptr : std::make_unique<InkLesson::Lesson>(InkLesson::Header{m_size, 1});
    auto from = InkSharing::Client::From::Here;
    if (auto left = leftLesson()) {
        lesson = std::move(left);
        from = InkSharing::Client::From::Journal;
    }
    m_lesson = std::make_unique<SharedLesson>(*m_link, m_sharing, m_order.name, std::move(lesson), from);
    QObject::connect(m_lesson.get(), &SharedLesson::advanced, &m_loop, [this] { step(); });
    if (!m_latencyFile.isOpen())
        return;
    QObject::connect(m_lesson.get(), &SharedLesson::shown, &m_loop, [this](int author, const QByteArray &payload) {
        m_latencies.shown(author, payload, QDateTime::currentMSecsSinceEpoch());
    });
    QObject::connect(m_lesson.get(), &SharedLesson::settled, &m_loop,
                     [this](const InkLesson::StepId &id) { recordLatency(id); });
}

// What a board that was killed has left, under its name and with its token. A door of our own may be at another address
// now.
std::unique_ptr<InkLesson::Lesson> Headless::leftLesson()
{
    if (m_order.journals.isEmpty())
        return nullptr;
    auto left = KeptLesson::leftIn(m_order.journals, m_order.isJoining ? m_link->text() : QString());
    if (!left.lesson)
        return nullptr;
    if (const auto link = LessonLink::fromText(left.sharing.address))
        m_link->lesson = link->lesson;
    m_sharing = left.sharing;
    m_sharing.address = m_link->text();
    m_before = left.journal;
    return std::move(left.lesson);
}

// Of the record that was settled last.
void Headless::recordLatency(const InkLesson::StepId &id)
{
    InkLesson::Record record;
    const InkLesson::Lesson &lesson = *m_lesson->lesson();
    if (!readForTime(lesson.log()[lesson.settled() - 1], id, record) ||
        !std::holds_alternative<InkLesson::Draw>(record.deed))
        return;
    QTextStream(&m_latencyFile) << id.author << ' ' << id.number << ' '
                                << m_latencies.settled(record, QDateTime::currentMSecsSinceEpoch()) << '\n';
}

void Headless::step()
{
    if (m_lesson->isGone())
        return end(tr("the door does not let this board in (%1)").arg(int(m_lesson->client().reason())));
    if (!m_lesson->author())
        return;
    m_lesson->lesson()->lend(&m_workers);
    if (!m_player && isLooking())
        m_lesson->lesson()->page(InkLesson::kFirstPage).prepareNext(kAhead); // while the rest comes
    QString problem = m_kept ? QString() : keep();
    if (problem.isEmpty() && !m_player && m_lesson->isOpen())
        problem = begin();
    if (!problem.isEmpty())
        end(problem);
    else if (m_player && isDone())
        finish();
}

QString Headless::keep()
{
    if (m_order.journals.isEmpty())
        return {};
    m_kept = std::make_unique<KeptLesson>(m_order.journals);
    return m_kept->keep(*m_lesson, m_sharing, m_before);
}

// Others can join from now on.
QString Headless::begin()
{
    const QString problem = writeLink();
    if (isLooking())
        m_lesson->lesson()->page(InkLesson::kFirstPage).surface();
    draw();
    return problem;
}

void Headless::finish()
{
    InkLesson::Page &page = m_lesson->lesson()->page(InkLesson::kFirstPage);
    const QString problem = m_order.png.isEmpty() ? QString() : InkLesson::savePng(page.picture(), m_order.png);
    if (m_kept && problem.isEmpty())
        m_kept->discard();
    end(problem);
}

// Of the strokes, those that the journal has.
std::ptrdiff_t Headless::drawnBefore() const
{
    const InkLesson::Lesson &lesson = *m_lesson->lesson();
    InkLesson::RecordReader reader;
    return std::count_if(lesson.log().begin(), lesson.log().end(), [&](const QByteArray &code) {
        InkLesson::Record record;
        return reader.readCbor(code, record) && record.id.author == m_lesson->author()->number() &&
               std::holds_alternative<InkLesson::Draw>(record.deed);
    });
}

// Each point when it is due, as a hand does, and not when the connection is looked after.
void Headless::draw()
{
    m_strokes.erase(m_strokes.begin(), m_strokes.begin() + std::min(std::ptrdiff_t(m_strokes.size()), drawnBefore()));
    m_player = std::make_unique<StrokePlayer>(std::move(m_strokes), *m_order.tool->kind, m_order.pace);
    const auto play = [this] { m_player->play(*m_lesson->author()); };
    QObject::connect(&m_points, &QTimer::timeout, &m_loop, play);
    play();
    m_points.setTimerType(Qt::PreciseTimer);
    m_points.start(1000 / std::clamp(m_order.pace, 1, 1000));
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
