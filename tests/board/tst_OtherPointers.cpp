#include "board/people/OtherPointers.h"

#include <QtGui/QPainter>
#include <QtTest/QtTest>

using namespace Board;

namespace {

constexpr QRect kWidget{0, 0, 400, 300};
constexpr QRgb kBlue = 0xFF0B72DF;
constexpr QRgb kWhite = 0xFFFFFFFF;

QPointF asItIs(const QPointF &page)
{
    return page;
}

OtherPointer ada(const QPointF &at)
{
    return {QStringLiteral("Ada"), QColor(kBlue), at};
}

QImage painted(const OtherPointers &pointers)
{
    QImage image(kWidget.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    pointers.paint(painter);
    return image;
}

QRect paintedArea(const QImage &image)
{
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != kWhite)
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

} // namespace

class tst_OtherPointers : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void pointsInTheColorOfThePerson();
    void followsTheView();
    void leavesOutWhoIsBeyondTheWidget_data();
    void leavesOutWhoIsBeyondTheWidget();
    void keepsTheNameInside_data();
    void keepsTheNameInside();
    void repaintsWhatHasChanged_data();
    void repaintsWhatHasChanged();
    void repaintsNothingThatStays();
    void isSwitchedOff();
    void boundsTheName();
    void keepsThePainter();

private:
    OtherPointers m_pointers;
};

void tst_OtherPointers::init()
{
    m_pointers = OtherPointers();
    m_pointers.setView(asItIs, kWidget);
}

// The tip is at the place, the name below it and to the right.
void tst_OtherPointers::pointsInTheColorOfThePerson()
{
    m_pointers.setPointers({ada({100.7, 50.2})});
    const QImage image = painted(m_pointers);
    QCOMPARE(image.pixel(102, 55), kBlue);
    QCOMPARE(image.pixel(102, 47), kWhite);
    QCOMPARE(image.pixel(97, 55), kWhite);
    QCOMPARE(image.pixel(115, 77), kBlue); // before the letters
    QVERIFY(paintedArea(image).left() >= 100 && paintedArea(image).top() >= 50);
}

void tst_OtherPointers::followsTheView()
{
    m_pointers.setPointers({ada({50, 25})});
    const QRegion changed = m_pointers.setView([](const QPointF &page) { return page * 2 + QPointF(100, 0); }, kWidget);
    QCOMPARE(painted(m_pointers).pixel(202, 55), kBlue);
    QVERIFY(changed.contains(QPoint(52, 30)) && changed.contains(QPoint(202, 55)));
}

void tst_OtherPointers::leavesOutWhoIsBeyondTheWidget_data()
{
    QTest::addColumn<QPointF>("at");
    QTest::newRow("left") << QPointF(-1, 50);
    QTest::newRow("below") << QPointF(50, 301);
    QTest::newRow("far away") << QPointF(1e300, 50);
    QTest::newRow("nowhere") << QPointF(qQNaN(), 50);
}

void tst_OtherPointers::leavesOutWhoIsBeyondTheWidget()
{
    QFETCH(QPointF, at);
    QVERIFY(m_pointers.setPointers({ada(at)}).isEmpty());
    QVERIFY(paintedArea(painted(m_pointers)).isEmpty());
}

void tst_OtherPointers::keepsTheNameInside_data()
{
    QTest::addColumn<QPointF>("at");
    QTest::addColumn<QPoint>("plate"); // a point of it, before the letters or behind them
    QTest::newRow("right") << QPointF(395, 100) << QPoint(386, 127);
    QTest::newRow("below") << QPointF(100, 295) << QPoint(115, 279);
    QTest::newRow("in the corner") << QPointF(395, 295) << QPoint(386, 279);
}

void tst_OtherPointers::keepsTheNameInside()
{
    QFETCH(QPointF, at);
    QFETCH(QPoint, plate);
    m_pointers.setPointers({ada(at)});
    QCOMPARE(painted(m_pointers).pixel(plate), kBlue);
}

