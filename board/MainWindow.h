#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QMainWindow>

#include <optional>

class QLabel;

namespace Board {

class Canvas;
class ColorRow;
class OptionControl;
class ToolRail;
class WidthControl;
struct Tool;

// The board: a rail of tools on the left, colours, width and actions above, and the page.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(const QSize &pageSize);

    Canvas &canvas() { return *m_canvas; }
    void chooseTool(const Tool &tool);

    // Finishes the object in progress and writes the page. Returns what went wrong, empty when nothing did.
    QString exportPage(const QString &fileName);

    // Whether closing asks about ink that was not exported; it does unless told otherwise.
    void setAsksBeforeClosing(bool asks) { m_asks = asks; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *makeBar(QWidget *parent);
    QAction *addAction(const char *name, const QString &title, const QString &shortcut);
    void addActions();
    void connectControls();
    void askForPicture();
    void pastePicture();
    void insertPicture(const std::optional<QImage> &picture, const QString &problem);
    void refusePicture(const QString &problem);
    bool askForExport(); // true once the page is written
    bool hasUnsavedInk() const;
    void showState();

    Canvas *m_canvas; // all owned by this window
    ToolRail *m_rail;
    ColorRow *m_colors;
    WidthControl *m_width;
    OptionControl *m_option;
    QLabel *m_hint; // what can be done next
    QAction *m_undo{};
    const Tool *m_tool;
    QImage m_exported; // the page as it was last written
    bool m_asks{true};
};

} // namespace Board
