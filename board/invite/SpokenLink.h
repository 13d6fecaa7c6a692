#pragma once

#include "board/sharing/LessonLink.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

namespace Board {

// A link as one person reads it aloud and another one types it: the address of the door, then the name of the lesson
// as a code of digits and letters, in groups of four.
//
//   192.168.1.5:4640
//   0410 6105 0R3G G28A 1C60 T3GF 22K4
//
// The code holds all 128 bits of the name: a door knows a lesson by its whole name alone, and a shorter code could be
// found by trying. The 12 bits that 28 letters hold beyond that are a sum of address and name, so that a slip is
// noticed where it is typed. There is no I, L, O or U; who types one of the first three means 1, 1 or 0.
struct SpokenLink
{
    QString address; // "192.168.1.5:4640", "https://school.example"
    QStringList groups;

    static constexpr int kLetters = 28;

    // Nothing for a lesson whose name is not of 128 bits.
    static std::optional<SpokenLink> of(const LessonLink &link);
};

// The code's letters that a text holds, capital and without blanks and hyphens. Nothing where there is another sign.
std::optional<QString> spokenLetters(const QString &text);

// The link of an address and such letters, 28 of them. Nothing where the sum is not theirs, or there is no such
// address.
std::optional<LessonLink> linkOf(const QString &address, const QString &letters);

} // namespace Board
