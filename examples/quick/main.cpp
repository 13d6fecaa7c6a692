// A lesson as an item of Qt Quick: QML shows the page and chooses, the item draws.

#include "lesson/authoring/Pointer.h"

#include <QtCore/QDateTime>
#include <QtCore/QLoggingCategory>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtQml/QQmlApplicationEngine>
#include <QtQuick/QQuickPaintedItem>

// The first page of a lesson of its own.
class LessonPage : public QQuickPaintedItem
{
    Q_OBJECT
    Q_PROPERTY(QString tool READ tool WRITE setTool NOTIFY chosen)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY chosen)

public:
    LessonPage()
    {
        const QSize size = m_author.canvas();
        setImplicitSize(size.width(), size.height());
        setAcceptedMouseButtons(Qt::LeftButton); // or no event comes
        setKeepMouseGrab(true);                  // or a list around it may take a stroke for a flick
        setOpaquePainting(true);
        m_lesson.pageChanged = [this](const auto &, const QRegion &area) { update(area.boundingRect()); };
    }

    QString tool() const { return m_pointer.tool(); }
    void setTool(const QString &tool)
    {
        m_pointer.setTool(tool);
        emit chosen();
    }

    QColor color() const { return m_pointer.ink().color; }
    void setColor(const QColor &color)
    {
        m_pointer.setInk({color});
        emit chosen();
    }

    Q_INVOKABLE void undo() { m_author.undo(); }
    Q_INVOKABLE void redo() { m_author.redo(); }

    void paint(QPainter *painter) override { painter->drawImage(0, 0, m_lesson.page(m_author.page()).surface()); }

signals:
    void chosen();

protected:
    void mousePressEvent(QMouseEvent *event) override { m_pointer.press(event->pos()); }
    void mouseMoveEvent(QMouseEvent *event) override { m_pointer.move(event->pos()); }
    void mouseReleaseEvent(QMouseEvent *event) override { m_pointer.release(event->pos()); }
    void mouseDoubleClickEvent(QMouseEvent *event) override { m_pointer.doubleClick(event->pos()); } // after its press

private:
    InkLesson::Lesson m_lesson{{{640, 400}}};
    InkLesson::Author m_author{m_lesson, 1, QDateTime::currentMSecsSinceEpoch};
    InkLesson::Pointer m_pointer{m_author};
};

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules("default.debug=false"); // a line for each rectangle
    QGuiApplication application(argc, argv);
    qmlRegisterType<LessonPage>("Lesson", 1, 0, "LessonPage");
    QQmlApplicationEngine engine("qrc:/Main.qml");
    return QGuiApplication::exec();
}

#include "main.moc"
