#include "ToolIcon.h"

#include "Page.h"
#include "Player.h"
#include "Style.h"

#include <QtGui/QPixmap>

namespace Board {

namespace {

constexpr int kIconPen = 3; // pixels

QPixmap picture(const Tool &tool, const QColor &color)
{
    return QPixmap::fromImage(sampleInk(tool, {color, kIconPen}));
}

} // namespace

QImage sampleInk(const Tool &tool, const Ink &ink)
{
    const QSize size(kSampleSide, kSampleSide);
    Page page(size);
    page.begin(createObject(tool, ink, size));
    for (const Gesture &gesture : tool.sample)
        playGesture(gesture, page);
    page.finish();
    return page.ink();
}

QIcon toolIcon(const Tool &tool)
{
    QIcon icon;
    icon.addPixmap(picture(tool, kTextColor), QIcon::Normal, QIcon::Off);
    icon.addPixmap(picture(tool, kAccentTextColor), QIcon::Normal, QIcon::On);
    return icon;
}

} // namespace Board
