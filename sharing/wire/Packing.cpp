#include "sharing/wire/Packing.h"

#include <zstd.h>

namespace InkSharing {

QByteArray packed(const QByteArray &bytes)
{
    // What hands have drawn takes a sixth then, in three milliseconds for 256 KiB; higher levels cost far more than
    // they gain.
    constexpr int kLevel = 6;
    QByteArray frame(int(ZSTD_compressBound(std::size_t(bytes.size()))), Qt::Uninitialized);
    const std::size_t size =
        ZSTD_compress(frame.data(), std::size_t(frame.size()), bytes.constData(), std::size_t(bytes.size()), kLevel);
    if (ZSTD_isError(size) != 0)
        return {}; // there was no memory
    frame.resize(int(size));
    return frame;
}

std::optional<QByteArray> unpacked(const QByteArray &frame, int most)
{
    const unsigned long long size = ZSTD_getFrameContentSize(frame.constData(), std::size_t(frame.size()));
    if (size == ZSTD_CONTENTSIZE_UNKNOWN || size == ZSTD_CONTENTSIZE_ERROR ||
        size > static_cast<unsigned long long>(most))
        return std::nullopt;
    QByteArray bytes(int(size), Qt::Uninitialized);
    const std::size_t read =
        ZSTD_decompress(bytes.data(), std::size_t(bytes.size()), frame.constData(), std::size_t(frame.size()));
    return read == std::size_t(bytes.size()) ? std::make_optional(bytes) : std::nullopt;
}

} // namespace InkSharing
