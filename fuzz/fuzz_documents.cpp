// Files of lessons, most of them with something wrong in them. What opens, if only up to the line that is wrong, is a
// document like any other: saved and opened again it has the same pixels, and all of it can be undone and redone.

#include "Bytes.h"
#include "Input.h"
#include "Objects.h"

#include "Document.h"
#include "RecordText.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>

#include <cstdlib>

using namespace Board;
using Fuzz::Bytes;
using Fuzz::life;
using Fuzz::picture;

namespace {

constexpr int kMostKinds = 16;     // of lines, and of records
constexpr int kMostWrongLines = 8; // that are left out of a lesson; it is opened again for each of them

void require(bool kept)
{
    if (!kept)
        std::abort();
}

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

// Writes what a board might do, for the most part in an order that can be done: reading ends at the first line that
// cannot.
class Writer
{
public:
    explicit Writer(Bytes &bytes)
        : m_bytes(bytes)
    {
    }

    QJsonObject next()
    {
        const QString what = text("do");
        const QString at = text("at");
        const int kind = m_bytes.below(kMostKinds);
        switch (m_lines++ < 2 ? kMostKinds : kind) { // there is nothing to undo or to move yet
        case 0:
        case 1:
            return {{what, text("undo")}};
        case 2:
            return {{what, text("redo")}};
        case 3: {
            const QSize side = Fuzz::pageSize(m_bytes);
            const int place = m_bytes.below(m_pages + 1);
            ++m_pages;
            return {{what, text("add-page")},
                    {text("page"), m_pages},
                    {at, place},
                    {text("size"), QJsonArray{side.width(), side.height()}}};
        }
        case 4:
            return {{what, text("remove-page")}, {at, m_bytes.below(m_pages)}};
        case 5:
            return {{what, text("move-page")},
                    {text("from"), m_bytes.below(m_pages)},
                    {text("to"), m_bytes.below(m_pages)}};
        default: {
            QJsonObject object = toJson(record());
            object.insert(text("page"), 1 + m_bytes.below(m_pages));
            return object;
        }
        }
    }

private:
    Record record()
    {
        const int kind = m_lines > 3 ? m_bytes.below(kMostKinds) : kMostKinds;
        const int id = 1 + m_bytes.below(m_objects);
        switch (kind) {
        case 0:
            return ReplaceRecord{id, life(m_bytes)};
        case 1:
            return DeleteRecord{id};
        case 2:
            return OrderRecord{id, m_bytes.below(m_objects)};
        case 3:
            return ClearRecord();
        case 4: {
            Paper paper;
            paper.kind = Paper::Kind(m_bytes.below(4));
            paper.picture = picture(m_bytes);
            return PaperRecord{paper};
        }
        case 5:
            return SizeRecord{Fuzz::pageSize(m_bytes) + QSize(m_pages * 8, m_pages * 8)};
        case 6:
            return DrawRecord{m_bytes.integer(), life(m_bytes), m_bytes.flag()};
        default: {
            const bool succeeds = m_bytes.below(4) == 3;
            return DrawRecord{m_objects++, life(m_bytes), succeeds};
        }
        }
    }

    Bytes &m_bytes;
    int m_lines{};
    int m_pages{1};   // so far, unless some were removed
    int m_objects{1}; // one more than there are, on all pages together
};

// Lines as the board writes them; then some bytes of them changed, and the end cut off.
QByteArray lesson(Bytes &bytes)
{
    const int breaks = bytes.below(32) - 28; // most lessons are whole
    const int first = 64 - bytes.below(24);
    const int second = 64 - bytes.below(24);
    QByteArray file = QStringLiteral("{\"inkboard\":1,\"size\":[%1,%2]}\n").arg(first).arg(second).toLatin1();
    Writer writer(bytes);
    while (!bytes.isEmpty())
        file += QJsonDocument(writer.next()).toJson(QJsonDocument::Compact) + '\n';
    for (int i = 0; i < breaks; ++i)
        file[(bytes.byte() * 256 + bytes.byte()) % file.size()] = char(bytes.byte());
    return breaks == 3 ? file.left(file.size() - 1) : file;
}

void write(const QString &fileName, const QByteArray &contents)
{
    QFile file(fileName);
    require(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size());
}

// Takes the line that comes after those that were read out of a lesson. False when there is none, or when not even the
// first was read.
bool dropLine(QByteArray &lesson, const std::vector<QByteArray> &read)
{
    int start = 0;
    for (const QByteArray &line : read) {
        if (lesson.mid(start, line.size()) != line)
            return false;
        start += line.size() + 1;
    }
    if (start >= lesson.size())
        return false;
    const int end = lesson.indexOf('\n', start);
    lesson.remove(start, end < 0 ? lesson.size() - start : end + 1 - start);
    return true;
}

// The layers of all pages.
std::vector<QImage> pixels(Document &document)
{
    std::vector<QImage> images;
    for (int i = 0; i < document.pageCount(); ++i) {
        const Page &page = document.page(i);
        images.insert(images.end(), {page.picture(), page.surface(), page.ink()});
    }
    return images;
}

} // namespace

void Fuzz::run(const std::uint8_t *data, std::size_t size)
{
    static const QTemporaryDir folder;
    const QString given = folder.filePath(text("given"));
    const QString saved = folder.filePath(text("saved"));

    Bytes bytes(data, size);
    QByteArray left = lesson(bytes);
    Document document({8, 8});
    for (int wrong = 0; wrong <= kMostWrongLines; ++wrong) {
        write(given, left);
        if (document.open(given).isEmpty() || !dropLine(left, document.log().lines()))
            break;
    }
    const std::vector<QImage> before = pixels(document);

    require(document.save(saved).isEmpty());
    Document again({8, 8});
    require(again.open(saved).isEmpty());
    require(pixels(again) == before);

    const int steps = again.undoStack().index();
    while (again.undoStack().canUndo())
        again.undo();
    while (again.undoStack().index() < steps)
        again.redo();
    require(pixels(again) == before);
}
