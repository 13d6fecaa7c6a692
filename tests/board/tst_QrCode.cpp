#include "board/invite/QrCode.h"

#include "Patience.h"

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace Board;

namespace {

const QString kLink = QStringLiteral("http://192.168.1.5:4640/#AQIDBAUGBwgJCgsMDQ4PEA");
constexpr QRgb kWhite = 0xFFFFFFFF;
constexpr QRgb kBlack = 0xFF000000;

QString readBack(const QImage &picture)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("code.png"));
    if (!picture.save(file))
        return {};
    QProcess reader;
    reader.start(QStringLiteral(ZBARIMG), {QStringLiteral("--raw"), QStringLiteral("--quiet"), file});
    reader.waitForFinished(kPatience);
    return QString::fromUtf8(reader.readAllStandardOutput()).trimmed();
}

QImage grabbed(QrCode &code)
{
    return code.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

class tst_QrCode : public QObject
{
    Q_OBJECT

private slots:
    void leavesFourModulesWhite();
    void isReadBack_data();
    void isReadBack();
    void isCrisp_data();
    void isCrisp();
    void holdsNothingTooLong();
};

// A link of 47 letters takes 33 modules along each side.
void tst_QrCode::leavesFourModulesWhite()
{
    const QImage modules = qrModules(kLink);
    QCOMPARE(modules.size(), QSize(41, 41));
    int white = 0;
    for (int i = 0; i < 41; ++i) {
        for (int j = 0; j < 4; ++j)
            white += (modules.pixel(i, j) == kWhite) + (modules.pixel(i, 40 - j) == kWhite) +
                     (modules.pixel(j, i) == kWhite) + (modules.pixel(40 - j, i) == kWhite);
    }
    QCOMPARE(white, 41 * 4 * 4);
    // The corners of the square that has three large ones.
    QCOMPARE(modules.pixel(4, 4), kBlack);
    QCOMPARE(modules.pixel(36, 4), kBlack);
    QCOMPARE(modules.pixel(4, 36), kBlack);
}

void tst_QrCode::isReadBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("IPv4") << kLink;
    QTest::newRow("IPv6") << QStringLiteral(
        "http://[2001:db8:1234:5678:9abc:def0:1234:5678]:46400/#AQIDBAUGBwgJCgsMDQ4PEA");
}

void tst_QrCode::isReadBack()
{
    QFETCH(QString, text);
    QrCode code;
    code.setText(text);
    code.resize(240, 300);
    QCOMPARE(readBack(grabbed(code)), text);
}

void tst_QrCode::isCrisp_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QList<int>>("modules"); // pixels of a screen of density 1, 1.5, 2
    QTest::newRow("a pixel too small") << QSize(245, 400) << QList<int>{5, 8, 11};
    QTest::newRow("just so") << QSize(400, 246) << QList<int>{6, 9, 12};
    QTest::newRow("on a projector") << QSize(700, 701) << QList<int>{17, 25, 34};
}

// Black and white alone, in squares of whole pixels of the screen, all alike, in the middle.
void tst_QrCode::isCrisp()
{
    QFETCH(QSize, size);
    QFETCH(QList<int>, modules);
    QrCode code;
    code.setText(kLink);
    code.resize(size);
    const QImage picture = grabbed(code);
    const double ratio = picture.devicePixelRatio();
    QVERIFY(ratio == 1 || ratio == 1.5 || ratio == 2);
    const int side = modules[int(ratio * 2) - 2];
    const QImage expected = qrModules(kLink).scaled(QSize(41, 41) * side);
    const QPoint corner = QPoint(picture.width() - 41 * side, picture.height() - 41 * side) / 2;
    const QImage inner = picture.copy(QRect(corner, expected.size()));
    int wrong = 0;
    for (int y = 0; y < inner.height(); ++y) {
        for (int x = 0; x < inner.width(); ++x)
            wrong += inner.pixel(x, y) != expected.pixel(x, y);
    }
    QCOMPARE(wrong, 0);
    QCOMPARE(inner.pixel(4 * side, 4 * side), kBlack);
    QCOMPARE(inner.pixel(4 * side - 1, 4 * side), kWhite);
}

void tst_QrCode::holdsNothingTooLong()
{
    QVERIFY(qrModules(QString()).isNull());
    QVERIFY(qrModules(QString(3000, QLatin1Char('a'))).isNull());
    QrCode code;
    code.setText(QString(3000, QLatin1Char('a')));
    code.resize(100, 100);
    QCOMPARE(readBack(grabbed(code)), QString());
}

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication application(argc, argv);
    tst_QrCode test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_QrCode.moc"
