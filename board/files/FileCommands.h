#pragma once

#include "board/files/Recovery.h"

#include "lesson/storage/FileClaim.h"

#include <QtCore/QObject>

#include <functional>

class QWidget;

namespace Board {

class Canvas;
class Document;

// Opens, saves and recovers the document of a window, and asks where it must.
class FileCommands : public QObject
{
    Q_OBJECT

public:
    // All outlive this object.
    FileCommands(Document &document, Canvas &canvas, QWidget &window);

    void begin(); // a new lesson
    void open();
    void openFile(const QString &fileName); // in the place of the document, which is not asked about
    void recover();                         // one of the unsaved lessons
    bool save();                            // true once the document is written
    bool saveAs();

    // Asks what is to become of changes. False when the person wants to go on with them.
    enum class For { Quitting, Beginning, Opening, Joining };
    bool letGo(For what);

    // A lesson that others take part in: whether it may be left, and what is done then. Asked, and done, before the
    // document goes.
    struct Sharing
    {
        std::function<bool()> mayEnd;
        std::function<void()> end;
    };
    void setSharing(const Sharing &sharing) { m_sharing = sharing; }

    // Opens the lesson, if one is named, offers what a board that ended by itself has left in `folder`, and keeps a
    // journal there from now on.
    void startJournal(const QString &folder, const QString &lessonFile = {});

signals:
    void saved(const QString &fileName);

    // The document may have another name, or none any more.
    void named();

    // The document was recovered, and had been shared.
    void wasShared(const InkLesson::Sharing &sharing);

private:
    bool letGoOfChanges(For what);
    bool saveTo(const QString &fileName);
    bool saveElsewhere(const QString &problem);
    void claimFile();
    void warn(const QString &title, const QString &problem);

    Document &m_document;
    Canvas &m_canvas;
    QWidget &m_window;
    InkLesson::FileClaim m_claim; // to the file of the document
    Recovery m_recovery;
    Sharing m_sharing;
};

} // namespace Board
