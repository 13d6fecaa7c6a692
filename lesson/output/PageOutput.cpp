#include "lesson/output/PageOutput.h"

#include "lesson/layers/StateMark.h"
#include "lesson/output/PngFile.h"
#include "lesson/pages/Page.h"
#include "lesson/paper/PageSize.h"
#include "lesson/paper/PaperPainter.h"

#include <QtCore/QBuffer>
#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>
#include <QtGui/QPainter>
#include <QtGui/QPdfWriter>
#include <QtSvg/QSvgGenerator>

namespace InkLesson {

namespace {

constexpr int kDotsPerInch = 96; // of a plain screen, so that the page prints at its size there

void paintItem(QPainter &painter, Item &item, const Page &page)
{
    const StateMark mark(painter);
    QRect area = item.asked & page.rect();
    painter.setClipRect(area);
    if (item.tool && item.tool->paintFlat)
        item.tool->paintFlat(painter, page.whole(item), page.background());
    else
        page.whole(item).Draw(painter, area);
}

QImage painted(const Page &page, double scale)
{
    const QSize size = (QSizeF(page.rect().size()) * scale).toSize();
    QImage image(pageSizeProblem(size).isEmpty() ? size : QSize(), QImage::Format_RGB32);
    QPainter painter;
    if (!image.isNull() && painter.begin(&image))
        paintPage(painter, page);
    return image;
}

// In memory first, so that a file is whole or not there.
QByteArray painted(const Page &page, const QString &kind)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const QSize size = page.rect().size();
    const int dotsPerInch = qRound(kDotsPerInch * page.density());
    if (kind == QLatin1String("svg")) {
        QSvgGenerator svg;
        svg.setOutputDevice(&buffer);
        svg.setSize(size);
        svg.setViewBox(page.rect());
        svg.setResolution(dotsPerInch);
        QPainter painter(&svg);
        paintPage(painter, page);
    } else {
        QPdfWriter pdf(&buffer);
        pdf.setResolution(dotsPerInch);
        pdf.setPageSize(QPageSize(QSizeF(size) / dotsPerInch, QPageSize::Inch, {}, QPageSize::ExactMatch));
        pdf.setPageMargins(QMarginsF());
        QPainter painter(&pdf);
        paintPage(painter, page);
    }
    return buffer.data();
}

} // namespace

// The window of the painter, for an object sets the transform itself.
void paintPage(QPainter &painter, const Page &page)
{
    painter.setWindow(page.rect());
    paintPaper(painter, page.paper(), page.rect().size(), page.density());
    for (const auto &item : page.items())
        paintItem(painter, *item, page);
}

QString exportPage(const Page &page, const QString &fileName, double scale)
{
    const QString kind = QFileInfo(fileName).suffix().toLower();
    if (kind != QLatin1String("svg") && kind != QLatin1String("pdf"))
        return savePng(scale == 1.0 ? page.picture() : painted(page, scale), fileName);
    QSaveFile file(fileName);
    const QByteArray bytes = painted(page, kind);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return {};
    return QCoreApplication::translate("InkLesson::PageOutput", "%1: cannot be written: %2")
        .arg(fileName, file.errorString());
}

} // namespace InkLesson
