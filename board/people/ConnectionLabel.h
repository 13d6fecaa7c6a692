#pragma once

#include <QtWidgets/QWidget>

namespace Board {

// How the connection is, in words that are cut where there is no room for all of them; the tip has all. A disc stands
// before them while it is good, a triangle otherwise.
class ConnectionLabel : public QWidget
{
    Q_OBJECT

public:
    explicit ConnectionLabel(QWidget *parent = nullptr);

    void setWords(const QString &words, bool isGood);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_words;
    bool m_isGood{};
};

} // namespace Board
