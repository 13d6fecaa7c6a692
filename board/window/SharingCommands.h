#pragma once

#include "board/sharing/DocumentSharing.h"

#include <QtCore/QPointer>

class QAction;
class QProgressDialog;
class QWidget;

namespace Board {

class Canvas;
class CommandGroup;
class PeopleBar;
class ShareDialog;

// Shares the lesson of a window and joins others' lessons: commands, dialogs, who is there, and what is said of it.
class SharingCommands : public QObject
{
    Q_OBJECT

public:
    // All outlive this object; the bar is the window's.
    SharingCommands(Document &document, Canvas &canvas, PeopleBar &bar, QWidget &window);
    ~SharingCommands() override;

    DocumentSharing &sharing() { return m_sharing; }

    // What else is open was let go before, and so is the lesson where that goes wrong.
    void joinLesson(const LessonLink &link, const QString &name);

    // What the others see from now on, while a lesson is shared. One that is shared later asks the settings.
    void setName(const QString &name);

    // The document was shared when the board ended by itself.
    void offerToResume(const InkLesson::Sharing &sharing);

    // Asks about the others before the lesson is left. False when the person wants to go on with it.
    bool mayEnd();

    // Comes back once the others have what they had not, or after some seconds.
    void end();

signals:
    void said(const QString &words); // once, for the person
    void joinRequested(const LessonLink &link, const QString &name);

private:
    void addCommands();
    void connectSharing();
    void connectPeople();
    void share();
    void openDialog();
    void showLinks();
    void askForLink();
    void keepName(const QString &name);
    void began();
    void tellPerson();
    void failed(const QString &words);
    void tellEnd();
    void showProgress(const QString &words);
    void closeProgress();
    void showState();
    void showPeople();
    void showTips();
    void showPointers(bool isShown);
    void noteBothHold();
    bool mayClear();
    QString nameOf(int author) const;
    bool isDrawing(int author) const;
    QColor colorOf(int author) const;

    Document &m_document;
    Canvas &m_canvas;
    PeopleBar &m_bar;
    QWidget &m_window;
    DocumentSharing m_sharing;
    QString m_name;     // of the person here, for this lesson
    QString m_typed;    // to join a lesson, which has not come about yet
    QAction *m_share{}; // owned by the window
    QAction *m_stop{};
    QAction *m_join{};
    QAction *m_who{};
    QAction *m_pointers{};
    QPointer<ShareDialog> m_dialog;
    QPointer<QProgressDialog> m_progress;
    int m_bothHold{}; // the other author who holds what is in the hand, 0 for none
};

} // namespace Board
