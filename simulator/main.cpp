// simulate [COUNT [FIRST [PROCESSES]]]: so many seeds from the first on. Says what is wrong with which, and what has
// come about in all. From 300 seeds on, everything has to come about.

#include "Simulation.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>

#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned kSurely = 300; // seeds, in which everything comes about

struct Sums
{
    quint64 wrong{};
    quint64 sights[std::size_t(Simulator::Sight::Count)]{};
};

// Every so manieth seed.
Sums play(unsigned count, unsigned first, unsigned stride, bool tellsEach)
{
    const QTemporaryDir folder;
    Sums sums;
    for (unsigned seed = first; seed < first + count; seed += stride) {
        const Simulator::Outcome outcome = Simulator::simulate(seed, folder.path());
        for (std::size_t i = 0; i < outcome.sights.size(); ++i)
            sums.sights[i] += outcome.sights[i];
        if (tellsEach)
            std::printf("seed %u: %llu entries, %lld s, %s\n", seed, outcome.entries, outcome.milliseconds / 1000,
                        outcome.digest.constData());
        if (outcome.problem.isEmpty())
            continue;
        ++sums.wrong;
        std::printf("seed %u: %s\n", seed, qPrintable(outcome.problem));
        std::fflush(stdout);
    }
    return sums;
}

// In processes of their own. One that ends early is an error of each of its seeds.
Sums playInParts(unsigned count, unsigned first, unsigned processes)
{
    std::vector<int> results;
    for (unsigned part = 0; part < processes; ++part) {
        int ends[2];
        if (pipe(ends) != 0)
            return {count, {}};
        if (fork() == 0) {
            const Sums sums = count > part ? play(count - part, first + part, processes, false) : Sums();
            const bool isWritten = write(ends[1], &sums, sizeof sums) == sizeof sums;
            std::fflush(stdout);
            _exit(isWritten ? 0 : 1);
        }
        close(ends[1]);
        results.push_back(ends[0]);
    }
    Sums all;
    for (const int result : results) {
        Sums sums;
        if (read(result, &sums, sizeof sums) != sizeof sums)
            sums = {count / processes, {}};
        all.wrong += sums.wrong;
        for (std::size_t i = 0; i < std::size(all.sights); ++i)
            all.sights[i] += sums.sights[i];
        close(result);
        wait(nullptr);
    }
    return all;
}

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    const unsigned count = arguments.size() > 1 ? arguments[1].toUInt() : kSurely;
    const unsigned first = arguments.size() > 2 ? arguments[2].toUInt() : 1;
    const unsigned processes = arguments.size() > 3 ? std::max(1U, arguments[3].toUInt()) : 1;
    const Sums sums = processes > 1 ? playInParts(count, first, processes) : play(count, first, 1, count == 1);
    unsigned missing = 0;
    for (std::size_t i = 0; i < std::size(sums.sights); ++i) {
        std::printf("%-22s %llu\n", Simulator::nameOf(Simulator::Sight(i)), sums.sights[i]);
        missing += sums.sights[i] == 0 ? 1 : 0;
    }
    std::printf("%u seeds, %llu wrong, %u kinds of faults or races that never came about\n", count, sums.wrong,
                missing);
    return sums.wrong == 0 && (missing == 0 || count < kSurely) ? 0 : 1;
}
