#include "sharing/live/LiveMessage.h"

#include "sharing/wire/Fields.h"
#include "sharing/wire/Message.h"

#include "lesson/log/RecordCode.h"
#include "lesson/log/RecordReader.h"

#include <QtCore/QCborValue>

#include <limits>

namespace InkSharing {

namespace {

enum Key { Kind, First, Second, Third, Fourth, Fifth, Sixth, Seventh };
enum KindOf { PresenceKind = 1, ActsKind, DropKind, AskKind };

constexpr int kMost = std::numeric_limits<int>::max();
constexpr qint64 kMostActs = 1 << 22;
constexpr qint64 kMostTime = qint64(1) << 53;

struct Writer
{
    QCborMap operator()(const Presence &presence) const
    {
        QCborMap map{{Kind, PresenceKind},
                     {First, presence.name.left(kMostName)},
                     {Second, qint64(presence.color.rgb() & 0xffffff)},
                     {Third, pairOf(presence.page)},
                     {Fifth, presence.hasRaised ? 1 : 0},
                     {Sixth, presence.taken},
                     {Seventh, qint64(presence.acts)}};
        if (presence.pointer)
            map.insert(Fourth, QCborArray{presence.pointer->x(), presence.pointer->y()});
        return map;
    }
    QCborMap operator()(const LiveActs &acts) const
    {
        QCborMap map{{Kind, ActsKind}, {First, acts.taken}, {Second, qint64(acts.from)}, {Third, toCbor(acts.record)}};
        if (acts.held != InkLesson::kNothing)
            map.insert(Fourth, pairOf(acts.held));
        if (acts.time > 0)
            map.insert(Fifth, acts.time);
        return map;
    }
    QCborMap operator()(const LiveDrop &drop) const
    {
        return {{Kind, DropKind}, {First, drop.taken}, {Second, drop.number}};
    }
    QCborMap operator()(const LiveAsk &ask) const { return {{Kind, AskKind}, {First, ask.author}}; }
};

Presence readPresence(Fields &fields)
{
    Presence presence;
    presence.name = fields.text(First, "name", kMostName);
    presence.color = QColor(QRgb(0xff000000 | quint32(fields.number(Second, "color", 0, 0xffffff))));
    const QCborArray page = fields.array(Third, "page", 2);
    const qint64 author = page.at(0).toInteger(-1), number = page.at(1).toInteger(-1);
    if (author < 0 || author > kMost || number < 1 || number > kMost)
        fields.fail("page");
    presence.page = {int(author), int(number)};
    if (fields.has(Fourth)) {
        const QCborArray place = fields.array(Fourth, "pointer", 2);
        const qint64 x = place.at(0).toInteger(kMost), y = place.at(1).toInteger(kMost);
        constexpr qint64 kFar = 1 << 24;
        if (qAbs(x) > kFar || qAbs(y) > kFar)
            fields.fail("pointer");
        presence.pointer = QPoint(int(x), int(y));
    }
    presence.hasRaised = fields.number(Fifth, "raised", 0, 1) == 1;
    presence.taken = int(fields.number(Sixth, "taken", 0, kMost));
    presence.acts = quint64(fields.number(Seventh, "acts", 0, kMostActs));
    return presence;
}

LiveActs readActs(Fields &fields)
{
    LiveActs acts{int(fields.number(First, "taken", 1, kMost)),
                  quint64(fields.number(Second, "from", 0, kMostActs)),
                  {},
                  fields.id(Fourth, "held"),
                  fields.has(Fifth) ? fields.number(Fifth, "time", 1, kMostTime) : 0};
    InkLesson::RecordReader reader;
    if (!reader.readCbor(fields.bytes(Third, "record", 1, kMostLiveBytes), acts.record))
        fields.fail("record");
    const bool isDraw = std::holds_alternative<InkLesson::Draw>(acts.record.deed);
    if (!std::holds_alternative<InkLesson::Change>(acts.record.deed) && !(isDraw && acts.from == 0))
        fields.fail("record");
    return acts;
}

} // namespace

QByteArray encoded(const LiveMessage &message)
{
    return QCborValue(std::visit(Writer(), message)).toCbor();
}

bool readLive(const QByteArray &bytes, LiveMessage &message, QString &problem)
{
    Fields fields(bytes.size() <= kMostLiveBytes ? bytes : QByteArray());
    switch (fields.number(Kind, "kind", PresenceKind, AskKind)) {
    case PresenceKind:
        message = readPresence(fields);
        break;
    case ActsKind:
        message = readActs(fields);
        break;
    case DropKind:
        message =
            LiveDrop{int(fields.number(First, "taken", 1, kMost)), int(fields.number(Second, "number", 0, kMost))};
        break;
    default:
        message = LiveAsk{int(fields.number(First, "author", 1, kMost))};
    }
    problem = fields.error();
    return fields.isRight();
}

const std::vector<InkLesson::Act> &actsOf(const InkLesson::Record &record)
{
    static const std::vector<InkLesson::Act> kNone;
    if (const auto *draw = std::get_if<InkLesson::Draw>(&record.deed))
        return draw->life.acts;
    const auto *change = std::get_if<InkLesson::Change>(&record.deed);
    return change ? change->acts : kNone;
}

} // namespace InkSharing
