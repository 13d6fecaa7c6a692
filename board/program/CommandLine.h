#pragma once

#include "board/playing/Player.h"
#include "board/sharing/HeadlessLesson.h"
#include "board/sharing/LessonLink.h"

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

namespace Board {

struct Tool;

// What the program is asked to do.
struct CommandLine
{
    enum class Task { ShowWindow, Play, HoldLesson, ShowText };

    Task task{Task::ShowWindow};
    PlayOrder play;                 // for Play
    SharingOrder share;             // for HoldLesson
    const Tool *tool{};             // first tool of the window
    QSize pageSize;                 // first size of the page in the window
    bool hasSize{};                 // that was asked for
    QString lessonFile;             // opened in the window; may be empty
    std::optional<LessonLink> link; // to the lesson that is joined in the window
    QString exportFile;             // written when the window is closed; may be empty
    QString text;                   // for ShowText
};

// Whether the arguments ask for something that needs no display. Looks for words only: it is asked before Qt has
// taken its own arguments out.
bool needsNoDisplay(int argc, char **argv);

// On failure `error` says what is wrong in one line.
std::optional<CommandLine> parseCommandLine(const QStringList &arguments, QString &error);

} // namespace Board
