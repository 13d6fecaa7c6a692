#pragma once

#include "lesson/Export.h"
#include "lesson/objects/Life.h"

#include <QtCore/QString>

#include <vector>

namespace InkLesson {

// The acts that need no more than a letter and a place, as text: d (press), m (move), u (release) and c (double click),
// each with the way from the place before, which begins at 0 0; e with the code of any other event before that; f
// (finished), r (reopened) and p (painted). For example "d120 44m3 -1u0 0f".
class INKLESSON_EXPORT ActText
{
public:
    // False, and nothing is written, where the act needs more.
    bool write(const Act &act, QByteArray &text);

    // Appends the acts. False at the first letter that means nothing, or at a place that no int holds.
    bool read(const QByteArray &text, std::vector<Act> &acts);

private:
    qint64 m_x{}, m_y{}; // the place before
};

} // namespace InkLesson
