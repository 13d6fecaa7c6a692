#include "sharing/wire/Fields.h"

#include "lesson/paper/PageSize.h"

#include <QtCore/QCborStreamReader>
#include <QtCore/QCborValue>

#include <cmath>
#include <limits>

namespace InkSharing {

namespace {

constexpr int kDeepest = 4; // maps and arrays in each other

// Whether the next value holds no more than it may.
bool isBounded(QCborStreamReader &reader, int depth, int &parts)
{
    if (--parts < 0)
        return false;
    if (!reader.isContainer())
        return reader.next();
    if (depth == kDeepest || !reader.enterContainer())
        return false;
    while (reader.hasNext()) {
        if (!isBounded(reader, depth + 1, parts))
            return false;
    }
    return reader.leaveContainer();
}

bool isBounded(const QByteArray &bytes, int parts)
{
    QCborStreamReader reader(bytes);
    return isBounded(reader, 0, parts) && reader.currentOffset() == bytes.size();
}

bool readInt(const QCborValue &value, int least, int &number)
{
    number = int(value.toInteger());
    return value.isInteger() && value.toInteger() >= least && value.toInteger() <= std::numeric_limits<int>::max();
}

} // namespace

Fields::Fields(const QByteArray &bytes, int mostParts)
{
    const QCborValue value = isBounded(bytes, mostParts) ? QCborValue::fromCbor(bytes) : QCborValue();
    m_map = value.toMap();
    if (!value.isMap())
        m_error = tr("nothing that can be read");
}

void Fields::fail(const char *name)
{
    if (isRight())
        m_error = tr("%1: not what it must be").arg(QLatin1String(name));
}

qint64 Fields::number(int key, const char *name, qint64 least, qint64 most)
{
    const QCborValue value = m_map.value(key);
    if (value.isInteger() && value.toInteger() >= least && value.toInteger() <= most)
        return value.toInteger();
    fail(name);
    return least;
}

double Fields::real(int key, const char *name)
{
    const QCborValue value = m_map.value(key);
    if (!value.isDouble() || !std::isfinite(value.toDouble()))
        fail(name);
    return value.toDouble();
}

QByteArray Fields::bytes(int key, const char *name, int least, int most)
{
    const QCborValue value = m_map.value(key);
    const QByteArray bytes = value.toByteArray();
    if (!value.isByteArray() || bytes.size() < least || bytes.size() > most)
        fail(name);
    return bytes;
}

QString Fields::text(int key, const char *name, int most)
{
    const QCborValue value = m_map.value(key);
    const QString text = value.toString();
    if (!value.isString() || text.size() > most)
        fail(name);
    return text;
}

InkLesson::StepId Fields::id(int key, const char *name)
{
    InkLesson::StepId id;
    if (has(key) && !readId(m_map.value(key), id))
        fail(name);
    return id;
}

std::vector<int> Fields::authors(int key, const char *name)
{
    constexpr int kMostAuthors = 256;
    std::vector<int> authors;
    for (const QCborValue value : array(key, name, kMostAuthors)) {
        if (!readInt(value, 1, authors.emplace_back()))
            fail(name);
    }
    return authors;
}

QSize Fields::size(int key, const char *name)
{
    const QCborArray pair = m_map.value(key).toArray();
    QSize size;
    if (pair.size() != 2 || !readInt(pair.at(0), 1, size.rwidth()) || !readInt(pair.at(1), 1, size.rheight()) ||
        !InkLesson::pageSizeProblem(size).isEmpty())
        fail(name);
    return size;
}

QCborArray Fields::array(int key, const char *name, int most)
{
    const QCborValue value = m_map.value(key);
    const QCborArray array = value.toArray();
    if (!value.isArray() || array.size() > most)
        fail(name);
    return array;
}

QCborArray pairOf(const InkLesson::StepId &id)
{
    return {id.author, id.number};
}

bool readId(const QCborValue &value, InkLesson::StepId &id)
{
    const QCborArray pair = value.toArray();
    return pair.size() == 2 && readInt(pair.at(0), 1, id.author) && readInt(pair.at(1), 1, id.number);
}

} // namespace InkSharing
