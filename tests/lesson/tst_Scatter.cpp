#include "lesson/objects/Scatter.h"

#include <QtTest/QtTest>

using namespace InkLesson;

class tst_Scatter : public QObject
{
    Q_OBJECT

private slots:
    void staysWithinTheDisc();
    void coversTheDiscEvenly();
    void repeatsItselfWithTheSameSeed();
    void followsAPath();
};

namespace {

constexpr int kWidth = 30; // 60 pixels around
const QPoint kMiddle(100, 100);

std::vector<QPoint> manyDots()
{
    Scatter scatter(7);
    std::vector<QPoint> dots;
    while (dots.size() < 40000) {
        const std::vector<QPoint> some = scatter.around(kMiddle, kWidth);
        dots.insert(dots.end(), some.begin(), some.end());
    }
    return dots;
}

} // namespace

void tst_Scatter::staysWithinTheDisc()
{
    for (const QPoint &dot : manyDots()) {
        const QPointF fromMiddle = QPointF(dot) + QPointF(0.5, 0.5) - kMiddle;
        QVERIFY(QPointF::dotProduct(fromMiddle, fromMiddle) < 61 * 61);
    }
}

// Four rings of one area each, up to 30, 42.4, 52 and 60 pixels, and four quarters: a sixteenth of the dots in each.
void tst_Scatter::coversTheDiscEvenly()
{
    int counts[4][4] = {};
    const std::vector<QPoint> dots = manyDots();
    for (const QPoint &dot : dots) {
        const QPointF fromMiddle = QPointF(dot) + QPointF(0.5, 0.5) - kMiddle;
        const int ring = std::min(3, int(QPointF::dotProduct(fromMiddle, fromMiddle) / 900));
        const int quarter = (fromMiddle.x() < 0 ? 1 : 0) + (fromMiddle.y() < 0 ? 2 : 0);
        ++counts[ring][quarter];
    }
    for (const auto &ring : counts) {
        for (const int count : ring)
            QVERIFY2(count > 2300 && count < 2700, qPrintable(QString::number(count)));
    }
}

void tst_Scatter::repeatsItselfWithTheSameSeed()
{
    Scatter first(3);
    Scatter second(3);
    Scatter other(4);
    const auto dots = first.around(kMiddle, kWidth);
    QCOMPARE(dots, second.around(kMiddle, kWidth));
    QVERIFY(dots != other.around(kMiddle, kWidth));
    QVERIFY(dots != first.around(kMiddle, kWidth)); // and goes on
    QVERIFY(dots.size() > 1);
}

void tst_Scatter::followsAPath()
{
    const Gesture gesture = Scatter(3).along({{10, 20}, {300, 20}}, 2);
    QCOMPARE(gesture.front(), QPoint(10, 20));
    QCOMPARE(gesture.back(), QPoint(300, 20));
    const auto isNear = [](const QPoint &dot, int x) { return std::abs(dot.x() - x) <= 5; };
    QCOMPARE(std::count_if(gesture.begin(), gesture.end(), [&](const QPoint &dot) { return isNear(dot, 10); }), 7);
    QCOMPARE(std::count_if(gesture.begin(), gesture.end(), [&](const QPoint &dot) { return isNear(dot, 300); }), 7);
}

QTEST_MAIN(tst_Scatter)
#include "tst_Scatter.moc"
