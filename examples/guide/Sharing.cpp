#include "Sharing.h"

#include <QtCore/QBuffer>
#include <QtGui/QPainter>

namespace Guide {

//! [people]
void setPeople(CInkGraph &object, const Person &drawer, const Person &here)
{
    object.SetDrawerIP(drawer.address);
    object.SetDrawerName(drawer.name);
    object.SetOwnerIP(here.address);
    object.SetOwnerName(here.name);
    object.ShowDrawerName(drawer.address != here.address);
    object.m_sizeName = QSize(80, 20);
}
//! [people]

//! [label]
void paintLabel(QPainter &painter, CInkGraph &object)
{
    object.GetUpdateRect(); // lays the label out
    if (!object.m_bShowDrawerName || object.m_bFinished || object.m_graphData.size() < 2)
        return;
    const QRect label(object.m_rcName.topLeft(), object.m_sizeName);
    int length = 0;
    while (length < 32 && object.m_szDrawerName[length] != 0)
        ++length; // 32 units have no terminator
    const QString name = QString::fromUtf16(object.m_szDrawerName, length);
    painter.fillRect(label, Qt::white);
    painter.drawText(label, Qt::AlignCenter, name);
}
//! [label]

//! [waiting]
void showWaiting(Layers &layers, CInkGraph &object)
{
    Layers copies = layers; // its Draw paints on page and ink as well, which are to stay as they are
    copies.draw(object, copies.rect());
    layers.surface = copies.surface;
}
//! [waiting]

//! [compute]
QByteArray computedFill(CInkFloodFillEx &fill, const Layers &layers)
{
    Layers copies = layers; // this Draw fills the page and nothing else, and the page is to stay as it is
    copies.draw(fill, copies.rect());
    const QImage *bitmap = fill.GetBitmap(); // stays the object's
    if (!bitmap || !fill.m_bFilled)
        return {};
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    bitmap->save(&buffer, "PNG"); // lossless, and with alpha
    return bytes;
}
//! [compute]

} // namespace Guide
