#include "door/engine/EngineProcess.h"

#include "door/engine/FolderLock.h"

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRandomGenerator>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace InkDoor {

namespace {

constexpr int kLookEvery = 20;             // ms
constexpr int kLongestStart = 60'000;      // ms; it reads its whole store first
constexpr int kLongestFolderWait = 10'000; // ms
constexpr int kLongestStop = 5'000;        // ms
constexpr int kShortestPause = 100;        // ms before the next launch, doubled each time
constexpr int kLongestPause = 2'000;       // ms
constexpr int kGoodWhile = 10'000;         // ms after which a launch has been a good one
constexpr int kMostSaid = 4096;            // bytes

const auto kConfiguration = QStringLiteral("engine.conf");

QByteArray newPassword()
{
    quint32 words[8];
    QRandomGenerator::system()->fillRange(words);
    return QByteArray(reinterpret_cast<const char *>(words), sizeof words).toHex();
}

// Debian keeps it where only root's PATH looks.
QString installedProgram()
{
    const auto name = QStringLiteral("nats-server");
    const QString found = QStandardPaths::findExecutable(name);
    return found.isEmpty()
               ? QStandardPaths::findExecutable(name, {QStringLiteral("/usr/sbin"), QStringLiteral("/usr/local/sbin"),
                                                       QStringLiteral("/usr/local/bin")})
               : found;
}

// A new file that nobody else may read.
bool writeSecret(const QString &path, const QByteArray &text)
{
    const QByteArray name = QFile::encodeName(path);
    ::unlink(name.constData());
    const int handle = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (handle < 0)
        return false;
    QFile file;
    return file.open(handle, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle) && file.write(text) == text.size() &&
           file.flush();
}

} // namespace

void EngineProcess::Process::setupChildProcess()
{
    m_lock->keepInChild();
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (::getppid() != m_parent) // which has ended before it was asked
        ::_exit(EXIT_FAILURE);
}

EngineProcess::EngineProcess(QString folder, QObject *parent)
    : QObject{parent}
    , m_folder{std::move(folder)}
    , m_program{installedProgram()}
    , m_password{newPassword()}
{
    m_retry.setSingleShot(true);
    m_looking.setInterval(kLookEvery);
    connect(&m_looking, &QTimer::timeout, this, &EngineProcess::look);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    connect(&m_process, &QProcess::readyRead, this,
            [this] { m_said = (m_said + m_process.readAll()).right(kMostSaid); });
    connect(&m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, &EngineProcess::handleEnd);
}

EngineProcess::~EngineProcess()
{
    m_process.disconnect(this);
    stop();
}

void EngineProcess::start()
{
    m_isWanted = true;
    m_since.start();
    m_retry.disconnect(this);
    connect(&m_retry, &QTimer::timeout, this, &EngineProcess::takeFolder);
    m_retry.start(0);
}

void EngineProcess::takeFolder()
{
    if (m_program.isEmpty())
        return fail(tr("there is no nats-server on this machine"));
    const QDir folder{m_folder};
    if (!folder.exists() && (!folder.mkpath(QStringLiteral(".")) ||
                             !QFile::setPermissions(m_folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)))
        return fail(tr("the folder %1 cannot be made").arg(m_folder));
    if (!QFileInfo{m_folder}.isWritable())
        return fail(tr("the folder %1 cannot be written").arg(m_folder));
    if (!m_lock)
        m_lock = std::make_unique<FolderLock>(m_folder);
    if (!m_lock->take()) {
        if (m_since.elapsed() > kLongestFolderWait)
            return fail(tr("the folder %1 is used by another engine").arg(m_folder));
        return m_retry.start(kShortestPause);
    }
    m_retry.disconnect(this);
    connect(&m_retry, &QTimer::timeout, this, &EngineProcess::launch);
    launch();
}

void EngineProcess::launch()
{
    for (const QFileInfo &left : QDir{m_folder}.entryInfoList({QStringLiteral("*.ports")}, QDir::Files))
        QFile::remove(left.filePath());
    const QString problem = writeConfiguration();
    if (!problem.isEmpty())
        return fail(problem);
    m_said.clear();
    m_since.start();
    ++m_launches;
    m_process.setWorkingDirectory(m_folder); // so that no path has to be written into the configuration
    m_process.start(m_program, {QStringLiteral("--config"), kConfiguration}, QIODevice::ReadOnly);
    if (!m_process.waitForStarted(kLongestStop))
        return fail(tr("%1 cannot be started").arg(m_program));
    m_looking.start();
}

// What is not named is off: monitoring, WebSocket, MQTT, leaf nodes, clusters.
QString EngineProcess::writeConfiguration() const
{
    const QByteArray text = "listen: \"127.0.0.1:" + (m_port == 0 ? QByteArray("-1") : QByteArray::number(m_port)) +
                            "\"\n"
                            "server_name: inkboard\n"
                            "ports_file_dir: \".\"\n"
                            "authorization { user: door, password: \"" +
                            m_password +
                            "\" }\n"
                            "jetstream { store_dir: \"store\", max_memory_store: 64MB }\n"
                            "max_payload: 1MB\n"
                            "max_connections: 64\n";
    const QString path = m_folder + QLatin1Char('/') + kConfiguration;
    return writeSecret(path, text) ? QString() : tr("the file %1 cannot be written").arg(path);
}

quint16 EngineProcess::announcedPort() const
{
    const auto name = QStringLiteral("%1_%2.ports").arg(QFileInfo{m_program}.fileName()).arg(m_process.processId());
    QFile file{m_folder + QLatin1Char('/') + name};
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QJsonArray addresses =
        QJsonDocument::fromJson(file.read(kMostSaid)).object().value(QStringLiteral("nats")).toArray();
    return addresses.isEmpty() ? quint16{0}
                               : static_cast<quint16>(std::max(QUrl{addresses.first().toString()}.port(), 0));
}

void EngineProcess::look()
{
    if (m_process.state() != QProcess::Running)
        return m_looking.stop();
    const quint16 port = announcedPort();
    if (port != 0) {
        m_looking.stop();
        m_port = port;
        emit ready();
    } else if (m_since.elapsed() > kLongestStart) {
        fail(tr("nats-server does not get ready: %1").arg(lastWords()));
    }
}

void EngineProcess::handleEnd()
{
    m_looking.stop();
    if (!m_isWanted)
        return;
    if (m_port == 0) // what it does not like will not change by itself
        return fail(tr("nats-server has ended: %1").arg(lastWords()));
    if (m_since.elapsed() > kGoodWhile)
        m_launches = 0;
    emit ended(tr("nats-server has ended: %1").arg(lastWords()));
    m_retry.start(std::min(kShortestPause << std::min(m_launches, 5), kLongestPause));
}

void EngineProcess::fail(const QString &words)
{
    stop();
    emit failed(words);
}

void EngineProcess::stop()
{
    m_isWanted = false;
    m_retry.stop();
    m_looking.stop();
    if (m_process.state() != QProcess::NotRunning) {
        m_process.terminate();
        if (!m_process.waitForFinished(kLongestStop)) {
            m_process.kill();
            m_process.waitForFinished(kLongestStop);
        }
    }
    QFile::remove(m_folder + QLatin1Char('/') + kConfiguration);
    m_lock.reset();
}

QString EngineProcess::address() const
{
    return m_port == 0 ? QString()
                       : QStringLiteral("nats://door:%1@127.0.0.1:%2").arg(QLatin1String(m_password)).arg(m_port);
}

// The last line that it wrote about something wrong, without the time and the number before it.
QString EngineProcess::lastWords() const
{
    const QList<QByteArray> lines = m_said.split('\n');
    for (auto line = lines.crbegin(); line != lines.crend(); ++line)
        for (const char *const sign : {"[FTL] ", "[ERR] ", "nats-server: "})
            if (const int at = line->indexOf(sign); at >= 0)
                return QString::fromUtf8(line->mid(at + static_cast<int>(qstrlen(sign)))).trimmed();
    return tr("it says nothing about why");
}

} // namespace InkDoor
