#pragma once

#include <QtCore/QByteArray>

#include <functional>
#include <map>
#include <vector>

namespace InkSharing {

constexpr int kLargeBytes = 64 << 10; // what a record holds in one piece beyond this travels by itself

// A record as it travels: pictures, and the acts of very long strokes, are replaced by their hashes.
struct Detached
{
    QByteArray record;
    std::vector<QByteArray> hashes{};
    std::map<QByteArray, QByteArray> contents{}; // by their hashes
};
Detached detached(const QByteArray &record);

// The record with its contents in their places again, byte for byte. Empty where one is not to be had, or the record is
// none.
QByteArray attached(const QByteArray &record, const std::function<QByteArray(const QByteArray &hash)> &content);

} // namespace InkSharing
