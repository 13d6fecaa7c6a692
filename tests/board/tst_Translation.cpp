#include "MainWindow.h"
#include "ShortcutDialog.h"
#include "Shortcuts.h"
#include "Tools.h"
#include "Translation.h"

#include <QtCore/QTranslator>
#include <QtTest/QtTest>
#include <QtWidgets/QAction>

using namespace Board;

class tst_Translation : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void speaksEnglishByItself();
    void speaksGerman_data();
    void speaksGerman();
    void speaksEnglishWhereNothingElseIsKnown();
    void keepsKeysAndTellsCommandsApart();

private:
    static QString title(const char *tool) { return toolTitle(*findTool(QString::fromLatin1(tool))); }
};

void tst_Translation::cleanup()
{
    qDeleteAll(qApp->findChildren<QTranslator *>());
}

void tst_Translation::speaksEnglishByItself()
{
    QCOMPARE(title("pencil"), QStringLiteral("Pencil"));
}

void tst_Translation::speaksGerman_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::newRow("de") << QLocale(QLocale::German);
    QTest::newRow("de_AT") << QLocale(QLocale::German, QLocale::Austria);
}

void tst_Translation::speaksGerman()
{
    QFETCH(QLocale, locale);
    translateInto(locale, *qApp);
    QCOMPARE(title("pencil"), QStringLiteral("Bleistift"));
    MainWindow window(QSize(400, 300));
    QCOMPARE(window.findChild<QAction *>(QStringLiteral("undo"))->text(), QStringLiteral("Rückgängig"));
    QCOMPARE(window.findChild<QAction *>(QStringLiteral("color-3"))->toolTip(), QStringLiteral("Rot (3)"));
    const ShortcutDialog dialog(window);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Tasten"));
}

void tst_Translation::speaksEnglishWhereNothingElseIsKnown()
{
    translateInto(QLocale(QLocale::Icelandic), *qApp);
    QCOMPARE(title("pencil"), QStringLiteral("Pencil"));
    translateInto(QLocale(QLocale::English), *qApp);
    QCOMPARE(title("pencil"), QStringLiteral("Pencil"));
}

// A list of commands needs titles that differ, and the keys are the same in every language.
void tst_Translation::keepsKeysAndTellsCommandsApart()
{
    translateInto(QLocale(QLocale::German), *qApp);
    const MainWindow window(QSize(400, 300));
    QSet<QString> titles;
    for (const QAction *command : commands(window))
        titles.insert(command->text());
    QCOMPARE(titles.size(), commands(window).size());
    QCOMPARE(window.findChild<QAction *>(QStringLiteral("line"))->shortcut().toString(), QStringLiteral("L"));
}

QTEST_MAIN(tst_Translation)
#include "tst_Translation.moc"
