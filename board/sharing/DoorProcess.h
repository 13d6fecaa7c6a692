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

    // Ends the lesson for everybody: begins to end, and hands everybody what it has, which takes ten seconds at most;
    // failed() tells that it has ended. What its engine has kept in the folder goes then. Without this the others hear
    // that the door goes away, and come again.
    void end();
    bool isRunning() const { return m_process.state() != QProcess::NotRunning; }

    // Whether lessons outlive the door.
    static bool hasEngine();

    // This port, or another one where that is taken or 0.
    static int freePort(int port);

signals:
    void ready(const QUrl &address); // for the boards of other machines, where this one has a network
    void failed(const QString &words);

private:
    // Ends when the board does, however that comes.
    class Process : public QProcess
    {
    protected:
        void setupChildProcess() override;
    };

    void read();
    void readLog();
    void finish();

    Process m_process;
    QByteArray m_said;
    QByteArray m_logged; // the last line
    QString m_folder;
    bool m_isReady{};
    bool m_isEnding{};
};

} // namespace Board
