#pragma once

#include <QtCore/QByteArray>

#include <array>

namespace InkDoor {

// How long something took, in steps that a person can feel or not.
class Histogram
{
public:
    void add(qint64 nanoseconds);

    // In the text format of Prometheus, in seconds.
    QByteArray text(const QByteArray &name, const QByteArray &help) const;

private:
    static constexpr std::array<double, 12> kBounds{0.0002, 0.0005, 0.001, 0.002, 0.005, 0.01,
                                                    0.025,  0.05,   0.1,   0.5,   2.0,   5.0}; // s

    std::array<quint64, kBounds.size() + 1> m_counts{}; // the last beyond all bounds
    double m_sum{};                                     // s
};

} // namespace InkDoor
