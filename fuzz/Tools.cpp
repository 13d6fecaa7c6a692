#include "Tools.h"

#include "CInk1ArrowLine.h"
#include "CInk4Stars.h"
#include "CInk5Side.h"
#include "CInk5Stars.h"
#include "CInk6Side.h"
#include "CInk6Stars.h"
#include "CInkBeZier.h"
#include "CInkBoom1.h"
#include "CInkBoom2.h"
#include "CInkBrush.h"
#include "CInkCloudLabel.h"
#include "CInkColorBrush.h"
#include "CInkCrayon.h"
#include "CInkDiamond.h"
#include "CInkDownArrow.h"
#include "CInkEllipse.h"
#include "CInkEllipseLabel.h"
#include "CInkEraser.h"
#include "CInkErro.h"
#include "CInkFlatBrush.h"
#include "CInkFloodFill.h"
#include "CInkFloodFillEx.h"
#include "CInkHighLightPen.h"
#include "CInkITriangle.h"
#include "CInkLTriangle.h"
#include "CInkLighting.h"
#include "CInkLine.h"
#include "CInkLove.h"
#include "CInkPencil.h"
#include "CInkPicTure.h"
#include "CInkPolygon.h"
#include "CInkRectangle.h"
#include "CInkRgnSelect.h"
#include "CInkRight.h"
#include "CInkRightArrow.h"
#include "CInkRoundRect.h"
#include "CInkRoundRectLabel.h"
#include "CInkSprayGun.h"
#include "CInkText.h"
#include "CInkUpArrow.h"
#include "CInkWaterColorPen.h"
#include "_H.h"

#include <QtGui/QPen>

#include <iterator>

