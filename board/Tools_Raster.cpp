#include "Tools_p.h"

#include "TextEditor.h"

#include "CInkFloodFill.h"
#include "CInkPicTure.h"
#include "CInkRgnSelect.h"
#include "CInkText.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace Board {

namespace {

// A tilted bucket and the drop that falls from it.
void paintBucket(QPainter &painter, const QColor &color)
{
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF bucket[] = {{6, 15}, {14, 7}, {23, 16}, {15, 24}};
    painter.drawPolygon(bucket, 4);
    painter.setBrush(color);
    const QPointF paint[] = {{6, 15}, {23, 16}, {15, 24}};
    painter.drawPolygon(paint, 3);
    QPainterPath drop(QPointF(26, 18));
    drop.cubicTo(23, 23, 23, 26, 26, 26);
    drop.cubicTo(29, 26, 29, 23, 26, 18);
    painter.drawPath(drop);
}

// A capital T with serifs.
void paintLetter(QPainter &painter, const QColor &color)
{
    painter.setPen(QPen(color, 3, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    const QPointF letter[] = {{7, 11}, {7, 7}, {25, 7}, {25, 11}};
    painter.drawPolyline(letter, 4);
    painter.drawLine(16, 7, 16, 25);
    painter.drawLine(12, 25, 20, 25);
}

// A dashed frame with handles at its corners.
void paintSelection(QPainter &painter, const QColor &color)
{
    const QRect frame(6, 8, 20, 16);
    painter.setPen(QPen(color, 2, Qt::DotLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(frame);
    for (const QPoint &corner : {frame.topLeft(), frame.topRight(), frame.bottomLeft(), frame.bottomRight()})
        painter.fillRect(QRect(corner - QPoint(3, 3), QSize(6, 6)), color);
}

// The lifted pixels where they were, as a picture that can be moved, stretched and turned.
std::unique_ptr<CInkGraph> liftedPicture(CInkGraph &selection, const QSize &canvas)
{
    if (!selection.m_pImage)
        return nullptr;
    auto picture = std::make_unique<CInkPicTure>(selection.m_pImage, selection.m_rcHot.topLeft());
    picture->SetCanvasSize(canvas);
    setDrawnHere(*picture);
    return picture;
}

ObjectEditor *editText(CInkGraph &object, QWidget *parent)
{
    return new TextEditor(static_cast<CInkText &>(object), parent);
}

Tool tool(const char *name, const char *title, const char *shortcut, decltype(Tool::create) create,
          decltype(Tool::paintIcon) paintIcon)
{
    Tool row{name, title, shortcut, create, {}, QT_TRANSLATE_NOOP("Board::Tool", "Tools")};
    row.paintIcon = paintIcon;
    return row;
}

Tool fill()
{
    Tool row = tool("fill", QT_TRANSLATE_NOOP("Board::Tool", "Fill"), "Shift+F", onCanvas<CInkFloodFill>, paintBucket);
    row.usage = QT_TRANSLATE_NOOP("Board::Tool", "press on the area to fill");
    return row;
}

Tool select()
{
    Tool row =
        tool("select", QT_TRANSLATE_NOOP("Board::Tool", "Select"), "Shift+S", plain<CInkRgnSelect>, paintSelection);
    row.usage = QT_TRANSLATE_NOOP("Board::Tool", "drag a frame around the ink to move");
    row.lift = liftedPicture;
    return row;
}

Tool text()
{
    Tool row = tool("text", QT_TRANSLATE_NOOP("Board::Tool", "Text"), "Shift+A", plain<CInkText>, paintLetter);
    row.usage = QT_TRANSLATE_NOOP("Board::Tool", "drag a frame on the page to write in");
    row.edit = editText;
    return row;
}

} // namespace

std::vector<Tool> rasterTools()
{
    return {select(), fill(), text()};
}

} // namespace Board
