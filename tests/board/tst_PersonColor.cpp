#include "board/people/PersonColor.h"

#include <QtTest/QtTest>

#include <array>
#include <cmath>

using namespace Board;

namespace {

double linear(double part)
{
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

// Of the light of white, as the guidelines for contrast weigh it.
double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrastToWhite(const QColor &color)
{
    return 1.05 / (luminance(color) + 0.05);
}

// Lightness and the two opponent colours of CIE 1976, in which a step of 2.3 is just seen.
std::array<double, 3> perceived(const QColor &color)
{
    const double r = linear(color.redF()), g = linear(color.greenF()), b = linear(color.blueF());
    const auto bent = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116; };
    const double x = bent((0.4124 * r + 0.3576 * g + 0.1805 * b) / 0.95047);
    const double y = bent(luminance(color));
    const double z = bent((0.0193 * r + 0.1192 * g + 0.9505 * b) / 1.08883);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double distance(const QColor &one, const QColor &two)
{
    const auto a = perceived(one), b = perceived(two);
    return std::sqrt(std::pow(a[0] - b[0], 2) + std::pow(a[1] - b[1], 2) + std::pow(a[2] - b[2], 2));
}

} // namespace

class tst_PersonColor : public QObject
{
    Q_OBJECT

private slots:
    void measuresAsOthersDo();
    void isTheSameOnEveryBoard();
    void isReadOnWhite();
    void tellsADozenApart();
    void isThereForEveryNumber();
};

void tst_PersonColor::measuresAsOthersDo()
{
    QCOMPARE(std::round(contrastToWhite(Qt::black) * 100), 2100.0);
    QCOMPARE(std::round(contrastToWhite(QColor(0x76, 0x76, 0x76)) * 100), 454.0); // the lightest grey that is enough
    QCOMPARE(std::round(distance(Qt::black, Qt::white)), 100.0);
    QCOMPARE(std::round(distance(Qt::red, Qt::blue)), 176.0);
}

void tst_PersonColor::isTheSameOnEveryBoard()
{
    QCOMPARE(colorOf(1).name(), QStringLiteral("#0b72df"));
    QCOMPARE(colorOf(2).name(), QStringLiteral("#eb001e"));
    QCOMPARE(colorOf(12).name(), QStringLiteral("#232824"));
    QCOMPARE(colorOf(13).name(), QStringLiteral("#0b72df"));
    QCOMPARE(colorOf(1048576).name(), QStringLiteral("#c80cd6"));    // 2^20 is 4 more than a multiple of 12
    QCOMPARE(colorOf(1073741823).name(), QStringLiteral("#0a7f48")); // 3 more
}

void tst_PersonColor::isReadOnWhite()
{
    for (int author = 1; author <= 12; ++author)
        QVERIFY2(contrastToWhite(colorOf(author)) >= 4.5, qPrintable(colorOf(author).name()));
}

// Ten times what is just seen, and more.
void tst_PersonColor::tellsADozenApart()
{
    for (int one = 1; one <= 12; ++one) {
        for (int two = one + 1; two <= 12; ++two)
            QVERIFY2(distance(colorOf(one), colorOf(two)) >= 40, qPrintable(colorOf(one).name() + colorOf(two).name()));
    }
}

void tst_PersonColor::isThereForEveryNumber()
{
    for (const int author : {0, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        QVERIFY(colorOf(author).isValid() && colorOf(author).alpha() == 255);
}

QTEST_APPLESS_MAIN(tst_PersonColor)
#include "tst_PersonColor.moc"
