#include "lesson/objects/Tools.h"

#include "lesson/objects/Life.h"

#include "CInkFlatBrush.h"
#include "CInkGraph.h"
#include "CInkHighLightPen.h"

#include <QtTest/QtTest>

using namespace InkLesson;

class tst_Tools : public QObject
{
    Q_OBJECT

private slots:
    void keepsTheNamesThatFilesHold();
    void findsAToolByItsName();
    void preparesAnObject_data();
    void preparesAnObject();
    void takesTheOptionOfATool();
    void knowsWhatItsObjectsAre_data();
    void knowsWhatItsObjectsAre();
};

namespace {

// The names of the tools of which that is so, in their order.
template <typename Trait>
QString namesOf(Trait trait)
{
    QStringList names;
    for (const Tool &tool : tools()) {
        if (trait(tool))
            names.append(QString::fromLatin1(tool.name));
    }
    return names.join(QLatin1Char(' '));
}

constexpr const char *kShapes =
    "line arrow-line rectangle rounded-rectangle ellipse triangle right-triangle diamond polygon curve";
constexpr const char *kStencils = "check-mark cross-mark right-arrow left-arrow up-arrow down-arrow star-4 star-5 "
                                  "star-6 pentagon hexagon lightning burst-12 burst-14 ellipse-label rounded-label "
                                  "cloud-label heart";

} // namespace

void tst_Tools::keepsTheNamesThatFilesHold()
{
    QCOMPARE(namesOf([](const Tool &) { return true; }),
             QStringLiteral("pencil brush flat-brush highlighter color-brush crayon water-color-pen spray-gun "
                            "eraser select fill area text %1 %2")
                 .arg(QLatin1String(kShapes), QLatin1String(kStencils)));
}

void tst_Tools::findsAToolByItsName()
{
    const Tool *tool = findTool(QStringLiteral("rounded-rectangle"));
    QVERIFY(tool);
    QCOMPARE(tool->name, "rounded-rectangle");
    QVERIFY(!findTool(QStringLiteral("Pencil")));
    QVERIFY(!findTool(QStringLiteral("laser"))); // draws nothing that stays
    QVERIFY(!findTool(QString()));
}

void tst_Tools::preparesAnObject_data()
{
    QTest::addColumn<QString>("name");
    for (const Tool &tool : tools())
        QTest::newRow(tool.name) << QString::fromLatin1(tool.name);
}

void tst_Tools::preparesAnObject()
{
    QFETCH(QString, name);
    const auto object = createObject(*findTool(name), {QColor(10, 20, 30), 9}, QSize(100, 100));
    QCOMPARE(object->m_color, QColor(10, 20, 30));
    QCOMPARE(object->m_nWidth, 9);
    QCOMPARE(object->m_nOwnerIP, 0x7F000001u);
    QCOMPARE(object->m_nDrawerIP, 0x7F000001u);
    QCOMPARE(object->m_bFinished, 0);
}

void tst_Tools::takesTheOptionOfATool()
{
    const Tool &marker = *findTool(QStringLiteral("highlighter"));
    const auto alpha = [&](const std::optional<int> &percent) {
        const auto object = createObject(marker, {Qt::red, 9, percent}, QSize(100, 100));
        return static_cast<const CInkHighLightPen &>(*object).m_nAlpha;
    };
    QCOMPARE(alpha({}), 102);
    QCOMPARE(alpha(20), 51);
    QCOMPARE(alpha(80), 204);

    const Tool &flatBrush = *findTool(QStringLiteral("flat-brush"));
    const auto angle = [&](const std::optional<int> &degrees) {
        const auto object = createObject(flatBrush, {Qt::red, 9, degrees}, QSize(100, 100));
        return static_cast<const CInkFlatBrush &>(*object).m_fNibAngle;
    };
    QCOMPARE(angle({}), 45.0f);
    QCOMPARE(angle(120), 120.0f);
    QCOMPARE(angle(180), 180.0f);
    QCOMPARE(angle(181), 180.0f);
    QCOMPARE(angle(-1), 0.0f);
    QCOMPARE(angle(INT_MAX), 180.0f);
    QVERIFY(!findTool(QStringLiteral("pencil"))->option);
}

void tst_Tools::knowsWhatItsObjectsAre_data()
{
    QTest::addColumn<QString>("found");
    QTest::addColumn<QString>("names");
    const auto row = [](const char *trait, const QString &found, const QString &names) {
        QTest::newRow(trait) << found << names;
    };
    const QString handled = QLatin1String(kShapes) + QLatin1Char(' ') + QLatin1String(kStencils);
    row("moves as it grows", namesOf([](const Tool &tool) { return tool.movesAsItGrows; }),
        QStringLiteral("flat-brush"));
    row("scatters", namesOf([](const Tool &tool) { return tool.scatters; }), QStringLiteral("spray-gun"));
    row("taps with one point", namesOf([](const Tool &tool) { return tool.tapsWithOnePoint; }),
        QStringLiteral("eraser"));
    row("has handles", namesOf([](const Tool &tool) { return tool.hasHandles; }), handled);
    row("takes text", namesOf([](const Tool &tool) { return tool.takesText; }), QStringLiteral("text"));
    row("has an option", namesOf([](const Tool &tool) { return tool.option.has_value(); }),
        QStringLiteral("flat-brush highlighter"));
    row("lifts", namesOf([](const Tool &tool) { return bool(tool.lift); }), QStringLiteral("select"));
    row("paints flat", namesOf([](const Tool &tool) { return bool(tool.paintFlat); }),
        QStringLiteral("eraser select fill area"));
    row("takes a dash", namesOf([](const Tool &tool) { return tool.takesDash; }),
        QStringLiteral("line arrow-line diamond check-mark cross-mark right-arrow left-arrow up-arrow down-arrow "
                       "star-4 star-5 star-6 pentagon hexagon lightning burst-12 burst-14 ellipse-label cloud-label"));
}

void tst_Tools::knowsWhatItsObjectsAre()
{
    QFETCH(QString, found);
    QFETCH(QString, names);
    QCOMPARE(found, names);
}

QTEST_GUILESS_MAIN(tst_Tools)
#include "tst_Tools.moc"
