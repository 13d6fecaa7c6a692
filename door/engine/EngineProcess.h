#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QTimer>

#include <memory>

namespace InkDoor {

class FolderLock;

// A private nats-server: on loopback at a port that was free, with a password made for this run, its store in a folder
// and every other listener off. One that ends by itself is started again, at the same address. It ends with this
// process, however that ends.
class EngineProcess : public QObject
{
    Q_OBJECT

public:
    // `folder` is made if need be, and may be used by one engine at a time.
    explicit EngineProcess(QString folder, QObject *parent = nullptr);
    ~EngineProcess() override; // stops it

    // Another program than the nats-server that is installed. To be called before start().
    void setProgram(const QString &program) { m_program = program; }

    // Soon after, ready() or failed().
    void start();

    // Waits for its end: some milliseconds, and 5 s at most.
    void stop();

    // With the credential, for nobody but the door's own link to it; empty until it is ready for the first time.
    QString address() const;
    qint64 processId() const { return m_process.processId(); }

signals:
    void ready();                      // answers from now on; also whenever it was started again
    void ended(const QString &words);  // by itself; it is started again
    void failed(const QString &words); // and is not tried again

private:
    // Tells the engine to end when this process does.
    class Process : public QProcess
    {
    public:
        explicit Process(const std::unique_ptr<FolderLock> &lock)
            : m_lock(lock)
        {
        }

    protected:
        void setupChildProcess() override;

    private:
        const std::unique_ptr<FolderLock> &m_lock;
        const qint64 m_parent{QCoreApplication::applicationPid()};
    };

    void takeFolder();
    void launch();
    QString writeConfiguration() const;
    void look();
    void handleEnd();
    void fail(const QString &words);
    quint16 announcedPort() const;
    QString lastWords() const;

    const QString m_folder;
    QString m_program;
    const QByteArray m_password;
    std::unique_ptr<FolderLock> m_lock;
    Process m_process{m_lock};
    QTimer m_retry;   // for the folder, and for the next launch
    QTimer m_looking; // for the port that it announces
    QElapsedTimer m_since;
    QByteArray m_said; // the end of what it wrote
    quint16 m_port{};
    int m_launches{}; // since it was last up for a while
    bool m_isWanted{};
};

} // namespace InkDoor
