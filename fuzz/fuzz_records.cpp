// Records of a lesson, as CBOR, as lines, as files of both versions, as streams of CBOR and as logs of several authors
// composed here, most of them with something wrong in them. What is read is the same when it is written and read again;
// a log gives the same pixels then, and after all of it was undone and done again.

#include "Bytes.h"
#include "Input.h"
#include "Objects.h"

#include "lesson/log/RecordCode.h"
#include "lesson/log/RecordReader.h"
#include "lesson/storage/LogReader.h"

#include "PointerEvent.h"

#include <QtCore/QBuffer>
#include <QtCore/QCborStreamReader>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>

using namespace InkLesson;
using Fuzz::Bytes;

namespace {

constexpr int kAuthors = 3;
constexpr int kMostKinds = 16; // of records
constexpr int kMostPages = 4;
constexpr int kMostRecords = 24;

// Of the logs, since most of the time goes into that.
const uint kOnePaintedIn = uint(std::max(1, qEnvironmentVariableIntValue("INK_FUZZ_ONE_PAINTED_IN")));

void require(bool kept)
{
    if (!kept)
        std::abort();
}

// Of what was read.
void requireSameAgain(const Record &record)
{
    const QByteArray cbor = toCbor(record), json = toJson(record);
    require(jsonLine(cbor) == json);
    RecordReader reader;
    Record again;
    require(reader.readCbor(cbor, again));
    require(toCbor(again) == cbor);
    require(reader.readJson(json, again));
    require(toCbor(again) == cbor && toJson(again) == json);
}

void readAlone(const QByteArray &bytes, bool isCbor)
{
    RecordReader reader;
    Record record;
    if (isCbor ? reader.readCbor(bytes, record) : reader.readJson(bytes, record))
        requireSameAgain(record);
    else
        require(!reader.error().isEmpty());
}

// Writes what several authors might do, for the most part to what is there.
class Writer
{
public:
    explicit Writer(Bytes &bytes)
        : m_bytes(bytes)
    {
    }

    Record next()
    {
        Record record;
        record.id.author = 1 + m_bytes.below(kAuthors);
        int &last = m_numbers[record.id.author];
        record.id.number = last + 1;
        record.step = m_bytes.below(8) == 7 ? 1 + m_bytes.below(record.id.number) : record.id.number;
        record.page = m_pages[std::size_t(m_bytes.below(int(m_pages.size())))];
        record.time = m_bytes.below(4) == 3 ? m_bytes.integer() : 0;
        record.deed = deed(record.id);
        last = record.id.number;
        m_steps.push_back(record.id);
        return record;
    }

private:
    template <typename Names>
    StepId any(const Names &names)
    {
        const int index = m_bytes.below(int(names.size()) + 1);
        return std::size_t(index) < names.size() ? names[std::size_t(index)] : StepId{1, 1};
    }

    Life life()
    {
        Life life = Fuzz::life(m_bytes);
        if (life.tool == QLatin1String(kAreaTool)) {
            life.picture = Fuzz::picture(m_bytes);
            life.position = Fuzz::point(m_bytes);
        }
        return life;
    }

    Change change()
    {
        Change change{any(m_objects)};
        const int told = m_bytes.byte();
        if (told & 1)
            change.color = Fuzz::color(m_bytes);
        if (told & 2)
            change.width = Fuzz::width(m_bytes);
        if (told & 4)
            change.dash = Qt::PenStyle(Qt::SolidLine + m_bytes.below(5));
        if (told & 8)
            change.option = m_bytes.integer();
        if (told & 16)
            change.by = Fuzz::point(m_bytes) / 4;
        if (told & 32)
            change.acts = {ReopenAct(), Fuzz::act(m_bytes), Fuzz::act(m_bytes), FinishAct()};
        if (told & 64)
            change.acts.emplace_back(PaintAct());
        if (told & 128)
            change.by = m_bytes.point();
        return change;
    }

    // The author's own, for the most part.
    Undo undo(const StepId &id)
    {
        const StepId step = any(m_steps);
        return {step.author == id.author || m_bytes.flag() ? step : StepId{id.author, std::max(1, id.number - 1)}};
    }

    Deed deed(const StepId &id)
    {
        switch (m_bytes.below(kMostKinds)) {
        case 0:
            return Replace{any(m_objects), life()};
        case 1:
            return Delete{{any(m_objects), any(m_objects)}};
        case 2:
            return Order{any(m_objects), m_bytes.flag() ? kNothing : any(m_objects)};
        case 3:
            return Clear();
        case 4:
            return SetPaper{{Paper::Kind(m_bytes.below(4)), Fuzz::picture(m_bytes)}};
        case 5:
            return Grow{Fuzz::pageSize(m_bytes) + QSize(8, 8)};
        case 6:
            if (m_pages.size() < kMostPages)
                m_pages.push_back(id);
            return AddPage{m_bytes.below(8), Fuzz::pageSize(m_bytes)};
        case 7:
            return m_bytes.flag() ? Deed(RemovePage()) : Deed(MovePage{m_bytes.below(8)});
        case 8:
        case 9:
            return undo(id);
        case 10:
        case 11:
            return change();
        default:
            m_objects.push_back(id);
            return Draw{life()};
        }
    }

