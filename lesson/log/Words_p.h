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

inline QString dashName(Qt::PenStyle dash)
{
    return QString::fromLatin1(kDashes[dash - Qt::SolidLine]);
}

constexpr QLatin1String kAuthor("author"), kNumber("number"), kStep("step"), kTime("time"), kPage("page"), kDo("do");
constexpr QLatin1String kLife("life"), kTool("tool"), kCanvas("canvas"), kActs("acts"), kPosition("position");
constexpr QLatin1String kPicture("picture"), kColor("color"), kWidth("width"), kOption("option"), kDash("dash");
constexpr QLatin1String kObject("object"), kObjects("objects"), kAbove("above"), kBy("by"), kText("text"),
    kImage("image");
constexpr QLatin1String kKind("kind"), kSize("size"), kAt("at"), kUndone("of");

} // namespace InkLesson::Words
