#include "Document.h"

#include "RecordText.h"

#include "lesson/paper/PageSize.h"

#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtWidgets/QUndoCommand>

#include <algorithm>
#include <utility>

namespace Board {

namespace {

constexpr int kVersion = 1; // of the files

const QString kKind = QStringLiteral("inkboard");
const QString kDo = QStringLiteral("do");
const QString kPage = QStringLiteral("page");
const QString kSize = QStringLiteral("size");
const QString kDensity = QStringLiteral("density");

QJsonArray json(const QSize &size)
{
    return {size.width(), size.height()};
}

QSize sizeFrom(const QJsonValue &value)
{
    const QJsonArray pair = value.toArray();
    return {pair.at(0).toInt(), pair.at(1).toInt()};
}

} // namespace

// A step on one page, which knows its way back itself.
class Document::PageStep : public QUndoCommand
{
public:
    PageStep(Document &document, int number, bool succeeds)
        : m_document(document)
        , m_number(number)
        , m_succeeds(succeeds)
    {
    }

    int number() const { return m_number; }

    int id() const override { return 1; }
    bool mergeWith(const QUndoCommand *other) override { return static_cast<const PageStep *>(other)->m_succeeds; }
    void undo() override { show().undo(); }
    void redo() override
    {
        if (std::exchange(m_isDone, false))
            return; // before it came onto the stack
        show().redo();
    }

private:
    Page &show()
    {
        m_document.showPage(m_document.indexOf(m_number));
        return m_document.page();
    }

    Document &m_document;
    int m_number;
    bool m_succeeds;
    bool m_isDone{true};
};

class Document::AddStep : public QUndoCommand
{
public:
    AddStep(Document &document, int index, NumberedPage page)
        : m_document(document)
        , m_index(index)
        , m_page(std::move(page))
    {
    }

    void redo() override { m_document.put(m_index, std::move(m_page)); }
    void undo() override { m_page = m_document.take(m_index); }

private:
    Document &m_document;
    int m_index;
    NumberedPage m_page;
};

class Document::RemoveStep : public QUndoCommand
{
public:
    RemoveStep(Document &document, int index)
        : m_document(document)
        , m_index(index)
    {
    }

    void redo() override { m_page = m_document.take(m_index); }
    void undo() override { m_document.put(m_index, std::move(m_page)); }

private:
    Document &m_document;
    int m_index;
    NumberedPage m_page{};
};

class Document::MoveStep : public QUndoCommand
{
public:
    MoveStep(Document &document, int from, int to)
        : m_document(document)
        , m_from(from)
        , m_to(to)
    {
    }

    void redo() override { move(m_from, m_to); }
    void undo() override { move(m_to, m_from); }

private:
    void move(int from, int to) { m_document.put(to, m_document.take(from)); }

