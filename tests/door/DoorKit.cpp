#include "DoorKit.h"

#include "ServerKit.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtNetwork/QTcpSocket>

#include <csignal>
#include <sys/prctl.h>

namespace DoorTest {

DoorProgram::~DoorProgram()
{
    killed();
}

void DoorProgram::Process::setupChildProcess()
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
}

void DoorProgram::read()
{
    m_output += m_process.readAllStandardOutput();
    m_errors += m_process.readAllStandardError();
}

bool DoorProgram::start(const QStringList &arguments)
{
    m_output.clear();
    m_errors.clear();
    QStringList all{QStringLiteral("--listen"), QStringLiteral("127.0.0.1")};
    if (!arguments.contains(QStringLiteral("--port")))
        all += {QStringLiteral("--port"), QStringLiteral("0")};
    m_process.start(QStringLiteral(INKBOARD_DOOR), all + arguments);
    const bool isListening = runUntil([this] {
        read();
        return m_output.endsWith('\n') || m_process.state() == QProcess::NotRunning;
    });
    m_address = QUrl{QString::fromUtf8(m_output).trimmed()};
    return isListening && m_process.state() == QProcess::Running;
}

bool DoorProgram::ends(int milliseconds)
{
    const bool hasEnded = runUntil([this] { return m_process.state() == QProcess::NotRunning; }, milliseconds);
    read();
    return hasEnded;
}

bool DoorProgram::killed()
{
    m_process.kill();
    return ends();
}

QUrl DoorProgram::socketAddress() const
{
    QUrl address = m_address;
    address.setScheme(m_address.scheme() == QStringLiteral("https") ? QStringLiteral("wss") : QStringLiteral("ws"));
    address.setPath(QStringLiteral("/socket"));
    return address;
}

QByteArray DoorProgram::answerTo(const QByteArray &path) const
{
    QTcpSocket socket;
    socket.connectToHost(m_address.host(), static_cast<quint16>(m_address.port()));
    socket.write("GET " + path + " HTTP/1.1\r\nHost: a\r\n\r\n");
    runUntil([&] { return socket.state() == QTcpSocket::UnconnectedState; }, 6'000);
    return socket.readAll();
}

qint64 DoorProgram::metric(const QByteArray &name) const
{
    const QByteArray all = answerTo("/metrics");
    const int at = all.indexOf('\n' + name + ' ');
    const int from = at + 2 + name.size();
    return at < 0 ? -1 : all.mid(from, all.indexOf('\n', from) - from).toLongLong();
}

namespace {

// Of "number (name) state parent ...".
qint64 parentOf(const QString &process)
{
    QFile file{QStringLiteral("/proc/%1/stat").arg(process)};
    const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    return text.mid(text.lastIndexOf(')') + 2).split(' ').value(1).toLongLong();
}

} // namespace

std::vector<qint64> childrenOf(qint64 process)
{
    std::vector<qint64> children;
    for (const QString &entry : QDir{QStringLiteral("/proc")}.entryList(QDir::Dirs))
        if (const qint64 number = entry.toLongLong(); number != 0 && parentOf(entry) == process)
            children.push_back(number);
    return children;
}

} // namespace DoorTest
