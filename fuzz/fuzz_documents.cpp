// Files of lessons of version 1, most of them with something wrong in them. What opens, if only up to the line that is
// wrong, is a lesson like any other: saved in this version and opened again it has the same pixels and the same steps,
// and all of it can be undone and redone.

#include "Bytes.h"
#include "Input.h"
#include "Objects.h"

#include "board/document/Document.h"

#include "lesson/log/RecordCode.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>

#include <cstdlib>

using namespace InkLesson;
using Board::Document;
using Fuzz::Bytes;

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

QJsonArray pair(const QSize &size)
{
    return {size.width(), size.height()};
}

QString base64(const QImage &picture)
{
    return QString::fromLatin1(pngOf(picture).toBase64());
}

// An act as version 1 wrote it.
struct ActWriter
{
    QJsonValue operator()(const PointerAct &act) const { return QJsonArray{act.code, act.pt.x(), act.pt.y()}; }
    QJsonValue operator()(const FinishAct & /*act*/) const { return text("finish"); }
    QJsonValue operator()(const ReopenAct & /*act*/) const { return text("reopen"); }
    QJsonValue operator()(const PaintAct & /*act*/) const { return text("paint"); } // there was none
    QJsonValue operator()(const ColorAct &act) const
    {
        return QJsonObject{{text("color"), act.color.name(QColor::HexArgb)}};
    }
    QJsonValue operator()(const WidthAct &act) const { return QJsonObject{{text("width"), act.width}}; }
    QJsonValue operator()(const DashAct & /*act*/) const { return text("dash"); } // nor that
    QJsonValue operator()(const TextAct &act) const
    {
        return QJsonObject{{text("text"), act.text}, {text("image"), base64(act.image)}};
    }
};

QJsonObject life(Bytes &bytes, bool withPicture)
{
    const Life life = Fuzz::life(bytes);
    QJsonObject object = QJsonDocument::fromJson(toJson({{1, 1}, 1, 0, kFirstPage, Draw{life}})).object();
    object = object.value(text("life")).toObject();
    if (!withPicture)
        object.remove(text("picture"));
    QJsonArray acts;
    for (const Act &act : life.acts)
        acts.append(std::visit(ActWriter(), act));
    object.insert(text("acts"), acts);
    return object;
}

// Writes what a board of version 1 might do, for the most part in an order that can be done: reading ends at the first
// line that cannot.
class Writer
{
public:
    explicit Writer(Bytes &bytes)
        : m_bytes(bytes)
    {
    }

    QJsonObject next()
    {
        const QString at = text("at");
        const int kind = m_bytes.below(kMostKinds);
        switch (m_lines++ < 2 ? kMostKinds : kind) { // there is nothing to undo or to move yet
        case 0:
        case 1:
            return line("undo");
        case 2:
            return line("redo");
        case 3: {
            const QSize side = Fuzz::pageSize(m_bytes);
            const int place = m_bytes.below(m_pages + 1);
            ++m_pages;
            return line("add-page", {{text("page"), m_pages}, {at, place}, {text("size"), pair(side)}});
        }
        case 4:
            return line("remove-page", {{at, m_bytes.below(m_pages)}});
        case 5: {
            const int from = m_bytes.below(m_pages);
            return line("move-page", {{text("from"), from}, {text("to"), m_bytes.below(m_pages)}});
        }
        default: {
            QJsonObject object = onPage();
            object.insert(text("page"), 1 + m_bytes.below(m_pages));
            return object;
        }
        }
    }

private:
    static QJsonObject line(const char *what, QJsonObject more = {})
    {
        more.insert(text("do"), text(what));
        return more;
    }

    QJsonObject onPage()
    {
        const int kind = m_lines > 3 ? m_bytes.below(kMostKinds) : kMostKinds;
        const int id = 1 + m_bytes.below(m_objects);
        switch (kind) {
        case 0:
            return line("replace", {{text("id"), id}, {text("life"), life(m_bytes, false)}});
        case 1:
            return line("delete", {{text("id"), id}});
        case 2:
            return line("order", {{text("id"), id}, {text("place"), m_bytes.below(m_objects)}});
        case 3:
            return line("clear");
        case 4: {
            constexpr const char *kPapers[] = {"blank", "ruled", "squared", "picture"};
            const char *paper = kPapers[m_bytes.below(4)];
            const QString shown = base64(Fuzz::picture(m_bytes));
            QJsonObject object = line("paper", {{text("kind"), text(paper)}});
            if (paper == kPapers[3])
                object.insert(text("picture"), shown);
            return object;
        }
        case 5:
            return line("size", {{text("size"), pair(Fuzz::pageSize(m_bytes) + QSize(m_pages * 8, m_pages * 8))}});
        case 6: {
            const int any = m_bytes.integer();
            const QJsonObject drawn = life(m_bytes, true);
            return drawLine(any, drawn, m_bytes.flag());
        }
        default: {
            const bool succeeds = m_bytes.below(4) == 3;
            return drawLine(m_objects++, life(m_bytes, true), succeeds);
        }
        }
    }

    static QJsonObject drawLine(int id, const QJsonObject &life, bool succeeds)
    {
        QJsonObject object = line("draw", {{text("id"), id}, {text("life"), life}});
        if (succeeds)
            object.insert(text("succeeds"), true);
        return object;
    }

    Bytes &m_bytes;
    int m_lines{};
    int m_pages{1};   // so far, unless some were removed
    int m_objects{1}; // one more than there are, on all pages together
};

// Lines as a board of version 1 writes them; then some bytes of them changed, and the end cut off.
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
bool dropLine(QByteArray &lesson, int read)
{
    int start = 0;
    for (int line = 0; line < read; ++line) {
        start = lesson.indexOf('\n', start) + 1;
        if (start == 0)
            return false;
    }
    if (start >= lesson.size())
        return false;
    const int end = lesson.indexOf('\n', start);
    lesson.remove(start, end < 0 ? lesson.size() - start : end + 1 - start);
    return true;
}

// The number of lines before the one that a problem names.
int linesBefore(const QString &problem, const QString &fileName)
{
    const QString begin = fileName + text(": line ");
    require(problem.startsWith(begin));
    return problem.mid(begin.size()).section(QLatin1Char(':'), 0, 0).toInt() - 1;
}

// The layers of all pages.
std::vector<QImage> pixels(const Document &document)
{
    std::vector<QImage> images;
    for (int i = 0; i < document.pageCount(); ++i) {
        const Page &page = document.page(i);
        images.insert(images.end(), {page.picture(), page.surface(), page.ink()});
    }
    return images;
}

int undoAll(Document &document)
{
    int steps = 0;
    for (; document.author().canUndo(); ++steps)
        document.undo();
    return steps;
}

void redo(Document &document, int steps)
{
    for (; steps > 0; --steps)
        document.redo();
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
        const QString problem = document.open(given);
        if (problem.isEmpty())
            break;
        const int read = linesBefore(problem, given);
        if (read == 0 || !dropLine(left, read))
            break;
    }
    const std::vector<QImage> before = pixels(document);

    require(document.save(saved).isEmpty());
    Document again({8, 8});
    require(again.open(saved).isEmpty());
    require(pixels(again) == before);
    require(again.lesson().log() == document.lesson().log());
    require(again.stepsToUndo() == document.stepsToUndo());
    require(again.author().canRedo() == document.author().canRedo());

    const int steps = again.stepsToUndo();
    require(undoAll(again) == steps);
    require(undoAll(document) == steps);
    require(pixels(again) == pixels(document));
    redo(again, steps);
    require(again.stepsToUndo() == steps);
    require(pixels(again) == before);
}
