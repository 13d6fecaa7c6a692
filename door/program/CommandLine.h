#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

namespace InkDoor {

// What the program is asked to do.
struct CommandLine
{
    QString text; // to be shown instead of anything else; may be empty

    QString address; // to listen at; empty for all of this machine
    quint16 port{};  // 0 for one that is free
    QString certificateFile;
    QString keyFile;

    // Where lessons are kept: in a nats-server that runs, in one of its own, or, where both are empty, in memory.
    QString engine;
    QString engineFolder;
    int replicas{1};

    int mostConnections{};
};

// On failure `error` says what is wrong in one line. `engine` is where lessons are kept if the arguments say nothing.
std::optional<CommandLine> parseCommandLine(const QStringList &arguments, const QString &engine, QString &error);

} // namespace InkDoor
