#pragma once

#include <QtCore/QByteArray>

#include <optional>

namespace InkSharing {

// The same in fewer bytes, as one frame of Zstandard (RFC 8878).
QByteArray packed(const QByteArray &bytes);

// Nothing where it is no such frame, or one of more than `most` bytes, for which no room is made.
std::optional<QByteArray> unpacked(const QByteArray &frame, int most);

} // namespace InkSharing
