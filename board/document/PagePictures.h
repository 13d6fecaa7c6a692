#pragma once

#include "lesson/fold/Lesson.h"

#include <QtCore/QThreadPool>

#include <memory>

namespace Board {

// What pages show, kept in a folder, so that a lesson of many objects is there at once when it is opened again.
//
// The name of a file is a hash of everything that its pixels depend on: the log of the lesson, the page, and the
// program and the libraries that have painted it. What is lost, or cannot be read, is painted anew.
class PagePictures
{
public:
    static constexpr std::size_t kFewestObjects = 300; // of a page; fewer are painted before anybody waits
    static constexpr int kMostBytes = 64 << 20;        // of one page
    static constexpr qint64 kMostOfAll = 256 << 20;

    // The folder need not be there yet.
    explicit PagePictures(QString folder, qint64 most = kMostOfAll);

    // What is being written is written to its end.
    ~PagePictures();

    // Null where it is not kept.
    std::unique_ptr<InkLesson::PackedLayers> find(const InkLesson::Lesson &lesson, const InkLesson::PageId &page) const;

    // The page has pixels. The file is written soon, and makes those that were of use longest ago go.
    void keep(InkLesson::Lesson &lesson, const InkLesson::PageId &page);

private:
    QString fileOf(const InkLesson::Lesson &lesson, const InkLesson::PageId &page) const; // empty for what is not kept

    const QString m_folder;
    const qint64 m_most; // bytes in the folder
    QThreadPool m_writing;
};

} // namespace Board
