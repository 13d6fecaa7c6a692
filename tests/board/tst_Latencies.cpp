#include "board/sharing/Latencies.h"

#include <QtTest/QtTest>

using namespace Board;
using namespace InkSharing;

namespace {

constexpr int kPen = 7; // an author

std::vector<InkLesson::Act> acts(int count)
{
    return std::vector<InkLesson::Act>(std::size_t(count), InkLesson::PointerAct{5, {3, 4}});
}

InkLesson::Record drawn(int number, int count, qint64 time)
{
    InkLesson::Life life{QStringLiteral("pencil")};
    life.canvas = {200, 150};
    life.acts = acts(count);
    return {{kPen, number}, number, time, InkLesson::kFirstPage, InkLesson::Draw{life}};
}

// So many acts after so many, the first of them done at that time.
QByteArray told(int taken, int from, int count, qint64 time)
{
    InkLesson::Change change{{kPen, 1}};
    change.acts = acts(count);
    const InkLesson::Record later{{kPen, 1}, 1, 0, InkLesson::kFirstPage, change};
    return encoded(LiveMessage(LiveActs{taken, quint64(from), from == 0 ? drawn(1, count, 0) : later, {}, time}));
}

QByteArray dropped(int taken, int number)
{
    return encoded(LiveMessage(LiveDrop{taken, number}));
}

} // namespace

class tst_Latencies : public QObject
{
    Q_OBJECT

private slots:
    void thePointInTheMiddleCounts();
    void theLastPartEndsWithTheObject();
    void aPointThatComesWithTheRecordCountsFromItsEnd();
    void whatWasNotSeenCountsFromItsEnd();
    void whatHasLeftNoMarkIsPassedOver();
    void actsAfterAGapAreNotShown();
};

// Ten acts, four of which came at first, and then four that were done from 1040 to 1080: that of place five at 1050.
void tst_Latencies::thePointInTheMiddleCounts()
{
    Latencies latencies;
    latencies.shown(kPen, told(1, 0, 4, 1000), 1900);
    latencies.shown(kPen, told(1, 4, 4, 1040), 1085);
    latencies.shown(kPen, told(1, 8, 2, 1080), 1800);
    QCOMPARE(latencies.settled(drawn(1, 10, 1110), 1500), qint64(35));
}

// The last that was told was done until the object was at its end.
void tst_Latencies::theLastPartEndsWithTheObject()
{
    Latencies latencies;
    latencies.shown(kPen, told(1, 0, 4, 1000), 1050);
    QCOMPARE(latencies.settled(drawn(1, 5, 1040), 1100), qint64(30));
}

void tst_Latencies::aPointThatComesWithTheRecordCountsFromItsEnd()
{
    Latencies latencies;
    latencies.shown(kPen, told(1, 0, 2, 1000), 1020);
    QCOMPARE(latencies.settled(drawn(1, 4, 1030), 1100), qint64(70));
}

void tst_Latencies::whatWasNotSeenCountsFromItsEnd()
{
    Latencies latencies;
    QCOMPARE(latencies.settled(drawn(1, 3, 1030), 1042), qint64(12));
}

// The record of one object may come once the next is in the hand.
void tst_Latencies::whatHasLeftNoMarkIsPassedOver()
{
    Latencies latencies;
    latencies.shown(kPen, told(1, 0, 2, 1000), 1900);
    latencies.shown(kPen, dropped(1, 4), 1900);
    latencies.shown(kPen, told(2, 0, 2, 2000), 2033);
    latencies.shown(kPen, dropped(2, 5), 2050);
    latencies.shown(kPen, told(3, 0, 2, 2100), 2177);
    QCOMPARE(latencies.settled(drawn(5, 2, 2020), 2200), qint64(23));
    QCOMPARE(latencies.settled(drawn(6, 2, 2110), 2300), qint64(72));
}

void tst_Latencies::actsAfterAGapAreNotShown()
{
    Latencies latencies;
    latencies.shown(kPen, told(1, 0, 2, 1000), 1020);
    latencies.shown(kPen, told(1, 4, 2, 1100), 1900);
    latencies.shown(kPen, told(1, 2, 2, 1090), 1130);
    latencies.shown(kPen, told(1, 0, 2, 1000), 2000); // for somebody who has asked
    QCOMPARE(latencies.settled(drawn(1, 4, 1140), 1150), qint64(40));
}

QTEST_GUILESS_MAIN(tst_Latencies)
#include "tst_Latencies.moc"
