#pragma once

#include <QtWidgets/QLabel>

namespace Board {

// A line of words with controls at its right end. Words that reach the controls are cut with an ellipsis, and are then
// its tip.
class HintLine : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override;

    // As much of the words as is seen.
    QString shown() const;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QRect area() const;
};

} // namespace Board
