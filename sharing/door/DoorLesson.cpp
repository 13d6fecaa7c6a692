#include "sharing/door/DoorLesson.h"

#include "sharing/wire/Fields.h"

#include "lesson/log/RecordReader.h"

#include <QtCore/QCborValue>

#include <algorithm>
#include <iterator>
#include <numeric>

namespace InkSharing {

namespace {

constexpr qint64 kMostUnsent = 1 << 20;      // bytes for one reader, who is handed more once they are written
constexpr qint64 kMostUnsentLive = 64 << 10; // beyond which live acts are left out
constexpr qint64 kMostOnItsWay = 8 << 20;    // bytes of one writer; no board has a quarter of that
constexpr std::size_t kMostBatchEntries = 4096;
constexpr int kMostAtOnce = 4; // batches for one reader, each of which may take some milliseconds to be packed
constexpr qint64 kLargeBatch = 64 << 10; // bytes
constexpr qint64 kPatience = 5000;       // milliseconds, after which it is tried again to make one a member

// Whether a record says itself what it is said to be. What it does is for the lesson to decide.
bool isRecord(const RecordEntry &entry)
{
    QCborMap map;
    if (!InkLesson::RecordReader::parseCbor(entry.record, map))
        return false;
    return map.value(QLatin1String("author")).toInteger() == entry.id.author &&
           map.value(QLatin1String("number")).toInteger() == entry.id.number;
}

} // namespace

DoorLesson::DoorLesson(const QString &name, Engine &engine, DoorOutlet &outlet)
    : m_name(name)
    , m_engine(engine)
    , m_outlet(outlet)
{
}

DoorLesson::~DoorLesson() = default;

void DoorLesson::open(Engine::Open how)
{
    m_isCreating = how == Engine::Open::Create;
    m_isCaughtUp = false;
    m_entries.clear();
    m_blocks.assign(1, {});
    m_batch = {};
    m_reader = StreamReader();
    m_stream.reset();
    m_stream = m_engine.open(m_name, how, *this);
}

void DoorLesson::hello(int connection, const Hello &hello, qint64 now)
{
    m_now = now;
    Guest &guest = m_guests[connection];
    guest = Guest{hello, hashOf(hello.token)};
    for (auto &[id, other] : m_guests) {
        if (id != connection && other.tokenHash == guest.tokenHash) {
            turnAway(id, Reason::Elsewhere);
            break;
        }
    }
    if (!m_stream || (hello.created && !m_isCreating && m_entries.empty()))
        open(hello.created ? Engine::Open::Create : Engine::Open::Existing);
    else
        consider(connection, m_guests.at(connection));
}

// What can be told to one who has said hello; where it depends on the stream, later.
void DoorLesson::consider(int connection, Guest &guest)
{
    if (!m_isCaughtUp || guest.state != Guest::State::Came)
        return;
    const std::optional<LessonEntry> &lesson = m_reader.lesson();
    const auto &created = guest.hello.created;
    if (!lesson && !created) {
        turnAway(connection, Reason::NoLesson);
    } else if (!lesson) {
        join(guest, LessonEntry{created->header, guest.tokenHash, created->authors});
    } else if (created && lesson->tokenHash != guest.tokenHash) {
        turnAway(connection, Reason::OthersLesson);
    } else if (!m_reader.authorsOf(guest.tokenHash).empty()) {
        welcome(connection, guest);
    } else if (m_reader.isClaimed(authorOf(guest.tokenHash))) {
        turnAway(connection, Reason::NoPlace);
    } else {
        join(guest, MemberEntry{authorOf(guest.tokenHash), guest.tokenHash, Role::Pupil});
    }
}

void DoorLesson::join(Guest &guest, const Entry &entry)
{
    if (m_isDraining || (guest.joining && m_now - *guest.joining < kPatience))
        return;
    guest.joining = m_now;
    ++m_appends;
    m_stream->append(encoded(entry), [this](Appended) { --m_appends; });
}

void DoorLesson::welcome(int connection, Guest &guest)
{
    guest.state = Guest::State::Welcome;
    guest.authors = m_reader.authorsOf(guest.tokenHash);
    guest.last = m_reader.lastOf(guest.authors.front());
    guest.next = 0;
    for (const Hello::Place &place : guest.hello.places) {
        if (place.length <= m_entries.size() && m_reader.chainAt(std::size_t(place.length)) == place.chain)
            guest.next = std::max(guest.next, std::size_t(place.length));
    }
    guest.late = m_entries.size();
    m_outlet.send(connection, Welcome{guest.authors.front(), guest.next, m_entries.size()});
    pump(connection);
}

DoorLesson::Guest *DoorLesson::welcomed(int connection)
{
    const auto found = m_guests.find(connection);
    return found == m_guests.end() || !isWelcome(found->second) || m_isDraining ? nullptr : &found->second;
}

// Those that follow one that was refused, or that was sent before the door asked for another hello, name one before
// them that is not the last: the board sends them again.
void DoorLesson::append(int connection, const Append &append)
{
    Guest *guest = welcomed(connection);
    InkLesson::StepId after = append.after;
    for (auto record = append.records.begin(); guest && record != append.records.end(); ++record) {
        if (after != guest->last)
            return;
        if (const std::optional<Reason> reason = problemOf(*guest, *record)) {
            ++m_outlet.counts().refusals;
            m_outlet.send(connection, Refused{record->id, *reason});
            return;
        }
        RecordEntry entry = *record;
        entry.after = after;
        if (!put(connection, *guest, encoded(Entry(entry))))
            return;
        ++m_outlet.counts().records;
        after = guest->last = record->id;
    }
}

std::optional<Reason> DoorLesson::problemOf(const Guest &guest, const RecordEntry &record) const
{
    if (std::find(guest.authors.begin(), guest.authors.end(), record.id.author) == guest.authors.end())
        return Reason::NotYours;
    return isRecord(record) ? std::nullopt : std::make_optional(Reason::Unreadable);
}

void DoorLesson::piece(int connection, const SendPiece &piece)
{
    Guest *guest = welcomed(connection);
    if (!guest)
        return;
    PieceEntry entry = piece.piece;
    entry.author = guest->authors.front();
    put(connection, *guest, encoded(Entry(entry)));
}

// False where the writer has gone for that.
bool DoorLesson::put(int connection, Guest &guest, const QByteArray &entry)
{
    if (guest.onItsWay + entry.size() > kMostOnItsWay) {
        turnAway(connection, Reason::TooMuch);
        return false;
    }
    guest.onItsWay += entry.size();
    ++m_appends;
    m_stream->append(entry, [this, connection, size = entry.size()](Appended how) {
        --m_appends;
        m_outlet.counts().unknownAppends += how == Appended::Unknown ? 1 : 0;
        const auto found = m_guests.find(connection);
        if (found == m_guests.end() || !isWelcome(found->second))
            return;
        found->second.onItsWay -= std::min<qint64>(found->second.onItsWay, size);
        if (how == Appended::Unknown)
            again(connection, found->second);
    });
    return true;
}

// Nothing more is known of what it has sent.
void DoorLesson::again(int connection, Guest &guest)
{
    guest.state = Guest::State::Asked;
    m_outlet.send(connection, Again());
}

void DoorLesson::live(int connection, const QByteArray &payload)
{
    const Guest *guest = welcomed(connection);
    if (!guest)
        return;
    const LiveOf live{guest->authors.front(), payload};
    tellOthers(connection, live);
    m_stream->publish(encoded(FromDoor(live)));
}

void DoorLesson::heard(const QByteArray &bytes)
{
    FromDoor message;
    QString problem;
    if (readMessage(bytes, message, problem) && std::holds_alternative<LiveOf>(message))
        tellOthers(0, std::get<LiveOf>(message));
}

// Live acts are worth nothing late: one who cannot be told now is not told. Behind a part of a picture they are not so
// late.
void DoorLesson::tellOthers(int connection, const LiveOf &live)
{
    const QByteArray message = encoded(FromDoor(live));
    for (const auto &[id, guest] : m_guests) {
        if (id == connection || !isWelcome(guest))
            continue;
        if (m_outlet.unsent(id) > kMostUnsentLive + guest.bulk)
            ++m_outlet.counts().liveDropped;
        else
            m_outlet.sendBytes(id, message);
    }
}

void DoorLesson::absent()
{
    m_isCaughtUp = true;
    m_stream.reset();
    while (!m_guests.empty())
        turnAway(m_guests.begin()->first, Reason::NoLesson);
}

void DoorLesson::entries(const std::vector<QByteArray> &entries)
{
    for (const QByteArray &entry : entries) {
        const std::optional<Entry> taken = m_reader.take(entry);
        keep(entry, taken && std::holds_alternative<PieceEntry>(*taken));
    }
    pumpAll();
}

// A block that is full is packed at once, so that nobody waits for many of them when somebody comes; those of a lesson
// that was there before are packed when they are sent first.
void DoorLesson::keep(const QByteArray &entry, bool isPicture)
{
    const Batch last = m_blocks.back();
    if (last.bytes > 0 && (last.bytes + entry.size() > kMostBatchBytes || last.end - last.from == kMostBatchEntries)) {
        m_blocks.push_back({last.end, last.end});
        if (m_isCaughtUp)
            batchFrom(last.from);
    }
    m_entries.push_back(entry);
    m_blocks.back().end = m_entries.size();
    m_blocks.back().bytes += entry.size();
    m_blocks.back().hasPictures = m_blocks.back().hasPictures || isPicture;
}

void DoorLesson::caughtUp()
{
    m_isCaughtUp = true;
    pumpAll();
}

void DoorLesson::pumpAll()
{
    std::vector<int> connections;
    for (const auto &[id, guest] : m_guests)
        connections.push_back(id);
    for (const int id : connections) {
        const auto found = m_guests.find(id);
        if (found != m_guests.end())
            consider(id, found->second);
        pump(id);
    }
}

// Nobody has more than so much waiting; what a reader has not got yet stands in the stream. It goes on once something
// is written, with what others are told in between.
void DoorLesson::pump(int connection)
{
    const auto found = m_guests.find(connection);
    if (found == m_guests.end() || !isWelcome(found->second))
        return;
    Guest &guest = found->second;
    for (int i = 0; i < kMostAtOnce && guest.next < m_entries.size(); ++i) {
        const qint64 unsent = m_outlet.unsent(connection);
        if (unsent >= kMostUnsent)
            break;
        if (!mayHandOut(guest, unsent, bytesFrom(guest.next)))
            break;
        const Batch &batch = batchFrom(guest.next);
        guest.next = batch.end;
        m_outlet.sendBytes(connection, batch.message);
    }
}

// Of what is large one batch at a time, unless somebody comes late: ink goes in between.
bool DoorLesson::mayHandOut(Guest &guest, qint64 unsent, qint64 bytes)
{
    if (unsent <= kMostUnsentLive)
        guest.bulk = 0;
    if (guest.next < guest.late || bytes < kLargeBatch || m_isDraining)
        return true;
    if (unsent > kMostUnsentLive)
        return false;
    guest.bulk = bytes;
    return true;
}

std::size_t DoorLesson::blockOf(std::size_t entry) const
{
    const auto after = std::upper_bound(m_blocks.begin(), m_blocks.end(), entry,
                                        [](std::size_t place, const Batch &block) { return place < block.from; });
    return std::size_t(after - m_blocks.begin()) - 1;
}

// To the end of their block.
qint64 DoorLesson::bytesFrom(std::size_t entry) const
{
    const auto end = m_entries.begin() + std::ptrdiff_t(m_blocks[blockOf(entry)].end);
    return std::accumulate(m_entries.begin() + std::ptrdiff_t(entry), end, qint64(0),
                           [](qint64 sum, const QByteArray &bytes) { return sum + bytes.size(); });
}

// The entries from a place to the end of their block. All who are as far get the same message; that of a whole block is
// kept for those who come later, if it could be packed.
const DoorLesson::Batch &DoorLesson::batchFrom(std::size_t from)
{
    Batch &block = m_blocks[blockOf(from)];
    const bool isWhole = &block != &m_blocks.back() && from == block.from;
    if (isWhole && !block.message.isEmpty())
        return block;
    if (m_batch.message.isEmpty() || m_batch.from != from || m_batch.end != block.end) {
        const auto entry = [this](std::size_t place) { return m_entries.begin() + std::ptrdiff_t(place); };
        const Entries entries{from, {entry(from), entry(block.end)}};
        m_batch = {from, block.end, encoded(FromDoor(entries), block.hasPictures ? Pack::Never : Pack::IfShorter)};
    }
    if (isWhole && 2 * m_batch.message.size() <= block.bytes)
        block.message = m_batch.message;
    return m_batch;
}

void DoorLesson::turnAway(int connection, Reason reason)
{
    m_guests.erase(connection);
    m_outlet.send(connection, Gone{reason});
    m_outlet.close(connection);
}

// The entries may be others now: everybody says how far they are, and goes on from what is common.
void DoorLesson::lost()
{
    ++m_outlet.counts().lostStreams;
    bool mayCreate = false;
    m_appends = 0; // nobody tells how they have ended
    for (auto &[id, guest] : m_guests) {
        mayCreate = mayCreate || guest.hello.created;
        if (isWelcome(guest))
            again(id, guest);
    }
    open(mayCreate ? Engine::Open::Create : Engine::Open::Existing);
}

void DoorLesson::tick(qint64 now)
{
    m_now = now;
    pumpAll();
}

bool DoorLesson::drain()
{
    m_isDraining = true;
    pumpAll();
    return m_appends == 0 && std::all_of(m_guests.begin(), m_guests.end(), [this](const auto &guest) {
               return !isWelcome(guest.second) ||
                      (guest.second.next == m_entries.size() && m_outlet.unsent(guest.first) == 0);
           });
}

} // namespace InkSharing
