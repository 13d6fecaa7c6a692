#pragma once

#include "board/sharing/LessonLink.h"

#include <QtCore/QTimer>
#include <QtWidgets/QDialog>

class QComboBox;
class QLabel;
class QLayout;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace Board {

class FittedText;
class QrCode;

// How others come to this lesson: a QR code, the link, and what can be read aloud. It may stay open beside the lesson,
// and grows with its window, for a projector. Closing it ends nothing.
class ShareDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ShareDialog(QWidget *parent = nullptr);

    // Sharing is being started, and what is being done just now.
    void setProgress(const QString &words);

    // It cannot be, or not any more.
    void setProblem(const QString &words);

    // The same lesson by each address of this machine, the likeliest first. Not empty.
    void setLinks(const QList<LessonLink> &links);

    // Whether the links that follow are of this board's own lesson, as they are at first; another one can only be left.
    void setOwn(bool isOwn);

signals:
    void ended(); // the person wants to share no longer, or not to begin with it

private:
    QWidget *makeState();
    QWidget *makeInvitation();
    QLayout *makeWords();
    QLayout *makeLinkRow();
    QLayout *makeFoot();
    void showState(const QString &title, const QString &words, bool isBusy);
    void showLink(int index);
    void copy();

    QList<LessonLink> m_links;
    bool m_isOwn{true};
    QTimer m_copied; // until the button offers to copy again
    QLabel *m_title; // all owned by this dialog
    QLabel *m_words;
    QProgressBar *m_busy;
    QrCode *m_code;
    FittedText *m_address;
    FittedText *m_groups;
    QLineEdit *m_link;
    QPushButton *m_copy;
    QLabel *m_addressesTitle;
    QComboBox *m_addresses;
    QPushButton *m_end;
    QWidget *m_state;      // how far it is, or what is wrong
    QWidget *m_invitation; // seen instead once others can come
};

} // namespace Board
