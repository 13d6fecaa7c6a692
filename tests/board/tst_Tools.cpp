#include "board/rail/ToolIcon.h"
#include "board/tools/Tools.h"

#include <QtCore/QSet>
#include <QtGui/QKeySequence>
#include <QtTest/QtTest>

using namespace Board;

class tst_Tools : public QObject
{
    Q_OBJECT

private slots:
    void knowsEveryToolByName();
    void findsAToolByItsName();
    void givesEachToolItsOwnNameAndKey();
    void keepsTheToolsOfAGroupTogether();
    void drawsTheKindOfItsName();
    void paintsAnIconInTheToolsOwnInk_data();
    void paintsAnIconInTheToolsOwnInk();
    void drawsIconsForScreensWithMorePixels();
    void showsTheHandlesOfAHeart();
    void showsATraceOfWhatLeavesNoMark();
};

void tst_Tools::knowsEveryToolByName()
{
    for (const char *name : {"pencil",
                             "line",
                             "arrow-line",
                             "rectangle",
                             "rounded-rectangle",
                             "ellipse",
                             "triangle",
                             "right-triangle",
                             "brush",
                             "flat-brush",
                             "highlighter",
                             "color-brush",
                             "crayon",
                             "water-color-pen",
                             "spray-gun",
                             "eraser",
                             "diamond",
                             "polygon",
                             "curve",
                             "check-mark",
                             "cross-mark",
                             "right-arrow",
                             "left-arrow",
                             "up-arrow",
                             "down-arrow",
                             "star-4",
                             "star-5",
                             "star-6",
                             "pentagon",
                             "hexagon",
                             "lightning",
                             "burst-12",
                             "burst-14",
                             "ellipse-label",
                             "rounded-label",
                             "cloud-label",
                             "heart",
                             "fill",
                             "text",
                             "laser"}) {
        QVERIFY2(findTool(QString::fromLatin1(name)), name);
        QVERIFY2(toolNames().split(QStringLiteral(", ")).contains(QString::fromLatin1(name)), name);
    }
}

void tst_Tools::findsAToolByItsName()
{
    const Tool *tool = findTool(QStringLiteral("rounded-rectangle"));
    QVERIFY(tool);
    QCOMPARE(tool->name, "rounded-rectangle");
    QVERIFY(!findTool(QStringLiteral("Pencil")));
    QVERIFY(!findTool(QString()));
}

void tst_Tools::givesEachToolItsOwnNameAndKey()
{
    QSet<QString> names;
    QSet<QString> titles;
    QSet<QString> keys;
    for (const Tool &tool : tools()) {
        names.insert(QString::fromLatin1(tool.name));
        titles.insert(toolTitle(tool));
        keys.insert(QKeySequence(QString::fromLatin1(tool.shortcut)).toString());
    }
    const int count = int(tools().size());
    QCOMPARE(names.size(), count);
    QCOMPARE(titles.size(), count);
    QCOMPARE(keys.size(), count);
    QVERIFY(!keys.contains(QString()));
}

void tst_Tools::keepsTheToolsOfAGroupTogether()
{
    QStringList headings;
    for (const Tool &tool : tools()) {
        if (headings.isEmpty() || headings.constLast() != groupTitle(tool))
            headings.append(groupTitle(tool));
    }
    QCOMPARE(headings, (QStringList{QStringLiteral("Pens"), QStringLiteral("Erase, fill, select"),
                                    QStringLiteral("Pictures and text"), QStringLiteral("Lines and shapes"),
                                    QStringLiteral("Stencils")}));
}

void tst_Tools::drawsTheKindOfItsName()
{
    QStringList withoutKind;
    std::size_t kinds = 0;
    for (const Tool &tool : tools()) {
        kinds += tool.kind ? 1 : 0;
        if (tool.kind)
            QCOMPARE(QByteArray(tool.kind->name), QByteArray(tool.name));
        else
            withoutKind.append(QString::fromLatin1(tool.name));
        QCOMPARE(bool(tool.kind), tool.use == Use::Draws || tool.use == Use::Pours);
        QCOMPARE(tool.option.has_value(), tool.kind && tool.kind->option);
    }
    QCOMPARE(withoutKind, (QStringList{QStringLiteral("pick"), QStringLiteral("remove"), QStringLiteral("laser")}));
    QCOMPARE(kinds + 1, InkLesson::tools().size()); // all but the pixels of a fill, which no row draws
}

