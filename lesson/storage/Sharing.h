#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <vector>

namespace InkLesson {

// What a journal keeps of how its lesson is shared, so that a board that was lost comes back as the one it was.
struct Sharing
{
    std::vector<int> authors; // whose records this board has brought; those of others came from elsewhere
    QString address;
    QByteArray token; // that tells this person to the others' machines
};

} // namespace InkLesson
