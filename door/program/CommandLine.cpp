#include "door/program/CommandLine.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtNetwork/QHostAddress>

namespace InkDoor {

namespace {

constexpr int kUsualPort = 4640;
constexpr int kMostReplicas = 5;
constexpr int kUsualConnections = 2000;
constexpr int kMostConnections = 100'000;

const auto kMemory = QStringLiteral("memory");

// A whole number within bounds, or nothing.
std::optional<int> readNumber(const QString &text, int least, int most)
{
    bool isNumber{};
    const int number = text.toInt(&isNumber);
    return isNumber && number >= least && number <= most ? std::make_optional(number) : std::nullopt;
}

QCommandLineOption option(const char *name, const QString &help, const char *value, const QString &usual = {})
{
    return {QString::fromLatin1(name), help, QString::fromLatin1(value), usual};
}

class Reader
{
public:
    Reader();

    std::optional<CommandLine> read(const QStringList &arguments, const QString &engine, QString &error);

private:
    QString readListening(CommandLine &line) const;
    QString readEngine(CommandLine &line, const QString &usual) const;

    const QCommandLineOption m_engine =
        option("engine",
               QStringLiteral("Keep lessons in the nats-server at ADDRESS, "
                              "nats://HOST:PORT, which has JetStream on; several of one "
                              "cluster are parted by commas. \"memory\", which is usual: "
                              "keep them in this program alone, until it ends."),
               "ADDRESS");
    const QCommandLineOption m_ownEngine = option(
        "own-engine",
        QStringLiteral("Start a nats-server that nobody else can use, on this machine, with its store in FOLDER."),
        "FOLDER");
    const QCommandLineOption m_replicas =
        option("replicas", QStringLiteral("Keep each lesson on N servers of the cluster."), "N", QStringLiteral("1"));
    const QCommandLineOption m_port =
        option("port", QStringLiteral("Listen at port N, or at a free one for 0."), "N", QString::number(kUsualPort));
    const QCommandLineOption m_listen =
        option("listen", QStringLiteral("Listen at ADDRESS of this machine alone, not at all that it has."), "ADDRESS");
    const QCommandLineOption m_certificate =
        option("tls-certificate", QStringLiteral("Speak TLS, with the certificates of the PEM file FILE."), "FILE");
    const QCommandLineOption m_key =
        option("tls-key", QStringLiteral("The key of the certificate, a PEM file."), "FILE");
    const QCommandLineOption m_most =
        option("most-connections", QStringLiteral("Send away whoever comes while N are there."), "N",
               QString::number(kUsualConnections));
    const QCommandLineOption m_help{{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")};
    const QCommandLineOption m_version{{QStringLiteral("v"), QStringLiteral("version")},
                                       QStringLiteral("Show the version.")};
    QCommandLineParser m_parser;
};

Reader::Reader()
{
    m_parser.setApplicationDescription(
        QStringLiteral("The door of shared lessons: boards speak to it over one port. Once it listens it prints its "
                       "address, one line. SIGTERM ends it. It ends with 0, or with 2 after one line that says what is "
                       "wrong."));
    m_parser.addOptions(
        {m_engine, m_ownEngine, m_replicas, m_port, m_listen, m_certificate, m_key, m_most, m_help, m_version});
}

QString Reader::readListening(CommandLine &line) const
{
    const auto port = readNumber(m_parser.value(m_port), 0, 65'535);
    if (!port)
        return QStringLiteral("--port takes a number up to 65535");
    line.port = static_cast<quint16>(*port);
    line.address = m_parser.value(m_listen);
    if (!line.address.isEmpty() && QHostAddress{line.address}.isNull())
        return QStringLiteral("--listen takes an address of this machine, such as 127.0.0.1");
    line.certificateFile = m_parser.value(m_certificate);
    line.keyFile = m_parser.value(m_key);
    if (line.certificateFile.isEmpty() != line.keyFile.isEmpty())
        return QStringLiteral("--tls-certificate and --tls-key need each other");
    const auto most = readNumber(m_parser.value(m_most), 1, kMostConnections);
    if (!most)
        return QStringLiteral("--most-connections takes a number from 1 to %1").arg(kMostConnections);
    line.mostConnections = *most;
    return {};
}

QString Reader::readEngine(CommandLine &line, const QString &usual) const
{
    line.engineFolder = m_parser.value(m_ownEngine);
    if (m_parser.isSet(m_ownEngine) && m_parser.isSet(m_engine))
        return QStringLiteral("--engine and --own-engine exclude each other");
    if (m_parser.isSet(m_ownEngine) && line.engineFolder.isEmpty())
        return QStringLiteral("--own-engine takes a folder");
    line.engine = m_parser.isSet(m_engine) ? m_parser.value(m_engine) : line.engineFolder.isEmpty() ? usual : QString();
    if (line.engine == kMemory)
        line.engine.clear();
    for (const QString &address : line.engine.split(QLatin1Char(','), Qt::SkipEmptyParts))
        if (!address.startsWith(QStringLiteral("nats://")))
            return QStringLiteral("--engine takes nats://HOST:PORT, or memory");
    const auto replicas = readNumber(m_parser.value(m_replicas), 1, kMostReplicas);
    if (!replicas)
        return QStringLiteral("--replicas takes a number from 1 to %1").arg(kMostReplicas);
    line.replicas = *replicas;
    return {};
}

std::optional<CommandLine> Reader::read(const QStringList &arguments, const QString &engine, QString &error)
{
    CommandLine line;
    if (!m_parser.parse(arguments)) {
        error = m_parser.errorText();
        return std::nullopt;
    }
    if (m_parser.isSet(m_help) || m_parser.isSet(m_version)) {
        line.text = m_parser.isSet(m_help) ? m_parser.helpText()
                                           : QStringLiteral("%1 %2\n").arg(QCoreApplication::applicationName(),
                                                                           QCoreApplication::applicationVersion());
        return line;
    }
    if (!m_parser.positionalArguments().isEmpty()) {
        error = QStringLiteral("there is nothing to be done with %1").arg(m_parser.positionalArguments().first());
        return std::nullopt;
    }
    error = readListening(line);
    if (error.isEmpty())
        error = readEngine(line, engine);
    return error.isEmpty() ? std::make_optional(line) : std::nullopt;
}

} // namespace

std::optional<CommandLine> parseCommandLine(const QStringList &arguments, const QString &engine, QString &error)
{
    return Reader{}.read(arguments, engine, error);
}

} // namespace InkDoor
