#include "CInkText.h"

#include "core/geometry_p.h"
#include "core/painting_p.h"

#include <QtGui/QImage>

#include <memory>

using namespace InkInternal;

namespace {

constexpr float kAbandonDistance = 2.0f; // canvas pixels; a drag of exactly this length is still too short
constexpr int kFewestWidth = 120;        // of a frame at its release, canvas pixels
constexpr int kFewestHeight = 90;
constexpr int kNarrowest = 56; // of a frame that is stretched
constexpr int kLowest = 61;
constexpr int kUpdateMargin = 10;
constexpr int kImageInset = 5; // of the image in m_rcImage
constexpr int kTabRise = 22;   // the tab reaches this far below the frame
constexpr int kCorner = 16;    // side of the stretch corner
constexpr QRgb kHandleColor = 0xFF344B84;

// Lays image, tab and corner out around the frame in m_rcHot.
void layOut(CInkText &text)
{
    const QRect &frame = text.m_rcHot;
    const qint64 center = frame.center().x();
    const qint64 left = frame.left(), top = frame.top(), right = frame.right(), bottom = frame.bottom();
    text.m_rcImage = edges(left, top, right, bottom - kCorner);
    text.m_rcMoveTab = edges(center - 22, bottom, center + 22, bottom + 23);
    text.m_rcStretchCorner = edges(right - kCorner, bottom - kCorner, right - 1, bottom - 1);
}

void layOutWithTab(CInkText &text)
{
    layOut(text);
    const QRect &frame = text.m_rcHot;
    text.m_rcText = edges(frame.left(), frame.top(), frame.right(), qint64(frame.bottom()) + kTabRise);
}

QRect shifted(const QRect &rect, const QPoint &by)
{
    return edges(qint64(rect.left()) + by.x(), qint64(rect.top()) + by.y(), qint64(rect.right()) + by.x(),
                 qint64(rect.bottom()) + by.y());
}

// Widens a frame that was dragged too small, about its centre.
void widenToFewest(QPointF &first, QPointF &second)
{
    const QPoint corner = truncated(first);
    const QPoint size = truncated(second);
    // [ink-text-corner-as-size] The second corner is taken as width and height.
    const QRect frame = normalized(sized(corner.x(), corner.y(), size.x(), size.y()));
    const QPoint center = frame.center();
    if (qint64(frame.right()) - frame.left() < kFewestWidth) {
        first.setX(center.x() - kFewestWidth / 2.0);
        second.setX(center.x() + kFewestWidth / 2.0);
    }
    if (qint64(frame.bottom()) - frame.top() < kFewestHeight) {
        first.setY(center.y() - kFewestHeight / 2.0);
        second.setY(center.y() + kFewestHeight / 2.0);
    }
}

void commitWithImage(CInkText &text)
{
    text.m_nPointCount = 2;
    text.m_bEditMode = 1;
    commit(text);
}

// Three lines across the tab.
void paintTabLines(QPainter &painter, const QRect &tab)
{
    constexpr int kInset = 8;
    const qint64 quarter = height(tab) / 4;
    for (int i = 1; i <= 3; ++i) {
        const double y = double(tab.top() + i * quarter);
        painter.drawLine(QPointF(double(tab.left()) + kInset, y), QPointF(double(tab.right()) - kInset, y));
    }
}

// Ten dots, a triangle with its right angle at the bottom right.
void paintGrip(QPainter &painter, const QRect &corner)
{
    constexpr int kCell = 4;
    for (int row = 0; row < 4; ++row) {
        for (int column = row; column < 4; ++column) {
            const QRect cell = sized(qint64(corner.left()) + column * kCell,
                                     qint64(corner.bottom()) - (row + 1) * kCell, kCell, kCell);
            painter.fillRect(grown(cell, -1), QColor(kHandleColor));
        }
    }
}

} // namespace

CInkText::CInkText() = default;

CInkText::~CInkText()
{
    delete m_pTextImage;
}

void CInkText::Draw(QPainter &painter, QRect &rect)
{
    if (m_nPointCount <= 0)
        return;

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    painter.setClipRect(rect | GetUpdateRect(), Qt::ReplaceClip);

    const PainterStateScope scope(painter);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    if (!m_bFinished && !m_bEditMode && m_graphData.size() >= 2) {
        painter.setPen(QPen(Qt::black, 1.3, Qt::DashLine, Qt::SquareCap, Qt::RoundJoin));
        painter.drawRect(cornerBox(m_graphData.at(0), m_graphData.at(1)));
    } else if (showsHandles(*this)) {
        DrawHotShape(painter);
    } else if (m_bFinished && m_pTextImage && !m_pTextImage->isNull()) {
        const QPointF corner(double(m_rcImage.left()) + kImageInset, double(m_rcImage.top()) + kImageInset);
        paintImage(painter, QRectF(corner, QSizeF(m_pTextImage->size())), *m_pTextImage, QRectF(m_pTextImage->rect()));
    }
}

QRect CInkText::GetUpdateRect()
{
    QRect covered;
    const int count = m_graphData.size();
    if (m_bEditMode) {
        covered = grown(m_rcText, kUpdateMargin);
    } else if (m_nPointCount == 2 && count >= 2) {
        covered = grown(cornerBox(m_graphData.at(count - 2), m_graphData.at(count - 1)), kUpdateMargin);
    } else if (m_nPointCount == 1 && count >= 1) {
        const QPoint pressed = truncated(m_graphData.constFirst());
        covered = sized(qint64(pressed.x()) - kUpdateMargin, qint64(pressed.y()) - kUpdateMargin, 30, 30);
    }
    if (count == 0)
        return covered;
    // [ink-text-label-kept] Neither label nor icon is laid out here: only hidden ones are made null.
    if (!m_bShowDrawerIcon)
        m_rcIcon = QRect();
    if (!m_bShowDrawerName)
        m_rcName = QRect();
    return covered | m_rcIcon | m_rcName;
}

