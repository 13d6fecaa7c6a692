#pragma once

#include "board/document/Document.h"
#include "board/pointers/Moves.h"
#include "board/tools/Tools.h"

class QWidget;

namespace Board {

class Navigator;
class ObjectEditor;

// The object in the hand of the person who draws: the moves that it was not yet told of, and the editor over it.
class InHand : public QObject
{
    Q_OBJECT

public:
    // All outlive this object. The canvas owns the editors.
    InHand(Document &document, Navigator &navigator, QWidget &canvas);

    // For changes, before which the object is told of all moves.
    InkLesson::Author &author();

    // Null without an object. Tells it nothing.
    const InkLesson::Hand *hand() const { return m_document.author().hand(); }

    // What is edited of the objects that come into the hand; null where handles change all of them.
    void setEdit(decltype(Tool::edit) edit) { m_edit = edit; }

    void feed(int code, const QPoint &pt);

    // Moves are told together where they come faster than they should be painted. The first after a press waits for
    // nothing.
    void expectMoves();
    void addMoves(const std::vector<QPoint> &pts) { m_moves.add(pts); }
    void tellMoves();
    void painted() { m_moves.painted(); } // what was told last

    bool isEdited() const { return m_editor != nullptr; }
    void setColor(const QColor &color);
    void followView();

    // The object has what was entered, if that is kept, and is then let go like any other.
    void closeEditor(bool keeps = true);

signals:
    // The editor was left, and the object with it.
    void letGo();

private:
    void followObject();
    void openEditor(CInkGraph &object);
    void makeRoom();

    Document &m_document;
    Navigator &m_navigator;
    QWidget &m_canvas;
    Moves m_moves;
    decltype(Tool::edit) m_edit{};
    ObjectEditor *m_editor{}; // owned by the canvas; null while there is none
};

} // namespace Board
