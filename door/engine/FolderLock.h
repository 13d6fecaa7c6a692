#pragma once

#include <QtCore/QString>

namespace InkDoor {

// Holds a folder for one engine. Children that are started meanwhile hold it too, until the last of them has ended: a
// new engine does not touch the store of one that outlives its door for a moment.
class FolderLock
{
public:
    explicit FolderLock(const QString &folder);
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;

    bool take(); // false while another holds it

private:
    int m_handle{-1};
};

} // namespace InkDoor
