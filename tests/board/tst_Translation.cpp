#include "board/commands/ShortcutDialog.h"
#include "board/commands/Shortcuts.h"
#include "board/controls/ColorRow.h"
#include "board/controls/WidthControl.h"
#include "board/program/Translation.h"
#include "board/rail/ToolRail.h"
#include "board/tools/Tools.h"
#include "board/window/HintLine.h"
#include "board/window/MainWindow.h"

#include <QtCore/QFile>
#include <QtCore/QLibraryInfo>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtTest/QtTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QToolButton>

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
    void keepsWhatMattersInANarrowWindow();
    void cutsWordsThatReachTheControls();
    void hasRoomForTheHeadingsOfTheTools();
    void translatesQtsOwnDialogs();

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

// Also of 1280 by 800 pixels at twice their size, and with all recent colours.
void tst_Translation::fitsASmallProjector()
{
    QFETCH(QLocale, locale);
    translateInto(locale, *qApp);
    MainWindow window(QSize(1280, 800));
    for (int blue = 1; blue <= 6; ++blue)
        window.findChild<ColorRow *>()->setCustomColor(QColor(0, 0, blue));
    window.show();
    const QSize least = window.minimumSizeHint();
    QVERIFY2(least.width() <= 640, qPrintable(QString::number(least.width())));
    QVERIFY2(least.height() <= 400, qPrintable(QString::number(least.height())));
    QVERIFY2(least.width() > 500, qPrintable(QString::number(least.width()))); // it was laid out
}

// On one of 800 by 600 pixels, and on that other one, the parts of the bar that can be missed leave it, one after the
// other, and come back where there is room.
void tst_Translation::keepsWhatMattersInANarrowWindow()
{
    translateInto(QLocale(QLocale::German), *qApp);
    MainWindow window(QSize(1280, 800));
    window.findChild<ColorRow *>()->setCustomColor(QColor(0, 0, 1));
    window.show();
    const auto *recent = window.findChild<ColorRow *>()->recent();
    const auto *text = window.findChild<WidthControl *>()->number();
    const auto *preview = window.findChild<WidthControl *>()->preview();
    const auto *share = window.findChild<QToolButton *>(QStringLiteral("share"));
    const auto *menu = window.findChild<QToolButton *>(QStringLiteral("menu"));
    const auto *zoom = window.findChild<QToolButton *>(QStringLiteral("zoom"));
    const QWidget *clear = window.findChild<QAction *>(QStringLiteral("clear"))->associatedWidgets().constLast();
    struct
    {
        QSize size;
        QList<bool> seen;
    } const cases[] = {{{1280, 800}, {true, true, true, true, true}},
                       {{800, 600}, {false, false, true, false, true}},
                       {{640, 400}, {false, false, false, false, false}},
                       {{1280, 800}, {true, true, true, true, true}}};
    for (const auto &[size, seen] : cases) {
        window.resize(size);
        QCOMPARE(window.size(), size);
        QCoreApplication::processEvents();
        QCOMPARE((QList<bool>{recent->isVisible(), text->isVisible(), preview->isVisible(), clear->isVisible(),
                              share->isVisible()}),
                 seen);
        for (const QWidget *part : {static_cast<const QWidget *>(menu), static_cast<const QWidget *>(zoom)})
            QVERIFY(window.rect().contains(QRect(part->mapTo(&window, QPoint()), part->size())));
    }
}

void tst_Translation::cutsWordsThatReachTheControls()
{
    MainWindow window(QSize(1280, 800));
    window.resize(640, 400);
    window.show();
    auto *hint = window.findChild<HintLine *>();
    hint->setText(QStringLiteral("short"));
    QCOMPARE(hint->shown(), QStringLiteral("short"));
    hint->setText(QString(200, QLatin1Char('m')));
    QVERIFY(hint->shown().endsWith(QChar(0x2026)));
    const auto *zoom = window.findChild<QToolButton *>(QStringLiteral("zoom"));
    QVERIFY(hint->fontMetrics().horizontalAdvance(hint->shown()) < zoom->x());
}

void tst_Translation::hasRoomForTheHeadingsOfTheTools()
{
    translateInto(QLocale(QLocale::German), *qApp);
    MainWindow window(QSize(800, 500));
    window.show();
    const auto *scroll = window.findChild<ToolRail *>()->findChild<QScrollArea *>();
    const int needed = scroll->widget()->minimumSizeHint().width();
    QVERIFY2(needed <= scroll->viewport()->width(), qPrintable(QString::number(needed)));
    QCOMPARE(groupTitle(*findTool(QStringLiteral("fill"))), QStringLiteral("Radieren, füllen, wählen"));
}

void tst_Translation::translatesQtsOwnDialogs()
{
    if (!QFile::exists(QLibraryInfo::location(QLibraryInfo::TranslationsPath) + QStringLiteral("/qtbase_de.qm")))
        QSKIP("Qt's own translations are not installed");
    translateInto(QLocale(QLocale::German), *qApp);
    const QDialogButtonBox box(QDialogButtonBox::Cancel | QDialogButtonBox::Discard);
    QCOMPARE(box.button(QDialogButtonBox::Cancel)->text(), QStringLiteral("Abbrechen"));
    QCOMPARE(box.button(QDialogButtonBox::Discard)->text(), QStringLiteral("Verwerfen"));
}

QTEST_MAIN(tst_Translation)
#include "tst_Translation.moc"
