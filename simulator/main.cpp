// simulate COUNT [FIRST]: so many seeds from the first on. Says what is wrong with which, and what has come about.

#include "Simulation.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>

#include <cstdio>

int main(int argc, char *argv[])
{
    const QGuiApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    const unsigned count = arguments.size() > 1 ? arguments[1].toUInt() : 1;
    const unsigned first = arguments.size() > 2 ? arguments[2].toUInt() : 1;
    const QTemporaryDir folder;
    std::vector<quint64> sights(std::size_t(Simulator::Sight::Count));
    unsigned wrong = 0;
    for (unsigned seed = first; seed < first + count; ++seed) {
        const Simulator::Outcome outcome = Simulator::simulate(seed, folder.path());
        for (std::size_t i = 0; i < sights.size(); ++i)
            sights[i] += outcome.sights[i];
        if (count == 1)
            std::printf("seed %u: %llu entries, %lld s, %s\n", seed, outcome.entries, outcome.milliseconds / 1000,
                        outcome.digest.constData());
        if (outcome.problem.isEmpty())
            continue;
        ++wrong;
        std::printf("seed %u: %s\n", seed, qPrintable(outcome.problem));
        std::fflush(stdout);
    }
    unsigned missing = 0;
    for (std::size_t i = 0; i < sights.size(); ++i) {
        std::printf("%-22s %llu\n", Simulator::nameOf(Simulator::Sight(i)), sights[i]);
        missing += sights[i] == 0 ? 1 : 0;
    }
    std::printf("%u seeds, %u wrong, %u kinds of faults or races that never came about\n", count, wrong, missing);
    return wrong == 0 && (missing == 0 || count < 100) ? 0 : 1;
}
