#include "door/http/RequestHead.h"

#include <gtest/gtest.h>

using namespace InkDoor;

namespace {

RequestHead head;

HeadState read(const QByteArray &bytes)
{
    head = {};
    return readHead(bytes, head);
}

const QByteArray kUpgrade = "GET /socket HTTP/1.1\r\n"
                            "Host: 127.0.0.1\r\n"
                            "Connection: keep-alive, Upgrade\r\n"
                            "Upgrade: WebSocket\r\n"
                            "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n"
                            "Sec-WebSocket-Version: 13\r\n"
                            "\r\n";

} // namespace

TEST(RequestHead, isTakenApart)
{
    ASSERT_EQ(read("GET /health?now=1 HTTP/1.1\r\nHost: a\r\n\r\nrest"), HeadState::Whole);
    EXPECT_EQ(head.method, "GET");
    EXPECT_EQ(head.path, "/health");
    EXPECT_FALSE(head.asksForWebSocket);
}

TEST(RequestHead, asksForAWebSocketWithAllThatThisTakes)
{
    ASSERT_EQ(read(kUpgrade), HeadState::Whole);
    EXPECT_EQ(head.path, "/socket");
    EXPECT_TRUE(head.asksForWebSocket);
    for (const char *needed : {"Upgrade: WebSocket\r\n", "Connection: keep-alive, Upgrade\r\n",
                               "Sec-WebSocket-Version: 13\r\n", "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n"}) {
        ASSERT_EQ(read(QByteArray(kUpgrade).replace(needed, "")), HeadState::Whole);
        EXPECT_FALSE(head.asksForWebSocket) << needed;
    }
    ASSERT_EQ(read(QByteArray(kUpgrade).replace("GET", "PUT")), HeadState::Whole);
    EXPECT_FALSE(head.asksForWebSocket);
    ASSERT_EQ(read(QByteArray(kUpgrade).replace(": 13", ": 8")), HeadState::Whole);
    EXPECT_FALSE(head.asksForWebSocket);
}

TEST(RequestHead, isPartialUpToTheEmptyLine)
{
    for (int length = 0; length < kUpgrade.size(); ++length)
        ASSERT_EQ(read(kUpgrade.left(length)), HeadState::Partial) << length;
}

TEST(RequestHead, isWrongAtItsFirstWrongByte)
{
    EXPECT_EQ(read("\x16\x03\x01"), HeadState::Wrong); // TLS
    EXPECT_EQ(read("GET /\x01"), HeadState::Wrong);
    EXPECT_EQ(read(QByteArray("GET\0", 4)), HeadState::Wrong);
    EXPECT_EQ(read("\r\n"), HeadState::Wrong);
    EXPECT_EQ(read(" GET"), HeadState::Wrong);
}

TEST(RequestHead, isWrongInAnyOtherForm)
{
    EXPECT_EQ(read("GET / HTTP/1.0\r\nHost: a\r\n\r\n"), HeadState::Wrong);
    EXPECT_EQ(read("GET / HTTP/1.1\r\n\r\n"), HeadState::Wrong); // no host
    EXPECT_EQ(read("GET  / HTTP/1.1\r\nHost: a\r\n\r\n"), HeadState::Wrong);
    EXPECT_EQ(read("GET http://a/ HTTP/1.1\r\nHost: a\r\n\r\n"), HeadState::Wrong);
    EXPECT_EQ(read("GET /\xc3\xa4 HTTP/1.1\r\nHost: a\r\n\r\n"), HeadState::Wrong);
    EXPECT_EQ(read("GET / HTTP/1.1\nHost: a\r\n\r\n"), HeadState::Wrong);
    EXPECT_EQ(read("GET / HTTP/1.1\r\nHost: a\r\nno colon\r\n\r\n"), HeadState::Wrong);
    EXPECT_EQ(read("GET / HTTP/1.1\r\nHost: a\r\n folded: b\r\n\r\n"), HeadState::Wrong);
    EXPECT_EQ(read("GET / HTTP/1.1\r\nHost : a\r\n\r\n"), HeadState::Wrong);
}

TEST(RequestHead, hasNoBody)
{
    EXPECT_EQ(read("POST / HTTP/1.1\r\nHost: a\r\nContent-Length: 0\r\n\r\n"), HeadState::Whole);
    EXPECT_EQ(read("POST / HTTP/1.1\r\nHost: a\r\nContent-Length: 1\r\n\r\n"), HeadState::Wrong);
    EXPECT_EQ(read("POST / HTTP/1.1\r\nHost: a\r\nTransfer-Encoding: chunked\r\n\r\n"), HeadState::Wrong);
}

TEST(RequestHead, hasBounds)
{
    const QByteArray start = "GET / HTTP/1.1\r\nHost: a\r\nx: ";
    EXPECT_EQ(read(start + QByteArray(8192 - 4 - start.size(), 'x') + "\r\n\r\n"), HeadState::Whole);
    EXPECT_EQ(read(start + QByteArray(8192 - 3 - start.size(), 'x') + "\r\n\r\n"), HeadState::Wrong);
    EXPECT_EQ(read(start + QByteArray(8191 - start.size(), 'x')), HeadState::Partial);
    EXPECT_EQ(read(start + QByteArray(8192 - start.size(), 'x')), HeadState::Wrong);
    const QByteArray field = "a: b\r\n";
    EXPECT_EQ(read("GET / HTTP/1.1\r\nHost: a\r\n" + field.repeated(63) + "\r\n"), HeadState::Whole);
    EXPECT_EQ(read("GET / HTTP/1.1\r\nHost: a\r\n" + field.repeated(64) + "\r\n"), HeadState::Wrong);
}
