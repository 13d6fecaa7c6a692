#pragma once

#include "door/http/Answer.h"
#include "door/http/RequestHead.h"

#include <functional>

namespace InkDoor {

// What the door answers over HTTP: whether it is well, which version it has, what it counts.
struct Site
{
    std::function<bool()> isWell; // the engine can be reached
    QByteArray version;
    std::function<QByteArray()> metrics;

    HttpAnswer answer(const RequestHead &request) const;
};

} // namespace InkDoor
