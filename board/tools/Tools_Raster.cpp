#include "board/tools/Tools_p.h"

#include "board/editors/TextEditor.h"

#include "CInkText.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace Board {

namespace {

constexpr const char *kPlaced = QT_TRANSLATE_NOOP("Board::Tool", "Pictures and text");

// The arrow of a mouse.
void paintArrow(QPainter &painter, const QColor &color)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const QPointF arrow[] = {{9, 5}, {9, 25}, {14, 20}, {17, 27}, {21, 25}, {18, 19}, {25, 19}};
    painter.drawPolygon(arrow, 7);
}

// A box that is crossed out.
void paintCrossedBox(QPainter &painter, const QColor &color)
{
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap, Qt::MiterJoin));
    painter.drawRect(5, 10, 18, 16);
    painter.setPen(QPen(color, 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(17, 5, 28, 16);
    painter.drawLine(28, 5, 17, 16);
}

// A dot with rays, and what is left of its trail.
void paintLaser(QPainter &painter, const QColor &color)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(QPointF(20, 12), 4, 4);
    const QPointF trail[] = {{20, 16}, {16, 12}, {4, 28}};
    painter.drawPolygon(trail, 3);
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap));
    for (const QLine &ray : {QLine(20, 3, 20, 5), QLine(26, 6, 27, 5), QLine(27, 12, 29, 12), QLine(26, 18, 27, 19)})
        painter.drawLine(ray);
}

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

ObjectEditor *editText(CInkGraph &object, QWidget *parent)
{
    return new TextEditor(static_cast<CInkText &>(object), parent);
}

Tool tool(const char *name, const char *title, const char *shortcut, decltype(Tool::paintIcon) paintIcon)
{
    Tool row{name, title, shortcut, {}, QT_TRANSLATE_NOOP("Board::Tool", "Erase, fill, select")};
    row.paintIcon = paintIcon;
    return row;
}

Tool pick()
{
    Tool row = tool("pick", QT_TRANSLATE_NOOP("Board::Tool", "Pick"), "V", paintArrow);
    row.usage = QT_TRANSLATE_NOOP("Board::Tool", "press on an object to change it");
    row.use = Use::Picks;
    return row;
}

Tool remove()
{
    Tool row = tool("remove", QT_TRANSLATE_NOOP("Board::Tool", "Remove objects"), "Shift+D", paintCrossedBox);
    row.usage = QT_TRANSLATE_NOOP("Board::Tool", "drag over the objects to remove");
    row.use = Use::Removes;
    return row;
}

Tool laser()
{
    Tool row = tool("laser", QT_TRANSLATE_NOOP("Board::Tool", "Laser pen"), "Z", paintLaser);
    row.usage = QT_TRANSLATE_NOOP("Board::Tool", "drag to point at something; the ink disappears");
    row.use = Use::Points;
    return row;
}

Tool eraser()
{
    Tool row = tool("eraser", QT_TRANSLATE_NOOP("Board::Tool", "Eraser"), "X", nullptr);
    row.sample = {{{8, 20}, {14, 12}, {18, 20}, {24, 12}}};
    row.sampleWidth = 5;
    row.sampleOnInk = true;
    row.cursorShowsWidth = true;
    row.erases = true;
    return row;
}

Tool fill()
{
    Tool row = tool("fill", QT_TRANSLATE_NOOP("Board::Tool", "Fill"), "Shift+F", paintBucket);
    row.usage = QT_TRANSLATE_NOOP("Board::Tool", "press on the area to fill");
    row.use = Use::Pours;
    return row;
}

Tool select()
{
    Tool row = tool("select", QT_TRANSLATE_NOOP("Board::Tool", "Select"), "Shift+S", paintSelection);
    row.usage = QT_TRANSLATE_NOOP("Board::Tool", "drag a frame around the ink to move");
    return row;
}

Tool text()
{
    Tool row = tool("text", QT_TRANSLATE_NOOP("Board::Tool", "Text"), "Shift+A", paintLetter);
    row.usage = QT_TRANSLATE_NOOP("Board::Tool", "press where to write, or drag a frame");
    row.group = kPlaced;
    row.edit = editText;
    row.tapSize = {300, 80};
    return row;
}

} // namespace

std::vector<Tool> rasterTools()
{
    return {pick(), eraser(), select(), remove(), fill(), laser(), text()};
}

} // namespace Board
