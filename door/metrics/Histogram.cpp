#include "door/metrics/Histogram.h"

#include "door/metrics/MetricText.h"

#include <algorithm>

namespace InkDoor {

void Histogram::add(qint64 nanoseconds)
{
    constexpr double kSecond = 1e9;
    const double seconds = static_cast<double>(std::max<qint64>(nanoseconds, 0)) / kSecond;
    const auto bound = std::lower_bound(kBounds.begin(), kBounds.end(), seconds);
    ++m_counts[static_cast<std::size_t>(bound - kBounds.begin())];
    m_sum += seconds;
}

QByteArray Histogram::text(const QByteArray &name, const QByteArray &help) const
{
    QByteArray all = metricHead(name, help, "histogram");
    quint64 count = 0;
    for (std::size_t i = 0; i < m_counts.size(); ++i) {
        count += m_counts[i];
        const QByteArray bound = i < kBounds.size() ? QByteArray::number(kBounds[i]) : QByteArray("+Inf");
        all += name + "_bucket{le=\"" + bound + "\"} " + QByteArray::number(count) + '\n';
    }
    return all + name + "_sum " + QByteArray::number(m_sum, 'g', 12) + '\n' + name + "_count " +
           QByteArray::number(count) + '\n';
}

} // namespace InkDoor
