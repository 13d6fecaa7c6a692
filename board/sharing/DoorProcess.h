#pragma once

#include <QtCore/QProcess>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

namespace Board {

// A door on this machine, with an engine of its own in a folder, or in memory where no nats-server is installed. It
// ends with this object, and hands everybody what it has first.
class DoorProcess : public QObject
{
    Q_OBJECT

public:
    explicit DoorProcess(QObject *parent = nullptr);
    ~DoorProcess() override;

    // Listens at the port, at any that is free for 0. Soon after, ready() or failed().
    void start(int port, const QString &folder);

    // Whether lessons outlive the door.
    static bool hasEngine();

signals:
    void ready(const QUrl &address); // for the boards of other machines, where this one has a network
    void failed(const QString &words);

private:
    void read();

    QProcess m_process;
    QByteArray m_said;
    bool m_isReady{};
};

} // namespace Board
