// The smallest host, without an application: builds and runs against the library however it was found.

#include <CInkLine>

#include <QtGui/QImage>
#include <QtGui/QPainter>

int main()
{
    QImage page(40, 40, QImage::Format_ARGB32_Premultiplied);
    page.fill(Qt::white);

    CInkLine line;
    line.SetColor(Qt::red);
    line.SetWidth(4);
    QRect update;
    line.AddPoint(PT_DOWN, {5, 20}, update);
    line.AddPoint(PT_UP, {35, 20}, update);
    if (!line.FinishGraph())
        return 1;

    QPainter painter(&page);
    line.Draw(painter, update);
    painter.end();
    return page.pixelColor(20, 20) == Qt::red && page.pixelColor(20, 30) == Qt::white ? 0 : 2;
}
