#include "lesson/log/RecordReader.h"

#include "lesson/log/ActText.h"
#include "lesson/log/RecordCode.h"
#include "lesson/log/Words_p.h"
#include "lesson/objects/Tools.h"
#include "lesson/paper/PageSize.h"

#include <QtCore/QBuffer>
#include <QtCore/QCborArray>
#include <QtCore/QCborStreamReader>
#include <QtCore/QCborValue>
#include <QtCore/QJsonDocument>
#include <QtGui/QImageReader>

#include <algorithm>
#include <iterator>
#include <limits>

namespace InkLesson {

using namespace Words;

namespace {

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kMost = std::numeric_limits<int>::max();
constexpr qint64 kMostPicturePixels = 64 * 1024 * 1024;
constexpr int kMostParts = 1 << 22; // values, and what holds them: in memory each is many times its one or two bytes
constexpr int kDeepest = 8;         // maps and arrays in each other

bool isInt(const QCborValue &value, int least = kLeast, int most = kMost)
{
    return value.isInteger() && value.toInteger() >= least && value.toInteger() <= most;
}

// One that JSON keeps to the last digit.
bool isExact(const QCborValue &value)
{
    constexpr qint64 kMostExact = 1LL << 53;
    return value.isInteger() && value.toInteger() >= -kMostExact && value.toInteger() <= kMostExact;
}

// Whether the next value holds no more than a record may. Room for what it claims to hold is not made here.
bool isBounded(QCborStreamReader &reader, int depth, int &parts)
{
    if (++parts > kMostParts)
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

bool isBounded(const QByteArray &cbor)
{
    QCborStreamReader reader(cbor);
    int parts = 0;
    return isBounded(reader, 0, parts) && reader.currentOffset() == cbor.size();
}

// What a line of JSON takes at most.
struct LineBound
{
    qint64 bytes{};
    qint64 marks{}; // that separate values, or look as if they did
};

// Adds the next value. False where its length is not told.
bool addTo(LineBound &bound, QCborStreamReader &reader)
{
    constexpr qint64 kPlain = 32, kEscaped = 7; // bytes of a number, of a letter, also in the name of a value
    if (reader.isContainer()) {
        bound.bytes += 3;
        bound.marks += 2;
        if (!reader.enterContainer())
            return false;
        while (reader.hasNext()) {
            if (!addTo(bound, reader))
                return false;
        }
        return reader.leaveContainer();
    }
    bound.bytes += kPlain;
    ++bound.marks;
    if (reader.isByteArray() || reader.isString()) {
        if (!reader.isLengthKnown())
            return false;
        const auto length = qint64(reader.length());
        bound.bytes += reader.isString() ? kEscaped * length : 2 * length;
        bound.marks += reader.isString() ? length : 0;
    }
    return reader.next();
}

// An array of two ints.
bool readPair(const QCborValue &value, int &first, int &second)
{
    const QCborArray array = value.toArray();
    if (array.size() != 2 || !isInt(array.at(0)) || !isInt(array.at(1)))
        return false;
    first = int(array.at(0).toInteger());
    second = int(array.at(1).toInteger());
    return true;
}

bool readStepId(const QCborValue &value, StepId &id)
{
    return readPair(value, id.author, id.number) && id.author >= 0 && id.number > 0;
}

// As they are, or as base64 text of either alphabet.
QByteArray bytesOf(const QCborValue &value)
{
    if (value.isByteArray())
        return value.toByteArray();
    const QByteArray text = value.toString().toLatin1();
    const bool isPlain = text.contains('+') || text.contains('/');
    return QByteArray::fromBase64(text, isPlain ? QByteArray::Base64Encoding : QByteArray::Base64UrlEncoding);
}

// As files of version 1 have them: [code, x, y].
bool readEvent(const QCborArray &array, Act &act)
{
    auto &event = act.emplace<PointerAct>();
    if (array.size() != 3 || !isInt(array.at(0)) || !isInt(array.at(1)) || !isInt(array.at(2)))
        return false;
    event = {int(array.at(0).toInteger()), QPoint(int(array.at(1).toInteger()), int(array.at(2).toInteger()))};
    return true;
}

// The two words are those of version 1.
bool readWords(const QString &text, ActText &reader, std::vector<Act> &acts)
{
    if (text == QLatin1String("finish"))
        acts.emplace_back(FinishAct());
    else if (text == QLatin1String("reopen"))
        acts.emplace_back(ReopenAct());
    else
        return reader.read(text.toLatin1(), acts);
    return true;
}

// Where the word stands among others; -1 where it does not.
template <std::size_t N>
int placeOf(const QString &word, const char *const (&words)[N])
{
    for (std::size_t i = 0; i < N; ++i) {
        if (word == QLatin1String(words[i]))
            return int(i);
    }
    return -1;
}

} // namespace

bool RecordReader::fail(QLatin1String place, const QString &what)
{
    m_error = QStringLiteral("%1: %2").arg(place, what);
    return false;
}

bool RecordReader::readCbor(const QByteArray &bytes, Record &record)
{
    QCborMap map;
    return parseCbor(bytes, map) ? read(map, record) : fail(kDo, tr("nothing that can be read"));
}

bool RecordReader::readJson(const QByteArray &line, Record &record)
{
    QCborMap map;
    return parseJson(line, map) ? read(map, record) : fail(kDo, tr("nothing that can be read"));
}

bool RecordReader::parseCbor(const QByteArray &bytes, QCborMap &map)
{
    const QCborValue value = isBounded(bytes) ? QCborValue::fromCbor(bytes) : QCborValue();
    map = value.toMap();
    return value.isMap();
}

bool RecordReader::parseJson(const QByteArray &line, QCborMap &map)
{
    const auto parts = std::count_if(line.begin(), line.end(), [](char c) { return c == ',' || c == '[' || c == '{'; });
    const QJsonDocument document = parts <= kMostParts ? QJsonDocument::fromJson(line) : QJsonDocument();
    map = QCborMap::fromJsonObject(document.object());
    return document.isObject();
}

// A line is made, and read, only where it might be too long: pictures are megabytes.
bool RecordReader::canBeReadAgain(const QByteArray &cbor)
{
    constexpr int kFew = 1 << 21; // bytes, which hold less than any bound
    if (cbor.size() < kFew)
        return true;
    if (!isBounded(cbor))
        return false;
    QCborStreamReader reader(cbor);
    LineBound bound;
    if (addTo(bound, reader) && bound.bytes < kMostLineBytes && bound.marks <= kMostParts)
        return true;
    const QByteArray line = jsonLine(cbor);
    QCborMap map;
    return line.size() < kMostLineBytes && parseJson(line, map);
}

bool RecordReader::read(const QCborMap &map, Record &record)
{
    if (!readNumber(map, kAuthor, record.id.author, 1, kMost) ||
        !readNumber(map, kNumber, record.id.number, 1, kMost - 1))
        return false;
    record.step = record.id.number;
    if (map.contains(kStep) && !readNumber(map, kStep, record.step, 1, record.id.number))
        return false;
    record.page = kFirstPage;
    if (map.contains(kPage) && !readId(map, kPage, record.page))
        return false;
    if (map.contains(kTime) && !isExact(map.value(kTime)))
        return fail(kTime, tr("not a number that this can be"));
    record.time = map.value(kTime).toInteger();
    return readDeed(map, record.deed);
}

bool RecordReader::readDeed(const QCborMap &map, Deed &deed)
{
    const auto is = [what = map.value(kDo).toString()](const char *word) { return what == QLatin1String(word); };
    if (is("draw"))
        return readLife(map.value(kLife).toMap(), deed.emplace<Draw>().life);
    if (is("change"))
        return readChange(map, deed.emplace<Change>());
    if (is("replace")) {
        auto &replace = deed.emplace<Replace>();
        return readId(map, kObject, replace.object) && readLife(map.value(kLife).toMap(), replace.life);
    }
    if (is("delete")) {
        auto &gone = deed.emplace<Delete>();
        for (const QCborValue value : map.value(kObjects).toArray()) {
            if (!readStepId(value, gone.objects.emplace_back()))
                return fail(kObjects, tr("not the name of an object"));
        }
        return true;
    }
    if (is("order")) {
        auto &order = deed.emplace<Order>();
        return readId(map, kObject, order.object) && (!map.contains(kAbove) || readId(map, kAbove, order.above));
    }
    if (is("clear"))
        return deed.emplace<Clear>(), true;
    if (is("paper"))
        return readPaper(map, deed.emplace<SetPaper>().paper);
    if (is("size"))
        return readSize(map, kSize, deed.emplace<Grow>().size);
    if (is("add-page")) {
        auto &page = deed.emplace<AddPage>();
        return readNumber(map, kAt, page.place, 0, kMost) && readSize(map, kSize, page.size);
    }
    if (is("remove-page"))
        return deed.emplace<RemovePage>(), true;
    if (is("move-page"))
        return readNumber(map, kAt, deed.emplace<MovePage>().place, 0, kMost);
    if (is("undo"))
        return readId(map, kUndone, deed.emplace<Undo>().step);
    return fail(kDo, tr("nothing that can be done"));
}

bool RecordReader::readChange(const QCborMap &map, Change &change)
{
    if (!readId(map, kObject, change.object))
        return false;
    if (map.contains(kColor) && !readColor(map, kColor, change.color.emplace()))
        return false;
    if (map.contains(kWidth) && !readNumber(map, kWidth, change.width.emplace(), kLeast, kMost))
        return false;
    if (map.contains(kDash) && !readDash(map, kDash, change.dash.emplace()))
        return false;
    if (map.contains(kOption) && !readNumber(map, kOption, change.option.emplace(), kLeast, kMost))
        return false;
    if (map.contains(kBy) && !readPoint(map, kBy, change.by))
        return false;
    return !map.contains(kActs) || readActs(map, change.acts);
}

bool RecordReader::readLife(const QCborMap &map, Life &life)
{
    life.tool = map.value(kTool).toString();
    if (!readSize(map, kCanvas, life.canvas))
        return false;
    if (map.contains(kPosition) && !readPoint(map, kPosition, life.position))
        return false;
    if (map.contains(kPicture) && !readPicture(map, kPicture, life.picture))
        return false;
    if (life.tool != QLatin1String(kPictureTool)) {
        if (!findTool(life.tool))
            return fail(kTool, tr("no tool of this board"));
        if (!readInk(map, life.ink))
            return false;
    }
    return readActs(map, life.acts);
}

bool RecordReader::readInk(const QCborMap &map, Ink &ink)
{
    if (!readColor(map, kColor, ink.color) || !readNumber(map, kWidth, ink.width, kLeast, kMost))
        return false;
    if (map.contains(kOption) && !readNumber(map, kOption, ink.option.emplace(), kLeast, kMost))
        return false;
    return !map.contains(kDash) || readDash(map, kDash, ink.dash);
}

bool RecordReader::readActs(const QCborMap &map, std::vector<Act> &acts)
{
    if (!map.value(kActs).isArray())
        return fail(kActs, tr("not an array"));
    ActText reader;
    for (const QCborValue value : map.value(kActs).toArray()) {
        const bool isRead = value.isString()  ? readWords(value.toString(), reader, acts)
                            : value.isArray() ? readEvent(value.toArray(), acts.emplace_back())
                                              : readAct(value.toMap(), acts.emplace_back());
        if (!isRead)
            return fail(kActs, tr("nothing that can be done to an object"));
        if (acts.size() > kMostActs)
            return fail(kActs, tr("more than one object can go through"));
    }
    return true;
}

bool RecordReader::readAct(const QCborMap &map, Act &act)
{
    if (map.contains(kColor))
        return readColor(map, kColor, act.emplace<ColorAct>().color);
    if (map.contains(kWidth))
        return readNumber(map, kWidth, act.emplace<WidthAct>().width, kLeast, kMost);
    if (map.contains(kDash))
        return readDash(map, kDash, act.emplace<DashAct>().dash);
    auto &text = act.emplace<TextAct>();
    text.text = map.value(kText).toString();
    return map.value(kText).isString() && text.text.size() <= kMostText && readPicture(map, kImage, text.image);
}

bool RecordReader::readPaper(const QCborMap &map, Paper &paper)
{
    const int kind = placeOf(map.value(kKind).toString(), kPapers);
    if (kind < 0)
        return fail(kKind, tr("no paper of this board"));
    paper.kind = Paper::Kind(kind);
    return paper.kind != Paper::Kind::Picture || readPicture(map, kPicture, paper.picture);
}

bool RecordReader::readPicture(const QCborMap &map, QLatin1String key, QImage &picture)
{
    QByteArray png = bytesOf(map.value(key));
    QBuffer buffer(&png);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "PNG");
    const QSize size = reader.size();
    if (!size.isValid())
        return fail(key, tr("not a picture"));
    if (qint64(size.width()) * size.height() > kMostPicturePixels)
        return fail(key, tr("the picture is too large"));
    picture = exactImage(reader.read());
    return !picture.isNull() || fail(key, tr("not a picture"));
}

bool RecordReader::readDash(const QCborMap &map, QLatin1String key, Qt::PenStyle &dash)
{
    const int place = placeOf(map.value(key).toString(), kDashes);
    dash = Qt::PenStyle(Qt::SolidLine + std::max(place, 0));
    return place >= 0 || fail(key, tr("not a style of lines"));
}

bool RecordReader::readColor(const QCborMap &map, QLatin1String key, QColor &color)
{
    constexpr int kLongestName = 32;
    const QString name = map.value(key).toString();
    const QColor named(name.size() <= kLongestName ? name : QString());
    color = QColor::fromRgba(named.rgba()); // all that is written of it
    return named.isValid() || fail(key, tr("not a colour"));
}

bool RecordReader::readNumber(const QCborMap &map, QLatin1String key, int &number, int least, int most)
{
    const QCborValue value = map.value(key);
    if (!isInt(value, least, most))
        return fail(key, tr("not a number that this can be"));
    number = int(value.toInteger());
    return true;
}

bool RecordReader::readId(const QCborMap &map, QLatin1String key, StepId &id)
{
    return readStepId(map.value(key), id) || fail(key, tr("not a name"));
}

bool RecordReader::readPoint(const QCborMap &map, QLatin1String key, QPoint &point)
{
    return readPair(map.value(key), point.rx(), point.ry()) || fail(key, tr("not a point"));
}

bool RecordReader::readSize(const QCborMap &map, QLatin1String key, QSize &size)
{
    if (!readPair(map.value(key), size.rwidth(), size.rheight()))
        return fail(key, tr("not a size"));
    const QString problem = pageSizeProblem(size);
    return problem.isEmpty() || fail(key, problem);
}

} // namespace InkLesson
