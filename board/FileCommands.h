#pragma once

#include <QtCore/QObject>

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

    void open();
    bool save(); // true once the document is written
    bool saveAs();

    // Asks what is to become of changes. False when the person wants to go on with them.
    bool letGo();

    // Offers what a board that ended by itself has left in `folder`, and keeps a journal there from now on.
    void startJournal(const QString &folder);

private:
    bool saveTo(const QString &fileName);
    void offerRecovery(const QString &folder);
    void warn(const QString &title, const QString &problem);

    Document &m_document;
    Canvas &m_canvas;
    QWidget &m_window;
};

} // namespace Board
