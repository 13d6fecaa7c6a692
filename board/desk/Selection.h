#pragma once

#include "lesson/log/StepId.h"

#include <QtCore/QObject>
#include <QtCore/QPoint>

namespace Board {

// The object that was picked and has no handles to show for it; it is framed instead.
class Selection : public QObject
{
    Q_OBJECT

public:
    const InkLesson::ObjectId &object() const { return m_object; } // kNothing for none
    bool isEmpty() const { return m_object == InkLesson::kNothing; }

    void pick(const InkLesson::ObjectId &object);
    void clear() { pick(InkLesson::kNothing); }

    // Where the frame is shown while the object is being moved, from where the object lies.
    const QPoint &offset() const { return m_offset; }
    void shift(const QPoint &offset);

signals:
    void changed();
    void shifted();

private:
    InkLesson::ObjectId m_object{InkLesson::kNothing};
    QPoint m_offset;
};

} // namespace Board
