#include "board/program/Translation.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtCore/QTranslator>

static void makeResources()
{
    Q_INIT_RESOURCE(translations); // outside of any namespace: a static library's are not there by themselves
}

namespace Board {

void translateInto(const QLocale &locale, QCoreApplication &application)
{
    makeResources();
    // The first language only: QTranslator would take another one where the first is English, which needs no file.
    const QLocale language(locale.uiLanguages().value(0));
    const auto install = [&](const QString &name, const QString &folder) {
        auto *translator = new QTranslator(&application);
        if (translator->load(language, name, QStringLiteral("_"), folder))
            QCoreApplication::installTranslator(translator);
        else
            delete translator;
    };
    install(QStringLiteral("qtbase"), QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    install(QStringLiteral("inkboard"), QStringLiteral(":/translations"));
}

} // namespace Board
