#include "board/screen/ScreenPage.h"

#include "lesson/layers/StateMark.h"

#include "CInkGraph.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtGui/QWindow>

namespace Board {

ScreenPage::ScreenPage(Document &document, QScreen &screen)
    : Canvas(document)
    , m_document(document)
{
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setWindowTitle(tr("Ink on the screen"));
    setAttribute(Qt::WA_TranslucentBackground);
    setAcceptDrops(false);
    // What lies below cannot be zoomed.
    connect(&navigator(), &Navigator::moved, this, [this] {
        if (view().zoom() != 1)
            navigator().zoomToOne();
    });
    winId(); // makes the window, which is told its screen
    windowHandle()->setScreen(&screen);
    setGeometry(screen.geometry());
    setWindowState(Qt::WindowFullScreen);
}

void ScreenPage::choose(const Tool &tool)
{
    setTool(tool);
    m_erases = tool.erases;
}

void ScreenPage::setBackdrop(const QImage &picture)
{
    m_backdrop = picture.scaled(page().rect().size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    update();
}

void ScreenPage::letClicksThrough(bool lets)
{
    windowHandle()->setFlag(Qt::WindowTransparentForInput, lets);
}

// The layers of a page are opaque but for the ink, which has only what is committed.
QImage ScreenPage::inkWithin(const QRect &area)
{
    QImage ink = page().ink().copy(area);
    CInkGraph *object = m_document.author().object();
    if (!object)
        return ink;
    QPainter painter(&ink);
    painter.setWindow(area); // below the transform, which the object sets itself
    if (m_erases)
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    const InkLesson::StateMark mark(painter);
    QRect drawn = area;
    object->Draw(painter, drawn);
    return ink;
}

void ScreenPage::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.setTransform(view().transform(), true);
    for (const QRect &part : event->region()) {
        const QRectF seen(view().toPage(part.topLeft()),
                          view().toPage(part.topLeft() + QPoint(part.width(), part.height())));
        const QRect area = seen.toAlignedRect() & page().rect();
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        if (m_backdrop.isNull())
            painter.fillRect(area, Qt::transparent);
        else
            painter.drawImage(area.topLeft(), m_backdrop, area);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.drawImage(area.topLeft(), inkWithin(area));
    }
    paintLaser(painter);
}

} // namespace Board
