#pragma once

class QCoreApplication;
class QLocale;

namespace Board {

// From now on shows the board's texts, and those of Qt's dialogs, in the language of the locale. Texts without a
// translation stay English.
void translateInto(const QLocale &locale, QCoreApplication &application);

} // namespace Board
