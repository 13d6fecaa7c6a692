#include "board/canvas/Canvas.h"
#include "board/files/FileCommands.h"
#include "board/person/NameTag.h"
#include "board/program/CommandLine.h"
#include "board/program/Translation.h"
#include "board/window/MainWindow.h"
#include "board/window/SharingCommands.h"
#include "board/window/WindowPlace.h"

#include <QtCore/QFile>
#include <QtCore/QLocale>
#include <QtCore/QLoggingCategory>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTextStream>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

using namespace Board;

namespace {

constexpr int kFailed = 2;
constexpr int kUnheld = 1; // a lesson that was not held to its end

// Makes do without a display and without a desktop, for a script or a service.
class Offscreen
{
public:
    Offscreen()
    {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        // Qt asks for this directory and complains where there is none, although nothing is kept in it.
        if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR") && m_runtime.isValid())
            qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_runtime.path()));
    }

private:
    const QTemporaryDir m_runtime;
};

int ended(const QString &problem, int failed = kFailed)
{
    if (problem.isEmpty())
        return EXIT_SUCCESS;
    QTextStream(stderr) << problem << '\n';
    return failed;
}

int showWindow(const CommandLine &line)
{
    MainWindow window(line.pageSize);
    if (window.canvas().page().isNull())
        return ended(QApplication::translate("Board", "not enough memory for the page"));
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    window.document().keepPictures(cache + QStringLiteral("/pages"));
    window.setAsksBeforeClosing(line.exportFile.isEmpty());
    window.sharing().sharing().setFolder(folder);
    window.chooseTool(*line.tool);
    const bool hasPlace = !line.hasSize && line.exportFile.isEmpty();
    if (hasPlace)
        showAtItsPlace(window);
    else
        showWhole(window);
    // The window is seen before a lesson is read.
    QTimer::singleShot(0, &window, [&] {
        if (line.exportFile.isEmpty()) // or a script runs it
            window.files().startJournal(folder + QStringLiteral("/journals"), line.lessonFile);
        else if (!line.lessonFile.isEmpty())
            window.files().openFile(line.lessonFile);
        if (line.link)
            window.joinLesson(*line.link, readDrawer().name);
    });
    QApplication::exec();
    if (hasPlace)
        keepPlace(window);
    return ended(line.exportFile.isEmpty() ? QString() : window.exportPage(line.exportFile));
}

int run(const CommandLine &line)
{
    switch (line.task) {
    case CommandLine::Task::ShowText:
        QTextStream(stdout) << line.text;
        return EXIT_SUCCESS;
    case CommandLine::Task::Play:
        return ended(playFiles(line.play));
    case CommandLine::Task::HoldLesson:
        return ended(holdLesson(line.share), kUnheld);
    case CommandLine::Task::ShowWindow:
        break;
    }
    return showWindow(line);
}

} // namespace

int main(int argc, char **argv)
{
    const std::optional<Offscreen> offscreen =
        needsNoDisplay(argc, argv) ? std::make_optional<Offscreen>() : std::nullopt;
    // The library writes a line for each rectangle that it paints.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));

    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false); // no position is lost
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("inkboard"));
    translateInto(QLocale(), application);
    QApplication::setApplicationVersion(QStringLiteral(INKBOARD_VERSION));
    QString error;
    const std::optional<CommandLine> line = parseCommandLine(QApplication::arguments(), error);
    return line ? run(*line) : ended(error);
}
