#include "board/program/CommandLine.h"

#include "board/tools/Tools.h"

#include "lesson/paper/PageSize.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>

#include <algorithm>
#include <cstring>
#include <tuple>

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
    QString readSharing(CommandLine &line) const;
    QString readNumber(const QCommandLineOption &option, int most, int &number) const;

    const QCommandLineOption m_play{
        QStringLiteral("play"), tr("Play the stroke FILEs onto one page, the first lowest, or the first page of a "
                                   "lesson, instead of opening the window. Needs --png, but no display. With --share "
                                   "and --join one FILE is drawn at the pace of a hand.")};
    const QCommandLineOption m_png{QStringLiteral("png"), tr("Write the played page to the PNG file OUT."),
                                   QStringLiteral("OUT")};
    const QCommandLineOption m_share{QStringLiteral("share"),
                                     tr("Begin a lesson that others can join, without a window: until --until objects "
                                        "are on the first page, and everything of this board is with the others.")};
    const QCommandLineOption m_join{QStringLiteral("join"), tr("Join the lesson of LINK in the same way."),
                                    QStringLiteral("LINK")};
    const QCommandLineOption m_door{QStringLiteral("door"),
                                    tr("Share at the door at ADDRESS, http://HOST:PORT, instead of one of its own."),
                                    QStringLiteral("ADDRESS")};
    const QCommandLineOption m_port{QStringLiteral("port"),
                                    tr("Port of its own door, 4640 without it, any that is free for 0."),
                                    QStringLiteral("N")};
    const QCommandLineOption m_linkFile{QStringLiteral("link-file"),
                                        tr("Write the link into FILE once the lesson can be joined."),
                                        QStringLiteral("FILE")};
    const QCommandLineOption m_name{QStringLiteral("name"), tr("What the others see beside what is drawn here."),
                                    QStringLiteral("NAME")};
    const QCommandLineOption m_pace{
        QStringLiteral("pace"), tr("Draw N points a second, 120 without it, all at once for 0."), QStringLiteral("N")};
    const QCommandLineOption m_until{QStringLiteral("until"), tr("Objects on the first page, by whomever."),
                                     QStringLiteral("N")};
    const QCommandLineOption m_timeout{QStringLiteral("timeout"),
                                       tr("Seconds, 120 without it, after which it ends with 1."), QStringLiteral("N")};
    const QCommandLineOption m_latency{
        QStringLiteral("record-latency"),
        tr("Write a line into FILE for each object of others: its author, its number, and the milliseconds from the "
           "point in its middle to the pixels of that here."),
        QStringLiteral("FILE")};
    const QCommandLineOption m_journal{
        QStringLiteral("journal"),
        tr("Keep the lesson in FOLDER until it was held to its end. A board that was killed and is started again comes "
           "back to it, and draws what is left."),
        QStringLiteral("FOLDER")};
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
    m_parser.setApplicationDescription(tr("A whiteboard for the classroom. It ends with 0, with 1 where a lesson "
                                          "without a window comes to no end, or with "
                                          "2 after one line that says what is wrong."));
    m_parser.addOptions({m_play, m_png, m_export, m_tool, m_size, m_share, m_join, m_door, m_port, m_linkFile, m_name,
                         m_pace, m_until, m_timeout, m_latency, m_journal, m_help, m_version});
    m_parser.addPositionalArgument(
        QStringLiteral("FILE"),
        tr("A lesson (.inkboard), or the link to one that somebody shares; with --play it may be drawings of recorded "
           "strokes (JSON) instead."),
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
    const bool isShared = m_parser.isSet(m_share) || m_parser.isSet(m_join);
    for (const auto read : {&Reader::readTool, &Reader::readSize,
                            isShared                 ? &Reader::readSharing
                            : m_parser.isSet(m_play) ? &Reader::readPlay
                                                     : &Reader::readWindow}) {
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
    line.link = LessonLink::fromText(files.value(0));
    line.lessonFile = line.link ? QString() : files.value(0);
    if (m_parser.isSet(m_png))
        return tr("--png: only with --play; the window has --export");
    line.exportFile = m_parser.value(m_export);
    if (m_parser.isSet(m_export) && line.exportFile.isEmpty())
        return tr("--export: the file name is missing");
    line.hasSize = line.pageSize.isValid();
    if (!line.hasSize)
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

// A number that is not given stays as it is.
QString Reader::readNumber(const QCommandLineOption &option, int most, int &number) const
{
    if (!m_parser.isSet(option))
        return {};
    bool isNumber = false;
    number = m_parser.value(option).toInt(&isNumber);
    return isNumber && number >= 0 && number <= most ? QString()
                                                     : tr("--%1 %2: not a number up to %3")
                                                           .arg(option.names().constFirst(), m_parser.value(option))
                                                           .arg(most);
}

QString Reader::readSharing(CommandLine &line) const
{
    constexpr int kMostPort = 65535, kMostPoints = 10000, kMostObjects = 1000000, kMostSeconds = 100000;
    line.task = CommandLine::Task::HoldLesson;
    SharingOrder &order = line.share;
    const QStringList files = m_parser.positionalArguments();
    if (m_parser.isSet(m_share) && m_parser.isSet(m_join))
        return tr("--share and --join: only one of them");
    if (files.size() > 1 || (!files.isEmpty() && !m_parser.isSet(m_play)))
        return tr("%1: --share and --join draw one file, with --play").arg(files.constLast());
    order.isJoining = m_parser.isSet(m_join);
    order.link = m_parser.value(m_join);
    order.door = m_parser.value(m_door);
    order.linkFile = m_parser.value(m_linkFile);
    order.name = m_parser.value(m_name);
    order.strokes = files.value(0);
    order.tool = line.tool;
    order.png = m_parser.value(m_png);
    order.latencyFile = m_parser.value(m_latency);
    order.journals = m_parser.value(m_journal);
    if (!line.tool->kind)
        return tr("--tool %1: nothing to draw with").arg(m_parser.value(m_tool));
    for (const auto &[option, most, number] :
         {std::tuple(&m_port, kMostPort, &order.port), std::tuple(&m_pace, kMostPoints, &order.pace),
          std::tuple(&m_until, kMostObjects, &order.until), std::tuple(&m_timeout, kMostSeconds, &order.timeout)}) {
        const QString problem = readNumber(*option, most, *number);
        if (!problem.isEmpty())
            return problem;
    }
    return {};
}

} // namespace

bool needsNoDisplay(int argc, char **argv)
{
    constexpr const char *kWords[] = {"--play", "--share", "--join", "--help", "-h", "--version", "-v"};
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
