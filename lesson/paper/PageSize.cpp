#include "lesson/paper/PageSize.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QRegularExpression>
#include <QtCore/QtMath>

namespace InkLesson {

QSize pageSizeFromText(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^([0-9]{1,9})x([0-9]{1,9})$"));
    const QRegularExpressionMatch match = form.match(text);
    return match.hasMatch() ? QSize(match.captured(1).toInt(), match.captured(2).toInt()) : QSize();
}

QSize pageSizeAt(const QSize &plain, double density)
{
    constexpr double kSlack = 1e-6; // of a density that is no binary fraction
    return {qCeil(plain.width() * density - kSlack), qCeil(plain.height() * density - kSlack)};
}

QString pageSizeProblem(const QSize &size)
{
    if (!isPageSide(size.width()) || !isPageSide(size.height()))
        return QCoreApplication::translate("InkLesson::PageSize", "a side must be 1 to %1 pixels").arg(kMaxPageSide);
    if (qint64(size.width()) * size.height() > kMaxPagePixels)
        return QCoreApplication::translate("InkLesson::PageSize", "a page has at most %1 pixels in all")
            .arg(kMaxPagePixels);
    return {};
}

} // namespace InkLesson
