#include "sharing/wire/Contents.h"

#include "sharing/wire/Entry.h"

#include "lesson/log/RecordReader.h"

#include <QtCore/QCborArray>
#include <QtCore/QCborMap>
#include <QtCore/QCborValue>

namespace InkSharing {

namespace {

constexpr QCborTag kBytes{0x496e6b}, kText{0x496e6c}; // of a hash that stands for bytes, or for text as UTF-8

// Every value of the map or array, and of those in it, goes through `turn`.
QCborValue turned(const QCborValue &value, const std::function<QCborValue(const QCborValue &)> &turn)
{
    if (value.isMap()) {
        QCborMap map = value.toMap();
        for (auto pair : map)
            pair.second = turned(pair.second, turn);
        return map;
    }
    if (value.isArray()) {
        QCborArray array = value.toArray();
        for (qsizetype i = 0; i < array.size(); ++i)
            array[i] = turned(array.at(i), turn);
        return array;
    }
    return turn(value);
}

} // namespace

Detached detached(const QByteArray &record)
{
    Detached result{record};
    if (record.size() <= kLargeBytes)
        return result;
    QCborValue value = turned(QCborValue::fromCbor(record), [&](const QCborValue &part) {
        const QByteArray bytes = part.isString() ? part.toString().toUtf8() : part.toByteArray();
        if (bytes.size() <= kLargeBytes)
            return part;
        const QByteArray hash = hashOf(bytes);
        result.hashes.push_back(hash);
        result.contents[hash] = bytes;
        return QCborValue(part.isString() ? kText : kBytes, hash);
    });
    if (!result.hashes.empty())
        result.record = value.toCbor();
    return result;
}

QByteArray attached(const QByteArray &record, const std::function<QByteArray(const QByteArray &)> &content)
{
    bool isWhole = true;
    QCborMap map;
    if (!InkLesson::RecordReader::parseCbor(record, map))
        return {};
    QCborValue value = turned(map, [&](const QCborValue &part) {
        if (!part.isTag() || (part.tag() != kBytes && part.tag() != kText))
            return part;
        const QByteArray bytes = content(part.taggedValue().toByteArray());
        isWhole = isWhole && !bytes.isEmpty();
        return part.tag() == kText ? QCborValue(QString::fromUtf8(bytes)) : QCborValue(bytes);
    });
    return isWhole ? value.toCbor() : QByteArray();
}

} // namespace InkSharing
