#pragma once

// Random input for comparisons of two ways to the same result.

#include <QtCore/QByteArray>

#include <cstddef>
#include <random>

// The same choices for the same seed, on every machine.
class Random
{
public:
    explicit Random(unsigned seed)
        : m_engine(seed)
    {
    }
    int below(int limit) { return int(m_engine() % unsigned(limit)); }
    int from(int low, int high) { return low + below(high - low + 1); }
    bool oneIn(int chances) { return below(chances) == 0; }
    template <typename T, std::size_t N>
    T of(const T (&choices)[N])
    {
        return choices[below(int(N))];
    }

private:
    std::mt19937 m_engine;
};

// How many cases a test is to try: what the environment says, or enough for every run.
inline unsigned caseCount(const char *variable, unsigned otherwise)
{
    return qEnvironmentVariableIsSet(variable) ? qgetenv(variable).toUInt() : otherwise;
}
