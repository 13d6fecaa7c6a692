#pragma once

#include "board/editors/ObjectEditor.h"

#include <QtCore/QPointer>

class CInkText;
class QFrame;
class QLabel;
class QSpinBox;
class QTextDocument;
class QTextEdit;

namespace Board {

// Types the text of a frame, wrapped and placed as it will be painted. A bar beside the frame sets its size. The frame
// grows with the text, at most to the height of the page.
class TextEditor : public ObjectEditor
{
    Q_OBJECT

public:
    TextEditor(CInkText &text, QWidget *parent);
    ~TextEditor() override;

    void setColor(const QColor &color) override;
    void follow(const View &view) override;
    bool isLeft() const override;
    std::vector<InkLesson::Gesture> makingRoom(const QRect &page) const override;
    std::optional<InkLesson::Act> entered() override;

protected:
    void hideEvent(QHideEvent *event) override;

private:
    void makeBar();
    void placeBar(const QRect &frame);
    void showStyle();
    void layOut(QTextDocument &document) const;
    int neededHeight() const;
    QImage rendered() const;

    CInkText &m_text;
    QTextEdit *m_edit;      // owned by this widget
    QPointer<QFrame> m_bar; // deleted with this widget, unless the page is gone before
    QLabel *m_sample{};     // both owned by the bar
    QSpinBox *m_size{};
    QColor m_color;
    View m_view;
};

} // namespace Board
