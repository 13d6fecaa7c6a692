#pragma once

#include "lesson/paper/Paper.h"

#include <QtCore/QObject>
#include <QtGui/QImage>

#include <optional>

class QWidget;

namespace Board {

class Canvas;
class Document;

// Gives the page of a window paper and pictures, copies, exports and prints it, and asks where it must.
class PageCommands : public QObject
{
    Q_OBJECT

public:
    // All outlive this object.
    PageCommands(Document &document, Canvas &canvas, QWidget &window);

    // Finishes the object in progress and writes the page. Returns what went wrong, empty when nothing did.
    QString exportPage(const QString &fileName);

signals:
    void exported(const QString &fileName);

private:
    void addPictureCommands();
    void addPaperCommands();
    void setPaper(InkLesson::Paper::Kind kind);
    void askForPaper();
    void setPaper(const QImage &picture);
    void takeScreenAsPaper();
    void copy();
    void askForPicture();
    void pastePicture();
    void insertPicture(const std::optional<QImage> &picture, const QString &problem);
    void refusePicture(const QString &problem);
    void askForExport();
    void print();

    Document &m_document;
    Canvas &m_canvas;
    QWidget &m_window;
};

} // namespace Board
