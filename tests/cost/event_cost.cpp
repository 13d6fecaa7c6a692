// Repaints the newest segment of a live pencil stroke, for its instructions to be counted.
//
// event_cost (ours|bare) POINTS EVENTS

#include "CInkPencil.h"
#include "LiteralPens.h"
#include "MinimalPath.h"
#include "Strokes.h"

#include <cstdlib>
#include <cstring>

namespace {

constexpr int kWidth = 4;
const QColor kColor(20, 40, 160, 120);

} // namespace

int main(int argc, char **argv)
{
    if (argc != 4)
        return 2;
    const bool isBare = !std::strcmp(argv[1], "bare");
    const int events = std::atoi(argv[3]);

    CInkPencil pencil;
    pencil.SetWidth(kWidth);
    pencil.SetColor(kColor);
    QRect ignored;
    for (const QPoint &point : Bench::writingBack(std::atoi(argv[2])))
        pencil.AddPoint(PT_MOVE, point, ignored);
    QRect newest = pencil.GetUpdateRect();
    const QPainterPath path = Literal::minimalPath(pencil.m_graphData, newest, kWidth);

    QImage image(400, 400, QImage::Format_ARGB32_Premultiplied); // the stroke ends at its top left
    image.fill(Qt::white);
    QPainter painter(&image);
    for (int i = 0; i < events; ++i) {
        if (!isBare) {
            pencil.Draw(painter, newest);
            continue;
        }
        painter.setClipRect(newest);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Literal::roundPen(kColor, kWidth));
        painter.drawPath(path);
        painter.restore();
    }
    painter.end();
    return events > 0 && image.pixel(60, 60) == 0xffffffffU; // ink is there
}
