#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>

namespace Board {

// Whether a pen is over the tablet, so that what touches it meanwhile is the palm of the hand that holds it.
//
// Some systems tell when a pen comes and goes. Elsewhere it is taken to be there for half a second after each of its
// events.
class PenWatch : public QObject
{
    Q_OBJECT

public:
    PenWatch(); // watches the events of the whole program

    bool isNear() const;

signals:
    void came();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_isTold{}; // when it comes and goes
    bool m_isNear{};
    QElapsedTimer m_lastEvent;
};

} // namespace Board
