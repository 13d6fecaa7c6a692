#pragma once

#include "board/document/Document.h"

#include <QtCore/QObject>

#include <memory>

class QScreen;
class QWidget;

namespace Board {

class Canvas;
class ScreenBar;
class ScreenPage;
struct Tool;

// Ink over all that is on a screen, drawn with a few tools from a small bar. With the pointer in hand clicks go to what
// lies below, and the ink stays.
//
// Where the desktop composes windows the page is transparent. Elsewhere it shows a grab of the screen, and steps aside
// for as long as the pointer is in hand.
class ScreenInk : public QObject
{
    Q_OBJECT

public:
    enum class Backdrop { Transparent, Grabbed };

    // The screen outlives this object.
    explicit ScreenInk(QScreen &screen, Backdrop backdrop = fittingBackdrop());
    ~ScreenInk() override;

    // What this desktop can do.
    static Backdrop fittingBackdrop();

    Document &document() { return m_document; }
    Canvas &canvas();
    QWidget &bar();

    void choose(const Tool &tool);
    void choosePointer();

signals:
    void ended(); // the board is wanted again

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void connectBar();
    void showPage();
    void cutOutBar();

    const Backdrop m_backdrop;
    Document m_document;
    std::unique_ptr<ScreenPage> m_page;
    std::unique_ptr<ScreenBar> m_bar;
    bool m_points{}; // the pointer is in hand
};

// Hides the window until the person is done with the screen. What was drawn is then gone.
void writeOnScreen(QWidget &window);

} // namespace Board
