#pragma once

#include <QtCore/QSettings>
#include <QtCore/QString>

namespace Board {

// What a person has set, kept in the user's configuration folder from one lesson to the next.
class Settings : public QSettings
{
public:
    Settings()
        : QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("inkboard"), QStringLiteral("inkboard"))
    {
    }
};

} // namespace Board
