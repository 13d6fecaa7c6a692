#include "lesson/objects/Life.h"
#include "lesson/objects/Tools_p.h"

#include "CInkEraser.h"
#include "CInkFloodFill.h"
#include "CInkRgnSelect.h"
#include "CInkText.h"

#include <QtGui/QPainter>

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
        painter.drawImage(0, 0, *object.m_pImage);
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

Tool fill()
{
    Tool tool{"fill", onCanvas<CInkFloodFill>};
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
    return {eraser(), select(), fill(), text()};
}

} // namespace InkLesson
