#include "door/jetstream/JetStreamWords.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace InkDoor {

namespace {

constexpr double kSecond = 1e9; // ns
constexpr double kDay = 86'400 * kSecond;

constexpr int kNoStream = 10'059;
constexpr int kOtherSettings = 10'058;

// "$JS.ACK.<stream>.<delivery>.<tries>.<place>.<number>.<time>.<left>", or with a domain and an account before the
// stream and a token of chance at the end.
constexpr int kShortWords = 9;
constexpr int kLongWords = 12;

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument{object}.toJson(QJsonDocument::Compact);
}

quint64 count(const QJsonValue &value)
{
    const double number = value.toDouble();
    return number > 0 ? static_cast<quint64>(number) : 0;
}

} // namespace

QByteArray streamName(const QString &lesson)
{
    return "ink-" + lesson.toLatin1();
}

QByteArray logSubject(const QString &lesson)
{
    return "ink.log." + lesson.toLatin1();
}

QByteArray liveSubject(const QString &lesson)
{
    return "ink.live." + lesson.toLatin1();
}

QByteArray streamOrder(const QString &lesson, int replicas)
{
    return compact({
        {QStringLiteral("name"), QString::fromLatin1(streamName(lesson))},
        {QStringLiteral("subjects"), QJsonArray{QString::fromLatin1(logSubject(lesson))}},
        {QStringLiteral("retention"), QStringLiteral("limits")},
        {QStringLiteral("storage"), QStringLiteral("file")},
        {QStringLiteral("discard"), QStringLiteral("new")},
        {QStringLiteral("num_replicas"), replicas},
        {QStringLiteral("duplicate_window"), kDay},
        {QStringLiteral("max_consumers"), -1},
        {QStringLiteral("max_msgs"), -1},
        {QStringLiteral("max_bytes"), -1},
        {QStringLiteral("max_age"), 0},
    });
}

QByteArray apiSubject(const QByteArray &what, const QString &lesson, const QByteArray &delivery)
{
    return "$JS.API." + what + '.' + streamName(lesson) + (delivery.isEmpty() ? delivery : '.' + delivery);
}

QByteArray deliveryOrder(const QString &lesson, const QByteArray &name, const QByteArray &subject, quint64 from)
{
    const QJsonObject config{
        {QStringLiteral("name"), QString::fromLatin1(name)},
        {QStringLiteral("deliver_subject"), QString::fromLatin1(subject)},
        {QStringLiteral("deliver_policy"), QStringLiteral("by_start_sequence")},
        {QStringLiteral("opt_start_seq"), static_cast<double>(from)},
        {QStringLiteral("ack_policy"), QStringLiteral("none")},
        {QStringLiteral("replay_policy"), QStringLiteral("instant")},
        {QStringLiteral("max_deliver"), 1},
        {QStringLiteral("idle_heartbeat"), kSecond},
        {QStringLiteral("flow_control"), true},
        {QStringLiteral("num_replicas"), 1},
        {QStringLiteral("mem_storage"), true},
    };
    return compact(
        {{QStringLiteral("stream_name"), QString::fromLatin1(streamName(lesson))}, {QStringLiteral("config"), config}});
}

Answer readAnswer(const NatsMessage &message)
{
    const QJsonObject object = QJsonDocument::fromJson(message.data).object();
    Answer answer;
    if (object.isEmpty())
        return answer;
    const QJsonObject error = object.value(QStringLiteral("error")).toObject();
    const int code = error.value(QStringLiteral("err_code")).toInt();
    answer.isDone = error.isEmpty();
    answer.isMissing = code == kNoStream;
    answer.isAlreadyThere = code == kOtherSettings;
    const QJsonObject delivered = object.value(QStringLiteral("delivered")).toObject();
    answer.entries =
        count(object.value(QStringLiteral("num_pending"))) + count(delivered.value(QStringLiteral("consumer_seq")));
    return answer;
}

std::optional<Delivery> readDelivery(const QByteArray &reply)
{
    const QList<QByteArray> words = reply.split('.');
    if (words.value(0) != "$JS" || words.value(1) != "ACK" ||
        (words.size() != kShortWords && words.size() != kLongWords))
        return std::nullopt;
    const int tries = words.size() == kShortWords ? 4 : 6;
    bool isPlace{};
    bool isNumber{};
    bool isTime{};
    Delivery delivery;
    delivery.name = words[tries - 1];
    delivery.place = words[tries + 1].toULongLong(&isPlace);
    delivery.number = words[tries + 2].toULongLong(&isNumber);
    delivery.stored = words[tries + 3].toLongLong(&isTime);
    return isPlace && isNumber && isTime ? std::make_optional(delivery) : std::nullopt;
}

} // namespace InkDoor
