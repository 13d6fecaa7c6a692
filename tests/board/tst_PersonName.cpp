#include "board/people/PersonName.h"

#include <QtTest/QtTest>

using namespace Board;

class tst_PersonName : public QObject
{
    Q_OBJECT

private slots:
    void shows_data();
    void shows();
    void isBounded_data();
    void isBounded();
    void isIsolated();
    void hasAnInitial_data();
    void hasAnInitial();
};

void tst_PersonName::shows_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *what, const char16_t *name, const char16_t *shown) {
        QTest::newRow(what) << QString::fromUtf16(name) << QString::fromUtf16(shown);
    };
    row("as it is", u"Łucja 王", u"Łucja 王");
    row("right to left", u"אבג", u"אבג");
    row("beyond 16 bits", u"\U0001F600 \U00020000", u"\U0001F600 \U00020000");
    row("blanks", u"  Ada \t\n\u2028\u3000King ", u"Ada King");
    row("controls", u"A\u0000d\u0007a\u001B[31m\u0085", u"A"); // a zero ends a name here
    row("controls within", u"A\u0007d\u001Ba\u0085", u"Ada");
    row("an override", u"\u202EadA\u202C", u"adA");
    row("isolates and marks", u"\u2066A\u2067d\u2069\u200Fa\u200E\u061C", u"Ada");
    row("embeddings", u"\u202AA\u202Bd\u202Da", u"Ada");
    row("blanks of no width", u"A\u200Bd\uFEFFa\u2060\u00AD", u"Ada");
    row("fillers", u"\u3164A\u2800\u115F", u"A");
    row("half a letter", u"A\xD800\x0064\xDC00", u"Ad");
    row("private and unassigned", u"\uE000A\uFDD0\uFFFF", u"A");
    row("marks", u"A\u0301\u0302\u0303\u0304d", u"A\u0301\u0302d");
    row("marks on nothing", u"\u0301\u200DAda", u"Ada");
    row("marks on a blank", u"A \u0301d", u"A d");
    row("a joiner", u"\u0646\u200C\u0645", u"\u0646\u200C\u0645");
    row("markup", u"<b>Ada</b>&amp;", u"<b>Ada</b>&amp;");
    row("nothing", u"", u"Somebody");
    row("nothing that is seen", u" \u200B\u202E\u0301\n", u"Somebody");
}

void tst_PersonName::shows()
{
    QFETCH(QString, name);
    QFETCH(QString, shown);
    QCOMPARE(shownName(name), shown);
    QCOMPARE(hasName(name), shown != QLatin1String("Somebody"));
}

void tst_PersonName::isBounded_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    QTest::newRow("31") << QString(31, QLatin1Char('x')) << QString(31, QLatin1Char('x'));
    QTest::newRow("32") << QString(32, QLatin1Char('x')) << QString(31, QLatin1Char('x'));
    QTest::newRow("a million") << QString(1'000'000, QLatin1Char('x')) << QString(31, QLatin1Char('x'));
    QTest::newRow("a word beyond") << QString(30, QLatin1Char('x')) + QStringLiteral(" y")
                                   << QString(30, QLatin1Char('x'));
    QTest::newRow("two units each") << QString::fromUtf16(u"\U0001F600").repeated(40)
                                    << QString::fromUtf16(u"\U0001F600").repeated(31);
    QTest::newRow("cut before it is read")
        << QString(200, QChar(0x200B)) + QStringLiteral("Ada") << QStringLiteral("Somebody");
}

void tst_PersonName::isBounded()
{
    QFETCH(QString, name);
    QFETCH(QString, shown);
    QCOMPARE(shownName(name), shown);
}

// The first of these signs would otherwise be closed by the name's own.
void tst_PersonName::isIsolated()
{
    QCOMPARE(isolatedName(QString::fromUtf16(u"\u2069אבג")), QString::fromUtf16(u"\u2068אבג\u2069"));
}

void tst_PersonName::hasAnInitial_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("initial");
    const auto row = [](const char *what, const char16_t *name, const char16_t *initial) {
        QTest::newRow(what) << QString::fromUtf16(name) << QString::fromUtf16(initial);
    };
    row("small", u"łucja", u"Ł");
    row("after blanks", u"  ada", u"A");
    row("with a mark", u"e\u0301mile", u"E\u0301");
    row("beyond 16 bits", u"\U0001F600x", u"\U0001F600");
    row("none", u"\u200B", u"?");
}

void tst_PersonName::hasAnInitial()
{
    QFETCH(QString, name);
    QFETCH(QString, initial);
    QCOMPARE(initialOf(name), initial);
}

QTEST_APPLESS_MAIN(tst_PersonName)
#include "tst_PersonName.moc"
