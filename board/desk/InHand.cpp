#include "board/desk/InHand.h"

#include "board/editors/ObjectEditor.h"
#include "board/view/Navigator.h"

#include "PointerEvent.h"

#include <QtGui/QScreen>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <utility>

namespace Board {

using namespace InkLesson;

namespace {

constexpr int kCheapPause = 4; // milliseconds

} // namespace

InHand::InHand(Document &document, Navigator &navigator, QWidget &canvas)
    : m_document(document)
    , m_navigator(navigator)
    , m_canvas(canvas)
{
    connect(&m_moves, &Moves::due, this, &InHand::tellMoves);
}

Author &InHand::author()
{
    tellMoves();
    return m_document.author();
}

void InHand::feed(int code, const QPoint &pt)
{
    author().feed(code, pt);
    followObject();
    if (code == PT_UP)
        makeRoom(); // the frame may have become narrower
}

void InHand::expectMoves()
{
    m_moves.setPauses(kCheapPause, int(1000 / std::max(m_canvas.screen()->refreshRate(), 1.0)));
    m_moves.begin();
}

// All at once, and then what follows from the last.
void InHand::tellMoves()
{
    if (m_moves.isEmpty())
        return;
    m_document.author().feed(PT_MOVE, m_moves.take());
    followObject();
}

void InHand::setColor(const QColor &color)
{
    if (m_editor)
        m_editor->setColor(color);
}

void InHand::followView()
{
    if (m_editor)
        m_editor->follow(m_navigator.view(m_document.page()));
}

void InHand::closeEditor(bool keeps)
{
    tellMoves(); // which may close it, and must not open another below
    if (!m_editor)
        return;
    const bool hadFocus = m_canvas.isAncestorOf(QApplication::focusWidget());
    ObjectEditor *editor = std::exchange(m_editor, nullptr);
    const auto entered = keeps ? editor->entered() : std::nullopt;
    if (entered)
        author().act(*entered);
    if (hadFocus)
        m_canvas.setFocus(); // before it is hidden, which would hand the focus on as the Tab key does
    editor->hide();
    editor->deleteLater(); // the key that ends it may be its own
}

void InHand::followObject()
{
    const Hand *hand = m_edit ? author().hand() : nullptr;
    if (!hand || hand->isForming())
        return;
    if (!m_editor) {
        openEditor(*hand->object);
        return;
    }
    followView();
    if (m_editor->isLeft()) {
        closeEditor();
        author().finish();
        emit letGo();
    }
}

void InHand::openEditor(CInkGraph &object)
{
    m_editor = m_edit(object, &m_canvas);
    connect(m_editor, &ObjectEditor::edited, this, &InHand::makeRoom);
    followView();
    m_editor->show();
    m_editor->setFocus();
}

// As the person would make it.
void InHand::makeRoom()
{
    if (!m_editor)
        return;
    for (const Gesture &drag : m_editor->makingRoom(m_document.page().rect())) {
        author().feed(PT_DOWN, drag.front());
        author().feed(PT_MOVE, drag.back());
        author().feed(PT_UP, drag.back());
    }
    followView();
}

} // namespace Board