void CInkText::ResetHotData(QRect box)
{
    m_rcText = box;
    // [ink-text-frame-shrinks] 24 here, 22 in SetHotData: passed back and forth, a frame loses 2 pixels of height.
    m_rcHot = edges(box.left(), box.top(), box.right(), qint64(box.bottom()) - 24);
    layOut(*this);
}

void CInkText::AddPoint(int code, QPoint pt, QRect &update)
{
    if (m_bFinished)
        return;
    if (!m_bEditMode) {
        FormGraphData(code, pt, update);
        return;
    }

    const QRect before = GetUpdateRect();
    if (code == PT_DOWN && IsPtInModifyZone(pt)) {
        m_modifyType = DecideModiFyType(pt);
        if (m_modifyType == MT_MOVE)
            m_ptLast = widened(pt);
    } else if (code == PT_DOWN) {
        // [ink-text-outside] The host decides whether a press outside commits.
        m_bClickOutside = 1;
        m_modifyType = MT_NONE;
    } else if (code == PT_MOVE) {
        // [ink-text-release] The release does not modify once more.
        ModifyGraph(pt, ModifyType(m_modifyType));
    }
    update = update | (before | GetUpdateRect());
}

bool CInkText::IsPtInModifyZone(QPoint pt)
{
    return m_rcMoveTab.contains(pt) || m_rcStretchCorner.contains(pt);
}

ModifyType CInkText::DecideModiFyType(QPoint pt)
{
    if (m_rcMoveTab.contains(pt))
        return MT_MOVE;
    if (!m_rcStretchCorner.contains(pt))
        return MT_NONE;
    m_ptLast = widened(pt);
    return MT_RIGHT_BOTTOM;
}

void CInkText::StretchGraph(QPoint pt)
{
    const bool stretches = m_modifyType == MT_RIGHT_BOTTOM;
    const QPoint corner = stretches ? truncated(widened(pt)) : m_rcHot.bottomRight();
    // [ink-text-stretch-reference] The base's handle, which this class never sets: the points leave the frame.
    const QPointF reference = stretches ? m_hotPts[4] : QPointF();
    const qint64 newWidth = qint64(corner.x()) - m_rcHot.left();
    const qint64 newHeight = qint64(corner.y()) - m_rcHot.top();
    if (newWidth < kNarrowest || newHeight < kLowest || width(m_rcHot) == 0 || height(m_rcHot) == 0)
        return;

    const double sx = double(float(newWidth) / float(width(m_rcHot)));
    const double sy = double(float(newHeight) / float(height(m_rcHot)));
    for (QPointF &point : m_graphData)
        point = {(point.x() - reference.x()) * sx + reference.x(), (point.y() - reference.y()) * sy + reference.y()};
    m_rcHot = normalized(QRect(m_rcHot.topLeft(), corner));
    layOutWithTab(*this);
}

void CInkText::MoveGraph(float dx, float dy)
{
    CInkGraph::MoveGraph(dx, dy);
    const QPoint pixels = truncated(QPointF(double(dx), double(dy)));
    for (QRect *rect : {&m_rcText, &m_rcImage, &m_rcMoveTab, &m_rcStretchCorner})
        *rect = shifted(*rect, pixels);
}

void CInkText::SetHotData(int mx, int my)
{
    if (m_graphData.isEmpty())
        return;
    m_rcHot = grown(pixelBounds(m_graphData), mx, my);
    layOutWithTab(*this);
}

void CInkText::DrawHotShape(QPainter &painter)
{
    const PainterStateScope scope(painter);
    if (drawnByAnother(*this)) {
        painter.fillRect(m_rcHot, QColor(50, 50, 50, 60));
        DrawGraphIcon(painter);
        return;
    }
    painter.setPen(QPen(QColor(kHandleColor), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.drawRect(m_rcHot);
    painter.drawRect(m_rcMoveTab);
    paintTabLines(painter, m_rcMoveTab);
    paintGrip(painter, m_rcStretchCorner);
}

QRect CInkText::FormGraphData(int code, QPoint pt, QRect &update)
{
    const QRect before = GetUpdateRect();
    if (m_graphData.size() < 2)
        m_graphData.resize(2);
    QPointF &first = m_graphData[0];
    QPointF &second = m_graphData[1];
    if (code == PT_DOWN) {
        first = second = widened(pt);
        m_nPointCount = 1;
    } else if (m_nPointCount > 0) {
        second = widened(pt);
        m_nPointCount = 2;
        if (code == PT_UP) {
            if (CalcGapOfpoints(first, second) <= kAbandonDistance || first.x() == second.x() ||
                first.y() == second.y()) {
                commit(*this);
            } else {
                widenToFewest(first, second);
                m_bEditMode = 1;
                SetHotData(0, 0);
            }
        }
    }
    update = update | (before | GetUpdateRect());
    return update;
}

void CInkText::SetTextImage(void *data, int length)
{
    if (!data || m_pTextImage)
        return;
    commitWithImage(*this);
    m_pTextImage = ImageFromMem(data, length);
}

void CInkText::SetTextImage(QImage *image)
{
    if (!image)
        return;
    auto copy = std::make_unique<QImage>(*image); // before the old one is freed: it may be the same
    delete m_pTextImage;
    commitWithImage(*this);
    m_pTextImage = copy.release();
}

QImage *CInkText::GetTextImage()
{
    return m_pTextImage;
}
