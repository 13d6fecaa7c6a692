// journal_writer FOLDER
//
// Draws a lesson without end and keeps its journal in FOLDER. Prints a line once a step is done, and is meant to be
// killed.

#include "PageProbe.h"
#include "board/document/Document.h"

#include <QtCore/QCoreApplication>

#include <cstdio>

using namespace Board;

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    Document document(kSize);
    if (argc != 2 || !document.keepJournal(QString::fromLocal8Bit(argv[1])).isEmpty())
        return EXIT_FAILURE;
    for (int step = 1;; ++step) {
        document.author().begin(lifeOf("pencil"));
        document.author().feed(PT_DOWN, QPoint(step % 400, 10));
        for (int i = 0; i < 100; ++i)
            document.author().feed(PT_MOVE, QPoint((step + i) % 400, 10 + 2 * i));
        document.author().feed(PT_UP, QPoint(step % 400, 250));
        std::printf("%d\n", step);
        std::fflush(stdout);
    }
}
