#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

#include <optional>

namespace Board {

// What leads to a shared lesson: the address of a door, and after "#" the name of the lesson, which nobody can guess.
// A browser keeps to itself what stands there.
struct LessonLink
{
    QUrl door; // "http://192.168.1.5:4640/"
    QString lesson;

    QString text() const;

    // Where its WebSocket is.
    QUrl socket() const;

    // Nothing for a text that is no such link.
    static std::optional<LessonLink> fromText(const QString &text);

    // With a name of 128 random bits.
    static LessonLink fresh(const QUrl &door);
};

} // namespace Board
