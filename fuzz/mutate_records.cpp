// Changes lessons as what they are: a record is doubled, left out or moved, a value in it taken from another record.
// For the fuzzing engine, whose own changes to bytes make nonsense of a file for the most part.

#include "lesson/log/RecordReader.h"

#include <QtCore/QCborArray>
#include <QtCore/QCborStreamReader>
#include <QtCore/QCborValue>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t most);

namespace {

constexpr qint64 kNumbers[] = {-2147483648LL, -1,    0,          1,          2,          3,        5, 64,
                               255,           16384, 1073741824, 2147483646, 2147483647, 1LL << 53};

class Mutator
{
public:
    explicit Mutator(unsigned seed)
        : m_random(seed)
    {
    }

    int below(std::size_t count) { return int(m_random() % count); }

    // The first is the header of a file, where there is one.
    void change(std::vector<QCborMap> &records)
    {
        const auto any = [&] { return records.begin() + below(records.size()); };
        switch (below(8)) {
        case 0:
            records.push_back(*any());
            break;
        case 1:
            records.erase(any());
            break;
        case 2:
            std::iter_swap(any(), any());
            break;
        default: {
            QCborMap &record = *any();
            record = changed(record, part(*any())).toMap();
        }
        }
    }

private:
    // Any value in it, or a number.
    QCborValue part(const QCborValue &whole)
    {
        if (below(3) == 0)
            return whole;
        if (whole.isMap() && !whole.toMap().isEmpty())
            return part((whole.toMap().begin() + below(std::size_t(whole.toMap().size()))).value());
        if (whole.isArray() && !whole.toArray().isEmpty())
            return part(whole.toArray().at(below(std::size_t(whole.toArray().size()))));
        return below(2) == 0 ? whole : QCborValue(kNumbers[below(std::size(kNumbers))]);
    }

    // One value of it is another one, or gone.
    QCborValue changed(const QCborValue &whole, const QCborValue &other)
    {
        if (whole.isMap() && !whole.toMap().isEmpty()) {
            QCborMap map = whole.toMap();
            const auto at = map.begin() + below(std::size_t(map.size()));
            if (below(12) == 0)
                map.erase(at);
            else
                map.insert(at.key(), changed(at.value(), other));
            return map;
        }
        if (whole.isArray() && !whole.toArray().isEmpty() && below(4) != 0) {
            QCborArray array = whole.toArray();
            const int at = below(std::size_t(array.size()));
            array[at] = changed(array.at(at), other);
            return array;
        }
        if (whole.isInteger() && below(2) == 0)
            return whole.toInteger() + below(7) - 3;
        return whole.isString() && below(2) == 0 ? QCborValue(text(whole.toString())) : other;
    }

    QString text(QString text)
    {
        if (text.isEmpty())
            return text;
        const int at = below(std::size_t(text.size()));
        if (below(2) == 0)
            text.insert(at, text.mid(below(std::size_t(text.size())), below(6)));
        else
            text.remove(at, 1 + below(4));
        return text;
    }

    std::mt19937 m_random;
};

std::vector<QCborMap> linesOf(const QByteArray &file)
{
    std::vector<QCborMap> records;
    for (const QByteArray &line : file.split('\n')) {
        if (!line.isEmpty() && !InkLesson::RecordReader::parseJson(line, records.emplace_back()))
            records.pop_back();
    }
    return records;
}

std::vector<QCborMap> recordsOf(const QByteArray &stream)
{
    std::vector<QCborMap> records;
    QCborStreamReader reader(stream);
    for (int from = 0; reader.lastError() == QCborError::NoError && reader.hasNext();) {
        if (!reader.next())
            break;
        const int to = int(reader.currentOffset());
        if (!InkLesson::RecordReader::parseCbor(stream.mid(from, to - from), records.emplace_back()))
            records.pop_back();
        from = to;
    }
    return records;
}

QByteArray written(const std::vector<QCborMap> &records, bool isStream)
{
    QByteArray all;
    for (const QCborMap &record : records)
        all += isStream ? record.toCborValue().toCbor()
                        : QJsonDocument(record.toJsonObject()).toJson(QJsonDocument::Compact) + '\n';
    return all;
}

} // namespace

// The first byte, which tells the kinds apart, stays: the seeds have them all.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t most, unsigned seed)
{
    if (size == 0)
        return LLVMFuzzerMutate(data, size, most);
    Mutator mutator(seed);
    const int kind = data[0] % 8; // as Fuzz::run() has it
    const bool isComposed = kind == 2 || kind == 3 || kind == 7, isStream = kind == 0 || kind == 6;
    const auto changeBytes = [&] { return LLVMFuzzerMutate(data + 1, size - 1, most - 1) + 1; };
    if (isComposed || mutator.below(4) == 0)
        return changeBytes();
    const QByteArray bytes(reinterpret_cast<const char *>(data) + 1, int(size) - 1);
    std::vector<QCborMap> records = isStream ? recordsOf(bytes) : linesOf(bytes);
    for (int changes = 1 + mutator.below(4); changes > 0 && !records.empty(); --changes)
        mutator.change(records);
    const QByteArray changed = written(records, isStream);
    if (changed.isEmpty() || std::size_t(changed.size()) >= most)
        return changeBytes();
    std::memcpy(data + 1, changed.constData(), std::size_t(changed.size()));
    return std::size_t(changed.size()) + 1;
}
