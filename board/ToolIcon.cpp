#include "ToolIcon.h"

#include "Page.h"
#include "Player.h"
#include "Style.h"

#include "CInkGraph.h"
#include "PointerEvent.h"

#include <QtGui/QPainter>
#include <QtGui/QPixmap>

namespace Board {

namespace {

constexpr int kIconPen = 3; // pixels
constexpr QSize kSampleSize(kSampleSide, kSampleSide);

QPixmap picture(const Tool &tool, const QColor &color)
{
    return QPixmap::fromImage(sampleInk(tool, {color, kIconPen}));
}

QImage committedSample(const Tool &tool, const Ink &ink)
{
    Page page(kSampleSize);
    page.begin(createObject(tool, ink, kSampleSize));
    for (const Gesture &gesture : tool.sample)
        playGesture(gesture, page);
    page.finish();
    return page.ink();
}

// With its handles. Not through a page: what is not committed would come on white paper.
QImage editedSample(const Tool &tool, const Ink &ink)
{
    const auto object = createObject(tool, ink, kSampleSize);
    for (const Gesture &gesture : tool.sample) {
        QRect update;
        object->AddPoint(PT_DOWN, gesture.front(), update);
        object->AddPoint(PT_UP, gesture.back(), update);
    }
    QImage image(kSampleSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QRect area = image.rect();
    object->Draw(painter, area);
    return image;
}

} // namespace

QImage sampleInk(const Tool &tool, const Ink &ink)
{
    return tool.iconWhileEdited ? editedSample(tool, ink) : committedSample(tool, ink);
}

QIcon toolIcon(const Tool &tool)
{
    QIcon icon;
    icon.addPixmap(picture(tool, kTextColor), QIcon::Normal, QIcon::Off);
    icon.addPixmap(picture(tool, kAccentTextColor), QIcon::Normal, QIcon::On);
    return icon;
}

} // namespace Board
