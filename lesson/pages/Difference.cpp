#include "lesson/pages/Difference.h"

#include <algorithm>
#include <cstring>

namespace InkLesson {

std::optional<Difference> Difference::of(const QImage &before, const QImage &after)
{
    Difference difference;
    const int width = before.width();
    for (int y = 0; y < before.height(); ++y) {
        const auto *first = reinterpret_cast<const QRgb *>(before.constScanLine(y));
        const auto *second = reinterpret_cast<const QRgb *>(after.constScanLine(y));
        const bool isAlike = std::memcmp(first, second, std::size_t(width) * sizeof(QRgb)) == 0;
        for (int x = isAlike ? width : 0; x < width;) {
            x = int(std::mismatch(first + x, first + width, second + x).first - first);
            const int from = x;
            while (x < width && first[x] != second[x])
                ++x;
            if (x > from)
                difference.m_spans.push_back({from, x});
        }
        if (difference.m_spans.size() > kMostSpans)
            return std::nullopt;
        difference.m_rows.push_back(difference.m_spans.size());
    }
    return difference;
}

} // namespace InkLesson
