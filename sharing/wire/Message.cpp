#include "sharing/wire/Message.h"

#include "sharing/wire/Fields.h"
#include "sharing/wire/Packing.h"

#include <QtCore/QCborValue>

#include <cstring>
#include <limits>

namespace InkSharing {

namespace {

// What each number stands for, in every message.
enum Key { Kind, First, Second, Third, Fourth };
enum FromBoardKind { HelloKind = 1, AppendKind, PieceKind, LiveKind, BoardAliveKind };
enum FromDoorKind {
    WelcomeKind = 1,
    EntriesKind,
    LiveOfKind,
    RefusedKind,
    AgainKind,
    GoneKind,
    DoorAliveKind,
    PackedKind
};

constexpr int kMostPlaces = 64;
constexpr int kMostParts = 1 << 15;
constexpr int kWorthPacking = 16 << 10; // bytes of a message

struct BoardWriter
{
    QCborMap operator()(const Hello &hello) const
    {
        QCborArray places;
        for (const Hello::Place &place : hello.places)
            places.append(QCborArray{qint64(place.length), QByteArray(place.chain.data(), int(place.chain.size()))});
        QCborMap map{{Kind, HelloKind}, {First, kProtocol}, {Second, hello.lesson}, {Third, hello.token}};
        map.insert(Fourth, places);
        if (hello.created)
            map.insert(Fourth + 1, encoded(Entry(*hello.created)));
        return map;
    }
    QCborMap operator()(const Append &append) const
    {
        QCborArray records;
        for (const RecordEntry &record : append.records)
            records.append(encoded(Entry(record)));
        QCborMap map{{Kind, AppendKind}, {Second, records}};
        if (append.after != InkLesson::kNothing)
            map.insert(First, pairOf(append.after));
        return map;
    }
    QCborMap operator()(const SendPiece &piece) const
    {
        return {{Kind, PieceKind}, {First, encoded(Entry(piece.piece))}};
    }
    QCborMap operator()(const SendLive &live) const { return {{Kind, LiveKind}, {First, live.payload}}; }
    QCborMap operator()(const Alive & /*alive*/) const { return {{Kind, BoardAliveKind}}; }
};

struct DoorWriter
{
    QCborMap operator()(const Welcome &welcome) const
    {
        return {{Kind, WelcomeKind},
                {First, welcome.author},
                {Second, qint64(welcome.from)},
                {Third, qint64(welcome.last)}};
    }
    QCborMap operator()(const Entries &entries) const
    {
        QCborArray array;
        for (const QByteArray &entry : entries.entries)
            array.append(entry);
        return {{Kind, EntriesKind}, {First, qint64(entries.from)}, {Second, array}};
    }
    QCborMap operator()(const LiveOf &live) const
    {
        return {{Kind, LiveOfKind}, {First, live.author}, {Second, live.payload}};
    }
    QCborMap operator()(const Refused &refused) const
    {
        return {{Kind, RefusedKind}, {First, pairOf(refused.record)}, {Second, int(refused.reason)}};
    }
    QCborMap operator()(const Again & /*again*/) const { return {{Kind, AgainKind}}; }
    QCborMap operator()(const Gone &gone) const { return {{Kind, GoneKind}, {First, int(gone.reason)}}; }
    QCborMap operator()(const Alive & /*alive*/) const { return {{Kind, DoorAliveKind}}; }
};

quint64 readLength(Fields &fields, int key, const char *name)
{
    return quint64(fields.number(key, name, 0, std::numeric_limits<qint64>::max()));
}

Reason readReason(Fields &fields, int key)
{
    return Reason(fields.number(key, "reason", int(Reason::Unreadable), int(Reason::Ended)));
}

// An entry of one kind.
template <typename Kind>
Kind readOne(const QByteArray &bytes, Fields &fields, const char *name)
{
    Entry entry;
    QString problem;
    if (readEntry(bytes, entry, problem) && std::holds_alternative<Kind>(entry))
        return std::get<Kind>(std::move(entry));
    fields.fail(name);
    return {};
}

Hello readHello(Fields &fields)
{
    Hello hello{fields.text(Second, "lesson", 64), fields.bytes(Third, "token", kLeastTokenBytes, kMostTokenBytes)};
    for (const QCborValue value : fields.array(Fourth, "places", kMostPlaces)) {
        const QCborArray place = value.toArray();
        const QByteArray chain = place.at(1).toByteArray();
        Hello::Place &read = hello.places.emplace_back();
        if (place.size() != 2 || !place.at(0).isInteger() || place.at(0).toInteger() < 0 ||
            chain.size() != int(read.chain.size())) {
            fields.fail("places");
            break;
        }
        read.length = quint64(place.at(0).toInteger());
        std::memcpy(read.chain.data(), chain.constData(), read.chain.size());
    }
    if (fields.has(Fourth + 1))
        hello.created =
            readOne<LessonEntry>(fields.bytes(Fourth + 1, "created", 1, kMostBatchBytes), fields, "created");
    return hello;
}

Append readAppend(Fields &fields)
{
    constexpr int kMostRecords = 4096;
    Append append{fields.id(First, "after"), {}};
    for (const QCborValue value : fields.array(Second, "records", kMostRecords))
        append.records.push_back(readOne<RecordEntry>(value.toByteArray(), fields, "records"));
    if (append.records.empty())
        fields.fail("records");
    return append;
}

Entries readEntries(Fields &fields)
{
    Entries entries{readLength(fields, First, "from"), {}};
    for (const QCborValue value : fields.array(Second, "entries", kMostParts)) {
        entries.entries.push_back(value.toByteArray());
        if (!value.isByteArray())
            fields.fail("entries");
    }
    return entries;
}

} // namespace

QByteArray encoded(const ToDoor &message)
{
    return QCborValue(std::visit(BoardWriter(), message)).toCbor();
}

// Many entries, as they come to one who comes late, are packed.
QByteArray encoded(const FromDoor &message, Pack pack)
{
    const QByteArray plain = QCborValue(std::visit(DoorWriter(), message)).toCbor();
    if (pack == Pack::Never || plain.size() < kWorthPacking || !std::holds_alternative<Entries>(message))
        return plain;
    const QByteArray frame = packed(plain);
    const QByteArray shorter = QCborValue(QCborMap{{Kind, PackedKind}, {First, frame}}).toCbor();
    return frame.isEmpty() || shorter.size() >= plain.size() ? plain : shorter;
}

bool readMessage(const QByteArray &bytes, ToDoor &message, QString &problem)
{
    Fields fields(bytes.size() <= kMostMessageBytes ? bytes : QByteArray(), kMostParts);
    switch (fields.number(Kind, "kind", HelloKind, BoardAliveKind)) {
    case HelloKind:
        fields.number(First, "protocol", kProtocol, kProtocol);
        message = readHello(fields);
        break;
    case AppendKind:
        message = readAppend(fields);
        break;
    case PieceKind: {
        const QByteArray piece = fields.bytes(First, "piece", 1, kMostMessageBytes);
        message = SendPiece{readOne<PieceEntry>(piece, fields, "piece")};
        break;
    }
    case LiveKind:
        message = SendLive{fields.bytes(First, "live", 1, kMostLiveBytes)};
        break;
    default:
        message = Alive();
    }
    problem = fields.error();
    return fields.isRight();
}

bool readMessage(const QByteArray &bytes, FromDoor &message, QString &problem)
{
    Fields fields(bytes.size() <= kMostMessageBytes ? bytes : QByteArray(), kMostParts);
    switch (fields.number(Kind, "kind", WelcomeKind, PackedKind)) {
    case WelcomeKind:
        message = Welcome{int(fields.number(First, "author", 1, std::numeric_limits<int>::max())),
                          readLength(fields, Second, "from"), readLength(fields, Third, "last")};
        break;
    case EntriesKind:
        message = readEntries(fields);
        break;
    case LiveOfKind:
        message = LiveOf{int(fields.number(First, "author", 1, std::numeric_limits<int>::max())),
                         fields.bytes(Second, "live", 1, kMostLiveBytes)};
        break;
    case RefusedKind:
        message = Refused{fields.id(First, "record"), readReason(fields, Second)};
        break;
    case AgainKind:
        message = Again();
        break;
    case GoneKind:
        message = Gone{readReason(fields, First)};
        break;
    case PackedKind: {
        const auto entries = unpacked(fields.bytes(First, "packed", 1, kMostMessageBytes), kMostMessageBytes);
        Fields inner(entries.value_or(QByteArray()), kMostParts);
        inner.number(Kind, "kind", EntriesKind, EntriesKind);
        message = readEntries(inner);
        if (!inner.isRight())
            fields.fail("packed");
        break;
    }
    default:
        message = Alive();
    }
    problem = fields.error();
    return fields.isRight();
}

} // namespace InkSharing
