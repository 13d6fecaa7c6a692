#pragma once

#include "board/document/Document.h"

#include <QtWidgets/QMainWindow>

#include <memory>

class QAction;
class QLabel;
class QTimer;

namespace Board {

class Canvas;
class ColorRow;
class DashControl;
class FileCommands;
class OptionControl;
class PageCommands;
class PeopleBar;
class SharingCommands;
class ToolRail;
class WidthControl;
struct LessonLink;
struct Tool;

// The board: a rail of tools on the left, colours, width and actions above, the page, and all pages on the right.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    // The size of the first page is in pixels of a plain screen; the page has those of the screen in their place.
    explicit MainWindow(const QSize &plainSize);
    ~MainWindow() override;

    Canvas &canvas() { return *m_canvas; }
    Document &document() { return m_document; }
    FileCommands &files() { return *m_files; }
    SharingCommands &sharing() { return *m_sharing; }
    void chooseTool(const Tool &tool);

    // Finishes the object in progress and writes the page. Returns what went wrong, empty when nothing did.
    QString exportPage(const QString &fileName);

    // Asks what is to become of the lesson that is open. `name` is what the others see, and may be empty.
    void joinLesson(const LessonLink &link, const QString &name);

    // Whether closing asks about a lesson that was not saved; it does unless told otherwise.
    void setAsksBeforeClosing(bool asks) { m_asks = asks; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *makeBar(QWidget *parent);
    void addCommands();
    void addSharing();
    QAction *command(const char *name) const;
    void connectControls();
    void askForName();
    void showState();
    void showTitle();
    void showInk();
    QString hintFor(const InkLesson::Hand *hand) const;
    void say(const QString &words);

    Document m_document;
    Canvas *m_canvas; // all owned by this window
    FileCommands *m_files{};
    PageCommands *m_pageCommands{};
    ToolRail *m_rail;
    ColorRow *m_colors;
    WidthControl *m_width;
    DashControl *m_dash;
    OptionControl *m_option;
    QLabel *m_hint;      // what can be done next
    QTimer *m_saying;    // while something else stands there
    PeopleBar *m_people; // who takes part
    std::unique_ptr<SharingCommands> m_sharing;
    QAction *m_undo{};
    QAction *m_redo{};
    const Tool *m_tool;
    bool m_asks{true};
};

} // namespace Board
