#pragma once

#include "board/people/Participant.h"

#include <QtCore/QList>
#include <QtWidgets/QWidget>

class QAbstractButton;
class QHBoxLayout;
class QToolButton;

namespace Board {

class ConnectionLabel;
class PeopleButton;
class PeopleList;

// Who is in the lesson and how the connection is, on a few pixels however many they are, and a button to share the
// lesson. A lesson that is not shared has the button alone.
class PeopleBar : public QWidget
{
    Q_OBJECT

public:
    explicit PeopleBar(QWidget *parent = nullptr);

    // May stand elsewhere in the window.
    QToolButton *shareButton() const { return m_share; }

    // What the list is opened by, and what in it shows the pointers: their tips name the keys for that.
    QAbstractButton *peopleButton() const;
    QAbstractButton *pointersBox() const;

    // In the order in which they are shown. Empty where the lesson is not shared.
    void setPeople(const QList<Participant> &people);

    // Empty where there is none.
    void setConnection(const QString &words, bool isGood);

    // Whether the pointers of the others are: what the list shows as switched on.
    void setShown(bool isShown);

signals:
    void pointersSwitched(bool shown); // by the person
    void shareRequested();             // also to see the link of a lesson that is shared

private:
    void addShareButton(QHBoxLayout &row);

    QToolButton *m_share; // all owned by this widget
    PeopleButton *m_people;
    PeopleList *m_list;
    ConnectionLabel *m_connection;
};

} // namespace Board
