#include "Tools_p.h"

#include "TextEditor.h"

#include "CInkFloodFill.h"
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
    return {fill(), text()};
}

} // namespace Board
