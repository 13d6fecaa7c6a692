#include "board/invite/Addresses.h"

#include <QtTest/QtTest>

using namespace Board;

Q_DECLARE_METATYPE(Board::MachineAddress)

namespace {

constexpr auto kRunning = QNetworkInterface::IsUp | QNetworkInterface::IsRunning;

MachineAddress at(const char *interface, const char *address, QNetworkInterface::InterfaceFlags flags = kRunning)
{
    return {QString::fromLatin1(interface), flags, QHostAddress(QString::fromLatin1(address))};
}

QString sorted(const QList<MachineAddress> &found)
{
    QStringList texts;
    for (const QHostAddress &address : likeliestFirst(found))
        texts.append(address.toString());
    return texts.join(QLatin1Char(' '));
}

const MachineAddress kBack = at("lo", "127.0.0.1", kRunning | QNetworkInterface::IsLoopBack);

} // namespace

class tst_Addresses : public QObject
{
    Q_OBJECT

private slots:
    void sorts_data();
    void sorts();
    void makesUrls();
};

void tst_Addresses::sorts_data()
{
    QTest::addColumn<QList<MachineAddress>>("found");
    QTest::addColumn<QString>("result");
    const auto row = [](const char *name, const QList<MachineAddress> &found, const char *result) {
        QTest::newRow(name) << found << QString::fromLatin1(result);
    };
    row("nothing", {}, "");
    row("a local network", {kBack, at("eth0", "192.168.1.5")}, "192.168.1.5");
    row("each local network",
        {at("a", "8.8.4.4"), at("b", "10.1.2.3"), at("c", "172.16.0.9"), at("d", "172.31.0.9"), at("e", "192.168.0.2")},
        "10.1.2.3 172.16.0.9 172.31.0.9 192.168.0.2 8.8.4.4");
    row("beside a local network",
        {at("a", "172.32.0.1"), at("b", "192.169.0.1"), at("c", "11.0.0.1"), at("d", "10.0.0.1")},
        "10.0.0.1 172.32.0.1 192.169.0.1 11.0.0.1");
    row("in the order of the machine", {at("eth0", "192.168.1.5"), at("wlan0", "192.168.1.4")},
        "192.168.1.5 192.168.1.4");
    row("IPv6 after IPv4", {at("eth0", "2001:db8::5"), at("eth0", "80.1.2.3")}, "80.1.2.3 2001:db8::5");
    row("bridges last",
        {at("docker0", "172.17.0.1"), at("virbr0", "192.168.122.1"), at("br-12ab", "172.18.0.1"),
         at("wg0", "2001:db8::1"), at("tun0", "8.8.4.4"), at("eth0", "2001:db8::5"), at("br0", "192.168.1.5")},
        "192.168.1.5 2001:db8::5 172.17.0.1 192.168.122.1 172.18.0.1 8.8.4.4 2001:db8::1");
    row("tunnels last", {at("x", "10.0.0.1", kRunning | QNetworkInterface::IsPointToPoint), at("eth0", "2001:db8::5")},
        "2001:db8::5 10.0.0.1");
    row("a bridge alone", {kBack, at("docker0", "172.17.0.1")}, "172.17.0.1");
    row("its own making beside others", {at("eth0", "169.254.7.8"), at("wlan0", "192.168.1.4")}, "192.168.1.4");
    row("its own making", {kBack, at("eth0", "169.254.7.8")}, "169.254.7.8");
    row("of one cable", {at("eth0", "fe80::1"), kBack, at("lo", "::1", kRunning | QNetworkInterface::IsLoopBack)},
        "127.0.0.1");
    row("not running", {at("eth0", "192.168.1.5", QNetworkInterface::IsUp), kBack}, "127.0.0.1");
    row("twice", {at("eth0", "192.168.1.5"), at("wlan0", "192.168.1.5")}, "192.168.1.5");
    row("none", {at("eth0", "224.0.0.1"), at("eth1", "")}, "");
}

void tst_Addresses::sorts()
{
    QFETCH(QList<MachineAddress>, found);
    QFETCH(QString, result);
    QCOMPARE(sorted(found), result);
}

// Whatever this machine has.
void tst_Addresses::makesUrls()
{
    const QList<QUrl> urls = doorAddresses(4640);
    QVERIFY(!urls.isEmpty());
    for (const QUrl &url : urls) {
        QVERIFY(url.isValid());
        QCOMPARE(url.scheme(), QStringLiteral("http"));
        QCOMPARE(url.port(), 4640);
        QVERIFY2(url.toString().endsWith(QStringLiteral(":4640/")), qPrintable(url.toString()));
        QVERIFY(!QHostAddress(url.host()).isNull());
    }
    QCOMPARE(doorUrl(QHostAddress(QStringLiteral("2001:db8::5")), 80).toString(),
             QStringLiteral("http://[2001:db8::5]:80/"));
}

QTEST_APPLESS_MAIN(tst_Addresses)
#include "tst_Addresses.moc"
