#include "board/sharing/DoorProcess.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStandardPaths>
#include <QtNetwork/QNetworkInterface>

namespace Board {

namespace {

constexpr int kPatience = 11'000; // milliseconds until it has handed everybody what it has

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
    m_process.setStandardErrorFile(QProcess::nullDevice());
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &DoorProcess::read);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            emit failed(tr("the door cannot be started: %1").arg(m_process.errorString()));
    });
    connect(&m_process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            [this] { emit failed(tr("the door has ended")); });
}

DoorProcess::~DoorProcess()
{
    m_process.disconnect();
    m_process.terminate();
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(kPatience)) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

bool DoorProcess::hasEngine()
{
    return !program(QStringLiteral("nats-server")).isEmpty();
}

void DoorProcess::start(int port, const QString &folder)
{
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
