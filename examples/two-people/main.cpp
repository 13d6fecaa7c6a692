// Two people draw on one page, each on a copy of their own. All they do goes through one log, so the copies stay equal.

#include "lesson/authoring/Pointer.h"

#include <QtCore/QDateTime>
#include <QtCore/QLoggingCategory>
#include <QtCore/QTextStream>

#include <cstring>

using namespace InkLesson;

namespace {

// The order of everything, which must be the same for all. A list here; between machines it is what a server keeps.
class Log
{
public:
    void join(Lesson &lesson) { m_lessons.push_back(&lesson); }
    std::size_t size() const { return m_records.size(); }

    void add(const Record &record)
    {
        m_records.push_back(record);
        for (Lesson *lesson : m_lessons)
            lesson->apply(record); // its own author's has it already: it changes nothing there
    }

private:
    std::vector<Record> m_records;
    std::vector<Lesson *> m_lessons;
};

struct Person
{
    Person(int number, const QColor &color, Log &log)
        : lesson({{200, 150}})
        , author(lesson, number, QDateTime::currentMSecsSinceEpoch, [&](const Record &record) { log.add(record); })
        , pointer(author)
        , ink{color}
    {
        log.join(lesson);
    }

    void draw(const char *tool, const QPoint &from, const QPoint &to)
    {
        pointer.setTool(tool);
        pointer.setInk(ink);
        pointer.press(from);
        pointer.move(to);
        pointer.release(to);
        author.finish(); // while it is in the hand, with its handles, the own page is without it
    }

    const Page &page() const { return lesson.page(kFirstPage); }

    Lesson lesson;
    Author author; // the numbers of two authors differ
    Pointer pointer;
    Ink ink;
};

bool isSame(const QImage &a, const QImage &b)
{
    return a.sizeInBytes() == b.sizeInBytes() &&
           std::memcmp(a.constBits(), b.constBits(), size_t(a.sizeInBytes())) == 0;
}

} // namespace

int main()
{
    QLoggingCategory::setFilterRules("default.debug=false"); // a line for each rectangle
    Log log;
    Person ann(1, Qt::red, log), ben(2, Qt::blue, log);
    bool isGood = true;
    const auto tell = [&](const char *what, std::size_t objects) {
        const bool isEqual = isSame(ann.page().picture(), ben.page().picture()) &&
                             isSame(ann.page().ink(), ben.page().ink()) && ann.lesson.log() == ben.lesson.log();
        isGood = isGood && isEqual && ann.page().items().size() == objects;
        QTextStream(stdout) << what << ": " << ann.page().items().size() << " on the page, " << log.size()
                            << " in the log, " << (isEqual ? "equal" : "DIFFERENT") << '\n';
    };

    ann.draw("line", {20, 20}, {180, 130});
    tell("Ann draws a line", 1);
    ben.draw("rectangle", {40, 30}, {160, 120});
    tell("Ben draws a box over it", 2);
    ann.draw("pencil", {20, 130}, {180, 20});
    tell("Ann draws a stroke over both", 3);

    // Undo takes back one's own last step, whatever the other has done since.
    ben.author.undo();
    tell("Ben takes back his box, from between", 2);
    ann.author.undo();
    tell("Ann takes back her stroke", 1);
    ben.author.redo();
    tell("Ben does his box again", 2);
    ann.author.redo();
    tell("Ann does her stroke again, on top", 3);

    // A stroke is in the log once it is done: until then each may draw, and sees the own one only.
    ann.pointer.press({100, 20});
    ben.draw("pencil", {20, 75}, {180, 75});
    ann.pointer.move({100, 130});
    ann.pointer.release({100, 130});
    tell("Both draw at the same time", 5);
    return isGood ? 0 : 1;
}
