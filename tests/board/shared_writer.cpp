// shared_writer LINK FOLDER
//
// Joins the lesson of LINK, draws on it without end, and keeps its journal in FOLDER. With "share" in place of LINK it
// begins one. Prints the link first, and the number of each step once that is done, and is meant to be killed.

#include "PageProbe.h"
#include "board/document/Document.h"
#include "board/sharing/DocumentSharing.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>

#include <cstdio>

using namespace Board;

namespace {

constexpr int kPause = 5; // milliseconds between two steps

void drawNext(Document &document)
{
    static int step = 0;
    document.author().begin(lifeOf("line"));
    drag(document.author(), {step % 400, 10}, {step % 400, 250});
    document.author().finish();
    std::printf("%d\n", ++step);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QString folder = QString::fromLocal8Bit(argv[argc - 1]);
    Document document(kSize);
    DocumentSharing sharing(document);
    sharing.setFolder(folder);
    sharing.setPort(0);
    if (argc != 3 || !document.keepJournal(folder).isEmpty())
        return EXIT_FAILURE;
    QTimer drawing;
    QObject::connect(&drawing, &QTimer::timeout, &document, [&] { drawNext(document); });
    QObject::connect(&sharing, &DocumentSharing::begun, &document, [&] {
        std::printf("%s\n", qPrintable(sharing.link().text()));
        drawing.start(kPause);
    });
    QObject::connect(&sharing, &DocumentSharing::failed, &application, &QCoreApplication::quit);
    if (const auto link = LessonLink::fromText(QString::fromLocal8Bit(argv[1])))
        sharing.join(*link);
    else
        sharing.share();
    return QCoreApplication::exec();
}
