#include "Simulation.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>

#include <gtest/gtest.h>

// A seed that fails can be looked into as often as need be.
TEST(Simulation, aSeedReplaysExactly)
{
    const QTemporaryDir folder;
    for (unsigned seed = 1; seed <= 4; ++seed) {
        const Simulator::Outcome first = Simulator::simulate(seed, folder.path());
        const Simulator::Outcome again = Simulator::simulate(seed, folder.path());
        EXPECT_EQ(first.problem.toStdString(), "");
        EXPECT_EQ(first.digest, again.digest) << "seed " << seed;
        EXPECT_EQ(first.sights, again.sights) << "seed " << seed;
        EXPECT_EQ(first.milliseconds, again.milliseconds) << "seed " << seed;
        EXPECT_GT(first.entries, 5U);
    }
}

TEST(Simulation, anotherSeedIsAnotherLesson)
{
    const QTemporaryDir folder;
    EXPECT_NE(Simulator::simulate(1, folder.path()).digest, Simulator::simulate(2, folder.path()).digest);
}

int main(int argc, char *argv[])
{
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication app(argc, argv); // texts are drawn
    return RUN_ALL_TESTS();
}
