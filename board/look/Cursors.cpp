#include "board/look/Cursors.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPixmap>

#include <algorithm>
#include <cmath>
#include <optional>

namespace Board {

namespace {

// Eighths of a turn, clockwise from straight up.
std::optional<int> directionOf(ModifyType type)
{
    switch (type) {
    case MT_TOP:
        return 0;
    case MT_RIGHT_TOP:
        return 1;
    case MT_RIGHT:
        return 2;
    case MT_RIGHT_BOTTOM:
        return 3;
    case MT_BOTTOM:
        return 4;
    case MT_LEFT_BOTTOM:
        return 5;
    case MT_LEFT:
        return 6;
    case MT_LEFT_TOP:
        return 7;
    default:
        return std::nullopt;
    }
}

// Opposite directions share a cursor.
constexpr Qt::CursorShape kArrows[] = {Qt::SizeVerCursor, Qt::SizeBDiagCursor, Qt::SizeHorCursor, Qt::SizeFDiagCursor};

QPixmap turningArrow()
{
    constexpr int kSide = 24;
    QPixmap pixmap(kSide, kSide);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);

    const QRectF circle(4.5, 4.5, 15, 15);
    QPainterPath arrow;
    arrow.arcMoveTo(circle, 30);
    arrow.arcTo(circle, 30, 290); // counter-clockwise from the upper right, ending at the lower right
    const QPointF tip = arrow.currentPosition();
    arrow.moveTo(tip + QPointF(-5, 0.5));
    arrow.lineTo(tip);
    arrow.lineTo(tip + QPointF(1.5, 5));
    painter.setPen(QPen(Qt::white, 4.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(arrow);
    painter.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(arrow);
    return pixmap;
}

} // namespace

QCursor cursorFor(ModifyType type, float angle)
{
    if (type == MT_MOVE)
        return Qt::SizeAllCursor;
    if (type == MT_ROTATE)
        return QCursor(turningArrow());
    const std::optional<int> direction = directionOf(type);
    if (!direction)
        return Qt::CrossCursor;
    const long eighths = std::lround(angle / 45.0f);
    return kArrows[(*direction + eighths) % 4];
}

QCursor circleCursor(double diameter, double ratio)
{
    constexpr int kSmall = 12; // such a circle is too easily lost
    constexpr int kGap = 2;
    constexpr int kTick = 5;
    const bool isSmall = diameter < kSmall;
    const int reach = int(diameter / 2) + (isSmall ? kGap + kTick : 0);
    const int middle = reach + 2;
    QPixmap pixmap(QSize(2 * middle, 2 * middle) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(middle, middle);

    // Both rings within the true size, the dark one along it.
    const double radius = diameter / 2.0;
    const double dark = std::max(radius - 0.5, 0.5);
    const double light = std::max(radius - 1.5, 0.5);
    painter.setPen(QPen(Qt::white, 1));
    painter.drawEllipse(QPointF(), light, light);
    painter.setPen(QPen(Qt::black, 1));
    painter.drawEllipse(QPointF(), dark, dark);
    for (int quarter = 0; isSmall && quarter < 4; ++quarter) {
        painter.rotate(90);
        painter.fillRect(reach - kTick, -1, kTick, 1, Qt::black);
        painter.fillRect(reach - kTick, 0, kTick, 1, Qt::white);
    }
    painter.end();
    // Qt hands the point to X11 as it is, which counts pixels of the screen.
    const bool isX11 = QGuiApplication::platformName() == QLatin1String("xcb");
    const int point = isX11 ? qRound(middle * ratio) : middle;
    return QCursor(pixmap, point, point);
}

} // namespace Board
