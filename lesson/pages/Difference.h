#pragma once

#include "lesson/Export.h"

#include <QtGui/QImage>

#include <cstddef>
#include <optional>
#include <vector>

namespace InkLesson {

// Where two pictures differ, as spans of pixels in each row.
class INKLESSON_EXPORT Difference
{
public:
    static constexpr std::size_t kMostSpans = 1 << 18;

    struct Span
    {
        int from;
        int to; // one more
    };

    // Of two pictures of one size, of four bytes a pixel. Nothing where there are more than kMostSpans.
    static std::optional<Difference> of(const QImage &before, const QImage &after);

    // Those of a row lie between the two, from the left to the right.
    const Span *begin(int y) const { return m_spans.data() + m_rows[std::size_t(y)]; }
    const Span *end(int y) const { return m_spans.data() + m_rows[std::size_t(y) + 1]; }

    int height() const { return int(m_rows.size()) - 1; }

private:
    std::vector<Span> m_spans;
    std::vector<std::size_t> m_rows{0}; // where the spans of each row begin; one more
};

} // namespace InkLesson
