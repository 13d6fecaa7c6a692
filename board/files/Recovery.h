#pragma once

#include "lesson/storage/Sharing.h"

#include <QtCore/QObject>
#include <QtCore/QStringList>

class QWidget;

namespace Board {

class Document;

// The journals that were left in a folder by boards that ended by themselves. Each is offered once, at the next start;
// one that is kept for later is listed among the unsaved lessons until it is saved or deleted.
class Recovery : public QObject
{
    Q_OBJECT

public:
    // Both outlive this object.
    Recovery(Document &document, QWidget &window);

    void setFolder(const QString &folder) { m_folder = folder; }

    // Asks what is to become of each, until one is opened.
    void offer();

    // Lists all of them. Returns the one that is to be opened; empty for none.
    QString choose();

    // Makes it the document. Its journal stays until forget().
    void open(const QString &journal);

    // What was opened is saved now, or not wanted.
    void forget();

signals:
    // The lesson that was opened had been shared.
    void wasShared(const InkLesson::Sharing &sharing);

private:
    QStringList lessons() const; // the newest first

    Document &m_document;
    QWidget &m_window;
    QString m_folder;
    QString m_opened; // the journal of the document; may be empty
};

} // namespace Board
