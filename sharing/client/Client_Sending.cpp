// What is pending goes to the door, in its order, no more at once than is worth having on its way.

#include "sharing/client/Client.h"

#include "sharing/wire/Fields.h"

#include <QtCore/QCborValue>

#include <algorithm>
#include <utility>

namespace InkSharing {

namespace {

constexpr qint64 kMostOnItsWay = 1 << 20; // bytes
constexpr std::size_t kMostSent = 256;    // records and pieces

std::vector<InkLesson::StepId> namesIn(const QByteArray &record)
{
    const QCborMap map = QCborValue::fromCbor(record).toMap();
    QCborArray values = map.value(QLatin1String("objects")).toArray();
    for (const char *key : {"page", "object", "above"})
        values.append(map.value(QLatin1String(key)));
    std::vector<InkLesson::StepId> names;
    for (const QCborValue value : values) {
        InkLesson::StepId id;
        if (readId(value, id))
            names.push_back(id);
    }
    return names;
}

} // namespace

// Where the stream has lost its end, each board brings its own back. A step comes after those that it builds on, or it
// would have no effect; but who does not come back is not waited for.
bool Client::mustWait() const
{
    const auto isMissing = [this](const InkLesson::StepId &id) { return m_missing.count(id) != 0; };
    return m_now < m_missingUntil && std::any_of(m_outgoing.named.begin(), m_outgoing.named.end(), isMissing);
}

bool Client::isWindowFull() const
{
    return m_onItsWay >= kMostOnItsWay || m_sent.size() >= kMostSent;
}

void Client::sendPending()
{
    if (m_state != State::Open || !m_lesson)
        return;
    Append append;
    while (sendNext(append)) {
    }
    flush(append);
}

// The first pending record that is not on its way, or of its pieces those that there is room for. False where nothing
// more can be sent now.
bool Client::sendNext(Append &append)
{
    const auto &ids = m_lesson->ids();
    const auto next = std::find_if(ids.begin() + std::ptrdiff_t(m_lesson->settled()), ids.end(),
                                   [this](const InkLesson::StepId &id) { return m_sentRecords.count(id) == 0; });
    if (next == ids.end() || isWindowFull())
        return false;
    if (m_outgoing.id != *next) {
        m_outgoing = {*next, detached(m_lesson->log()[std::size_t(next - ids.begin())])};
        m_outgoing.named = namesIn(m_outgoing.detached.record);
    }
    if (mustWait())
        return false;
    const Detached &record = m_outgoing.detached;
    if (record.record.size() > kMostRecordBytes || record.hashes.size() > std::size_t(kMostContents)) {
        const InkLesson::StepId id = *next;
        m_lesson->drop(id);
        m_host.lostStep({id, QStringLiteral("too large")});
        return true;
    }
    if (!record.hashes.empty())
        flush(append);
    if (!sendPieces(record))
        return false;
    if (append.records.empty())
        append.after = m_lastSent ? *m_lastSent : m_reader.lastOf(author());
    append.records.push_back({*next, InkLesson::kNothing, record.record, record.hashes});
    note({*next, {}, 0, record.record.size()});
    m_sentRecords.insert(*next);
    m_lastSent = *next;
    return true;
}

void Client::flush(Append &append)
{
    if (append.records.empty())
        return;
    Append part{append.after, {}};
    qint64 bytes = 0;
    for (const RecordEntry &record : append.records) {
        bytes += record.record.size();
        if (bytes > kMostBatchBytes && !part.records.empty()) {
            send(part);
            part = {part.records.back().id, {}};
            bytes = record.record.size();
        }
        part.records.push_back(record);
    }
    send(part);
    append = {};
}

// False while there are more than there is room for.
bool Client::sendPieces(const Detached &detached)
{
    for (const auto &[hash, content] : detached.contents) {
        if (m_reader.isWhole(hash))
            continue;
        int &next = m_pieces.try_emplace(hash, m_reader.nextPiece(author(), hash)).first->second;
        const int count = (content.size() + kPieceBytes - 1) / kPieceBytes;
        for (; next < count; ++next) {
            if (isWindowFull())
                return false;
            const QByteArray bytes = content.mid(next * kPieceBytes, kPieceBytes);
            send(SendPiece{{author(), hash, next, count, bytes}});
            note({{author(), 0}, hash, next, bytes.size()});
        }
    }
    return true;
}

void Client::note(const Sent &sent)
{
    if (m_sent.empty())
        m_progress = m_now;
    m_sent.push_back(sent);
    m_onItsWay += sent.bytes;
}

// Something stands in the stream. What of it was sent here is not on its way any more.
void Client::arrived(const Entry &entry)
{
    const auto *record = std::get_if<RecordEntry>(&entry);
    const auto *piece = std::get_if<PieceEntry>(&entry);
    if (record)
        m_missing.erase(record->id);
    const auto found = std::find_if(m_sent.begin(), m_sent.end(), [&](const Sent &sent) {
        return (record && sent.id == record->id) ||
               (piece && piece->author == author() && sent.hash == piece->hash && sent.index == piece->index);
    });
    if (found == m_sent.end()) {
        // A copy of a record that was sent long ago: what was sent now may name the one before it.
        m_mustGreet = m_mustGreet || (record && isMine(record->id.author) && !m_sentRecords.empty());
        return;
    }
    m_onItsWay -= found->bytes;
    m_sentRecords.erase(found->id);
    m_sent.erase(found);
    m_progress = m_now;
}

} // namespace InkSharing
