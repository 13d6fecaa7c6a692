#include "door/http/RequestHead.h"

#include <QtCore/QList>

#include <algorithm>
#include <cstring>

namespace InkDoor {

namespace {

constexpr int kMostFields = 64;

bool isTokenLetter(char letter)
{
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9') ||
           (letter != '\0' && std::strchr("!#$%&'*+-.^_`|~", letter) != nullptr);
}

bool isToken(const QByteArray &text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), isTokenLetter);
}

bool isPrintable(char letter)
{
    return letter > ' ' && letter < '\x7f';
}

// What can stand in a head at all.
bool isText(char letter)
{
    const auto code = static_cast<unsigned char>(letter);
    return (code >= ' ' && code != 0x7f) || letter == '\r' || letter == '\n' || letter == '\t';
}

bool readRequestLine(const QByteArray &line, RequestHead &head)
{
    const QList<QByteArray> words = line.split(' ');
    if (words.size() != 3 || !isToken(words[0]) || !words[1].startsWith('/') ||
        !std::all_of(words[1].begin(), words[1].end(), isPrintable) || words[2] != "HTTP/1.1")
        return false;
    head.method = words[0];
    head.path = words[1].split('?').first();
    return true;
}

// The fields that decide what becomes of the request.
struct Fields
{
    bool isUpgrade{};
    bool isToWebSocket{};
    bool hasKey{};
    bool hasVersion{};
    bool hasHost{};
};

bool readField(const QByteArray &line, Fields &fields)
{
    const int colon = line.indexOf(':');
    const QByteArray name = line.left(colon).toLower();
    const QByteArray value = line.mid(colon + 1).trimmed();
    if (colon < 0 || !isToken(name))
        return false;
    if (name == "transfer-encoding" || (name == "content-length" && value != "0"))
        return false;
    if (name == "upgrade")
        fields.isToWebSocket = value.toLower() == "websocket";
    else if (name == "sec-websocket-key")
        fields.hasKey = QByteArray::fromBase64(value).size() == 16;
    else if (name == "sec-websocket-version")
        fields.hasVersion = value == "13";
    else if (name == "host")
        fields.hasHost = true;
    else if (name == "connection")
        for (const QByteArray &word : value.toLower().split(','))
            fields.isUpgrade = fields.isUpgrade || word.trimmed() == "upgrade";
    return true;
}

} // namespace

HeadState readHead(const QByteArray &bytes, RequestHead &head)
{
    const int end = bytes.left(kMostHeadBytes).indexOf("\r\n\r\n");
    const QByteArray text = end < 0 ? bytes.left(kMostHeadBytes) : bytes.left(end);
    if ((!text.isEmpty() && !isTokenLetter(text[0])) || !std::all_of(text.begin(), text.end(), isText))
        return HeadState::Wrong;
    if (end < 0)
        return bytes.size() < kMostHeadBytes ? HeadState::Partial : HeadState::Wrong;
    QList<QByteArray> lines = text.split('\n');
    if (lines.size() > kMostFields + 1)
        return HeadState::Wrong;
    for (int i = 0; i < lines.size() - 1; ++i) {
        if (!lines[i].endsWith('\r'))
            return HeadState::Wrong;
        lines[i].chop(1);
    }
    Fields fields;
    if (!readRequestLine(lines.takeFirst(), head) ||
        !std::all_of(lines.begin(), lines.end(), [&](const QByteArray &line) { return readField(line, fields); }) ||
        !fields.hasHost)
        return HeadState::Wrong;
    head.asksForWebSocket =
        head.method == "GET" && fields.isUpgrade && fields.isToWebSocket && fields.hasKey && fields.hasVersion;
    return HeadState::Whole;
}

} // namespace InkDoor
