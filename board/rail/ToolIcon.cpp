#include "board/rail/ToolIcon.h"

#include "board/look/Style.h"
#include "board/playing/Player.h"

#include "lesson/authoring/Author.h"

#include "CInkGraph.h"
#include "PointerEvent.h"

#include <QtGui/QPainter>
#include <QtGui/QPixmap>

namespace Board {

namespace {

constexpr QSize kSampleSize(kSampleSide, kSampleSide);
constexpr int kMaxTimes = 2; // as large, for screens with more pixels

bool isBlank(const QImage &ink)
{
    QImage blank(ink.size(), ink.format());
    blank.fill(Qt::transparent);
    return ink == blank;
}

// Transparent; `times` as large as a sample.
QImage blankImage(int times)
{
    QImage image(kSampleSize * times, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

Gesture enlarged(Gesture gesture, int times)
{
    for (QPoint &pt : gesture)
        pt *= times;
    return gesture;
}

// Where a tool that leaves no mark has been.
QImage trace(const Tool &tool, const QColor &color, int times)
{
    QImage image = blankImage(times);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(times, times);
    painter.setPen(QPen(color, 1.5, Qt::DotLine));
    for (const Gesture &gesture : tool.sample)
        painter.drawPolyline(gesture.data(), int(gesture.size()));
    return image;
}

QPixmap picture(const Tool &tool, const QColor &color, int times)
{
    const QImage ink = sampleInk(tool, color, times);
    QPixmap pixmap = QPixmap::fromImage(isBlank(ink) ? trace(tool, color, times) : ink);
    pixmap.setDevicePixelRatio(times);
    return pixmap;
}

QImage committedSample(const Tool &tool, const Ink &ink, int times)
{
    InkLesson::Lesson lesson({kSampleSize * times});
    InkLesson::Author author(lesson, 1, [] { return qint64(0); });
    if (tool.sampleOnInk)
        playStroke({ink.color, kSampleSide / 2 * times, enlarged({{10, 16}, {22, 16}}, times)}, *tools().front().kind,
                   author);
    author.begin({QLatin1String(tool.kind->name), ink, author.canvas()});
    for (const Gesture &gesture : tool.sample)
        playGesture(enlarged(gesture, times), author);
    author.finish();
    return lesson.page(author.page()).ink();
}

// With its handles. Not through a page: what is not committed would come on white paper.
QImage editedSample(const Tool &tool, const Ink &ink)
{
    const auto object = createObject(*tool.kind, ink, kSampleSize);
    for (const Gesture &gesture : tool.sample) {
        QRect update;
        object->AddPoint(PT_DOWN, gesture.front(), update);
        object->AddPoint(PT_UP, gesture.back(), update);
    }
    QImage image = blankImage(1);
    QPainter painter(&image);
    QRect area = image.rect();
    object->Draw(painter, area);
    return image;
}

QImage paintedIcon(const Tool &tool, const QColor &color, int times)
{
    QImage image = blankImage(times);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(times, times);
    tool.paintIcon(painter, color);
    return image;
}

} // namespace

QImage sampleInk(const Tool &tool, const QColor &color, int times)
{
    if (tool.paintIcon)
        return paintedIcon(tool, color, times);
    const Ink ink{color, tool.sampleWidth * times};
    return tool.iconWhileEdited ? editedSample(tool, ink) : committedSample(tool, ink, times);
}

// The sun over two mountains, in a frame.
QIcon pictureIcon()
{
    QPixmap pixmap(kSampleSize * kMaxTimes);
    pixmap.setDevicePixelRatio(kMaxTimes);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(kTextColor), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawRoundedRect(4, 6, 24, 20, 3, 3);
    painter.setBrush(QColor(kTextColor));
    painter.drawEllipse(QPoint(22, 12), 2, 2);
    const QPointF mountains[] = {{5, 25}, {12, 15}, {17, 21}, {20, 18}, {27, 25}};
    painter.drawPolygon(mountains, 5);
    painter.end();
    return pixmap;
}

QIcon toolIcon(const Tool &tool)
{
    QIcon icon;
    const bool growsNot = tool.iconWhileEdited || tool.scatters(); // handles and dots have one size
    for (int times = 1; times <= (growsNot ? 1 : kMaxTimes); ++times) {
        icon.addPixmap(picture(tool, kTextColor, times), QIcon::Normal, QIcon::Off);
        icon.addPixmap(picture(tool, kAccentTextColor, times), QIcon::Normal, QIcon::On);
    }
    return icon;
}

} // namespace Board