namespace Fuzz {

namespace {

Qt::PenStyle penStyle(Bytes &bytes)
{
    return Qt::PenStyle(bytes.below(Qt::CustomDashLine + 1));
}

Qt::PenCapStyle capStyle(Bytes &bytes)
{
    constexpr Qt::PenCapStyle kStyles[] = {Qt::FlatCap, Qt::SquareCap, Qt::RoundCap};
    return kStyles[bytes.below(3)];
}

void replace(QImage *&slot, Bytes &bytes)
{
    delete slot;
    slot = bytes.flag() ? new QImage(bytes.image()) : nullptr;
}

// The overload of the nearest base is taken, so that each lists only what it adds.
void meddle(CInkGraph & /*graph*/, QPainter & /*painter*/, Bytes & /*bytes*/) {}

void meddle(CInkLine &line, QPainter & /*painter*/, Bytes &bytes)
{
    switch (bytes.below(6)) {
    case 0:
        line.m_nCapStyle = bytes.integer();
        break;
    case 1:
        line.m_nPenStyle = bytes.integer();
        break;
    case 2:
        line.m_nHotRadius = bytes.integer();
        break;
    case 3:
        line.m_rcRegion = bytes.rect();
        break;
    case 4:
        line.SetRegion();
        break;
    default:
        line.m_nPenStyle = penStyle(bytes);
    }
}

void meddle(CInkRectangle &box, QPainter & /*painter*/, Bytes &bytes)
{
    box.m_penStyle = penStyle(bytes);
}

void meddle(CInkRoundRect &box, QPainter &painter, Bytes &bytes)
{
    box.DrawRoundRect(painter, bytes.rect());
}

void meddle(CInkITriangle &triangle, QPainter & /*painter*/, Bytes & /*bytes*/)
{
    triangle.NormalizeGraphData();
}

void meddle(CInkLTriangle &triangle, QPainter & /*painter*/, Bytes & /*bytes*/)
{
    triangle.NormalizeGraphData();
}

void meddle(CInkDiamond &diamond, QPainter &painter, Bytes &bytes)
{
    if (bytes.flag())
        diamond.NormalizeGraphData();
    else
        meddle(static_cast<CInkRectangle &>(diamond), painter, bytes);
}

void meddle(CInkPolygon &polygon, QPainter & /*painter*/, Bytes &bytes)
{
    polygon.m_bFinishOnRelease = bytes.integer();
}

template <typename Stencil>
void meddleWithStencil(Stencil &stencil, Bytes &bytes)
{
    switch (bytes.below(5)) {
    case 0:
        stencil.m_nOutlinePointCount = bytes.integer();
        break;
    case 1:
        stencil.m_penStyle = penStyle(bytes);
        break;
    case 2:
        stencil.m_previewData = bytes.points();
        break;
    case 3:
        stencil.InitGraphData();
        break;
    default:
        QVector<QPointF> points = bytes.points();
        stencil.NormalizeGraphData(points);
    }
}

void meddle(CInkPencil &pencil, QPainter & /*painter*/, Bytes &bytes)
{
    (bytes.flag() ? pencil.m_nCapStyle : pencil.m_nPenStyle) = bytes.integer();
}

void meddle(CInkEraser &eraser, QPainter &painter, Bytes &bytes)
{
    switch (bytes.below(5)) {
    case 0:
        eraser.FormErasePen(painter);
        break;
    case 1:
        delete eraser.m_pErasePen;
        eraser.m_pErasePen = new QPen(bytes.color(), bytes.coordinate(), penStyle(bytes), capStyle(bytes));
        break;
    case 2:
        delete eraser.m_pEraseBrush;
        eraser.m_pEraseBrush = nullptr;
        break;
    case 3:
        eraser.m_pWidthCache = new CInkWidthCache;
        eraser.SetWidth(bytes.integer());
        break;
    default:
        meddle(static_cast<CInkPencil &>(eraser), painter, bytes);
    }
}

void meddle(CInkFlatBrush &brush, QPainter & /*painter*/, Bytes &bytes)
{
    brush.m_fNibAngle = bytes.real();
}

void meddle(CInkHighLightPen &pen, QPainter & /*painter*/, Bytes &bytes)
{
    pen.m_nAlpha = bytes.integer();
}

void meddle(CInkColorBrush &brush, QPainter &painter, Bytes &bytes)
{
    switch (bytes.below(4)) {
    case 0:
        brush.m_ptPrevPoint = bytes.pointF();
        break;
    case 1:
        brush.m_rcCanvas = bytes.rect();
        break;
    case 2: {
        const QPointF position = bytes.pointF();
        brush.MakeColorBrushPoint(position, bytes.real());
        break;
    }
    default:
        brush.DrawColorBrushGraph(painter);
    }
}

void meddle(CInkCrayon &crayon, QPainter &painter, Bytes &bytes)
{
    switch (bytes.below(4)) {
    case 0:
        crayon.m_ptPrevPoint = bytes.pointF();
        break;
    case 1:
        crayon.m_rcCanvas = bytes.rect();
        break;
    case 2: {
        const QPointF position = bytes.pointF();
        crayon.MakecrayonPoint(position, bytes.real());
        break;
    }
    default:
        crayon.DrawCrayonGraph(painter);
    }
}

void meddle(CInkWaterColorPen &pen, QPainter &painter, Bytes &bytes)
{
    switch (bytes.below(4)) {
    case 0:
        pen.m_ptPrevPoint = bytes.pointF();
        break;
    case 1:
        pen.m_rcCanvas = bytes.rect();
        break;
    case 2: {
        const QPointF position = bytes.pointF();
        pen.MakeWaterColoePoint(position, bytes.real());
        break;
    }
    default:
        pen.DrawWaterColorGraph(painter);
    }
}

void meddle(CInkSprayGun &spray, QPainter &painter, Bytes &bytes)
{
    switch (bytes.below(3)) {
    case 0:
        spray.m_rcDirty = bytes.rect();
        break;
    case 1:
        spray.m_rcCanvas = bytes.rect();
        break;
    default:
        spray.DrawSprayGraph(painter);
    }
}

void meddle(CInkFloodFill &fill, QPainter &painter, Bytes &bytes)
{
    switch (bytes.below(6)) {
    case 0:
        fill.m_rcFillBounds = bytes.rect();
        break;
    case 1:
        fill.m_rcCanvas = bytes.rect();
        break;
    case 2:
        fill.m_bFilled = bytes.integer();
        break;
    case 3: {
        QImage image = bytes.image();
        const QPoint at = bytes.point();
        fill.GetPixel(at.x(), at.y(), bytes.flag() ? &image : nullptr);
        break;
    }
    case 4: {
        QImage image = bytes.image();
        const QPoint at = bytes.point();
        fill.SetPixel(at.x(), at.y(), bytes.color(), bytes.flag() ? &image : nullptr);
        break;
    }
    default:
        fill.FormFloodFillBmp(painter);
    }
}

void meddle(CInkFloodFillEx &fill, QPainter &painter, Bytes &bytes)
{
    switch (bytes.below(6)) {
    case 0:
        fill.GetBitmap();
        break;
    case 1:
        fill.m_bBitmapGetted = bytes.integer();
        fill.IsBitmapGetted();
        break;
    case 2: {
        // Not owned: nothing may be read through it.
        static const char kNoImage = 0;
        fill.m_pLocalBitmap = bytes.flag() ? reinterpret_cast<QImage *>(const_cast<char *>(&kNoImage)) : nullptr;
        break;
    }
    case 3: {
        QByteArray file = bytes.imageFile();
        fill.InitPicture(bytes.flag() ? file.data() : nullptr, bytes.flag() ? file.size() : bytes.below(2) - 1);
        break;
    }
    case 4: {
        QByteArray file = bytes.imageFile();
        fill.SetFloodFillBitmap(bytes.flag() ? file.data() : nullptr, file.size());
        break;
    }
    default:
        meddle(static_cast<CInkFloodFill &>(fill), painter, bytes);
    }
}

void meddle(CInkRgnSelect &select, QPainter &painter, Bytes &bytes)
{
    switch (bytes.below(3)) {
    case 0: {
        QImage image = bytes.image();
        select.FormSelBmp(bytes.flag() ? &image : nullptr);
        break;
    }
    case 1: {
        QImage image(32, 32, QImage::Format_RGB32);
        image.fill(0);
        QPainter other(&image);
        select.DrawRng2theBk(painter, other, bytes.flag() ? painter : other);
        break;
    }
    default:
        select.DrawDisInfo(painter);
    }
}

void meddle(CInkPicTure &picture, QPainter & /*painter*/, Bytes &bytes)
{
    switch (bytes.below(7)) {
    case 0: {
        QByteArray file = bytes.imageFile();
        picture.InitPicture(bytes.flag() ? file.data() : nullptr, file.size());
        break;
    }
    case 1: {
        QImage image = bytes.image();
        picture.InitPicture(bytes.flag() ? &image : picture.m_pPicture);
        break;
    }
    case 2:
        picture.InitGraphData(bytes.point());
        break;
    case 3: {
        const QPoint at = bytes.point();
        picture.InitGraphData(at.x(), at.y());
        break;
    }
    case 4:
        replace(picture.m_pPicture, bytes);
        break;
    case 5:
        picture.InitPicture(QStringLiteral("/no/such/file"));
        break;
    default:
        picture.m_nImageWidth = bytes.integer();
        picture.m_nImageHeight = bytes.integer();
    }
}

void meddle(CInkText &text, QPainter & /*painter*/, Bytes &bytes)
{
    switch (bytes.below(6)) {
    case 0: {
        QByteArray file = bytes.imageFile();
        text.SetTextImage(bytes.flag() ? file.data() : nullptr, file.size());
        break;
    }
    case 1: {
        QImage image = bytes.image();
        text.SetTextImage(bytes.flag() ? &image : text.GetTextImage());
        break;
    }
    case 2:
        text.m_rcText = bytes.rect();
        text.m_rcImage = bytes.rect();
        break;
    case 3:
        text.m_rcMoveTab = bytes.rect();
        break;
    case 4:
        text.m_rcStretchCorner = bytes.rect();
        break;
    default:
        replace(text.m_pTextImage, bytes);
    }
}

template <typename Class>
void meddleAs(CInkGraph &graph, QPainter &painter, Bytes &bytes)
{
    meddle(static_cast<Class &>(graph), painter, bytes);
}

template <typename Class>
void meddleAsStencil(CInkGraph &graph, QPainter & /*painter*/, Bytes &bytes)
{
    meddleWithStencil(static_cast<Class &>(graph), bytes);
}

template <typename Class>
constexpr Tool plain()
{
    return {[](Bytes &) -> std::unique_ptr<CInkGraph> { return std::make_unique<Class>(); }, meddleAs<Class>};
}

template <typename Class>
constexpr Tool styled()
{
    return {[](Bytes &bytes) -> std::unique_ptr<CInkGraph> {
                if (bytes.flag())
                    return std::make_unique<Class>(penStyle(bytes));
                return std::make_unique<Class>();
            },
            meddleAs<Class>};
}

template <typename Class>
constexpr Tool stencil()
{
    return {styled<Class>().make, meddleAsStencil<Class>};
}

template <typename Class>
constexpr Tool onCanvas()
{
    return {[](Bytes &bytes) -> std::unique_ptr<CInkGraph> { return std::make_unique<Class>(bytes.canvasSize()); },
            meddleAs<Class>};
}

std::unique_ptr<CInkGraph> makeFlatBrush(Bytes &bytes)
{
    return std::make_unique<CInkFlatBrush>(bytes.real());
}

std::unique_ptr<CInkGraph> makeHighLightPen(Bytes &bytes)
{
    return std::make_unique<CInkHighLightPen>(bytes.integer());
}

std::unique_ptr<CInkGraph> makeCurve(Bytes &bytes)
{
    const Qt::PenCapStyle begin = capStyle(bytes);
    const Qt::PenCapStyle end = capStyle(bytes);
    return std::make_unique<CInkBeZier>(begin, end, penStyle(bytes));
}

std::unique_ptr<CInkGraph> makePicture(Bytes &bytes)
{
    const QPoint at = bytes.point();
    switch (bytes.below(4)) {
    case 0:
        return std::make_unique<CInkPicTure>(QString(), at);
    case 1:
        return std::make_unique<CInkPicTure>(static_cast<QImage *>(nullptr), at);
    case 2: {
        QByteArray file = bytes.imageFile();
        return std::make_unique<CInkPicTure>(file.data(), file.size(), at);
    }
    default:
        QImage image = bytes.image();
        return std::make_unique<CInkPicTure>(&image, at);
    }
}

constexpr Tool kTools[] = {
    plain<CInkPencil>(),
    plain<CInkBrush>(),
    plain<CInkFlatBrush>(),
    {makeFlatBrush, meddleAs<CInkFlatBrush>},
    plain<CInkHighLightPen>(),
    {makeHighLightPen, meddleAs<CInkHighLightPen>},
    onCanvas<CInkColorBrush>(),
    onCanvas<CInkCrayon>(),
    onCanvas<CInkWaterColorPen>(),
    onCanvas<CInkSprayGun>(),
    plain<CInkEraser>(),
    plain<CInkFloodFill>(),
    onCanvas<CInkFloodFill>(),
    onCanvas<CInkFloodFillEx>(),
    plain<CInkRgnSelect>(),
    {makePicture, meddleAs<CInkPicTure>},
    plain<CInkText>(),
    plain<CInkLine>(),
    plain<CInk1ArrowLine>(),
    styled<CInkRectangle>(),
    styled<CInkRoundRect>(),
    styled<CInkEllipse>(),
    styled<CInkITriangle>(),
    styled<CInkLTriangle>(),
    styled<CInkDiamond>(),
    plain<CInkPolygon>(),
    {makeCurve, meddleAs<CInkBeZier>},
    stencil<CInk4Stars>(),
    stencil<CInk5Side>(),
    stencil<CInk5Stars>(),
    stencil<CInk6Side>(),
    stencil<CInk6Stars>(),
    stencil<CInkBoom1>(),
    stencil<CInkBoom2>(),
    stencil<CInkCloudLabel>(),
    stencil<CInkDownArrow>(),
    stencil<CInkEllipseLabel>(),
    stencil<CInkErro>(),
    stencil<_H>(),
    stencil<CInkLighting>(),
    stencil<CInkLove>(),
    stencil<CInkRight>(),
    stencil<CInkRightArrow>(),
    stencil<CInkRoundRectLabel>(),
    stencil<CInkUpArrow>(),
};

} // namespace

const Tool &chooseTool(Bytes &bytes)
{
    return kTools[bytes.below(int(std::size(kTools)))];
}

} // namespace Fuzz