    Bytes &m_bytes;
    int m_numbers[kAuthors + 1]{};
    std::vector<StepId> m_steps;
    std::vector<ObjectId> m_objects;
    std::vector<PageId> m_pages{kFirstPage};
};

// Lines as a board writes them; then some bytes of them changed.
QByteArray logOf(Bytes &bytes)
{
    const int breaks = bytes.below(32) - 28; // most logs are whole
    QByteArray log = headerLine({{64 - bytes.below(24), 64 - bytes.below(24)}, bytes.below(8) == 7 ? 1.5 : 1.0}) + '\n';
    Writer writer(bytes);
    for (int i = 0; i < kMostRecords && !bytes.isEmpty(); ++i)
        log += toJson(writer.next()) + '\n';
    for (int i = 0; i < breaks; ++i)
        log[(bytes.byte() * 256 + bytes.byte()) % log.size()] = char(bytes.byte());
    return log;
}

// Up to the line that is wrong. Null where that is the first.
std::unique_ptr<Lesson> opened(QByteArray log, QString &error)
{
    error.clear();
    QBuffer buffer(&log);
    buffer.open(QIODevice::ReadOnly);
    LogReader reader(buffer);
    Header header;
    std::unique_ptr<Lesson> lesson;
    if (reader.readHeader(header)) {
        lesson = std::make_unique<Lesson>(header);
        const Lesson::Batch batch(*lesson);
        Record record;
        while (error.isEmpty() && reader.read(*lesson, record)) {
            const QString refusal = lesson->apply(record);
            error = refusal.isEmpty() ? QString() : reader.named(refusal);
        }
    }
    error = error.isEmpty() ? reader.error() : error;
    require(lesson || !error.isEmpty());
    return lesson;
}

// The layers of all pages.
std::vector<QImage> pixels(const Lesson &lesson)
{
    std::vector<QImage> images;
    for (int i = 0; i < lesson.pageCount(); ++i) {
        const Page &page = lesson.page(lesson.pageId(i));
        images.insert(images.end(), {page.picture(), page.surface(), page.ink()});
    }
    return images;
}

// Others take long to be painted.
bool isSmall(const Lesson &lesson)
{
    constexpr int kMostSide = 256;
    qint64 sides = 0;
    for (int i = 0; i < lesson.pageCount(); ++i) {
        const QRect rect = lesson.page(lesson.pageId(i)).rect();
        sides = std::max<qint64>({sides, rect.width(), rect.height()});
    }
    return sides <= kMostSide;
}

void undoAndRedo(Lesson &lesson)
{
    const auto apply = [&lesson](int author, const StepId &step) {
        const int number = lesson.history().nextNumber(author);
        lesson.apply({{author, number}, number, 0, kFirstPage, Undo{step}});
    };
    const Lesson::Batch batch(lesson);
    int steps[kAuthors + 1]{};
    for (int author = 1; author <= kAuthors; ++author) {
        for (; const auto step = lesson.history().toUndo(author); ++steps[author])
            apply(author, *step);
    }
    for (int author = 1; author <= kAuthors; ++author) {
        for (; steps[author] > 0; --steps[author])
            apply(author, lesson.history().toRedo(author).value());
    }
}

// The same when it is written and read again; and the same pixels, where they are looked at, also after all of it was
// undone and done again.
void requireSameAgain(Lesson &lesson, bool looks)
{
    QByteArray saved = headerLine(lesson.header()) + '\n';
    for (const QByteArray &record : lesson.log())
        saved += jsonLine(record) + '\n';
    QString error;
    const auto again = opened(saved, error);
    require(again && error.isEmpty());
    require(again->log() == lesson.log());
    if (!looks)
        return;
    require(pixels(*again) == pixels(lesson));
    undoAndRedo(*again);
    require(pixels(*again) == pixels(lesson));
}

void readFile(const QByteArray &file, bool looks)
{
    QString error;
    const auto lesson = opened(file, error);
    if (lesson)
        requireSameAgain(*lesson, looks && isSmall(*lesson));
}

// How many of each kind were tried, told at the end where somebody asks for it.
struct Counts
{
    long kinds[8]{};
    long looks{};

    ~Counts()
    {
        if (!std::getenv("INK_FUZZ_COUNTS"))
            return;
        const auto &k = kinds;
        std::fprintf(stderr,
                     "records: %ld CBOR, %ld lines; lessons: %ld composed, %ld files, %ld streams; painted: %ld\n",
                     k[0], k[1], k[2] + k[3] + k[7], k[4] + k[5], k[6], looks);
    }
} counts;

// Records one behind the other, as they come from others.
void readStream(const QByteArray &stream, bool looks)
{
    Lesson lesson({{64, 48}});
    QCborStreamReader reader(stream);
    while (reader.lastError() == QCborError::NoError && reader.hasNext()) {
        const int from = int(reader.currentOffset());
        Record record;
        RecordReader one;
        if (!reader.next() || !one.readCbor(stream.mid(from, int(reader.currentOffset()) - from), record))
            break;
        lesson.apply(record);
    }
    requireSameAgain(lesson, looks && isSmall(lesson));
}

} // namespace

void Fuzz::run(const std::uint8_t *data, std::size_t size)
{
    if (size == 0)
        return;
    Bytes bytes(data, size);
    const int kind = bytes.below(8);
    const QByteArray rest(reinterpret_cast<const char *>(data) + 1, int(size) - 1);
    const bool looks = qHash(rest, 0) % kOnePaintedIn == 0;
    ++counts.kinds[kind];
    counts.looks += looks && kind > 1 ? 1 : 0; // a record alone is not
    if (kind == 0 || kind == 1)
        readAlone(rest, kind == 0);
    else if (kind == 4 || kind == 5)
        readFile(rest, looks);
    else if (kind == 6)
        readStream(rest, looks);
    else
        readFile(logOf(bytes), looks);
}
