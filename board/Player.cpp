#include "Player.h"

#include "Document.h"
#include "Page.h"

#include "lesson/objects/Scatter.h"
#include "lesson/output/PngFile.h"
#include "lesson/paper/PageSize.h"

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

// The first page of a lesson as it was left.
QString playLesson(const QString &fileName, const QString &png)
{
    Document document({1, 1});
    const QString problem = document.open(fileName);
    return problem.isEmpty() ? InkLesson::savePng(document.page(0).picture(), png) : problem;
}

} // namespace

void playGesture(const Gesture &gesture, Page &page)
{
    page.feed(PT_DOWN, gesture.front());
    for (std::size_t i = 1; i + 1 < gesture.size(); ++i)
        page.feed(PT_MOVE, gesture[i]);
    page.feed(PT_UP, gesture.back());
}

void playStroke(const InkLesson::Stroke &stroke, const InkLesson::Tool &tool, Page &page)
{
    page.begin(createObject(tool, {stroke.color, stroke.width}, page.rect().size()));
    if (tool.tapsWithOnePoint && isTap(stroke.points))
        page.feed(PT_DOWN, stroke.points.front());
    else if (tool.scatters)
        playGesture(InkLesson::Scatter(kSeed).along(stroke.points, stroke.width), page);
    else
        playGesture(stroke.points, page);
    page.finish();
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
    Page page(size);
    if (page.isNull())
        return QCoreApplication::translate("Board::Player", "not enough memory for a page of %1x%2 pixels")
            .arg(size.width())
            .arg(size.height());
    if (!order.tool->kind)
        files.clear(); // nothing to draw with
    for (const InkLesson::StrokeFile &file : files) {
        for (const InkLesson::Stroke &stroke : file.strokes)
            playStroke(stroke, *order.tool->kind, page);
    }
    return InkLesson::savePng(page.picture(), order.png);
}

} // namespace Board
