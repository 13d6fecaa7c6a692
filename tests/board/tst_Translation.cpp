#include "board/commands/ShortcutDialog.h"
#include "board/commands/Shortcuts.h"
#include "board/controls/ColorRow.h"
#include "board/program/Translation.h"
#include "board/tools/Tools.h"
#include "board/window/MainWindow.h"

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtTest/QtTest>
#include <QtWidgets/QAction>

using namespace Board;

class tst_Translation : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void speaksEnglishByItself();
    void speaksGerman_data();
    void speaksGerman();
    void speaksEnglishWhereNothingElseIsKnown();
    void keepsKeysAndTellsCommandsApart();
    void fitsASmallProjector_data();
    void fitsASmallProjector();

private:
    static QString title(const char *tool) { return toolTitle(*findTool(QString::fromLatin1(tool))); }

    const QTemporaryDir m_folder;
};

void tst_Translation::initTestCase()
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
}

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

void tst_Translation::fitsASmallProjector_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::newRow("en") << QLocale(QLocale::English);
    QTest::newRow("de") << QLocale(QLocale::German);
}

// Of 1024 by 768 pixels, also with all recent colours.
void tst_Translation::fitsASmallProjector()
{
    QFETCH(QLocale, locale);
    translateInto(locale, *qApp);
    MainWindow window(QSize(1280, 800));
    for (int blue = 1; blue <= 6; ++blue)
        window.findChild<ColorRow *>()->setCustomColor(QColor(0, 0, blue));
    window.show();
    const QSize least = window.minimumSizeHint();
    QVERIFY2(least.width() <= 1024 && least.height() <= 768, qPrintable(QString::number(least.width())));
    QVERIFY2(least.width() > 800, qPrintable(QString::number(least.width()))); // it was laid out
}

QTEST_MAIN(tst_Translation)
#include "tst_Translation.moc"
