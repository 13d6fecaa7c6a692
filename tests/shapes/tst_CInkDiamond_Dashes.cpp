// The dashes of the diamond where they would never end.

#include "CInkDiamond.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

namespace {

QImage outline(const QVector<QPointF> &vertices, double width, Qt::PenStyle style)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::black, width, style, Qt::SquareCap, Qt::RoundJoin));
        painter.drawPolygon(vertices.constData(), vertices.size());
    });
}

class Dashed : public CInkDiamond
{
public:
    Dashed(const QVector<QPointF> &vertices, int width)
        : CInkDiamond(Qt::DashLine)
    {
        m_graphData = vertices;
        m_nPointCount = 4;
        m_nWidth = width;
    }
};

} // namespace

TEST(CInkDiamondDashes, ofPointsTooFarAwayAreSolid)
{
    for (const double far : {1e13, -1e20, 1e300}) {
        const QVector<QPointF> vertices{{100, 150}, {far, 100}, {200, far}, {150, 200}};
        Dashed diamond(vertices, 4);
        EXPECT_TRUE(samePixels(drawn(diamond), outline(vertices, 4, Qt::SolidLine))) << far;
    }
}

TEST(CInkDiamondDashes, ofNegativeWidthAreSolid)
{
    const QVector<QPointF> vertices{{100, 150}, {150, 100}, {200, 150}, {150, 200}};
    Dashed diamond(vertices, -4);
    EXPECT_TRUE(samePixels(drawn(diamond), outline(vertices, -4, Qt::SolidLine)));
}

TEST(CInkDiamondDashes, ofAnyOtherDiamondStay)
{
    const QVector<QPointF> vertices{{100, 150}, {150, 100}, {200, 150}, {150, 200}};
    for (const int width : {0, 1, 4}) {
        Dashed diamond(vertices, width);
        EXPECT_TRUE(samePixels(drawn(diamond), outline(vertices, width, Qt::DashLine))) << width;
    }
}
