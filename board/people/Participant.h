#pragma once

#include <QtCore/QString>
#include <QtGui/QColor>

namespace Board {

// Somebody who is in the shared lesson just now.
struct Participant
{
    int author{};
    QString name{}; // as it came, from outside perhaps
    QColor color{};
    int page{}; // that is looked at, counted from 1; 0 where that is not known
    bool isMe{};

    // How a list calls this person, whatever the name is.
    QString words() const;

    bool operator==(const Participant &other) const
    {
        return author == other.author && name == other.name && color == other.color && page == other.page &&
               isMe == other.isMe;
    }
};

} // namespace Board
