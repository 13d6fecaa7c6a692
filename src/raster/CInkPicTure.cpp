#include "CInkPicTure.h"

#include "core/debug_p.h"
#include "core/decode_p.h"
#include "core/geometry_p.h"
#include "core/painting_p.h"

#include <QtCore/QDebug>
#include <QtCore/QFile>
#include <QtGui/QImage>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDesktopWidget>

#include <memory>

using namespace InkInternal;

namespace {

constexpr int kUpdateMargin = 10; // canvas pixels around what a box of this size covers

QImage imageAt(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? decoded(&file) : QImage();
}

// Null without an application object.
QRect availableScreen()
{
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return {};
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    return QApplication::desktop()->availableGeometry(-1);
    QT_WARNING_POP
}

} // namespace

CInkPicTure::CInkPicTure(QString path, QPoint pos)
{
    m_nPointCount = 2;
    InitPicture(path);
    InitGraphData(pos.x(), pos.y());
}

CInkPicTure::CInkPicTure(void *data, int length, QPoint pos)
{
    m_nPointCount = 2;
    InitPicture(data, length);
    InitGraphData(pos.x(), pos.y());
}

CInkPicTure::CInkPicTure(QImage *image, QPoint pos)
{
    m_nPointCount = 2;
    InitPicture(image);
    InitGraphData(pos.x(), pos.y());
}

CInkPicTure::~CInkPicTure()
{
    delete m_pPicture;
}

void CInkPicTure::Draw(QPainter &painter, QRect &rect)
{
    if (m_nPointCount <= 0)
        return;

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    painter.setClipRect(clipUnlessFormed(*this, rect), Qt::ReplaceClip);
    if (!m_pPicture || m_pPicture->isNull())
        return;

    const PainterStateScope scope(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    // [ink-world-replaced] A transform of the host's is not seen by the image; the clip has been set in it.
    painter.setWorldTransform(objectFrame(*this));
    // [ink-picture-one-short] One pixel narrower and lower than the box.
    const QRectF target = real(m_rcHot).adjusted(0, 0, -1, -1);
    const QRectF source(m_pPicture->rect());
    if (writesDebugLines())
        qDebug() << "CINKPicture" << target << source;
    paintImage(painter, target, *m_pPicture, source);
    if (!m_bFinished && !m_bHideHotShape)
        DrawHotShape(painter);
}

bool CInkPicTure::FinishGraph()
{
    if (m_nPointCount < 1)
        return false;
    commit(*this);
    SetHotData(0, 0);
    return true;
}

QRect CInkPicTure::GetUpdateRect()
{
    if (!m_bEditMode)
        return availableScreen();
    const QRect covered = grown(CInkRectangle::GetUpdateRect(), kUpdateMargin);
    m_rcName = m_bShowDrawerName ? sized(m_rcHot.topLeft(), m_sizeName) : QRect();
    return covered | m_rcName;
}

void CInkPicTure::InitPicture(void *data, int length)
{
    if (data && !m_pPicture) {
        std::unique_ptr<QImage> image(ImageFromMem(data, length));
        if (!image->isNull()) {
            m_pPicture = image.release();
            m_nImageWidth = m_pPicture->width();
            m_nImageHeight = m_pPicture->height();
            return;
        }
    }
    commit(*this);
}

void CInkPicTure::InitPicture(QString path)
{
    delete m_pPicture;
    m_pPicture = new QImage(imageAt(path));
    m_nImageWidth = m_pPicture->width();
    m_nImageHeight = m_pPicture->height();
}

void CInkPicTure::InitPicture(QImage *image)
{
    const QImage copy = image ? *image : QImage(); // before the old one is freed: it may be the same
    delete m_pPicture;
    m_pPicture = new QImage(copy);
    if (!image)
        commit(*this);
    m_nImageWidth = m_pPicture->width();
    m_nImageHeight = m_pPicture->height();
}

void CInkPicTure::InitGraphData(int x, int y)
{
    m_graphData.resize(2);
    m_graphData[0] = widened(QPoint(x, y));
    m_graphData[1] = {double(float(x) + float(m_nImageWidth)), double(float(y) + float(m_nImageHeight))};
    m_bEditMode = 1;
    SetHotData(0, 0);
}

void CInkPicTure::InitGraphData(QPoint center)
{
    InitGraphData(saturated(qint64(center.x()) - m_nImageWidth / 2),
                  saturated(qint64(center.y()) - m_nImageHeight / 2));
}
