#include "board/look/Cursors.h"

#include <QtTest/QtTest>

using namespace Board;

class tst_Cursors : public QObject
{
    Q_OBJECT

private slots:
    void turnsWithTheObject_data();
    void turnsWithTheObject();
    void doesNotTurnInside();
    void paintsItsOwnForTheKnob();
    void circlesTheTrueSize_data();
    void circlesTheTrueSize();
    void pointsAtASmallCircle();
};

void tst_Cursors::turnsWithTheObject_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<float>("angle");
    QTest::addColumn<int>("shape");

    const auto row = [](const char *name, ModifyType type, float angle, Qt::CursorShape shape) {
        QTest::newRow(name) << int(type) << angle << int(shape);
    };
    row("top", MT_TOP, 0, Qt::SizeVerCursor);
    row("bottom", MT_BOTTOM, 0, Qt::SizeVerCursor);
    row("left", MT_LEFT, 0, Qt::SizeHorCursor);
    row("right", MT_RIGHT, 0, Qt::SizeHorCursor);
    row("top left", MT_LEFT_TOP, 0, Qt::SizeFDiagCursor);
    row("bottom right", MT_RIGHT_BOTTOM, 0, Qt::SizeFDiagCursor);
    row("top right", MT_RIGHT_TOP, 0, Qt::SizeBDiagCursor);
    row("bottom left", MT_LEFT_BOTTOM, 0, Qt::SizeBDiagCursor);
    row("top, not yet turned", MT_TOP, 22, Qt::SizeVerCursor);
    row("top, turned a little", MT_TOP, 23, Qt::SizeBDiagCursor);
    row("top, at 45", MT_TOP, 45, Qt::SizeBDiagCursor);
    row("top, at 90", MT_TOP, 90, Qt::SizeHorCursor);
    row("top, at 135", MT_TOP, 135, Qt::SizeFDiagCursor);
    row("top, at 180", MT_TOP, 180, Qt::SizeVerCursor);
    row("top, all around", MT_TOP, 359, Qt::SizeVerCursor);
    row("right, at 45", MT_RIGHT, 45, Qt::SizeFDiagCursor);
    row("top left, at 45", MT_LEFT_TOP, 45, Qt::SizeVerCursor);
    row("bottom right, at 270", MT_RIGHT_BOTTOM, 270, Qt::SizeBDiagCursor);
}

void tst_Cursors::turnsWithTheObject()
{
    QFETCH(int, type);
    QFETCH(float, angle);
    QFETCH(int, shape);
    QCOMPARE(int(cursorFor(ModifyType(type), angle).shape()), shape);
}

void tst_Cursors::doesNotTurnInside()
{
    QCOMPARE(cursorFor(MT_MOVE, 90).shape(), Qt::SizeAllCursor);
    QCOMPARE(cursorFor(MT_NONE, 90).shape(), Qt::CrossCursor);
}

void tst_Cursors::paintsItsOwnForTheKnob()
{
    const QCursor cursor = cursorFor(MT_ROTATE, 0);
    QCOMPARE(cursor.shape(), Qt::BitmapCursor);
    QCOMPARE(cursor.pixmap().size(), QSize(24, 24));
    QCOMPARE(cursor.hotSpot(), QPoint(12, 12));
}

void tst_Cursors::circlesTheTrueSize_data()
{
    QTest::addColumn<int>("diameter");
    for (const int diameter : {12, 14, 20, 40})
        QTest::addRow("%d", diameter) << diameter;
}

// Dark ink from edge to edge along the middle row, light ink right inside, and nothing around.
void tst_Cursors::circlesTheTrueSize()
{
    QFETCH(int, diameter);
    const QCursor cursor = circleCursor(diameter);
    const QImage image = cursor.pixmap().toImage();
    const QPoint middle = cursor.hotSpot();
    QRect ink;
    bool dark = false;
    bool light = false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.alpha() < 100)
                continue;
            ink |= QRect(x, y, 1, 1);
            dark = dark || color.lightness() < 80;
            light = light || color.lightness() > 160;
        }
    }
    QVERIFY(dark && light);
    const int half = diameter / 2;
    QCOMPARE(ink, QRect(middle - QPoint(half, half), QSize(2 * half, 2 * half)));
}

// Four pixels across; the ticks begin two pixels beside it and are five long.
void tst_Cursors::pointsAtASmallCircle()
{
    const QCursor cursor = circleCursor(4);
    const QImage image = cursor.pixmap().toImage();
    const QPoint middle = cursor.hotSpot();
    for (const QPoint &end : {QPoint(8, 0), QPoint(-9, 0), QPoint(0, 8), QPoint(0, -9)}) {
        QVERIFY(image.pixelColor(middle + end).alpha() == 255);
        QVERIFY(image.pixelColor(middle + end * 3 / 8).alpha() == 0);
    }
    QVERIFY(image.pixelColor(middle + QPoint(1, 0)).alpha() > 0);
}

QTEST_MAIN(tst_Cursors)
#include "tst_Cursors.moc"
