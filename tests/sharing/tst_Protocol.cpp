// What boards and doors tell each other in simulated lessons, against the grammar in the documents.

#include "Cddl.h"
#include "Simulation.h"

#include "sharing/wire/Message.h"
#include "sharing/wire/Packing.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>

namespace {

constexpr int kPacked = 8; // from a door

Cddl grammar()
{
    QFile file(QStringLiteral(PROTOCOL_CDDL));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return Cddl(QString::fromUtf8(file.readAll()));
}

} // namespace

TEST(Protocol, realTrafficFollowsTheGrammar)
{
    const Cddl cddl = grammar();
    ASSERT_EQ(cddl.rules().size(), 31);
    std::map<std::pair<bool, qint64>, int> kinds;
    const QTemporaryDir folder;
    int wrong = 0;
    std::set<std::pair<bool, QByteArray>> seen; // all boards are told the same
    const std::function<void(bool, const QByteArray &)> tap = [&](bool isToDoor, const QByteArray &message) {
        if (!seen.emplace(isToDoor, message).second)
            return;
        const QCborValue value = QCborValue::fromCbor(message);
        if (!isToDoor && value.toMap().value(0) == kPacked)
            tap(false,
                InkSharing::unpacked(value.toMap().value(1).toByteArray(), InkSharing::kMostMessageBytes).value());
        const QString problem = cddl.problem(isToDoor ? QStringLiteral("to-door") : QStringLiteral("from-door"), value);
        if (!problem.isEmpty() && ++wrong < 5)
            ADD_FAILURE() << problem.toStdString();
        ++kinds[{isToDoor, value.toMap().value(0).toInteger()}];
    };
    for (unsigned seed = 1; seed <= 5; ++seed)
        Simulator::simulate(seed, folder.path(), tap);
    EXPECT_EQ(wrong, 0);
    for (int kind = 1; kind <= 5; ++kind)
        EXPECT_GT((kinds[{true, kind}]), 0) << "of a board, " << kind;
    for (const int kind : {1, 2, 3, 5, 6, 7, kPacked})
        EXPECT_GT((kinds[{false, kind}]), 0) << "of a door, " << kind;
}

TEST(Protocol, theGrammarTellsRightFromWrong)
{
    using namespace InkSharing;
    const Cddl cddl = grammar();
    const QString from = QStringLiteral("from-door");
    EXPECT_EQ(cddl.problem(from, encoded(FromDoor(Refused{{7, 2}, Reason::NotYours}))), QString());
    EXPECT_NE(cddl.problem(from, encoded(FromDoor(Refused{{7, 2}, Reason(10)}))), QString());
    EXPECT_NE(cddl.problem(from, encoded(FromDoor(Refused{{0, 2}, Reason::NotYours}))), QString());
    EXPECT_NE(cddl.problem(from, QCborMap{{0, 5}, {1, 0}}), QString()) << "more than there may be";
    EXPECT_NE(cddl.problem(from, QCborMap{{0, 1}, {1, 7}}), QString()) << "less";
    EXPECT_NE(cddl.problem(from, QCborMap{{0, 2}, {1, 0}, {2, QCborArray{QByteArray("\x01")}}}), QString());
    EXPECT_NE(cddl.problem(QStringLiteral("no-such-rule"), QCborMap()), QString());
    const auto named = [&cddl](int letters) { // of three bytes each
        QCborMap presence = QCborValue::fromCbor(encoded(LiveMessage(Presence()))).toMap();
        presence[1] = QString(letters, QChar(0x20ac));
        return cddl.problem(QStringLiteral("presence"), presence);
    };
    EXPECT_EQ(named(64), QString());
    EXPECT_NE(named(65), QString());
    const Entry lesson = LessonEntry{{{200, 150}, 2}, QByteArray(32, 'h'), {1}};
    EXPECT_EQ(cddl.problem(QStringLiteral("entry"), encoded(lesson)), QString());
    EXPECT_NE(
        cddl.problem(QStringLiteral("entry"), encoded(Entry(LessonEntry{{{0, 150}, 2}, QByteArray(32, 'h'), {1}}))),
        QString());
}

int main(int argc, char *argv[])
{
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication app(argc, argv); // texts are drawn
    return RUN_ALL_TESTS();
}
