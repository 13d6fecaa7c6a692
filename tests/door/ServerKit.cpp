#include "ServerKit.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtCore/QtEndian>

#include <gtest/gtest.h>

#include <csignal>

namespace DoorTest {

bool runUntil(const std::function<bool()> &isSo, int milliseconds)
{
    QElapsedTimer clock;
    clock.start();
    QTimer look; // also where nothing happens
    look.start(10);
    while (!isSo() && clock.elapsed() < milliseconds)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    return isSo();
}

void runFor(int milliseconds)
{
    runUntil([] { return false; }, milliseconds);
}

Server::Server()
    : Server{QString()}
{
}

Server::Server(const Server &other)
    : Server{other.folder()}
{
}

Server::Server(const QString &folder)
    : m_folder{folder.isEmpty() ? m_temporary.filePath(QStringLiteral("engine")) : folder}
    , m_process{m_folder}
{
    m_process.setProgram(QStringLiteral(NATS_SERVER));
    QObject::connect(&m_process, &InkDoor::EngineProcess::ready, [this] { ++m_readies; });
    QObject::connect(&m_process, &InkDoor::EngineProcess::failed, [this](const QString &words) { m_failure = words; });
}

bool Server::start()
{
    const int before = m_readies;
    m_process.start();
    const bool isReady = runUntil([&] { return m_readies > before || !m_failure.isEmpty(); }) && m_failure.isEmpty();
    EXPECT_EQ(m_failure, QString());
    return isReady;
}

void Server::stop()
{
    m_process.stop();
}

bool Server::killed()
{
    const int before = m_readies;
    ::kill(static_cast<pid_t>(m_process.processId()), SIGKILL);
    return runUntil([&] { return m_readies > before; });
}

namespace {

bool copyFolder(const QString &from, const QString &to)
{
    if (!QDir{to}.mkpath(QStringLiteral(".")))
        return false;
    for (const QFileInfo &entry : QDir{from}.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden)) {
        const QString copy = to + QLatin1Char('/') + entry.fileName();
        if (entry.isDir() ? !copyFolder(entry.filePath(), copy) : !QFile::copy(entry.filePath(), copy))
            return false;
    }
    return true;
}

// Of the server's version 2.9: each entry begins with its length in all, whose highest bit says that it has headers.
qint64 sizeOfEntries(const QByteArray &block, std::size_t count)
{
    constexpr quint32 kHasHeaders = 1U << 31;
    qint64 size = 0;
    for (std::size_t i = 0; i < count && size + 4 <= block.size(); ++i)
        size += qFromLittleEndian<quint32>(block.constData() + size) & ~kHasHeaders;
    return size;
}

} // namespace

bool Server::truncate(const QString &lesson, std::size_t length)
{
    const QDir messages{folder() + QStringLiteral("/store/jetstream/$G/streams/ink-%1/msgs").arg(lesson)};
    QFile block{messages.filePath(QStringLiteral("1.blk"))};
    if (!block.open(QIODevice::ReadWrite))
        return false;
    const qint64 size = sizeOfEntries(block.readAll(), length);
    for (const QString &index : messages.entryList({QStringLiteral("*.idx"), QStringLiteral("*.fss")}))
        QFile::remove(messages.filePath(index));
    return size < block.size() && block.resize(size);
}

bool Server::keepStore()
{
    return copyFolder(folder() + QStringLiteral("/store"), m_temporary.filePath(QStringLiteral("kept")));
}

bool Server::putStoreBack()
{
    return QDir{folder() + QStringLiteral("/store")}.removeRecursively() &&
           copyFolder(m_temporary.filePath(QStringLiteral("kept")), folder() + QStringLiteral("/store"));
}

} // namespace DoorTest
