#pragma once

#include <QtCore/QString>

namespace InkDoor {

// Holds a folder for one engine. The engine itself holds it too, until it has ended: a new one does not touch the store
// of one that outlives its door for a moment.
class FolderLock
{
public:
    explicit FolderLock(const QString &folder);
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;

    bool take(); // false while another holds it

    // In a child that is about to become the engine.
    void keepInChild() const;

private:
    int m_handle{-1};
};

} // namespace InkDoor
