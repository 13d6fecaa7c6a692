#pragma once

#include "board/view/View.h"

#include "lesson/objects/Gesture.h"
#include "lesson/objects/Life.h"

#include <QtWidgets/QWidget>

#include <optional>
#include <vector>

namespace Board {

// Edits on the page what the handles of an object cannot: a widget over the object.
//
// It is made once the object has its handles and keeps to it until finish(); the object outlives that call.
class ObjectEditor : public QWidget
{
    Q_OBJECT

public:
    explicit ObjectEditor(QWidget *parent)
        : QWidget(parent)
    {
        setAttribute(Qt::WA_NoMousePropagation); // a press here is none on the page
    }

    virtual void setColor(const QColor &color) = 0;

    // Keeps to the object, which was moved or stretched, or is seen elsewhere now. Called before anything else.
    virtual void follow(const View &view) = 0;

    // The object was pressed where that lets it go.
    virtual bool isLeft() const = 0;

    // Drags of the handles that make room on the page for what was entered.
    virtual std::vector<InkLesson::Gesture> makingRoom(const QRect &page) const = 0;

    // What was entered, if anything. The editor is then hidden and deleted.
    virtual std::optional<InkLesson::Act> entered() = 0;

signals:
    // It may need another room.
    void edited();
};

} // namespace Board
