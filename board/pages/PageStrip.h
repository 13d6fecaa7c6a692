#pragma once

#include "lesson/log/StepId.h"

#include <QtCore/QTimer>
#include <QtGui/QIcon>
#include <QtWidgets/QWidget>

#include <unordered_map>
#include <unordered_set>

class QHBoxLayout;
class QListWidget;

namespace Board {

class ArrowKeys;
class Canvas;
class Document;

// The pages of a document as small pictures, one below the other. A press shows a page, a drag moves it.
class PageStrip : public QWidget
{
    Q_OBJECT

public:
    // Both outlive the strip.
    PageStrip(Document &document, Canvas &canvas, QWidget *parent = nullptr);

private:
    void addCommands(QHBoxLayout &buttons);
    void showPages();
    void showCurrent();
    void refreshLeft();
    void refreshChanged();
    void refresh(const InkLesson::PageId &page);
    void refreshOthers();
    QIcon icon(const InkLesson::PageId &id);
    void movePage(int from, int to);

    Document &m_document;
    Canvas &m_canvas;
    ArrowKeys *m_keys; // both owned by this widget
    QListWidget *m_list;
    std::unordered_map<InkLesson::PageId, QIcon> m_icons; // also of pages that were taken away
    InkLesson::PageId m_changed{};                        // the page that was drawn on last
    std::unordered_set<InkLesson::PageId> m_elsewhere;    // pages that others have drawn on
    QTimer m_refreshing;                                  // once the drawing pauses
    QTimer m_refreshingOthers;
};

} // namespace Board
