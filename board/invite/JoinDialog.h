#pragma once

#include "board/sharing/LessonLink.h"

#include <QtWidgets/QDialog>

class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;

namespace Board {

// Asks for the lesson to join, by its link or by address and code, and for a name, which may stay empty.
class JoinDialog : public QDialog
{
    Q_OBJECT

public:
    // `text` is what was typed before, to be gone on with or replaced.
    JoinDialog(QWidget *parent, const QString &name, const QString &text = {});

    // What was typed, whether it leads anywhere or not.
    QString text() const;

    // Once it was accepted.
    LessonLink link() const { return m_read; }
    QString name() const;

private:
    QLayout *makeLinkRow();
    QLayout *makeFoot();
    void read();

    LessonLink m_read;
    QLineEdit *m_link; // all owned by this dialog
    QLabel *m_hint;
    QLineEdit *m_name;
    QPushButton *m_join;
};

} // namespace Board
