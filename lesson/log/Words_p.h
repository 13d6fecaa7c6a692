#pragma once

// The words of the log, in the order of what they stand for.

#include <QtCore/QLatin1String>
#include <QtCore/QString>

namespace InkLesson::Words {

// Of Deed.
constexpr const char *kDeeds[] = {"draw",  "change", "replace",  "delete",      "order",     "clear",
                                  "paper", "size",   "add-page", "remove-page", "move-page", "undo"};

// Of Qt::PenStyle, from the solid line on.
constexpr const char *kDashes[] = {"solid", "dash", "dot", "dash-dot", "dash-dot-dot"};

// Of Paper::Kind.
constexpr const char *kPapers[] = {"blank", "ruled", "squared", "picture"};

// What is not in the table is solid.
inline QString dashName(Qt::PenStyle dash)
{
    const bool isKnown = dash >= Qt::SolidLine && dash <= Qt::DashDotDotLine;
    return QString::fromLatin1(kDashes[isKnown ? dash - Qt::SolidLine : 0]);
}

// For compilers that do not measure a text at compile time.
template <std::size_t N>
constexpr QLatin1String word(const char (&text)[N])
{
    return QLatin1String(text, int(N) - 1);
}

constexpr QLatin1String kAuthor = word("author");
constexpr QLatin1String kNumber = word("number");
constexpr QLatin1String kStep = word("step");
constexpr QLatin1String kTime = word("time");
constexpr QLatin1String kPage = word("page");
constexpr QLatin1String kDo = word("do");
constexpr QLatin1String kLife = word("life");
constexpr QLatin1String kTool = word("tool");
constexpr QLatin1String kCanvas = word("canvas");
constexpr QLatin1String kActs = word("acts");
constexpr QLatin1String kPosition = word("position");
constexpr QLatin1String kPicture = word("picture");
constexpr QLatin1String kColor = word("color");
constexpr QLatin1String kWidth = word("width");
constexpr QLatin1String kOption = word("option");
constexpr QLatin1String kDash = word("dash");
constexpr QLatin1String kObject = word("object");
constexpr QLatin1String kObjects = word("objects");
constexpr QLatin1String kAbove = word("above");
constexpr QLatin1String kBy = word("by");
constexpr QLatin1String kText = word("text");
constexpr QLatin1String kImage = word("image");
constexpr QLatin1String kKind = word("kind");
constexpr QLatin1String kSize = word("size");
constexpr QLatin1String kAt = word("at");
constexpr QLatin1String kUndone = word("of");

} // namespace InkLesson::Words
