#include "TextBox.h"

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QPainter>

namespace Guide {

//! [box]
TextBox::TextBox(CInkText &text, QWidget *page)
    : QTextEdit(page)
    , m_text(text)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentMargin(0); // or the text lies 4 pixels farther in, here and in the image
    QPalette colors = palette();
    colors.setColor(QPalette::Base, Qt::transparent);
    colors.setColor(QPalette::Text, text.m_color);
    setPalette(colors);
    follow();
    show();
}

void TextBox::follow()
{
    constexpr int kInset = 5; // of the image in m_rcImage
    setGeometry(m_text.m_rcImage.adjusted(kInset, kInset, -kInset, -kInset));
}

QImage TextBox::rendered() const
{
    QImage image(size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette = palette();
    document()->documentLayout()->draw(&painter, context);
    return image;
}
//! [box]

//! [feed]
QRect feedText(Page &page, CInkText &text, std::unique_ptr<TextBox> &box, QWidget *parent, int code, const QPoint &pt)
{
    const QRect area = page.feed(text, code, pt);
    if (text.m_bFinished) { // too small a drag: abandoned
        box.reset();
        return area;
    }
    if (!text.m_bEditMode) // its frame is being dragged
        return area;
    if (!box)
        box = std::make_unique<TextBox>(text, parent);
    box->follow();
    if (!text.m_bClickOutside)
        return area;

    text.m_bClickOutside = 0; // the library never does
    const std::unique_ptr<TextBox> left = std::move(box);
    text.m_strText = left->toPlainText();
    if (text.m_strText.isEmpty())
        return page.cancel(text);
    QImage image = left->rendered();
    text.SetTextImage(&image); // finishes the object
    return page.commit(text);
}
//! [feed]

} // namespace Guide
