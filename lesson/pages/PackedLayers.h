#pragma once

#include "lesson/Export.h"

#include <QtCore/QSize>
#include <QtGui/QImage>

#include <cstddef>
#include <memory>
#include <vector>

namespace InkLesson {

class PageLayers;

// Page and ink of a page in less memory: as runs of pixels of which the background, the ink or one colour tells all,
// and of those that are kept as they are.
class INKLESSON_EXPORT PackedLayers
{
public:
    explicit PackedLayers(const PageLayers &layers);

    // With the background that they had. Null where there is not enough memory.
    std::unique_ptr<PageLayers> unpacked(QImage background) const;

    std::size_t bytes() const { return (m_page.capacity() + m_ink.capacity()) * sizeof(m_page[0]); }

private:
    const QSize m_size;
    std::vector<quint32> m_page;
    std::vector<quint32> m_ink;
};

} // namespace InkLesson
