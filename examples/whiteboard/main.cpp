// A whiteboard with every tool, colours, widths, undo, files and zoom.

#include "lesson/authoring/Pointer.h"
#include "lesson/storage/LessonFile.h"

#include <QtWidgets/QtWidgets>

using namespace InkLesson;

// The first page of a lesson, drawn on with the mouse.
class Canvas : public QWidget
{
public:
    explicit Canvas(std::unique_ptr<Lesson> shown)
        : lesson(std::move(shown))
        , author(*lesson, 1, QDateTime::currentMSecsSinceEpoch)
        , pointer(author, QRandomGenerator::global()->generate())
    {
        lesson->pageChanged = [this](const PageId &, const QRegion &) { update(); };
        zoomBy(1);
        startTimer(16); // milliseconds; the spray gun goes on while the mouse rests
    }

    void zoomBy(double factor)
    {
        m_zoom = qBound(0.25, m_zoom * factor, 4.0);
        setFixedSize(author.canvas() * m_zoom);
    }

    const std::unique_ptr<Lesson> lesson;
    Author author;
    Pointer pointer;

protected:
    void mousePressEvent(QMouseEvent *event) override { pointer.press(at(*event)); }
    void mouseMoveEvent(QMouseEvent *event) override { pointer.move(at(*event)); }
    void mouseDoubleClickEvent(QMouseEvent *event) override { pointer.doubleClick(at(*event)); }
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        pointer.release(at(*event));
        if (pointer.awaitsText())
            pointer.enterText(QInputDialog::getMultiLineText(this, "Text", "What stands in the frame:"), font());
    }
    void timerEvent(QTimerEvent *) override { pointer.scatter(); }
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.scale(m_zoom, m_zoom);
        painter.drawImage(0, 0, lesson->page(author.page()).surface());
    }

private:
    QPoint at(const QMouseEvent &event) const { return {int(event.x() / m_zoom), int(event.y() / m_zoom)}; }
    double m_zoom{1};
};

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules("default.debug=false"); // a line for each rectangle
    QApplication application(argc, argv);
    QMainWindow window;
    auto *area = new QScrollArea;
    window.setCentralWidget(area);
    auto *canvas = new Canvas(std::make_unique<Lesson>(Header{{1280, 800}}));
    area->setWidget(canvas);

    QToolBar *bar = window.addToolBar("Tools");
    auto *tool = new QComboBox, *color = new QComboBox;
    auto *width = new QSpinBox; // page pixels
    for (const Tool &each : tools()) {
        if (!each.floods) // the fill of old files, which is an "area" today
            tool->addItem(each.name);
    }
    color->addItems({"black", "red", "green", "blue"});
    width->setRange(1, 50);
    width->setValue(4);
    const auto choose = [&] {
        canvas->pointer.setTool(tool->currentText());
        canvas->pointer.setInk({color->currentText(), width->value()});
    };
    for (QWidget *chooser : std::initializer_list<QWidget *>{tool, color, width})
        bar->addWidget(chooser);
    QObject::connect(tool, &QComboBox::currentTextChanged, choose);
    QObject::connect(color, &QComboBox::currentTextChanged, choose);
    QObject::connect(width, QOverload<int>::of(&QSpinBox::valueChanged), choose);

    bar->addAction("Undo", [&] { canvas->author.undo(); })->setShortcut(QKeySequence::Undo);
    bar->addAction("Redo", [&] { canvas->author.redo(); })->setShortcut(QKeySequence::Redo);
    bar->addAction("Zoom in", [&] { canvas->zoomBy(2); })->setShortcut(QKeySequence::ZoomIn);
    bar->addAction("Zoom out", [&] { canvas->zoomBy(0.5); })->setShortcut(QKeySequence::ZoomOut);
    bar->addAction("Open", [&] {
        QString problem;
        const QString name = QFileDialog::getOpenFileName(&window);
        if (auto lesson = name.isEmpty() ? nullptr : openLesson(name, problem))
            area->setWidget(canvas = new Canvas(std::move(lesson))); // deletes the one before
        choose();
        if (!problem.isEmpty()) // of a file that was cut off, the part before that is shown
            QMessageBox::warning(&window, "Open", problem);
    });
    bar->addAction("Save", [&] {
        canvas->author.finish(); // what is still in the hand is drawn now
        const QString name = QFileDialog::getSaveFileName(&window);
        const QString problem = name.isEmpty() ? QString() : saveLesson(*canvas->lesson, name);
        if (!problem.isEmpty())
            QMessageBox::warning(&window, "Save", problem);
    });
    window.showMaximized();
    return QApplication::exec();
}
