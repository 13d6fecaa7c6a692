#include "Board.h"

#include "lesson/storage/LessonFile.h"

#include <QtCore/QBuffer>
#include <QtCore/QCborArray>
#include <QtCore/QCborMap>

#include <algorithm>

namespace Simulator {

using namespace InkLesson;
using Kind = Lesson::LogChange::Kind;

namespace {

constexpr qint64 kTick = 33;   // milliseconds
constexpr qint64 kSync = 1000; // the same, after a step at the latest

QByteArray drawn(Random &random, int size)
{
    QByteArray bytes;
    for (int i = 0; i < size; ++i)
        bytes.append(char(random.below(256)));
    return bytes;
}

std::set<StepId> namesIn(const Lesson *lesson)
{
    return lesson ? std::set<StepId>(lesson->ids().begin(), lesson->ids().end()) : std::set<StepId>();
}

// What a record says, without its pictures.
struct Said
{
    explicit Said(const QByteArray &code)
        : map(QCborValue::fromCbor(code).toMap())
    {
    }
    PageId page() const { return map.contains(QLatin1String("page")) ? id("page") : kFirstPage; }
    bool does(const char *deed) const { return map.value(QLatin1String("do")).toString() == QLatin1String(deed); }
    StepId id(const char *key) const
    {
        const QCborArray pair = map.value(QLatin1String(key)).toArray();
        return {int(pair.at(0).toInteger()), int(pair.at(1).toInteger())};
    }

