#include "door/program/CommandLine.h"
#include "door/program/EndSignal.h"
#include "door/program/Program.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLoggingCategory>
#include <QtCore/QTextStream>
#include <QtCore/QTimer>

#include <csignal>
#include <sys/resource.h>

using namespace InkDoor;

namespace {

constexpr int kWrong = 2;

// Each connection is a file handle.
void raiseHandleLimit()
{
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) == 0) {
        limit.rlim_cur = limit.rlim_max;
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }
}

} // namespace

int main(int argc, char **argv)
{
    // The library writes a line for each rectangle that it paints.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("inkboard-door"));
    QCoreApplication::setApplicationVersion(QStringLiteral(INKBOARD_VERSION));
    QString error;
    const auto line = parseCommandLine(QCoreApplication::arguments(), qEnvironmentVariable("INKBOARD_ENGINE"), error);
    if (!line || !line->text.isEmpty()) {
        QTextStream(line ? stdout : stderr) << (line ? line->text : error + '\n');
        return line ? EXIT_SUCCESS : kWrong;
    }
    raiseHandleLimit();
    ::signal(SIGPIPE, SIG_IGN); // whoever reads the log may go
    const EndSignal signal;
    Program program{*line};
    QObject::connect(&signal, &EndSignal::asked, &program, [&program](bool areLessonsOver) {
        program.end(areLessonsOver ? Program::Lessons::AreOver : Program::Lessons::GoOn);
    });
    QTimer::singleShot(0, &program, &Program::start);
    return QCoreApplication::exec();
}
