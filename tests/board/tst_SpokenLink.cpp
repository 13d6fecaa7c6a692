#include "board/invite/SpokenLink.h"

#include <QtTest/QtTest>

using namespace Board;

namespace {

LessonLink link(const char *text)
{
    return *LessonLink::fromText(QString::fromLatin1(text));
}

QString spoken(const char *text)
{
    const auto words = SpokenLink::of(link(text));
    return words ? words->address + QLatin1Char(' ') + words->groups.join(QLatin1Char(' ')) : QString();
}

} // namespace

class tst_SpokenLink : public QObject
{
    Q_OBJECT

private slots:
    void speaks_data();
    void speaks();
    void leadsBack_data() { speaks_data(); }
    void leadsBack();
    void needsANameOf128Bits_data();
    void needsANameOf128Bits();
    void readsLetters_data();
    void readsLetters();
    void takesTheStandardPort();
    void noticesASlip();
    void noticesEveryWrongLetter();
    void takesNoOtherAddress_data();
    void takesNoOtherAddress();
};

// Names of the bytes 1 to 16, 240 to 255, and zeros.
void tst_SpokenLink::speaks_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("words");
    const auto row = [](const char *name, const char *text, const char *words) {
        QTest::newRow(name) << QByteArray(text) << QString::fromLatin1(words);
    };
    row("IPv4", "http://192.168.1.5:4640/#AQIDBAUGBwgJCgsMDQ4PEA",
        "192.168.1.5:4640 0410 6105 0R3G G28A 1C60 T3GF 22K4");
    row("another address", "http://192.168.1.6:4640/#AQIDBAUGBwgJCgsMDQ4PEA",
        "192.168.1.6:4640 0410 6105 0R3G G28A 1C60 T3GF 23JH");
    row("https", "https://school.example/#8PHy8_T19vf4-fr7_P3-_w",
        "https://school.example Y3RZ 5WZM YQVF FY7S ZBXZ SZFY ZZN6");
    row("IPv6", "http://[2001:db8::5]/#AAAAAAAAAAAAAAAAAAAAAA", "[2001:db8::5]:80 0000 0000 0000 0000 0000 0000 01GB");
}

void tst_SpokenLink::speaks()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, words);
    QCOMPARE(spoken(text.constData()), words);
}

void tst_SpokenLink::leadsBack()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, words);
    const int end = words.indexOf(QLatin1Char(' '));
    const auto letters = spokenLetters(words.mid(end));
    QVERIFY(letters);
    const auto read = linkOf(words.left(end), *letters);
    QVERIFY(read);
    QCOMPARE(read->lesson, link(text.constData()).lesson);
    QCOMPARE(read->door.port(80), link(text.constData()).door.port(80));
    QCOMPARE(read->door.host(), link(text.constData()).door.host());
}

void tst_SpokenLink::needsANameOf128Bits_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("a word") << QByteArray("http://a/#class-7b");
    QTest::newRow("120 bits") << QByteArray("http://a/#AQIDBAUGBwgJCgsMDQ4P");
    QTest::newRow("136 bits") << QByteArray("http://a/#AQIDBAUGBwgJCgsMDQ4PEBE");
    QTest::newRow("bits beyond them") << QByteArray("http://a/#AQIDBAUGBwgJCgsMDQ4PEB");
}

void tst_SpokenLink::needsANameOf128Bits()
{
    QFETCH(QByteArray, text);
    QCOMPARE(spoken(text.constData()), QString());
}

void tst_SpokenLink::readsLetters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("letters"); // null where there are none
    QTest::newRow("nothing") << QString() << QStringLiteral("");
    QTest::newRow("in groups") << QStringLiteral(" 0410\n6105\t0R3g ") << QStringLiteral("041061050R3G");
    QTest::newRow("with hyphens") << QStringLiteral("22K4-abcd–vwxyz") << QStringLiteral("22K4ABCDVWXYZ");
    QTest::newRow("meant") << QStringLiteral("OoIiLl") << QStringLiteral("001111");
    QTest::newRow("no U") << QStringLiteral("04u0") << QString();
    QTest::newRow("a dot") << QStringLiteral("04.0") << QString();
    QTest::newRow("another alphabet") << QStringLiteral("04А0") << QString();
}

void tst_SpokenLink::readsLetters()
{
    QFETCH(QString, text);
    QFETCH(QString, letters);
    QCOMPARE(spokenLetters(text).value_or(QString()), letters);
    QCOMPARE(spokenLetters(text).has_value(), !letters.isNull());
}

void tst_SpokenLink::takesTheStandardPort()
{
    const QString letters = QStringLiteral("041061050R3GG28A1C60T3GF22K4");
    const auto read = linkOf(QStringLiteral("192.168.1.5"), letters);
    QVERIFY(read);
    QCOMPARE(read->text(), QStringLiteral("http://192.168.1.5:4640/#AQIDBAUGBwgJCgsMDQ4PEA"));
    QVERIFY(linkOf(QStringLiteral("http://192.168.1.5:4640/"), letters));
    QVERIFY(!linkOf(QStringLiteral("http://192.168.1.5/"), letters));
}

void tst_SpokenLink::noticesASlip()
{
    const QString address = QStringLiteral("192.168.1.5:4640");
    QVERIFY(linkOf(address, QStringLiteral("041061050R3GG28A1C60T3GF22K4")));
    QVERIFY(!linkOf(address, QStringLiteral("401061050R3GG28A1C60T3GF22K4")));  // two letters changed places
    QVERIFY(!linkOf(address, QStringLiteral("061050R3GG28A1C60T3GF22K4")));     // a group is missing
    QVERIFY(!linkOf(address, QStringLiteral("041061050R3GG28A1C60T3GF22K40"))); // one too many
    QVERIFY(!linkOf(QStringLiteral("192.168.1.6:4640"), QStringLiteral("041061050R3GG28A1C60T3GF22K4")));
    QVERIFY(!linkOf(QStringLiteral("192.168.1.5:4641"), QStringLiteral("041061050R3GG28A1C60T3GF22K4")));
}

void tst_SpokenLink::noticesEveryWrongLetter()
{
    const QString right = QStringLiteral("041061050R3GG28A1C60T3GF22K4");
    for (int i = 0; i < right.size(); ++i) {
        QString wrong = right;
        wrong[i] = right[i] == QLatin1Char('7') ? QLatin1Char('8') : QLatin1Char('7');
        QVERIFY2(!linkOf(QStringLiteral("192.168.1.5:4640"), wrong), qPrintable(wrong));
    }
}

void tst_SpokenLink::takesNoOtherAddress_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("none") << QString();
    QTest::newRow("another scheme") << QStringLiteral("ftp://192.168.1.5:4640");
    QTest::newRow("a port too large") << QStringLiteral("192.168.1.5:70000");
    QTest::newRow("no port") << QStringLiteral("192.168.1.5:a");
}

void tst_SpokenLink::takesNoOtherAddress()
{
    QFETCH(QString, address);
    QVERIFY(!linkOf(address, QStringLiteral("041061050R3GG28A1C60T3GF22K4")));
}

QTEST_APPLESS_MAIN(tst_SpokenLink)
#include "tst_SpokenLink.moc"
