#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>

class QAbstractButton;

namespace Board {

// Makes one stop of the Tab key out of many buttons: the arrow keys move the focus among those that are visible, and
// Enter presses as Space does.
class ArrowKeys : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // The first is where the Tab key comes to, until another one is switched on or has had the focus. The button
    // outlives this object, or both are deleted together.
    void add(QAbstractButton &button);

    // The Tab key comes to the first visible button if the one that it came to before is hidden.
    void refresh();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeStop(const QAbstractButton &stop);
    QAbstractButton *next(const QAbstractButton &from, bool forward) const;
    QAbstractButton *nextRow(const QAbstractButton &from, bool down) const;

    QList<QAbstractButton *> m_buttons;
};

} // namespace Board