    const QCborMap map;
};

} // namespace

Board::Board(World &world, int name, std::vector<std::unique_ptr<DoorProcess>> &doors, const QString &folder,
             bool creates)
    : m_world(world)
    , m_name(name)
    , m_doors(doors)
    , m_folder(folder)
    , m_creates(creates)
    , m_token(drawn(world.random, InkSharing::kLeastTokenBytes))
    , m_slowness(world.random.of({1, 20, 150, 1200}))
    , m_bytesPerSecond(world.random.of({1000000000, 2000000, 100000}))
    , m_pace(world.random.of({500, 1200, 3000}))
{
}

// The authors of a lesson that was there before it was shared.
const std::vector<int> kBaseAuthors{1, 2};

void Board::start()
{
    ++m_life;
    const bool isFromJournal = m_disk != nullptr;
    if (isFromJournal)
        m_lesson = std::move(m_recovered);
    else if (m_creates)
        makeBase();
    InkSharing::Client::Settings settings{kLesson, m_token, {}};
    if (m_creates)
        settings.authors = kBaseAuthors;
    m_client = std::make_unique<InkSharing::Client>(settings, *this,
                                                    [this] { return quint32(m_world.random.below(1 << 30)); });
    if (m_lesson)
        settleDown(isFromJournal);
    tick(m_life);
}

void Board::makeBase()
{
    m_lesson = std::make_unique<Lesson>(Header{RandomActs::kSize});
    std::vector<std::unique_ptr<Author>> authors;
    authors.reserve(kBaseAuthors.size());
    for (const int author : kBaseAuthors)
        authors.push_back(std::make_unique<Author>(*m_lesson, author, [this] { return m_world.now(); }));
    RandomActs acts(m_world.random, *m_lesson);
    for (int times = m_world.random.below(12); times > 0; --times)
        acts.actOnce(*authors[std::size_t(m_world.random.below(int(authors.size())))]);
    for (const auto &author : authors)
        author->finish();
}

std::unique_ptr<Lesson> Board::recovered() const
{
    QByteArray bytes = m_disk->all();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QString problem;
    return openLesson(buffer, problem);
}

// The lesson is there: it is drawn on, and its journal is kept.
void Board::settleDown(bool isFromJournal)
{
    m_client->take(*m_lesson, isFromJournal ? InkSharing::Client::From::Journal : InkSharing::Client::From::Here);
    m_author = std::make_unique<Author>(
        *m_lesson, m_client->author(), [this] { return m_world.now(); },
        [this](const Record &) { m_client->done(m_world.now()); });
    m_acts = std::make_unique<RandomActs>(m_world.random, *m_lesson);
    m_disk = std::make_unique<Disk>();
    m_journal = std::make_unique<Journal>(std::make_unique<DiskFile>(*m_disk));
    QString problem;
    m_journal->keep(m_folder, QStringLiteral("%1-%2").arg(m_name).arg(m_life), problem);
    m_journal->share(*m_lesson, {}, {m_creates ? kBaseAuthors : std::vector<int>{m_client->author()}, {}, m_token});
    m_journal->sync();
    const auto sendLive = [this](const QByteArray &payload) { m_client->sendLive(payload, m_world.now()); };
    m_live = std::make_unique<InkSharing::LiveSender>(*m_author, sendLive);
    m_others = std::make_unique<InkSharing::Others>(*m_lesson, m_client->author(), sendLive);
    m_others->missed = [this] { m_world.saw(Sight::LiveLost); };
    m_lesson->logChanged = [this](const Lesson::LogChange &change) { noted(change); };
}

void Board::kill(Death death)
{
    m_world.saw(Sight::BoardKilled);
    disconnectFromDoor();
    const std::set<StepId> before = namesIn(m_lesson.get());
    if (m_disk && death == Death::Machine)
        *m_disk = {m_disk->afterPowerCut(m_world.random), {}};
    else if (m_disk)
        *m_disk = {m_disk->all(), {}};
    m_client.reset(); // what it holds of the lesson goes first
    m_others.reset();
    m_live.reset();
    m_acts.reset();
    m_author.reset();
    m_journal.reset();
    m_lesson.reset();
    m_uploads.clear();
    if (!m_disk)
        return;
    m_recovered = recovered();
    const std::set<StepId> after = namesIn(m_recovered.get());
    if (std::any_of(before.begin(), before.end(), [&](const StepId &id) { return after.count(id) == 0; }))
        m_world.saw(Sight::StepsForgotten);
    std::set<StepId> left;
    std::set_intersection(m_acknowledged.begin(), m_acknowledged.end(), after.begin(), after.end(),
                          std::inserter(left, left.begin()));
    m_acknowledged = left;
}

void Board::clearDisk()
{
    if (std::exchange(m_disk->hasRefused, false))
        m_world.saw(Sight::DiskFull);
    m_disk->isFull = false;
}

QByteArray Board::journal()
{
    m_journal->follow(*m_lesson, {});
    return m_disk->all();
}

void Board::tick(int life)
{
    if (!m_client || life != m_life)
        return;
    const qint64 now = m_world.now();
    m_client->tick(now);
    if (m_live) {
        m_live->tick(now);
        m_others->tick(now);
    }
    if (m_wasSetBack != 0 && m_client->pending() + 1 > m_wasSetBack)
        m_world.saw(Sight::PendingAgain);
    m_wasSetBack = 0;
    m_pending = m_client->pending();
    if (m_journal && m_journal->isDue() && m_syncAt == 0)
        m_syncAt = now + m_world.random.below(int(kSync));
    if (m_syncAt != 0 && now >= m_syncAt) {
        m_syncAt = 0;
        m_journal->sync();
    }
    m_world.after(kTick, [this, life] { tick(life); });
}

void Board::actNowAndThen()
{
    if (m_rests)
        return;
    if (m_author)
        act();
    m_world.after(m_world.random.below(int(2 * m_pace)), [this] { actNowAndThen(); });
}

void Board::act()
{
    if (m_world.random.oneIn(100))
        insertPicture();
    else if (m_world.random.oneIn(60))
        m_author->removePage(m_author->page());
    else if (m_world.random.oneIn(60))
        undoOfAnother();
    else
        m_acts->actOnce(*m_author);
    if (m_lesson->indexOf(m_author->page()) >= 0)
        m_lesson->page(m_author->page()).surface();
    m_client->done(m_world.now());
}

// One that goes in several pieces.
void Board::insertPicture()
{
    QImage noise(400, 300, QImage::Format_ARGB32);
    quint32 state = quint32(m_world.random.below(1 << 30));
    for (int y = 0; y < noise.height(); ++y) {
        for (int x = 0; x < noise.width(); ++x)
            noise.setPixel(x, y, 0xff000000 | ((state = 1664525 * state + 1013904223) >> 8));
    }
    Life life{QLatin1String(kPictureTool)};
    life.canvas = m_author->canvas();
    life.picture = exactImage(noise);
    m_author->insert(life);
    m_author->finish();
}

// No board of ours does that. It has no effect.
void Board::undoOfAnother()
{
    const auto &ids = m_lesson->ids();
    const auto stranger =
        std::find_if(ids.rbegin(), ids.rend(), [this](const StepId &id) { return id.author != m_client->author(); });
    if (stranger == ids.rend())
        return;
    const int number = m_lesson->history().nextNumber(m_client->author());
    m_lesson->apply({{m_client->author(), number}, number, m_world.now(), kFirstPage, Undo{*stranger}});
}

void Board::rest()
{
    m_rests = true;
    if (m_author)
        m_author->finish();
}

void Board::cut(bool isSilent)
{
    if (!m_door)
        return;
    m_world.saw(isSilent ? Sight::ConnectionSilent : Sight::ConnectionCut);
    m_door->breakOne(m_connection, isSilent);
}

void Board::noted(const Lesson::LogChange &change)
{
    look(change);
    if (change.kind == Kind::Settled) {
        const auto end = m_lesson->ids().begin() + std::ptrdiff_t(m_lesson->settled());
        m_acknowledged.insert(end - std::ptrdiff_t(change.count), end);
        m_world.saw(Sight::Settled);
    }
    m_journal->note(change);
    m_journal->follow(*m_lesson, {});
}

// What has come about.
void Board::look(const Lesson::LogChange &change)
{
    const auto &ids = m_lesson->ids();
    const auto pending = ids.begin() + std::ptrdiff_t(m_lesson->settled());
    if (change.kind == Kind::Added) {
        ++m_pending;
        const Said said(change.code);
        if (said.does("undo") && std::find(pending, ids.end(), said.id("of")) != ids.end())
            m_world.saw(Sight::UndoWhilePending);
    } else if (change.kind == Kind::CameBefore) {
        const Said said(change.code);
        if (said.map.value(QLatin1String("author")).toInteger() == m_client->author())
            m_world.saw(Sight::OwnStepReturned);
        if (m_pending > 0)
            m_world.saw(Sight::CameBefore);
        const Hand *hand = m_author ? m_author->hand() : nullptr;
        if (hand && said.does("remove-page") && said.page() == m_author->page())
            m_world.saw(Sight::PageGone);
        if (hand && said.does("change") && said.id("object") == hand->held)
            m_world.saw(Sight::OneObjectTwoHands);
    } else if (change.kind == Kind::SetBack) {
        m_world.saw(Sight::TakenBack);
        m_wasSetBack = 1 + m_pending;
    }
}

void Board::opened()
{
    m_client->opened(m_world.now());
}

void Board::received(const QByteArray &message)
{
    m_client->received(message, m_world.now());
}

void Board::closed()
{
    m_door = nullptr;
    m_client->closed(m_world.now());
}

void Board::connectToDoor()
{
    m_uploads.clear();
    m_door = m_doors[std::size_t(m_world.random.below(int(m_doors.size())))].get();
    if (m_door->isUp()) {
        m_connection = m_door->connect(*this, m_slowness, m_bytesPerSecond);
        return;
    }
    m_door = nullptr;
    m_world.after(m_slowness, [this, life = m_life] {
        if (life == m_life && m_client)
            m_client->closed(m_world.now());
    });
}

void Board::send(const QByteArray &message)
{
    constexpr int kFewBytes = 8 << 10; // no piece
    if (message.size() > kFewBytes) {
        InkSharing::ToDoor read;
        QString problem;
        const auto *piece =
            InkSharing::readMessage(message, read, problem) ? std::get_if<InkSharing::SendPiece>(&read) : nullptr;
        if (piece && m_uploads.insert(piece->piece.hash).second && piece->piece.index > 0)
            m_world.saw(Sight::ContentsAnew);
        if (piece && !m_rests && m_world.random.oneIn(2)) // what takes long is cut more often
            m_world.after(m_world.random.below(6000), [this] { cut(false); });
    }
    if (m_door)
        m_door->fromBoard(m_connection, message);
}

void Board::disconnectFromDoor()
{
    if (m_door)
        m_door->hangUp(m_connection);
    m_door = nullptr;
}

Lesson &Board::begin(const Header &header)
{
    m_lesson = std::make_unique<Lesson>(header);
    m_world.after(0, [this, life = m_life] {
        if (life == m_life && m_client && !m_author)
            settleDown(false);
    });
    return *m_lesson;
}

// Nothing is done here that a lesson cannot hold.
void Board::lostStep(const Lesson::Refusal &refusal)
{
    m_grievance = QStringLiteral("step %1 was lost: %2").arg(refusal.id.number).arg(refusal.problem);
}

void Board::heard(int author, const QByteArray &payload)
{
    if (!m_others)
        return;
    if (m_others->heard(author, payload, m_world.now()))
        m_live->asked();
    const auto found = m_others->all().find(author);
    if (found != m_others->all().end() && found->second.acts > 0)
        m_world.saw(Sight::Lived);
}

// Some of them, and it may take so long that nobody waits for it any more.
bool Board::readsBeside(const QByteArray &code)
{
    if (m_rests || !m_world.random.oneIn(10))
        return false;
    m_world.after(m_world.random.of({1, 40, 500, 8000}), [this, code, life = m_life] {
        if (life != m_life || !m_client)
            return;
        const std::size_t settled = m_lesson->settled();
        m_client->wasRead(code, Lesson::arriving(code), m_world.now());
        if (m_lesson->settled() > settled)
            m_world.saw(Sight::ReadBeside);
    });
    return true;
}

QString Board::misses(const Board &other) const
{
    const auto found = m_others->all().find(other.m_client->author());
    const Hand *hand = other.m_author->hand();
    if (found == m_others->all().end())
        return QStringLiteral("somebody is not known to be there");
    if (!hand)
        return found->second.taken == 0 ? QString() : QStringLiteral("something is in no hand any more");
    const quint64 acts = hand->life.acts.size() - other.m_author->actsBefore();
    const bool isTold = other.m_author->actsBefore() != 0 || hand->life.picture.isNull();
    if (isTold && (found->second.taken != other.m_author->taken() || found->second.acts != acts))
        return QStringLiteral("acts in progress are missing");
    const Hand *seen = m_lesson->page(found->second.page).hand(other.m_client->author());
    if (seen && other.m_author->actsBefore() == 0 && seen->life.acts.size() != acts)
        return QStringLiteral("acts in progress came twice");
    return {};
}

} // namespace Simulator
