#pragma once

// What every engine must do. EngineConformance.cpp holds the cases; whoever has an engine links them, and says by
// INSTANTIATE_TEST_SUITE_P(Name, EngineConformance, testing::Values(&factory)) where engines come from.

#include "sharing/engine/Engine.h"

#include <gtest/gtest.h>

// Engines that keep the same streams, and their event loop.
class EngineWorld
{
public:
    virtual ~EngineWorld() = default;
    virtual std::unique_ptr<InkSharing::Engine> engine() = 0;

    // Runs the loop until it is so. False where it never is.
    virtual bool runUntil(const std::function<bool()> &isSo) = 0;

    // Runs the loop until nothing more can come of what was done.
    virtual void runOut() = 0;

    // The engine's disk loses the entries beyond a length. False where this cannot be brought about.
    virtual bool setBack(const QString &lesson, std::size_t length) = 0;
};

using EngineFactory = std::unique_ptr<EngineWorld> (*)();

// Keeps what it is told.
class NotingListener : public InkSharing::StreamListener
{
public:
    std::vector<QByteArray> told;
    std::vector<QByteArray> heardOf;
    std::size_t toldWhenCaughtUp{};
    int absences{}, catchings{}, losses{};

    void absent() override { ++absences; }
    void entries(const std::vector<QByteArray> &entries) override
    {
        told.insert(told.end(), entries.begin(), entries.end());
    }
    void caughtUp() override
    {
        ++catchings;
        toldWhenCaughtUp = told.size();
    }
    void lost() override { ++losses; }
    void heard(const QByteArray &bytes) override { heardOf.push_back(bytes); }
};

class EngineConformance : public testing::TestWithParam<EngineFactory>
{
protected:
    std::unique_ptr<InkSharing::Stream> open(InkSharing::Engine &engine, NotingListener &listener)
    {
        auto stream = engine.open(QStringLiteral("lesson"), InkSharing::Engine::Open::Create, listener);
        EXPECT_TRUE(world->runUntil([&] { return listener.catchings == 1; }));
        return stream;
    }
    bool append(InkSharing::Stream &stream, const QByteArray &bytes)
    {
        bool isDone = false;
        stream.append(bytes, [&](InkSharing::Appended how) {
            EXPECT_EQ(how, InkSharing::Appended::Stored);
            isDone = true;
        });
        EXPECT_FALSE(isDone) << "told from inside the call";
        return world->runUntil([&] { return isDone; });
    }

    const std::unique_ptr<EngineWorld> world{GetParam()()};
    const std::unique_ptr<InkSharing::Engine> one{world->engine()}, two{world->engine()};
    NotingListener first, second;
};
