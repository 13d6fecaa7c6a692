#include "door/http/Answer.h"

namespace InkDoor {

namespace {

QByteArray reasonOf(int status)
{
    switch (status) {
    case 200:
        return "OK";
    case 400:
        return "Bad Request";
    case 404:
        return "Not Found";
    case 405:
        return "Method Not Allowed";
    case 503:
        return "Service Unavailable";
    default:
        return "Error";
    }
}

} // namespace

QByteArray toBytes(const HttpAnswer &answer, bool isHeadAlone)
{
    return "HTTP/1.1 " + QByteArray::number(answer.status) + ' ' + reasonOf(answer.status) +
           "\r\n"
           "Content-Type: " +
           answer.type + "\r\nContent-Length: " + QByteArray::number(answer.body.size()) +
           "\r\n"
           "Cache-Control: no-store\r\n"
           "X-Content-Type-Options: nosniff\r\n"
           "Connection: close\r\n"
           "\r\n" +
           (isHeadAlone ? QByteArray() : answer.body);
}

} // namespace InkDoor
