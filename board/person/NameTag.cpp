#include "board/person/NameTag.h"

#include "board/look/Style.h"
#include "board/person/Settings.h"

#include "CInkGraph.h"

#include <QtCore/QBuffer>
#include <QtGui/QFontMetrics>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <utility>

namespace Board {

namespace {

constexpr int kIconSide = 30;    // page pixels, as the objects lay it out
constexpr double kTextSize = 14; // pixels of a plain screen
constexpr double kPadding = 0.5; // of the text's size, around the name
constexpr double kOpacity = 0.85;

QFont font(int size)
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(size);
    return font;
}

} // namespace

Drawer readDrawer()
{
    const Settings settings;
    Drawer drawer;
    drawer.name = settings.value(QStringLiteral("drawer/name")).toString().left(Drawer::kMaxName);
    drawer.icon.loadFromData(settings.value(QStringLiteral("drawer/icon")).toByteArray(), "PNG");
    drawer.isShown = settings.value(QStringLiteral("drawer/shown")).toBool();
    return drawer;
}

void keepDrawer(const Drawer &drawer)
{
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    drawer.icon.save(&png, "PNG");
    Settings settings;
    settings.setValue(QStringLiteral("drawer/name"), drawer.name);
    settings.setValue(QStringLiteral("drawer/icon"), png.data());
    settings.setValue(QStringLiteral("drawer/shown"), drawer.isShown);
}

QImage drawerIcon(const Drawer &drawer, int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QPainterPath disc;
    disc.addEllipse(image.rect());
    if (!drawer.icon.isNull()) {
        const QImage scaled =
            drawer.icon.scaled(image.size(), Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
        painter.setClipPath(disc);
        painter.drawImage((side - scaled.width()) / 2, (side - scaled.height()) / 2, scaled);
        return image;
    }
    painter.fillPath(disc, drawer.color.isValid() ? drawer.color : QColor(kAccentColor));
    painter.setPen(QColor(kAccentTextColor));
    painter.setFont(font(side * 3 / 5));
    painter.drawText(image.rect(), Qt::AlignCenter, drawer.name.left(1).toUpper());
    return image;
}

void NameTag::setDrawer(const Drawer &drawer)
{
    m_drawer = drawer;
    m_icon = drawerIcon(drawer, kIconSide);
    measure();
}

void NameTag::setDensity(double density)
{
    m_density = density;
    measure();
}

void NameTag::measure()
{
    m_textSize = qRound(kTextSize * m_density);
    const int padding = qRound(m_textSize * kPadding);
    const QFontMetrics metrics(font(m_textSize));
    // The icon is laid out around the same point: the text begins beside it.
    m_nameSize =
        QSize(kIconSide / 2 + metrics.horizontalAdvance(m_drawer.name) + 2 * padding, metrics.height() + padding);
}

void NameTag::sign(CInkGraph &object) const
{
    object.SetOwnerName(m_drawer.name);
    object.SetDrawerName(m_drawer.name);
    object.m_sizeName = m_nameSize;
}

// The object is asked to lay them out and then as before: what it reports for the page, and with that its clip, is the
// same with and without a name.
QRect NameTag::follow(CInkGraph *object)
{
    const QRect before = std::exchange(m_nameArea, QRect()) | std::exchange(m_iconArea, QRect());
    if (!object || !m_drawer.isShown || m_drawer.name.isEmpty())
        return before;
    object->m_sizeName = m_nameSize;
    object->ShowDrawerName(1);
    object->ShowDrawerIcon(1);
    object->GetUpdateRect();
    // The sizes may be reported larger than they are; the corners are right.
    if (!object->m_rcName.isEmpty())
        m_nameArea = QRect(object->m_rcName.topLeft(), m_nameSize);
    if (!object->m_rcIcon.isEmpty())
        m_iconArea = QRect(object->m_rcIcon.topLeft(), m_icon.size());
    object->ShowDrawerName(0);
    object->ShowDrawerIcon(0);
    object->m_rcName = QRect(); // kept in some states otherwise
    object->m_rcIcon = QRect();
    object->GetUpdateRect();
    return before | m_nameArea | m_iconArea;
}

void NameTag::paint(QPainter &painter) const
{
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setOpacity(kOpacity);
    if (!m_nameArea.isEmpty()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_drawer.color.isValid() ? m_drawer.color : QColor(kTextColor));
        painter.drawRoundedRect(m_nameArea, m_nameArea.height() / 2.0, m_nameArea.height() / 2.0);
        painter.setPen(QColor(kAccentTextColor));
        painter.setFont(font(m_textSize));
        painter.drawText(m_nameArea.adjusted(kIconSide / 2 + qRound(m_textSize * kPadding), 0, 0, 0),
                         Qt::AlignVCenter | Qt::AlignLeft, m_drawer.name);
    }
    if (!m_iconArea.isEmpty())
        painter.drawImage(m_iconArea.topLeft(), m_icon);
    painter.restore();
}

} // namespace Board
