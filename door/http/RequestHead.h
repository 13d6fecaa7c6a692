#pragma once

#include <QtCore/QByteArray>

namespace InkDoor {

constexpr int kMostHeadBytes = 8192; // of a request up to the empty line

// The first lines of an HTTP request, as far as anybody here asks for them.
struct RequestHead
{
    QByteArray method;
    QByteArray path; // without what follows a question mark
    bool asksForWebSocket{};
};

enum class HeadState {
    Partial, // what is there may become one
    Whole,
    Wrong, // no more than that is read of it
};

// Reads the head that `bytes` begin with. A request with a body is wrong: there is nothing to be sent here.
HeadState readHead(const QByteArray &bytes, RequestHead &head);

} // namespace InkDoor
