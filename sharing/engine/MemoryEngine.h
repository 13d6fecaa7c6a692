#pragma once

#include "sharing/engine/Engine.h"

#include <map>

namespace InkSharing {

class MemoryStream;

// The streams of all engines that are given this store, for as long as the program runs.
class MemoryStore
{
public:
    // Null where there is no such stream.
    const std::vector<QByteArray> *entries(const QString &lesson) const;

    // Takes the entries beyond a length away, as a disk does that had not all of them yet.
    void setBack(const QString &lesson, std::size_t length);

private:
    friend class MemoryEngine;
    friend class MemoryStream;

    struct Kept
    {
        std::vector<QByteArray> entries;
        std::vector<MemoryStream *> open;
    };
    std::map<QString, Kept> m_lessons;
};

// An engine without a process of its own. What it keeps is gone with the program: the boards' journals hold the only
// copies then.
class MemoryEngine : public Engine
{
public:
    using Post = std::function<void(std::function<void()> call)>; // calls later, in the order of the posts

    // The store outlives the engine.
    MemoryEngine(MemoryStore &store, Post post);

    std::unique_ptr<Stream> open(const QString &lesson, Open how, StreamListener &listener) override;
    void remove(const QString &lesson, std::function<void(bool isRemoved)> done) override;

private:
    friend class MemoryStream;

    MemoryStore &m_store;
    const Post m_post;
};

} // namespace InkSharing
