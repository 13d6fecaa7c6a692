#include "door/http/Site.h"

namespace InkDoor {

HttpAnswer Site::answer(const RequestHead &request) const
{
    if (request.method != "GET" && request.method != "HEAD")
        return {405, "only GET and HEAD\n"};
    if (request.path == "/health")
        return isWell() ? HttpAnswer{200, "well\n"} : HttpAnswer{503, "the engine cannot be reached\n"};
    if (request.path == "/version")
        return {200, version + '\n'};
    if (request.path == "/metrics")
        return {200, metrics(), "text/plain; version=0.0.4; charset=utf-8"};
    return {404, "there is nothing here\n"};
}

} // namespace InkDoor
