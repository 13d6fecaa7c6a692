#include "lesson/objects/Life.h"
#include "lesson/objects/Tools_p.h"

#include "CInkEraser.h"
#include "CInkFloodFillEx.h"
#include "CInkRgnSelect.h"
#include "CInkText.h"

#include <QtGui/QBrush>
#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <algorithm>

namespace InkLesson {

namespace {

// The lifted pixels where they were, as a picture that can be moved, stretched and turned.
std::optional<Life> liftedPicture(CInkGraph &selection, const QSize &canvas)
{
    if (!selection.m_pImage)
        return std::nullopt;
    Life picture{kPictureTool};
    picture.canvas = canvas;
    picture.picture = exactImage(*selection.m_pImage);
    picture.position = selection.m_rcHot.topLeft();
    return picture;
}

// The background where the ink was lifted.
void paintHole(QPainter &painter, CInkGraph &object, const QImage &background)
{
    painter.drawImage(object.m_rcHot, background, object.m_rcHot);
}

void paintFilled(QPainter &painter, CInkGraph &object, const QImage & /*background*/)
{
    if (object.m_pImage)
        painter.drawImage(static_cast<CInkFloodFill &>(object).m_rcCanvas.topLeft(), *object.m_pImage);
}

// The pixels in the colour of the ink, and the object as if it had computed them. It is as large as they are.
void takeArea(CInkGraph &object, const Life &life)
{
    auto &fill = static_cast<CInkFloodFillEx &>(object);
    QImage pixels = life.picture;
    for (int y = 0; y < pixels.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(pixels.scanLine(y));
        const auto inked = [&](QRgb pixel) { return pixel != 0 ? life.ink.color.rgb() : pixel; };
        std::transform(row, row + pixels.width(), row, inked);
    }
    delete fill.m_pImage;
    fill.m_pImage = new QImage(pixels);
    constexpr int kFar = 1 << 30; // beyond every page, and an int goes on beyond the widest picture there
    const QPoint position(qBound(-kFar, life.position.x(), kFar), qBound(-kFar, life.position.y(), kFar));
    fill.m_rcCanvas = fill.m_rcFillBounds = fill.m_rcHot = QRect(position, pixels.size());
    fill.m_nPointCount = fill.m_bFilled = 1;
}

// One for all erasers of a page, where each would keep a copy of its own.
void takeTexture(CInkGraph &object, const QImage &background)
{
    auto &eraser = static_cast<CInkEraser &>(object);
    delete eraser.m_pErasePen;
    delete eraser.m_pEraseBrush;
    eraser.m_pEraseBrush = new QBrush(background);
    eraser.m_pErasePen = new QPen(*eraser.m_pEraseBrush, eraser.m_nWidth, Qt::SolidLine,
                                  Qt::PenCapStyle(eraser.m_nCapStyle), Qt::BevelJoin);
}

// The background along the eraser's path.
void paintErased(QPainter &painter, CInkGraph &object, const QImage &background)
{
    QImage shown(background.size(), QImage::Format_ARGB32_Premultiplied);
    shown.fill(Qt::transparent);
    QImage paper = background;
    QImage pageLayer(1, 1, QImage::Format_RGB32); // page and ink are not wanted
    QImage inkLayer(1, 1, QImage::Format_RGB32);
    {
        QPainter page(&pageLayer);
        QPainter surface(&shown);
        QPainter under(&paper);
        QPainter ink(&inkLayer);
        object.Draw(page, surface, under, ink, shown.rect(), 0, 0);
    }
    painter.drawImage(0, 0, shown);
}

Tool eraser()
{
    Tool tool{"eraser", plain<CInkEraser>};
    tool.tapsWithOnePoint = true;
    tool.takeBackground = takeTexture;
    tool.paintFlat = paintErased;
    return tool;
}

Tool select()
{
    Tool tool{"select", plain<CInkRgnSelect>};
    tool.lift = liftedPicture;
    tool.paintFlat = paintHole;
    return tool;
}

// Computed anew whenever it is painted; in lessons of version 1.
Tool fill()
{
    Tool tool{"fill", onCanvas<CInkFloodFill>};
    tool.floods = true;
    tool.paintFlat = paintFilled;
    return tool;
}

Tool area()
{
    Tool tool{kAreaTool, onCanvas<CInkFloodFillEx>};
    tool.takePicture = takeArea;
    tool.paintFlat = paintFilled;
    return tool;
}

Tool text()
{
    Tool tool{"text", plain<CInkText>};
    tool.takesText = true;
    return tool;
}

} // namespace

std::vector<Tool> rasterTools()
{
    return {eraser(), select(), fill(), area(), text()};
}

} // namespace InkLesson
