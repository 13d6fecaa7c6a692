// Runs a harness without a fuzzing engine: on the files of folders, or on inputs derived from them.
//
//     replay FOLDER              each file once
//     replay FOLDER SEED COUNT   COUNT inputs, each made from files of the folder by cutting, joining and overwriting

#include "Input.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

namespace {

using Input = std::vector<std::uint8_t>;

constexpr std::size_t kLongest = 1024;

std::vector<Input> readFolder(const QString &folder)
{
    std::vector<Input> inputs;
    const QDir dir(folder);
    for (const QString &name : dir.entryList(QDir::Files, QDir::Name)) {
        QFile file(dir.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray bytes = file.readAll();
        inputs.emplace_back(bytes.begin(), bytes.end());
    }
    return inputs;
}

// The same inputs for the same seed with every standard library: only raw numbers are drawn.
class Mutator
{
public:
    Mutator(const std::vector<Input> &seeds, unsigned seed)
        : m_seeds(seeds)
        , m_random(seed)
    {
    }

    Input next()
    {
        Input input = m_seeds[below(m_seeds.size())];
        const std::size_t changes = 1 + below(6);
        for (std::size_t i = 0; i < changes; ++i)
            change(input);
        input.resize(std::min(input.size(), kLongest));
        return input;
    }

private:
    std::size_t below(std::size_t count) { return count == 0 ? 0 : m_random() % count; }

    void change(Input &input)
    {
        const std::size_t at = below(input.size() + 1);
        switch (below(5)) {
        case 0:
            input.resize(at);
            break;
        case 1: {
            const Input &other = m_seeds[below(m_seeds.size())];
            const auto from = other.begin() + std::ptrdiff_t(below(other.size() + 1));
            input.insert(input.begin() + std::ptrdiff_t(at), from, other.end());
            break;
        }
        case 2:
            input.insert(input.begin() + std::ptrdiff_t(at), std::uint8_t(m_random()));
            break;
        default:
            if (at < input.size())
                input[at] = std::uint8_t(m_random());
        }
    }

    const std::vector<Input> &m_seeds;
    std::mt19937 m_random;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2 && argc != 4) {
        std::fprintf(stderr, "usage: %s FOLDER [SEED COUNT]\n", argv[0]);
        return 2;
    }
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const std::vector<Input> inputs = readFolder(QString::fromLocal8Bit(argv[1]));
    if (inputs.empty()) {
        std::fprintf(stderr, "no inputs in %s\n", argv[1]);
        return 2;
    }
    if (argc == 2) {
        for (const Input &input : inputs)
            Fuzz::run(input.data(), input.size());
        return 0;
    }
    Mutator mutator(inputs, unsigned(std::strtoul(argv[2], nullptr, 10)));
    const unsigned long count = std::strtoul(argv[3], nullptr, 10);
    for (unsigned long i = 0; i < count; ++i) {
        const Input input = mutator.next();
        Fuzz::run(input.data(), input.size());
    }
    return 0;
}
