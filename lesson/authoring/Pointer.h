#pragma once

#include "lesson/Export.h"
#include "lesson/authoring/Author.h"
#include "lesson/objects/Scatter.h"

#include <QtGui/QFont>

namespace InkLesson {

// Draws with one tool by a pointer: a mouse, a pen, a finger. Knows what each tool makes of a press, a tap, a double
// click, so that a host only hands over what its window system tells, in page pixels.
//
// A press begins an object, or goes to the one in hand. One that lets that go does only this: the rest of its gesture
// draws nothing.
class INKLESSON_EXPORT Pointer
{
public:
    // The author outlives the pointer. The same seed scatters the same dots.
    explicit Pointer(Author &author, quint32 seed = 1);

    // A name in the table of tools; the object in hand is let go. kAreaTool fills where it is pressed.
    void setTool(const QString &name);
    const QString &tool() const { return m_tool; }

    // Of objects that are begun from now on.
    void setInk(const Ink &ink) { m_ink = ink; }
    const Ink &ink() const { return m_ink; }

    void press(const QPoint &pt);
    void move(const QPoint &pt); // without a press it does nothing
    void release(const QPoint &pt);

    // In place of the second press, as widgets are told of it, or after that, as windows and Qt Quick are.
    void doubleClick(const QPoint &pt);

    // More dots where the pointer is, for a tool that scatters and is pressed. A host calls it about sixty times a
    // second.
    void scatter();

    // Whether the object in hand is a frame of text that was drawn and waits for what stands in it.
    bool awaitsText() const;

    // Fills that frame, in the colour of its ink, and lets it go. One without ink is forgotten.
    void enterText(const QString &text, const QFont &font);

private:
    const Tool *toolInHand() const;
    bool mayBeTap() const;

    Author &m_author;
    QString m_tool{QStringLiteral("pencil")};
    Ink m_ink;
    Scatter m_scatter;
    QPoint m_last;
    bool m_isDown{};
    bool m_isTapping{}; // has not moved since the press
    bool m_continues{}; // the press found an object that was still being drawn
};

} // namespace InkLesson
