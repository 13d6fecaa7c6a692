#pragma once

#include "lesson/Export.h"

#include <QtCore/QByteArray>
#include <QtCore/QSize>
#include <QtGui/QImage>

#include <cstddef>
#include <memory>
#include <vector>

namespace InkLesson {

class PageLayers;
class Workers;

// Page and ink of a page in less memory: as runs of pixels of which the background, the ink or one colour tells all,
// and of those that are kept as they are.
class INKLESSON_EXPORT PackedLayers
{
public:
    explicit PackedLayers(const PageLayers &layers);

    // With the background that they had, and a surface that shows the page. Null where there is not enough memory.
    // Takes the memory of `spare` where that is as large.
    std::unique_ptr<PageLayers> unpacked(QImage background, Workers *workers = nullptr,
                                         std::unique_ptr<PageLayers> spare = nullptr) const;

    std::size_t bytes() const;

    // All of it, to be read by the same program on the same machine.
    QByteArray toBytes() const;

    // Null for bytes that are no such layers of that size, whatever they are.
    static std::unique_ptr<PackedLayers> fromBytes(const QByteArray &bytes, const QSize &size);

private:
    explicit PackedLayers(const QSize &size)
        : m_size(size)
    {
    }

    using Runs = std::vector<quint32>;
    struct Part // some whole rows of the layers
    {
        Runs page;
        Runs ink;
    };

    const QSize m_size;
    std::vector<Part> m_parts{};
};

} // namespace InkLesson
