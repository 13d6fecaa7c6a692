#pragma once

#include "Page.h"

#include <CInkText>

#include <QtWidgets/QTextEdit>

namespace Guide {

// The editor of a text object, over its frame on a widget that shows the page at its own size.
class TextBox : public QTextEdit
{
public:
    TextBox(CInkText &text, QWidget *page);

    // Lies down in the frame, which its handles may have moved or stretched.
    void follow();

    // What is written, as it is seen here.
    QImage rendered() const;

private:
    CInkText &m_text;
};

// Hands one event to a text object and looks after its editor, which is null once the object is no more in progress.
QRect feedText(Page &page, CInkText &text, std::unique_ptr<TextBox> &box, QWidget *parent, int code, const QPoint &pt);

} // namespace Guide
