// Hosts read and set public fields: their offsets are part of the binary interface. Offsets are bytes on x86-64.

#include "CInk1ArrowLine.h"
#include "CInkBeZier.h"
#include "CInkBrush.h"
#include "CInkColorBrush.h"
#include "CInkCrayon.h"
#include "CInkDiamond.h"
#include "CInkEllipse.h"
#include "CInkEraser.h"
#include "CInkErro.h"
#include "CInkFlatBrush.h"
#include "CInkFloodFill.h"
#include "CInkFloodFillEx.h"
#include "CInkHighLightPen.h"
#include "CInkITriangle.h"
#include "CInkLTriangle.h"
#include "CInkPencil.h"
#include "CInkPicTure.h"
#include "CInkPolygon.h"
#include "CInkRgnSelect.h"
#include "CInkRoundRect.h"
#include "CInkSprayGun.h"
#include "CInkText.h"
#include "CInkWaterColorPen.h"

#include <gtest/gtest.h>

namespace {

template <typename Object, typename Field>
std::ptrdiff_t offset(const Object &object, const Field &field)
{
    return reinterpret_cast<const char *>(&field) - reinterpret_cast<const char *>(&object);
}

} // namespace

TEST(FieldOrder, graph)
{
    const CInkPencil pencil;
    const CInkGraph &graph = pencil;
    EXPECT_EQ(offset(graph, graph.m_nWidth), 8);
    EXPECT_EQ(offset(graph, graph.m_nPointCount), 12);
    EXPECT_EQ(offset(graph, graph.m_color), 16);
    EXPECT_EQ(offset(graph, graph.m_graphData), 32);
    EXPECT_EQ(offset(graph, graph.m_modifyType), 40);
    EXPECT_EQ(offset(graph, graph.m_bFinished), 44);
    EXPECT_EQ(offset(graph, graph.m_bEditMode), 48);
    EXPECT_EQ(offset(graph, graph.m_hotPts), 56);
    EXPECT_EQ(offset(graph, graph.m_hotPts[8]), 184);
    EXPECT_EQ(offset(graph, graph.m_rcHot), 200);
    EXPECT_EQ(offset(graph, graph.m_fRotateAngle), 216);
    EXPECT_EQ(offset(graph, graph.m_ptCenter), 224);
    EXPECT_EQ(offset(graph, graph.m_ptLast), 240);
    EXPECT_EQ(offset(graph, graph.m_pImage), 256);
    EXPECT_EQ(offset(graph, graph.m_nDrawnCount), 264);
    EXPECT_EQ(offset(graph, graph.m_rcName), 268);
    EXPECT_EQ(offset(graph, graph.m_rcIcon), 284);
    EXPECT_EQ(offset(graph, graph.m_sizeName), 300);
    EXPECT_EQ(offset(graph, graph.m_pWidthCache), 312);
    EXPECT_EQ(offset(graph, graph.m_bShowDrawerName), 320);
    EXPECT_EQ(offset(graph, graph.m_bShowDrawerIcon), 324);
    EXPECT_EQ(offset(graph, graph.m_bSparePoint), 328);
    EXPECT_EQ(offset(graph, graph.m_bHideHotShape), 332);
    EXPECT_EQ(offset(graph, graph.m_nOwnerIP), 336);
    EXPECT_EQ(offset(graph, graph.m_nDrawerIP), 340);
    EXPECT_EQ(offset(graph, graph.m_szOwnerName), 344);
    EXPECT_EQ(offset(graph, graph.m_szDrawerName), 408);
    EXPECT_EQ(sizeof(CInkGraph), 472u);
}

TEST(FieldOrder, pens)
{
    const CInkPencil pencil;
    EXPECT_EQ(sizeof(CInkPenGraph), 472u);
    EXPECT_EQ(offset(pencil, pencil.m_nPenParam), 472);
    EXPECT_EQ(offset(pencil, pencil.m_nCapStyle), 476);
    EXPECT_EQ(offset(pencil, pencil.m_nPenStyle), 480);
    EXPECT_EQ(sizeof(CInkPencil), 488u);
}

TEST(FieldOrder, vectorPens)
{
    const CInkBrush brush;
    EXPECT_EQ(offset(brush, brush.m_nPenParam), 472);
    EXPECT_EQ(offset(brush, brush.m_nCapStyle), 476);
    EXPECT_EQ(offset(brush, brush.m_nPenStyle), 480);
    EXPECT_EQ(sizeof(CInkBrush), 488u);
    const CInkFlatBrush flat;
    EXPECT_EQ(offset(flat, flat.m_fNibAngle), 472);
    EXPECT_EQ(sizeof(CInkFlatBrush), 480u);
    const CInkHighLightPen marker;
    EXPECT_EQ(offset(marker, marker.m_nAlpha), 472);
    EXPECT_EQ(sizeof(CInkHighLightPen), 480u);
}

TEST(FieldOrder, texturedPens)
{
    const CInkColorBrush brush({10, 10});
    EXPECT_EQ(offset(brush, brush.m_ptPrevPoint), 472);
    EXPECT_EQ(offset(brush, brush.m_rcCanvas), 488);
    EXPECT_EQ(sizeof(CInkColorBrush), 504u);
    const CInkCrayon crayon({10, 10});
    EXPECT_EQ(offset(crayon, crayon.m_ptPrevPoint), 472);
    EXPECT_EQ(offset(crayon, crayon.m_rcCanvas), 488);
    EXPECT_EQ(sizeof(CInkCrayon), 504u);
    const CInkWaterColorPen water({10, 10});
    EXPECT_EQ(offset(water, water.m_ptPrevPoint), 472);
    EXPECT_EQ(offset(water, water.m_rcCanvas), 488);
    EXPECT_EQ(sizeof(CInkWaterColorPen), 504u);
}

