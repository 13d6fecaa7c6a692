#pragma once

#include "board/people/Participant.h"

#include <QtCore/QList>
#include <QtWidgets/QFrame>

class QCheckBox;
class QListWidget;

namespace Board {

// All people of the lesson with colour, name and page, below the button that opens it, and whether their pointers are
// shown.
class PeopleList : public QFrame
{
    Q_OBJECT

public:
    explicit PeopleList(QWidget *parent = nullptr);

    QCheckBox *pointersBox() const { return m_pointers; }

    void setPeople(const QList<Participant> &people);
    void setShown(bool isShown); // the pointers

    // Beside that widget, wherever the screen has room.
    void openAt(const QWidget &opener);

signals:
    void pointersSwitched(bool shown);

private:
    QList<Participant> m_people; // that are listed
    QListWidget *m_list;         // both owned by this widget
    QCheckBox *m_pointers;
};

} // namespace Board
