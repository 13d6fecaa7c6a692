#include "CInkGraph.h"

#include "decode_p.h"
#include "geometry_p.h"

#include <QtCore/QBuffer>
#include <QtGui/QImage>

#include <algorithm>
#include <cmath>

using namespace InkInternal;

namespace {

void storeName(ushort (&field)[32], const QString &name)
{
    // [ink-name-cut] A name of 32 units or more fills the field and has no terminator.
    const int length = std::min(name.size(), 32);
    const ushort *units = name.utf16();
    std::fill(std::copy(units, units + length, field), field + 32, ushort(0));
}

} // namespace

CInkWidthCache::~CInkWidthCache() = default;

CInkGraph::CInkGraph() = default;

CInkGraph::~CInkGraph()
{
    delete m_pImage;
    m_pImage = nullptr;
    // [ink-width-cache-kept] m_pWidthCache is freed by the tool that fills it, never here.
}

void CInkGraph::Draw(QPainter &p1, QPainter &p2, QPainter & /*p3*/, QPainter &p4, QRect rc, int /*reserved*/, int skip)
{
    if (skip)
        return;

    const auto paintOn = [this, rc](QPainter &painter) {
        QRect area = rc; // a tool may change its own
        Draw(painter, area);
    };
    paintOn(p2);
    if (m_bFinished) {
        paintOn(p4);
        paintOn(p1);
        return;
    }

    if (m_bShowDrawerName && m_graphData.size() > 1)
        DrawStudentName(p2);
    if (m_bShowDrawerIcon && !m_bEditMode)
        DrawGraphIcon(p2);
}

void CInkGraph::Draw(QPainter & /*painter*/, QRect & /*rect*/) {}

void CInkGraph::SetCanvasSize(QSize /*size*/) {}

void CInkGraph::SetWidth(int width)
{
    m_nWidth = width;
}

void CInkGraph::SetColor(QColor color)
{
    // Equality of HSL and float colours is fuzzy: an almost equal one keeps the colour that is there.
    if (m_color != color)
        m_color = color;
}

int CInkGraph::GetPointCount()
{
    return m_graphData.size();
}

ModifyType CInkGraph::GetModifyType()
{
    return ModifyType(m_modifyType);
}

void CInkGraph::SetOwnerName(QString name)
{
    storeName(m_szOwnerName, name);
}

void CInkGraph::SetDrawerName(QString name)
{
    storeName(m_szDrawerName, name);
}

void CInkGraph::SetOwnerIP(unsigned int ip)
{
    m_nOwnerIP = ip;
}

void CInkGraph::SetDrawerIP(unsigned int ip)
{
    m_nDrawerIP = ip;
}

void CInkGraph::ShowDrawerName(int show)
{
    m_bShowDrawerName = show;
}

void CInkGraph::ShowDrawerIcon(int show)
{
    m_bShowDrawerIcon = show;
}

int CInkGraph::IsSparePoint()
{
    return m_bSparePoint;
}

float CInkGraph::GetRotateAngle()
{
    return m_fRotateAngle;
}

void CInkGraph::DrawStudentName(QPainter & /*painter*/) {}

void CInkGraph::DrawGraphIcon(QPainter & /*painter*/) {}

float CInkGraph::CalcGapOfpoints(QPointF a, QPointF b)
{
    const float dx = float(a.x() - b.x());
    const float dy = float(a.y() - b.y());
    return sqrtf(dx * dx + dy * dy);
}

float CInkGraph::CalcGapOfpoints(QPoint a, QPoint b)
{
    return CalcGapOfpoints(widened(a), widened(b));
}

QImage *CInkGraph::ImageFromMem(void *data, int len)
{
    if (!data || len <= 0)
        return new QImage;
    QBuffer buffer;
    buffer.setData(QByteArray::fromRawData(static_cast<const char *>(data), len));
    buffer.open(QIODevice::ReadOnly);
    return new QImage(decoded(&buffer));
}
