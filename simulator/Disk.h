#pragma once

#include "World.h"

#include "lesson/storage/DurableFile.h"

namespace Simulator {

// What a board's disk has of its journal. Its cache is lost with the machine: of what was done since the last sync only
// a beginning is there.
struct Disk
{
    QByteArray safe{};
    QByteArray since{}; // appended
    bool isFull{};
    bool hasRefused{}; // since it is full

    QByteArray all() const { return safe + since; }
    QByteArray afterPowerCut(Random &random) const { return safe + since.left(random.below(since.size() + 1)); }
};

class DiskFile : public InkLesson::DurableFile
{
public:
    explicit DiskFile(Disk &disk)
        : m_disk(disk)
    {
    }
    bool create(const QString & /*path*/) override { return true; }
    bool append(const QByteArray &bytes) override
    {
        if (!m_disk.isFull)
            m_disk.since += bytes;
        m_disk.hasRefused = m_disk.isFull;
        return !m_disk.isFull;
    }
    bool clear() override
    {
        m_disk.safe.clear();
        m_disk.since.clear();
        return true;
    }
    void sync() override
    {
        m_disk.safe += m_disk.since;
        m_disk.since.clear();
    }
    void remove() override { clear(); }
    QString error() const override { return QStringLiteral("no space"); }

private:
    Disk &m_disk;
};

} // namespace Simulator
