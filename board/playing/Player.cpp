#include "board/playing/Player.h"

#include "lesson/authoring/Author.h"
#include "lesson/objects/Scatter.h"
#include "lesson/output/PngFile.h"
#include "lesson/paper/PageSize.h"
#include "lesson/storage/LessonFile.h"

#include "PointerEvent.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace Board {

namespace {

constexpr quint32 kSeed = 1;

bool isTap(const Gesture &gesture)
{
    return std::all_of(gesture.begin(), gesture.end(), [&](const QPoint &pt) { return pt == gesture.front(); });
}

// The first point is the press and the last the release, also where it is the only one.
std::vector<InkLesson::PointerAct> pointerActs(const Gesture &gesture)
{
    std::vector<InkLesson::PointerAct> acts{{PT_DOWN, gesture.front()}};
    for (std::size_t i = 1; i + 1 < gesture.size(); ++i)
        acts.push_back({PT_MOVE, gesture[i]});
    acts.push_back({PT_UP, gesture.back()});
    return acts;
}

// The first page of a lesson as it was left.
QString playLesson(const QString &fileName, const QString &png)
{
    QString problem;
    const auto lesson = InkLesson::openLesson(fileName, problem);
    return problem.isEmpty() ? InkLesson::savePng(lesson->page(lesson->pageId(0)).picture(), png) : problem;
}

} // namespace

std::vector<InkLesson::PointerAct> pointerActs(const InkLesson::Stroke &stroke, const InkLesson::Tool &tool)
{
    if (tool.tapsWithOnePoint && isTap(stroke.points))
        return {{PT_DOWN, stroke.points.front()}};
    return pointerActs(tool.scatters ? InkLesson::Scatter(kSeed).along(stroke.points, stroke.width) : stroke.points);
}

void playGesture(const Gesture &gesture, InkLesson::Author &author)
{
    for (const InkLesson::PointerAct &act : pointerActs(gesture))
        author.feed(act.code, act.pt);
}

void playStroke(const InkLesson::Stroke &stroke, const InkLesson::Tool &tool, InkLesson::Author &author)
{
    author.begin({QLatin1String(tool.name), {stroke.color, stroke.width}, author.canvas()});
    for (const InkLesson::PointerAct &act : pointerActs(stroke, tool))
        author.feed(act.code, act.pt);
    author.finish();
}

QString playFiles(const PlayOrder &order)
{
    if (order.files.size() == 1 && order.files.constFirst().endsWith(QLatin1String(".inkboard")))
        return playLesson(order.files.constFirst(), order.png);
    std::vector<InkLesson::StrokeFile> files;
    QSize size;
    for (const QString &fileName : order.files) {
        QString error;
        std::optional<InkLesson::StrokeFile> file = InkLesson::readStrokeFile(fileName, error);
        if (!file)
            return error;
        size = size.expandedTo(file->size);
        files.push_back(*std::move(file));
    }
    if (order.size.isValid())
        size = order.size;

    QString problem = InkLesson::pageSizeProblem(size);
    if (!problem.isEmpty())
        return QCoreApplication::translate("Board::Player", "the page for all files: %1").arg(problem);
    InkLesson::Lesson lesson({size});
    InkLesson::Author author(lesson, 1, [] { return qint64(0); });
    const InkLesson::Page &page = lesson.page(author.page());
    if (page.isNull())
        return QCoreApplication::translate("Board::Player", "not enough memory for a page of %1x%2 pixels")
            .arg(size.width())
            .arg(size.height());
    if (!order.tool->kind)
        files.clear(); // nothing to draw with
    for (const InkLesson::StrokeFile &file : files) {
        for (const InkLesson::Stroke &stroke : file.strokes)
            playStroke(stroke, *order.tool->kind, author);
    }
    return InkLesson::savePng(page.picture(), order.png);
}

} // namespace Board
