#include "Storage.h"

#include <CInkColorBrush>
#include <CInkCrayon>
#include <CInkFlatBrush>
#include <CInkFloodFill>
#include <CInkHighLightPen>
#include <CInkLine>
#include <CInkPicTure>
#include <CInkPolygon>
#include <CInkSignGraph>
#include <CInkSprayGun>
#include <CInkText>
#include <CInkWaterColorPen>

#include <QtCore/QDataStream>
#include <QtGui/QImage>

namespace Guide {

namespace {

//! [fields]
// Hands all fields to `visit`, one after the other. Saving and loading differ in `visit` alone.
template <typename Visit>
void visitFields(CInkGraph &object, const Visit &visit)
{
    visit(object.m_nWidth, object.m_nPointCount, object.m_color, object.m_graphData);
    visit(object.m_modifyType, object.m_bFinished, object.m_bEditMode, object.m_bHideHotShape);
    visit(object.m_rcHot, object.m_fRotateAngle, object.m_ptCenter, object.m_ptLast);
    for (QPointF &handle : object.m_hotPts)
        visit(handle);
    visit(object.m_pImage, object.m_nDrawnCount); // pixels that have been rendered already, and from how many points

    if (auto *line = dynamic_cast<CInkLine *>(&object))
        visit(line->m_nCapStyle, line->m_nPenStyle, line->m_nHotRadius, line->m_rcRegion);
    if (auto *box = dynamic_cast<CInkRectangle *>(&object))
        visit(box->m_penStyle); // of the diamond and what else derives from it
    if (auto *polygon = dynamic_cast<CInkPolygon *>(&object))
        visit(polygon->m_bFinishOnRelease);
    if (auto *stencil = dynamic_cast<CInkSignGraph *>(&object))
        visit(stencil->m_nOutlinePointCount, stencil->m_penStyle, stencil->m_previewData);
    if (auto *marker = dynamic_cast<CInkHighLightPen *>(&object))
        visit(marker->m_nAlpha);
    if (auto *nib = dynamic_cast<CInkFlatBrush *>(&object))
        visit(nib->m_fNibAngle);
    if (auto *brush = dynamic_cast<CInkColorBrush *>(&object))
        visit(brush->m_ptPrevPoint, brush->m_rcCanvas);
    if (auto *crayon = dynamic_cast<CInkCrayon *>(&object))
        visit(crayon->m_ptPrevPoint, crayon->m_rcCanvas);
    if (auto *wash = dynamic_cast<CInkWaterColorPen *>(&object))
        visit(wash->m_ptPrevPoint, wash->m_rcCanvas);
    if (auto *spray = dynamic_cast<CInkSprayGun *>(&object))
        visit(spray->m_rcDirty, spray->m_rcCanvas);
    if (auto *fill = dynamic_cast<CInkFloodFill *>(&object))
        visit(fill->m_rcFillBounds, fill->m_rcCanvas, fill->m_bFilled);
    if (auto *picture = dynamic_cast<CInkPicTure *>(&object))
        visit(picture->m_pPicture, picture->m_nImageWidth, picture->m_nImageHeight);
    if (auto *text = dynamic_cast<CInkText *>(&object)) {
        visit(text->m_rcText, text->m_rcImage, text->m_rcMoveTab, text->m_rcStretchCorner);
        visit(text->m_bClickOutside, text->m_strText, text->m_pTextImage);
    }
}
//! [fields]

//! [stream]
template <typename Field>
void write(QDataStream &out, const Field &field)
{
    out << field;
}

void write(QDataStream &out, QImage *const &image)
{
    out << (image ? *image : QImage()); // as PNG
}

template <typename Field>
void read(QDataStream &in, Field &field)
{
    in >> field;
}

void read(QDataStream &in, QImage *&image)
{
    QImage stored;
    in >> stored;
    delete image; // the object owns it
    image = stored.isNull() ? nullptr : new QImage(stored);
}
//! [stream]

} // namespace

//! [save]
void save(QDataStream &out, const CInkGraph &object)
{
    visitFields(const_cast<CInkGraph &>(object), [&](const auto &...fields) { (write(out, fields), ...); });
}

void load(QDataStream &in, CInkGraph &object)
{
    visitFields(object, [&](auto &...fields) { (read(in, fields), ...); });
}
//! [save]

} // namespace Guide
