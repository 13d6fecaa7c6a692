#include "board/invite/QrCode.h"

#include <QtGui/QPainter>

#include <qrencode.h>

#include <algorithm>
#include <memory>

namespace Board {

namespace {

constexpr int kQuiet = 4;       // modules
constexpr int kLeastSide = 200; // a camera finds it across a table
constexpr int kSide = 340;

struct Free
{
    void operator()(QRcode *code) const { QRcode_free(code); }
};

} // namespace

QImage qrModules(const QString &text)
{
    // A quarter of the levels that may be damaged: enough for a reflection, and larger modules than more would leave.
    const std::unique_ptr<QRcode, Free> code(
        text.isEmpty() ? nullptr : QRcode_encodeString8bit(text.toUtf8().constData(), 0, QR_ECLEVEL_M));
    if (!code)
        return {};
    QImage modules(code->width + 2 * kQuiet, code->width + 2 * kQuiet, QImage::Format_RGB32);
    modules.fill(Qt::white);
    for (int y = 0; y < code->width; ++y) {
        for (int x = 0; x < code->width; ++x) {
            if (code->data[y * code->width + x] & 1U) // which of the bits says black
                modules.setPixel(x + kQuiet, y + kQuiet, 0xFF000000U);
        }
    }
    return modules;
}

QrCode::QrCode(QWidget *parent)
    : QWidget(parent)
{
    setMinimumSize(kLeastSide, kLeastSide);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(tr("QR code of the link"));
}

void QrCode::setText(const QString &text)
{
    m_modules = qrModules(text);
    update();
}

QSize QrCode::sizeHint() const
{
    return {kSide, kSide};
}

// In pixels of the screen, so that no edge lies between two.
void QrCode::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const QRect area = painter.deviceTransform().mapRect(QRectF(rect())).toAlignedRect();
    const int module = std::min(area.width(), area.height()) / std::max(m_modules.width(), 1);
    if (m_modules.isNull() || module == 0)
        return;
    const QSize size = m_modules.size() * module;
    const QPoint corner = area.topLeft() + QPoint(area.width() - size.width(), area.height() - size.height()) / 2;
    painter.setWorldTransform(painter.deviceTransform().inverted(), true);
    painter.drawImage(QRect(corner, size), m_modules);
}

} // namespace Board
