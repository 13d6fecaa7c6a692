#include "sharing/wire/Entry.h"

#include "sharing/wire/Fields.h"
#include "sharing/wire/Sha256.h"

#include "lesson/paper/PageSize.h"

#include <QtCore/QCborValue>
#include <QtCore/QtEndian>

namespace InkSharing {

namespace {

// What each number stands for, in every entry.
enum Key { Kind, First, Second, Third, Fourth, Fifth };
enum KindOf { LessonKind = 1, MemberKind, RecordKind, PieceKind };

constexpr int kFormat = 1; // of the stream

QCborArray arrayOf(const std::vector<int> &numbers)
{
    QCborArray array;
    for (const int number : numbers)
        array.append(number);
    return array;
}

QCborArray arrayOf(const std::vector<QByteArray> &hashes)
{
    QCborArray array;
    for (const QByteArray &hash : hashes)
        array.append(hash);
    return array;
}

struct Writer
{
    QCborMap operator()(const LessonEntry &entry) const
    {
        const InkLesson::Header &header = entry.header;
        QCborMap map{{Kind, LessonKind},
                     {First, kFormat},
                     {Second, QCborArray{header.size.width(), header.size.height()}},
                     {Third, entry.tokenHash},
                     {Fourth, arrayOf(entry.authors)}};
        if (header.density != 1)
            map.insert(Fifth, QCborValue(header.density));
        return map;
    }
    QCborMap operator()(const MemberEntry &entry) const
    {
        return {{Kind, MemberKind}, {First, entry.author}, {Second, entry.tokenHash}, {Third, int(entry.role)}};
    }
    QCborMap operator()(const RecordEntry &entry) const
    {
        QCborMap map{{Kind, RecordKind}, {First, pairOf(entry.id)}, {Third, entry.record}};
        if (entry.after != InkLesson::kNothing)
            map.insert(Second, pairOf(entry.after));
        if (!entry.contents.empty())
            map.insert(Fourth, arrayOf(entry.contents));
        return map;
    }
    QCborMap operator()(const PieceEntry &entry) const
    {
        return {{Kind, PieceKind},    {First, entry.author}, {Second, entry.hash},
                {Third, entry.index}, {Fourth, entry.count}, {Fifth, entry.bytes}};
    }
};

LessonEntry readLesson(Fields &fields)
{
    fields.number(First, "format", kFormat, kFormat);
    LessonEntry entry{{fields.size(Second, "size")}, fields.bytes(Third, "token", kHashBytes, kHashBytes), {}};
    entry.authors = fields.authors(Fourth, "authors");
    if (entry.authors.empty())
        fields.fail("authors");
    if (fields.has(Fifth))
        entry.header.density = fields.real(Fifth, "density");
    if (!InkLesson::isDensity(entry.header.density))
        fields.fail("density");
    return entry;
}

MemberEntry readMember(Fields &fields)
{
    MemberEntry entry{int(fields.number(First, "author", 1, INT_MAX)),
                      fields.bytes(Second, "token", kHashBytes, kHashBytes),
                      Role(fields.number(Third, "role", int(Role::Teacher), int(Role::Guest)))};
    return entry;
}

RecordEntry readRecord(Fields &fields)
{
    RecordEntry entry{fields.id(First, "record"), fields.id(Second, "after"),
                      fields.bytes(Third, "record", 1, kMostRecordBytes)};
    if (entry.id == InkLesson::kNothing)
        fields.fail("record");
    if (!fields.has(Fourth))
        return entry;
    for (const QCborValue hash : fields.array(Fourth, "contents", kMostContents)) {
        entry.contents.push_back(hash.toByteArray());
        if (entry.contents.back().size() != kHashBytes)
            fields.fail("contents");
    }
    return entry;
}

PieceEntry readPiece(Fields &fields)
{
    PieceEntry entry{int(fields.number(First, "author", 1, INT_MAX)),
                     fields.bytes(Second, "content", kHashBytes, kHashBytes),
                     0,
                     0,
                     {}};
    entry.count = int(fields.number(Fourth, "count", 1, kMostPieces));
    entry.index = int(fields.number(Third, "index", 0, entry.count - 1));
    const bool isLast = entry.index == entry.count - 1;
    entry.bytes = fields.bytes(Fifth, "bytes", isLast ? 1 : kPieceBytes, kPieceBytes);
    return entry;
}

} // namespace

QByteArray encoded(const Entry &entry)
{
    return QCborValue(std::visit(Writer(), entry)).toCbor();
}

bool readEntry(const QByteArray &bytes, Entry &entry, QString &problem)
{
    Fields fields(bytes);
    switch (fields.number(Kind, "kind", LessonKind, PieceKind)) {
    case LessonKind:
        entry = readLesson(fields);
        break;
    case MemberKind:
        entry = readMember(fields);
        break;
    case RecordKind:
        entry = readRecord(fields);
        break;
    default:
        entry = readPiece(fields);
    }
    problem = fields.error();
    return fields.isRight();
}

QByteArray hashOf(const QByteArray &bytes)
{
    Sha256 hash;
    hash.add(bytes);
    return hash.result();
}

int authorOf(const QByteArray &tokenHash)
{
    constexpr quint32 kFirst = 1U << 20, kMost = 1U << 30;
    const quint32 number = tokenHash.size() < 4 ? 0 : qFromBigEndian<quint32>(tokenHash.constData());
    return int(kFirst + number % (kMost - kFirst));
}

} // namespace InkSharing