TEST(FieldOrder, sprayGunAndEraser)
{
    const CInkSprayGun spray({10, 10});
    EXPECT_EQ(offset(spray, spray.m_rcDirty), 472);
    EXPECT_EQ(offset(spray, spray.m_rcCanvas), 488);
    EXPECT_EQ(sizeof(CInkSprayGun), 504u);
    const CInkEraser eraser;
    EXPECT_EQ(offset(eraser, eraser.m_pEraseBrush), 488);
    EXPECT_EQ(offset(eraser, eraser.m_pErasePen), 496);
    EXPECT_EQ(sizeof(CInkEraser), 504u);
}

TEST(FieldOrder, lines)
{
    const CInkLine line;
    EXPECT_EQ(offset(line, line.m_nCapStyle), 472);
    EXPECT_EQ(offset(line, line.m_nPenStyle), 476);
    EXPECT_EQ(offset(line, line.m_nHotRadius), 480);
    EXPECT_EQ(offset(line, line.m_rcRegion), 484);
    EXPECT_EQ(sizeof(CInkLine), 504u);
    EXPECT_EQ(sizeof(CInk1ArrowLine), 504u);
}

TEST(FieldOrder, boxes)
{
    const CInkRectangle box;
    EXPECT_EQ(offset(box, box.m_penStyle), 472);
    EXPECT_EQ(sizeof(CInkRectangle), 480u);
    EXPECT_EQ(sizeof(CInkRoundRect), 480u);
}

TEST(FieldOrder, ellipse)
{
    const CInkEllipse ellipse;
    EXPECT_EQ(offset(ellipse, ellipse.m_penStyle), 472);
    EXPECT_EQ(sizeof(CInkEllipse), 480u);
}

TEST(FieldOrder, stencils)
{
    const CInkErro stencil;
    EXPECT_EQ(offset(stencil, stencil.m_nOutlinePointCount), 472);
    EXPECT_EQ(offset(stencil, stencil.m_penStyle), 476);
    EXPECT_EQ(offset(stencil, stencil.m_previewData), 480);
    EXPECT_EQ(sizeof(CInkSignGraph), 488u);
    EXPECT_EQ(sizeof(CInkErro), 488u);
}

TEST(FieldOrder, shapesOnTheBox)
{
    const CInkPolygon polygon;
    const CInkBeZier curve(Qt::FlatCap, Qt::RoundCap, Qt::SolidLine);
    EXPECT_EQ(offset(polygon, polygon.m_bFinishOnRelease), 476);
    EXPECT_EQ(sizeof(CInkPolygon), 480u);
    EXPECT_EQ(offset(curve, curve.m_capStyleBegin), 476);
    EXPECT_EQ(offset(curve, curve.m_capStyleEnd), 480);
    EXPECT_EQ(sizeof(CInkBeZier), 488u);
    EXPECT_EQ(sizeof(CInkITriangle), 480u);
    EXPECT_EQ(sizeof(CInkLTriangle), 480u);
    EXPECT_EQ(sizeof(CInkDiamond), 480u);
}

TEST(FieldOrder, fills)
{
    const CInkFloodFill fill;
    EXPECT_EQ(offset(fill, fill.m_rcFillBounds), 472);
    EXPECT_EQ(offset(fill, fill.m_rcCanvas), 488);
    EXPECT_EQ(offset(fill, fill.m_bFilled), 504);
    EXPECT_EQ(sizeof(CInkFloodFill), 512u);
    const CInkFloodFillEx shared({10, 10});
    EXPECT_EQ(offset(shared, shared.m_bBitmapGetted), 508);
    EXPECT_EQ(offset(shared, shared.m_pLocalBitmap), 512);
    EXPECT_EQ(sizeof(CInkFloodFillEx), 520u);
}

TEST(FieldOrder, imagesOnTheBox)
{
    const CInkRgnSelect select;
    EXPECT_EQ(offset(select, select.m_selColor), 476);
    EXPECT_EQ(sizeof(CInkRgnSelect), 496u);
    const CInkPicTure picture(QString(), {0, 0});
    EXPECT_EQ(offset(picture, picture.m_pPicture), 480);
    EXPECT_EQ(offset(picture, picture.m_nImageWidth), 488);
    EXPECT_EQ(offset(picture, picture.m_nImageHeight), 492);
    EXPECT_EQ(sizeof(CInkPicTure), 496u);
    const CInkText text;
    EXPECT_EQ(offset(text, text.m_rcText), 476);
    EXPECT_EQ(offset(text, text.m_rcImage), 492);
    EXPECT_EQ(offset(text, text.m_rcMoveTab), 508);
    EXPECT_EQ(offset(text, text.m_rcStretchCorner), 524);
    EXPECT_EQ(offset(text, text.m_bClickOutside), 540);
    EXPECT_EQ(offset(text, text.m_strText), 544);
    EXPECT_EQ(offset(text, text.m_pTextImage), 552);
    EXPECT_EQ(sizeof(CInkText), 560u);
}

TEST(FieldOrder, flagsAreInts)
{
    CInkPencil pencil;
    for (int *flag : {&pencil.m_bFinished, &pencil.m_bEditMode, &pencil.m_bShowDrawerName, &pencil.m_bShowDrawerIcon,
                      &pencil.m_bSparePoint, &pencil.m_bHideHotShape, &pencil.m_modifyType})
        EXPECT_EQ(sizeof(*flag), 4u);
}
