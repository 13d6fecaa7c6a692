#include "door/program/EndSignal.h"

#include <atomic>
#include <csignal>
#include <sys/eventfd.h>
#include <unistd.h>

namespace InkDoor {

namespace {

std::atomic<int> handle{-1};
std::atomic<bool> areLessonsOver{};

void wake(int signal)
{
    if (signal == SIGUSR1)
        areLessonsOver = true;
    const quint64 one = 1;
    [[maybe_unused]] const auto written = ::write(handle, &one, sizeof one);
}

void setHandler(int signal, void (*handler)(int))
{
    struct sigaction action
    {
    };
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
}

} // namespace

EndSignal::EndSignal()
{
    handle = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    m_notifier = std::make_unique<QSocketNotifier>(handle, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        quint64 count{};
        [[maybe_unused]] const auto read = ::read(handle, &count, sizeof count);
        emit asked(areLessonsOver);
    });
    setHandler(SIGTERM, wake);
    setHandler(SIGINT, wake);
    setHandler(SIGUSR1, wake);
}

EndSignal::~EndSignal()
{
    setHandler(SIGTERM, SIG_DFL);
    setHandler(SIGINT, SIG_DFL);
    setHandler(SIGUSR1, SIG_DFL);
    m_notifier.reset();
    ::close(handle.exchange(-1));
}

} // namespace InkDoor
