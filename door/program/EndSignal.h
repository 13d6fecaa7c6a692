#pragma once

#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>

#include <memory>

namespace InkDoor {

// Tells in the event loop that the program was asked to end, by SIGTERM or SIGINT, or by SIGUSR1, which says that the
// lessons are over, too. There is one of it.
class EndSignal : public QObject
{
    Q_OBJECT

public:
    EndSignal();
    ~EndSignal() override;

signals:
    void asked(bool areLessonsOver);

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace InkDoor
