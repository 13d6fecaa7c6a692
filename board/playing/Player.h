#pragma once

#include "board/tools/Tools.h"

#include "lesson/objects/Life.h"
#include "lesson/strokes/StrokeFile.h"

#include <QtCore/QStringList>

namespace InkLesson {
class Author;
}

namespace Board {

// Draws one gesture with the object in progress: press, moves, release.
void playGesture(const Gesture &gesture, InkLesson::Author &author);

// What a pointer that draws the stroke tells an object of the tool.
std::vector<InkLesson::PointerAct> pointerActs(const InkLesson::Stroke &stroke, const InkLesson::Tool &tool);

// Draws the stroke as one object of the tool, committed. What scatters does so in the same way each time.
void playStroke(const InkLesson::Stroke &stroke, const InkLesson::Tool &tool, InkLesson::Author &author);

// What --play is asked to do.
struct PlayOrder
{
    QStringList files; // drawings onto one page, the first lowest; or one lesson, of which the first page is taken
    const Tool *tool{};
    QSize size; // of the page; invalid for that of the largest file
    QString png;
};

// Plays the files and writes the page. Nothing is written unless all of them can be read. Returns what went
// wrong in one line, empty when nothing did.
QString playFiles(const PlayOrder &order);

} // namespace Board
