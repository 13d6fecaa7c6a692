#include "board/program/CommandLine.h"

#include "board/tools/Tools.h"

#include "lesson/paper/PageSize.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>

#include <algorithm>
#include <cstring>

namespace Board {

namespace {

constexpr QSize kFirstPage{1280, 800};

class Reader
{
    Q_DECLARE_TR_FUNCTIONS(Board::CommandLine)

public:
    Reader();

    std::optional<CommandLine> read(const QStringList &arguments, QString &error);

private:
    QString readTool(CommandLine &line) const;
    QString readSize(CommandLine &line) const;
    QString readWindow(CommandLine &line) const;
    QString readPlay(CommandLine &line) const;

    const QCommandLineOption m_play{QStringLiteral("play"),
                                    tr("Play the stroke FILEs onto one page, the first lowest, or the first page of a "
                                       "lesson, instead of opening the window. Needs --png, but no display.")};
    const QCommandLineOption m_png{QStringLiteral("png"), tr("Write the played page to the PNG file OUT."),
                                   QStringLiteral("OUT")};
    const QCommandLineOption m_export{QStringLiteral("export"),
                                      tr("Write the page to the PNG file OUT when the window is closed."),
                                      QStringLiteral("OUT")};
    const QCommandLineOption m_tool{QStringLiteral("tool"),
                                    tr("Play with, or start the window with, the tool NAME: %1.").arg(toolNames()),
                                    QStringLiteral("NAME")};
    const QCommandLineOption m_size{
        QStringLiteral("size"),
        tr("Pixels of the page, %1 a side and %2 in all at most. By default it is 1280x800 in the window, where it "
           "grows with it and has the pixels of a scaled screen, and as large as the largest FILE with --play. A "
           "lesson "
           "has its own.")
            .arg(InkLesson::kMaxPageSide)
            .arg(InkLesson::kMaxPagePixels),
        QStringLiteral("WxH")};
    const QCommandLineOption m_help{{QStringLiteral("h"), QStringLiteral("help")}, tr("Show this help.")};
    const QCommandLineOption m_version{{QStringLiteral("v"), QStringLiteral("version")}, tr("Show the version.")};
    QCommandLineParser m_parser;
};

Reader::Reader()
{
    m_parser.setApplicationDescription(
        tr("A whiteboard for the classroom. It ends with 0, or with 2 after one line that says what is wrong."));
    m_parser.addOptions({m_play, m_png, m_export, m_tool, m_size, m_help, m_version});
    m_parser.addPositionalArgument(
        QStringLiteral("FILE"),
        tr("A lesson (.inkboard); with --play it may be drawings of recorded strokes (JSON) instead."),
        QStringLiteral("[FILE...]"));
}

std::optional<CommandLine> Reader::read(const QStringList &arguments, QString &error)
{
    CommandLine line;
    if (!m_parser.parse(arguments)) {
        error = m_parser.errorText();
        return std::nullopt;
    }
    if (m_parser.isSet(m_help) || m_parser.isSet(m_version)) {
        line.task = CommandLine::Task::ShowText;
        line.text = m_parser.isSet(m_help) ? m_parser.helpText()
                                           : QStringLiteral("%1 %2\n").arg(QCoreApplication::applicationName(),
                                                                           QCoreApplication::applicationVersion());
        return line;
    }
    for (const auto read :
         {&Reader::readTool, &Reader::readSize, m_parser.isSet(m_play) ? &Reader::readPlay : &Reader::readWindow}) {
        error = (this->*read)(line);
        if (!error.isEmpty())
            return std::nullopt;
    }
    return line;
}

QString Reader::readTool(CommandLine &line) const
{
    line.tool = m_parser.isSet(m_tool) ? findTool(m_parser.value(m_tool)) : &tools().front();
    return line.tool ? QString()
                     : tr("--tool %1: no such tool; there are: %2").arg(m_parser.value(m_tool), toolNames());
}

QString Reader::readSize(CommandLine &line) const
{
    if (!m_parser.isSet(m_size))
        return {};
    const QString text = m_parser.value(m_size);
    line.pageSize = InkLesson::pageSizeFromText(text);
    const QString problem =
        line.pageSize.isValid() ? InkLesson::pageSizeProblem(line.pageSize) : tr("not a size of the form WIDTHxHEIGHT");
    return problem.isEmpty() ? QString() : tr("--size %1: %2").arg(text, problem);
}

QString Reader::readWindow(CommandLine &line) const
{
    const QStringList files = m_parser.positionalArguments();
    if (files.size() > 1)
        return tr("%1: the window opens one lesson at a time").arg(files.at(1));
    if (!files.isEmpty() && m_parser.isSet(m_size))
        return tr("--size: a lesson has a size of its own");
    line.lessonFile = files.value(0);
    if (m_parser.isSet(m_png))
        return tr("--png: only with --play; the window has --export");
    line.exportFile = m_parser.value(m_export);
    if (m_parser.isSet(m_export) && line.exportFile.isEmpty())
        return tr("--export: the file name is missing");
    if (!line.pageSize.isValid())
        line.pageSize = kFirstPage;
    return {};
}

QString Reader::readPlay(CommandLine &line) const
{
    line.task = CommandLine::Task::Play;
    line.play = {m_parser.positionalArguments(), line.tool, line.pageSize, m_parser.value(m_png)};
    if (line.play.files.isEmpty())
        return tr("--play: the stroke files are missing");
    if (m_parser.isSet(m_export))
        return tr("--export: only in the window; --play has --png");
    if (line.play.png.isEmpty())
        return tr("--play: --png OUT is missing");
    return {};
}

} // namespace

bool needsNoDisplay(int argc, char **argv)
{
    constexpr const char *kWords[] = {"--play", "--help", "-h", "--version", "-v"};
    return std::any_of(argv, argv + argc, [&](const char *argument) {
        return std::any_of(std::begin(kWords), std::end(kWords),
                           [&](const char *word) { return std::strcmp(argument, word) == 0; });
    });
}

std::optional<CommandLine> parseCommandLine(const QStringList &arguments, QString &error)
{
    return Reader().read(arguments, error);
}

} // namespace Board
