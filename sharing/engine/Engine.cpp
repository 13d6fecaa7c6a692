#include "sharing/engine/Engine.h"

#include <algorithm>

namespace InkSharing {

StreamListener::~StreamListener() = default;
Stream::~Stream() = default;
Engine::~Engine() = default;

bool isLessonName(const QString &name)
{
    constexpr int kLongest = 64;
    const auto isLetter = [](QChar c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
    };
    return !name.isEmpty() && name.size() <= kLongest && std::all_of(name.begin(), name.end(), isLetter);
}

} // namespace InkSharing
