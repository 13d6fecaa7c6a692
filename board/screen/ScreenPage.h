#pragma once

#include "board/canvas/Canvas.h"

namespace Board {

// A page as large as a screen, in a window of its own that stays on top. What lies under the ink is no part of it.
class ScreenPage : public Canvas
{
    Q_OBJECT

public:
    // The document outlives the page.
    ScreenPage(Document &document, QScreen &screen);

    void choose(const Tool &tool);

    // What is shown where there is no ink; null for what the desktop shows there.
    void setBackdrop(const QImage &picture);

    // Clicks go to what lies below.
    void letClicksThrough(bool lets);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage inkWithin(const QRect &area);

    Document &m_document;
    QImage m_backdrop;
    bool m_erases{};
};

} // namespace Board