void tst_OtherPointers::repaintsWhatHasChanged_data()
{
    QTest::addColumn<QList<QPointF>>("before");
    QTest::addColumn<QList<QPointF>>("after");
    QTest::newRow("comes") << QList<QPointF>{} << QList<QPointF>{{100, 100}};
    QTest::newRow("moves") << QList<QPointF>{{100, 100}} << QList<QPointF>{{103.5, 101.5}};
    QTest::newRow("moves far") << QList<QPointF>{{100, 100}} << QList<QPointF>{{390, 290}};
    QTest::newRow("goes") << QList<QPointF>{{100, 100}} << QList<QPointF>{};
    QTest::newRow("one of two") << QList<QPointF>{{100, 100}, {200, 200}} << QList<QPointF>{{100, 100}, {210, 190}};
}

// No pixel differs outside what is told.
void tst_OtherPointers::repaintsWhatHasChanged()
{
    QFETCH(QList<QPointF>, before);
    QFETCH(QList<QPointF>, after);
    const auto all = [](const QList<QPointF> &places) {
        QList<OtherPointer> pointers;
        for (const QPointF &at : places)
            pointers.append(ada(at));
        return pointers;
    };
    m_pointers.setPointers(all(before));
    const QImage first = painted(m_pointers);
    const QRegion changed = m_pointers.setPointers(all(after));
    const QImage second = painted(m_pointers);
    int missed = 0, differ = 0;
    for (int y = 0; y < second.height(); ++y) {
        for (int x = 0; x < second.width(); ++x) {
            const bool differs = first.pixel(x, y) != second.pixel(x, y);
            differ += differs;
            missed += differs && !changed.contains(QPoint(x, y));
        }
    }
    QCOMPARE(missed, 0);
    QVERIFY(differ > 100);
    QVERIFY(changed.boundingRect().width() * changed.rectCount() < 1000);
}

void tst_OtherPointers::repaintsNothingThatStays()
{
    m_pointers.setPointers({ada({100, 100}), ada({300, 200})});
    QVERIFY(m_pointers.setPointers({ada({100, 100}), ada({300, 200})}).isEmpty());
    QVERIFY(!m_pointers.setPointers({ada({100, 100}), ada({301, 200})}).contains(QPoint(102, 105)));
    QVERIFY(!m_pointers.setPointers({{QStringLiteral("Bea"), QColor(kBlue), {100, 100}}, ada({301, 200})}).isEmpty());
}

void tst_OtherPointers::isSwitchedOff()
{
    m_pointers.setPointers({ada({100, 100})});
    QVERIFY(m_pointers.setShown(false).contains(QPoint(102, 105)));
    QVERIFY(!m_pointers.isShown());
    QVERIFY(paintedArea(painted(m_pointers)).isEmpty());
    QVERIFY(m_pointers.setPointers({ada({200, 100})}).isEmpty());
    QVERIFY(m_pointers.setShown(true).contains(QPoint(202, 105)));
    QCOMPARE(painted(m_pointers).pixel(202, 105), kBlue);
}

// 150 pixels, and what is around it.
void tst_OtherPointers::boundsTheName()
{
    m_pointers.setPointers({{QString(64, QLatin1Char('W')) + QLatin1Char('\n'), QColor(kBlue), {100, 100}}});
    const QRect area = paintedArea(painted(m_pointers));
    QVERIFY2(area.width() > 140 && area.width() <= 11 + 150 + 12 && area.height() < 45,
             qPrintable(QStringLiteral("%1 %2").arg(area.width()).arg(area.height())));
}

void tst_OtherPointers::keepsThePainter()
{
    m_pointers.setPointers({ada({100, 100})});
    QImage image(kWidget.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setPen(QColor(kBlue));
    m_pointers.paint(painter);
    QCOMPARE(painter.pen().color(), QColor(kBlue));
    QVERIFY(!painter.testRenderHint(QPainter::Antialiasing));
}

QTEST_MAIN(tst_OtherPointers)
#include "tst_OtherPointers.moc"
