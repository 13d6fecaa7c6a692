#include "door/program/CommandLine.h"

#include <gtest/gtest.h>

using namespace InkDoor;

namespace {

QString problem;

std::optional<CommandLine> parse(const QStringList &arguments, const QString &engine = {})
{
    problem.clear();
    return parseCommandLine(QStringList{QStringLiteral("inkboard-door")} + arguments, engine, problem);
}

} // namespace

TEST(CommandLine, hasUsualValues)
{
    const auto line = parse({});
    ASSERT_TRUE(line);
    EXPECT_EQ(line->port, 4640);
    EXPECT_EQ(line->address, QString());
    EXPECT_EQ(line->engine, QString());
    EXPECT_EQ(line->engineFolder, QString());
    EXPECT_EQ(line->replicas, 1);
    EXPECT_EQ(line->mostConnections, 2000);
    EXPECT_EQ(line->text, QString());
}

TEST(CommandLine, takesAnEngineFromTheEnvironmentIfTheArgumentsNameNone)
{
    const auto engine = QStringLiteral("nats://a:4222");
    EXPECT_EQ(parse({}, engine)->engine, engine);
    EXPECT_EQ(parse({"--engine", "nats://b:1,nats://c:2"}, engine)->engine, QStringLiteral("nats://b:1,nats://c:2"));
    EXPECT_EQ(parse({"--engine", "memory"}, engine)->engine, QString());
    const auto own = parse({"--own-engine", "folder"}, engine);
    EXPECT_EQ(own->engine, QString());
    EXPECT_EQ(own->engineFolder, QStringLiteral("folder"));
}

TEST(CommandLine, readsTheRest)
{
    const auto line = parse({"--port", "0", "--listen", "127.0.0.1", "--tls-certificate", "a", "--tls-key", "b",
                             "--replicas", "3", "--most-connections", "10"});
    ASSERT_TRUE(line);
    EXPECT_EQ(line->port, 0);
    EXPECT_EQ(line->address, QStringLiteral("127.0.0.1"));
    EXPECT_EQ(line->certificateFile, QStringLiteral("a"));
    EXPECT_EQ(line->keyFile, QStringLiteral("b"));
    EXPECT_EQ(line->replicas, 3);
    EXPECT_EQ(line->mostConnections, 10);
}

TEST(CommandLine, saysInOneLineWhatIsWrong)
{
    const auto wrong = [](const QStringList &arguments) {
        EXPECT_FALSE(parse(arguments));
        return problem;
    };
    EXPECT_EQ(wrong({"--port", "65536"}), QStringLiteral("--port takes a number up to 65535"));
    EXPECT_EQ(wrong({"--port", "-1"}), QStringLiteral("--port takes a number up to 65535"));
    EXPECT_EQ(wrong({"--listen", "here"}),
              QStringLiteral("--listen takes an address of this machine, such as 127.0.0.1"));
    EXPECT_EQ(wrong({"--tls-key", "b"}), QStringLiteral("--tls-certificate and --tls-key need each other"));
    EXPECT_EQ(wrong({"--engine", "here"}), QStringLiteral("--engine takes nats://HOST:PORT, or memory"));
    EXPECT_EQ(wrong({"--engine", "memory", "--own-engine", "a"}),
              QStringLiteral("--engine and --own-engine exclude each other"));
    EXPECT_EQ(wrong({"--own-engine", ""}), QStringLiteral("--own-engine takes a folder"));
    EXPECT_EQ(wrong({"--replicas", "6"}), QStringLiteral("--replicas takes a number from 1 to 5"));
    EXPECT_EQ(wrong({"--most-connections", "0"}), QStringLiteral("--most-connections takes a number from 1 to 100000"));
    EXPECT_EQ(wrong({"more"}), QStringLiteral("there is nothing to be done with more"));
    EXPECT_EQ(wrong({"--none"}), QStringLiteral("Unknown option 'none'."));
}