    Document &m_document;
    int m_from;
    int m_to;
};

Document::Document(const QSize &pageSize, double density, QObject *parent)
    : QObject(parent)
{
    reset(pageSize, density);
}

Document::~Document()
{
    m_stack.clear(); // while its pages are there
}

void Document::reset(const QSize &size, double density)
{
    m_stack.clear();
    m_pages.clear();
    m_log.clear();
    m_nextNumber = 1;
    m_current = 0;
    m_density = density;
    m_pages.push_back(newPage(size));
    m_fileName.clear();
    QJsonObject header{{kKind, kVersion}, {kSize, json(size)}};
    if (density != 1)
        header.insert(kDensity, density);
    note(header);
    m_changes = 0;
}

Document::NumberedPage Document::newPage(const QSize &size)
{
    const int number = m_nextNumber++;
    auto page = std::make_unique<Page>(size, m_density);
    page->setListener([this, number](const Record &record) { recorded(number, record); });
    return {number, std::move(page)};
}

void Document::put(int index, NumberedPage page)
{
    m_pages.insert(m_pages.begin() + index, std::move(page));
    m_current = index;
    emit pagesChanged();
    emit currentChanged();
}

Document::NumberedPage Document::take(int index)
{
    NumberedPage page = std::move(m_pages[std::size_t(index)]);
    m_pages.erase(m_pages.begin() + index);
    m_current = std::clamp(m_current > index ? m_current - 1 : m_current, 0, std::max(pageCount() - 1, 0));
    if (!m_pages.empty()) {
        emit pagesChanged();
        emit currentChanged();
    }
    return page;
}

int Document::indexOf(int number) const
{
    const auto found =
        std::find_if(m_pages.begin(), m_pages.end(), [&](const NumberedPage &page) { return page.number == number; });
    return found == m_pages.end() ? -1 : int(found - m_pages.begin());
}

void Document::showPage(int index)
{
    if (index < 0 || index >= pageCount() || index == m_current)
        return;
    page().finish();
    m_current = index;
    emit currentChanged();
}

void Document::addPage(int index)
{
    page().finish();
    NumberedPage added = newPage(page().rect().size());
    if (index < 0 || index > pageCount() || added.page->isNull())
        return;
    note({{kDo, QStringLiteral("add-page")},
          {kPage, added.number},
          {QStringLiteral("at"), index},
          {kSize, json(added.page->rect().size())}});
    m_stack.push(new AddStep(*this, index, std::move(added)));
}

void Document::removePage(int index)
{
    page().finish();
    if (index < 0 || index >= pageCount() || pageCount() == 1)
        return;
    note({{kDo, QStringLiteral("remove-page")}, {QStringLiteral("at"), index}});
    m_stack.push(new RemoveStep(*this, index));
}

void Document::movePage(int from, int to)
{
    page().finish();
    if (from < 0 || from >= pageCount() || to < 0 || to >= pageCount() || from == to)
        return;
    note({{kDo, QStringLiteral("move-page")}, {QStringLiteral("from"), from}, {QStringLiteral("to"), to}});
    m_stack.push(new MoveStep(*this, from, to));
}

void Document::undo()
{
    page().finish();
    if (!m_stack.canUndo())
        return;
    note({{kDo, QStringLiteral("undo")}});
    m_stack.undo();
}

void Document::redo()
{
    page().finish();
    if (!m_stack.canRedo())
        return;
    note({{kDo, QStringLiteral("redo")}});
    m_stack.redo();
}

// A successor is one step with the object before it.
bool Document::canFollow(int number, const Record &record) const
{
    const auto *draw = std::get_if<DrawRecord>(&record);
    if (!draw || !draw->succeeds)
        return true;
    const auto *last = dynamic_cast<const PageStep *>(m_stack.command(m_stack.index() - 1));
    return last && last->number() == number;
}

void Document::recorded(int number, const Record &record)
{
    if (!m_playing) {
        QJsonObject line = toJson(record);
        line.insert(kPage, number);
        note(line);
    }
    if (std::get_if<SizeRecord>(&record))
        return; // there is no way back
    const auto *draw = std::get_if<DrawRecord>(&record);
    m_stack.push(new PageStep(*this, number, draw && draw->succeeds));
}

void Document::note(const QJsonObject &line)
{
    if (m_playing)
        return;
    m_changes += line.value(kDo) == QLatin1String("size") ? 0 : 1;
    const bool written = m_log.append(QJsonDocument(line).toJson(QJsonDocument::Compact));
    if (m_changes == 0)
        m_log.rest(); // a page that has only grown is nothing to recover
    if (!m_keepsJournal)
        return;
    if (!written && !m_journalFails)
        emit journalFailed(
            tr("%1: cannot be written: %2. Save the lesson elsewhere.").arg(m_log.journalName(), m_log.error()));
    m_journalFails = !written;
}

QString Document::keepJournal(const QString &folder)
{
    QString problem;
    m_keepsJournal = m_log.keep(folder, problem);
    return problem;
}

bool Document::isTouched(const QString &fileName) const
{
    const QFileInfo file(fileName);
    return fileName == m_fileName && file.exists() && (file.lastModified() != m_fileTime || file.size() != m_fileSize);
}

void Document::remember(const QString &fileName)
{
    const QFileInfo file(fileName);
    m_fileName = fileName;
    m_fileTime = file.lastModified();
    m_fileSize = file.size();
    m_changes = 0;
    m_log.rest();
}

QString Document::save(const QString &fileName)
{
    page().finish();
    if (isTouched(fileName))
        return tr("%1: another program has changed it since. Save under another name.").arg(fileName);
    QString problem = m_log.save(fileName);
    if (problem.isEmpty())
        remember(fileName);
    return problem;
}

QString Document::open(const QString &fileName)
{
    QString problem = load(fileName);
    if (problem.isEmpty())
        remember(fileName);
    return problem;
}

QString Document::openCopy(const QString &fileName)
{
    const QString problem = load(fileName);
    if (problem.isEmpty())
        m_log.rest();
    return problem;
}

QString Document::recover(const QString &fileName)
{
    QString problem = load(fileName);
    m_changes = 1;
    return problem;
}

QString Document::load(const QString &fileName)
{
    const auto failed = [&](int line, const QString &what) {
        return tr("%1: line %2: %3").arg(fileName).arg(line).arg(what);
    };
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return tr("%1: cannot be read: %2").arg(fileName, file.errorString());
    const QByteArray header = file.readLine();
    const QJsonObject first = QJsonDocument::fromJson(header).object();
    const QSize size = sizeFrom(first.value(kSize));
    const double density = first.value(kDensity).toDouble(first.contains(kDensity) ? 0 : 1);
    if (!first.value(kKind).isDouble())
        return failed(1, tr("this is not a lesson of this board"));
    if (first.value(kKind).toInt() > kVersion)
        return failed(1, tr("the lesson was written by a later version of this board"));
    if (!InkLesson::pageSizeProblem(size).isEmpty())
        return failed(1, InkLesson::pageSizeProblem(size));
    if (!InkLesson::isDensity(density))
        return failed(1, tr("no density of a page"));

    reset(size, density);
    m_playing = true;
    QString problem;
    for (int number = 2; problem.isEmpty() && !file.atEnd(); ++number) {
        QByteArray line = file.readLine();
        QString what;
        if (!line.endsWith('\n'))
            problem = failed(number, tr("it was cut off here"));
        else if (line.chop(1); playLine(line, what))
            m_log.append(line);
        else
            problem = failed(number, what);
    }
    m_playing = false;
    emit pagesChanged();
    emit currentChanged();
    return problem;
}

bool Document::playLine(const QByteArray &line, QString &problem)
{
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    const QString what = object.value(kDo).toString();
    const int at = object.value(QStringLiteral("at")).toInt(-1);
    const int steps = m_stack.index();
    if (what == QLatin1String("undo")) {
        undo();
        problem = m_stack.index() < steps ? QString() : tr("there is nothing to undo");
    } else if (what == QLatin1String("redo")) {
        redo();
        problem = m_stack.index() > steps ? QString() : tr("there is nothing to redo");
    } else if (what == QLatin1String("add-page")) {
        const QSize size = sizeFrom(object.value(kSize));
        m_nextNumber = std::max(m_nextNumber, object.value(kPage).toInt());
        NumberedPage added = newPage(InkLesson::pageSizeProblem(size).isEmpty() ? size : QSize(1, 1));
        if (at >= 0 && at <= pageCount() && !added.page->isNull())
            m_stack.push(new AddStep(*this, at, std::move(added)));
        else
            problem = tr("there is no place for this page");
    } else if (what == QLatin1String("remove-page")) {
        removePage(at);
        problem = m_stack.index() > steps ? QString() : tr("there is no such page");
    } else if (what == QLatin1String("move-page")) {
        movePage(object.value(QStringLiteral("from")).toInt(-1), object.value(QStringLiteral("to")).toInt(-1));
        problem = m_stack.index() > steps ? QString() : tr("there is no such page");
    } else {
        const int number = object.value(kPage).toInt();
        const int index = indexOf(number);
        RecordReader reader;
        Record record;
        if (!reader.read(object, record))
            problem = reader.error();
        else if (index < 0)
            problem = tr("there is no such page");
        else if (m_current = index; !canFollow(number, record) || !page().play(record))
            problem = tr("this cannot be done on the page");
    }
    return problem.isEmpty();
}

} // namespace Board
