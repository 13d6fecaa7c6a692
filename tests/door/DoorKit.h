#pragma once

#include <QtCore/QProcess>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

#include <vector>

namespace DoorTest {

// The program inkboard-door in a process of its own, on loopback. It is killed with this.
class DoorProgram
{
public:
    ~DoorProgram();

    // Waits until it listens; false where it ends instead. At a port that is free, if the arguments name none.
    bool start(const QStringList &arguments);
    bool ends(int milliseconds = 15'000); // by itself; then the exit code is known
    void terminate() { m_process.terminate(); }
    bool killed(); // with -9

    QUrl address() const { return m_address; } // "http://127.0.0.1:4640/"
    QUrl socketAddress() const;
    QByteArray answerTo(const QByteArray &path) const; // the whole of it, "" for none
    qint64 metric(const QByteArray &name) const;       // -1 for none
    int exitCode() const { return m_process.exitCode(); }
    QByteArray output() const { return m_output; }
    QByteArray errors() const { return m_errors; }
    qint64 processId() const { return m_process.processId(); }

private:
    void read();

    // Ends with the test, also where that crashes.
    class Process : public QProcess
    {
    protected:
        void setupChildProcess() override;
    };

    Process m_process;
    QUrl m_address;
    QByteArray m_output;
    QByteArray m_errors;
};

// The processes that have one for their parent.
std::vector<qint64> childrenOf(qint64 process);

} // namespace DoorTest
