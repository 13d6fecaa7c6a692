#pragma once

#include "board/people/Participant.h"

#include <QtCore/QList>
#include <QtWidgets/QAbstractButton>

namespace Board {

// The first of the people as discs, as many as there is room for, and how many more there are. One button, for their
// list.
class PeopleButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit PeopleButton(QWidget *parent = nullptr);

    void setPeople(const QList<Participant> &people);

    // That have a disc in such a width; at least one.
    int discsIn(int width) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void tellNames();
    int widthOf(int discs) const;
    QString moreText(int discs) const;

    QList<Participant> m_people;
};

} // namespace Board
