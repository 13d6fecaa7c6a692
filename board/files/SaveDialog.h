#pragma once

#include <QtCore/QStringList>

class QWidget;

namespace Board {

// Asks where to write. `filters` as QFileDialog takes them, with one suffix each: "Lessons (*.inkboard)". A name
// without any of these suffixes gets that of the filter that was chosen. A file is replaced only after a question.
// Empty when the person wants to write nothing.
QString askWhereToSave(QWidget &window, const QString &title, const QString &proposed, const QStringList &filters);

} // namespace Board
