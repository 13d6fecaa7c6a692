#include "board/sharing/DoorProcess.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QStandardPaths>
#include <QtNetwork/QNetworkInterface>
#include <QtNetwork/QTcpServer>

#include <csignal>
#include <sys/prctl.h>

namespace Board {

namespace {

constexpr int kPatience = 11000; // milliseconds until it has handed everybody what it has

QString program(const QString &name)
{
    const QString here = QCoreApplication::applicationDirPath();
    const QString beside = QStandardPaths::findExecutable(name, {here, here + QStringLiteral("/../door")});
    return beside.isEmpty() ? QStandardPaths::findExecutable(name) : beside;
}

// Of this machine, for others; the one that leads back here where there is no network.
QHostAddress addressForOthers()
{
    for (const QNetworkInterface &network : QNetworkInterface::allInterfaces()) {
        const auto flags = network.flags();
        if (!flags.testFlag(QNetworkInterface::IsRunning) || flags.testFlag(QNetworkInterface::IsLoopBack))
            continue;
        for (const QNetworkAddressEntry &entry : network.addressEntries()) {
            if (entry.ip().protocol() == QAbstractSocket::IPv4Protocol)
                return entry.ip();
        }
    }
    return QHostAddress(QHostAddress::LocalHost);
}

} // namespace

DoorProcess::DoorProcess(QObject *parent)
    : QObject(parent)
{
    m_process.setProcessChannelMode(QProcess::SeparateChannels);
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &DoorProcess::read);
    connect(&m_process, &QProcess::readyReadStandardError, this, &DoorProcess::readLog);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            emit failed(tr("the door cannot be started: %1").arg(m_process.errorString()));
    });
    connect(&m_process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this, &DoorProcess::finish);
}

void DoorProcess::Process::setupChildProcess()
{
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
}

DoorProcess::~DoorProcess()
{
    m_process.disconnect();
    if (!m_isEnding) // another signal would cut short what it still hands out
        m_process.terminate();
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(kPatience)) {
        m_process.kill();
        m_process.waitForFinished();
    }
    if (m_isEnding)
        QDir(m_folder).removeRecursively();
}

void DoorProcess::end()
{
    m_isEnding = true;
    if (m_process.state() == QProcess::Running)
        ::kill(pid_t(m_process.processId()), SIGUSR1);
    else
        m_process.terminate();
}

void DoorProcess::finish()
{
    readLog();
    emit failed(m_logged.isEmpty() ? tr("the door has ended")
                                   : tr("the door has ended: %1").arg(QString::fromUtf8(m_logged)));
}

bool DoorProcess::hasEngine()
{
    return !program(QStringLiteral("nats-server")).isEmpty();
}

int DoorProcess::freePort(int port)
{
    QTcpServer server;
    return server.listen(QHostAddress::Any, quint16(port)) || server.listen(QHostAddress::Any, 0) ? server.serverPort()
                                                                                                  : 0;
}

void DoorProcess::start(int port, const QString &folder)
{
    m_folder = folder;
    const QString door = program(QStringLiteral("inkboard-door"));
    if (door.isEmpty()) {
        QMetaObject::invokeMethod(
            this, [this] { emit failed(tr("inkboard-door is not installed")); }, Qt::QueuedConnection);
        return;
    }
    QStringList arguments{QStringLiteral("--port"), QString::number(port)};
    arguments += hasEngine() ? QStringList{QStringLiteral("--own-engine"), folder}
                             : QStringList{QStringLiteral("--engine"), QStringLiteral("memory")};
    m_process.start(door, arguments);
}

void DoorProcess::readLog()
{
    constexpr int kMostBytes = 300;
    const QList<QByteArray> lines = m_process.readAllStandardError().split('\n');
    for (const QByteArray &line : lines) {
        if (!line.isEmpty())
            m_logged = line.left(kMostBytes);
    }
}

// Its first line is where it listens.
void DoorProcess::read()
{
    constexpr int kMostBytes = 1000;
    m_said += m_process.readAllStandardOutput();
    const int end = m_said.indexOf('\n');
    if (m_isReady || end < 0 || end > kMostBytes) {
        m_said.truncate(kMostBytes);
        return;
    }
    m_isReady = true;
    QUrl address(QString::fromLatin1(m_said.left(end)));
    if (QHostAddress(address.host()) == QHostAddress(QHostAddress::AnyIPv4))
        address.setHost(addressForOthers().toString());
    emit ready(address);
}

} // namespace Board