void tst_Tools::paintsAnIconInTheToolsOwnInk_data()
{
    QTest::addColumn<QString>("name");
    for (const Tool &tool : tools()) {
        if (!tool.iconWhileEdited && tool.name != QLatin1String("water-color-pen"))
            QTest::newRow(tool.name) << QString::fromLatin1(tool.name);
    }
}

// Some ink in the colour asked for, no handles, and none on the rim, where it would look cut off.
void tst_Tools::paintsAnIconInTheToolsOwnInk()
{
    QFETCH(QString, name);
    const QImage ink = sampleInk(*findTool(name), Qt::red);
    QCOMPARE(ink.size(), QSize(32, 32));
    int pixels = 0;
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x) {
            const QColor color = ink.pixelColor(x, y);
            if (color.alpha() == 0)
                continue;
            ++pixels;
            QVERIFY(color.red() > 0 && color.green() == 0 && color.blue() == 0);
            QVERIFY2(x > 0 && y > 0 && x < 31 && y < 31, qPrintable(QStringLiteral("%1,%2").arg(x).arg(y)));
        }
    }
    QVERIFY2(pixels > 50, qPrintable(QString::number(pixels)));
}

// The left edge of the sample, three pixels around x = 4, is six pixels around x = 8.
void tst_Tools::drawsIconsForScreensWithMorePixels()
{
    const Tool &tool = *findTool(QStringLiteral("rectangle"));
    const QImage large = sampleInk(tool, Qt::red, 2);
    QCOMPARE(large.size(), QSize(64, 64));
    QCOMPARE(large.pixelColor(4, 30).alpha(), 0);
    QCOMPARE(large.pixelColor(5, 30), QColor(Qt::red));
    QCOMPARE(large.pixelColor(10, 30), QColor(Qt::red));
    QCOMPARE(large.pixelColor(11, 30).alpha(), 0);
    const QImage shown = toolIcon(tool).pixmap(64, 64).toImage();
    QCOMPARE(shown.size(), QSize(64, 64));
    QCOMPARE(shown.pixelColor(4, 30).alpha(), 0);
    QCOMPARE(shown.pixelColor(5, 30).alpha(), 255);
    QCOMPARE(shown.pixelColor(10, 30).alpha(), 255);
    QCOMPARE(shown.pixelColor(11, 30).alpha(), 0);
}

// The heart has no ink of its own: it is known by its frame, dashed in blue with green handles.
void tst_Tools::showsTheHandlesOfAHeart()
{
    const QImage icon = sampleInk(*findTool(QStringLiteral("heart")), Qt::red);
    QCOMPARE(icon.size(), QSize(32, 32));
    int green = 0;
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x) {
            const QColor color = icon.pixelColor(x, y);
            QVERIFY(color.red() <= 64);
            green += color.green() > 200 && color.blue() < 50;
        }
    }
    QVERIFY2(green > 50, qPrintable(QString::number(green)));
    QCOMPARE(icon.pixelColor(16, 16).alpha(), 0);
}

void tst_Tools::showsATraceOfWhatLeavesNoMark()
{
    const Tool &tool = *findTool(QStringLiteral("water-color-pen"));
    QImage blank(32, 32, QImage::Format_ARGB32_Premultiplied);
    blank.fill(Qt::transparent);
    QCOMPARE(sampleInk(tool, Qt::red), blank);
    QVERIFY(toolIcon(tool).pixmap(32, 32).toImage().convertToFormat(blank.format()) != blank);
    QVERIFY(toolTitle(tool).contains(QStringLiteral("leaves no mark")));
}

QTEST_MAIN(tst_Tools)
#include "tst_Tools.moc"
