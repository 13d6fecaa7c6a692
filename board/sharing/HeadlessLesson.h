#pragma once

#include <QtCore/QString>

namespace Board {

struct Tool;

// What --share and --join are asked to do without a window.
struct SharingOrder
{
    bool isJoining{};
    QString link;        // to be joined
    QString door;        // address of one that runs already, to share at; empty for one of our own
    int port{4640};      // of our own, 0 for any
    QString linkFile;    // where the link is written once the lesson can be joined
    QString name;        // that others see; may be empty
    QString strokes;     // a stroke file that is drawn; may be empty
    const Tool *tool{};  // it is drawn with
    int pace{120};       // points a second, 0 for all at once
    int until{};         // objects on the first page
    QString png;         // of the first page, once they are there; may be empty
    int timeout{120};    // seconds
    QString latencyFile; // a line for each object of others; may be empty
    QString journals;    // a folder where the lesson is kept until it was held to its end; may be empty
};

// Holds the lesson until the objects are there, nothing of this board is pending and the page is written. Returns what
// went wrong in one line, empty when nothing did.
QString holdLesson(const SharingOrder &order);

} // namespace Board
