#pragma once

// Somebody who sits before a board and answers its questions.

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

#include <functional>

// Answers each question with the button of that text, and notes the questions.
class Answers : public QObject
{
public:
    explicit Answers(const QStringList &buttons)
        : m_buttons(buttons)
    {
        m_timer.callOnTimeout([this] { answer(); });
        m_timer.start(20);
    }

    QStringList questions;

private:
    void answer()
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || m_buttons.isEmpty())
            return;
        for (QAbstractButton *button : box->buttons()) {
            if (button->text().remove(QLatin1Char('&')) != m_buttons.constFirst())
                continue;
            m_buttons.removeFirst();
            questions.append(box->text() + QLatin1Char(' ') + box->informativeText());
            button->click();
            return;
        }
    }

    QStringList m_buttons;
    QTimer m_timer;
};

// Does this with the next dialog of the type T, which is then closed as accepted.
template <typename T>
void withDialog(const std::function<void(T &dialog)> &act)
{
    QTimer::singleShot(20, qApp, [act] {
        if (auto *dialog = qobject_cast<T *>(QApplication::activeModalWidget())) {
            act(*dialog);
            dialog->accept();
        } else {
            withDialog<T>(act);
        }
    });
}

// Does this with the next dialog of the type Dialog, however it comes to its end.
template <typename Dialog, typename Use>
void whenAsked(Use use)
{
    QTimer::singleShot(0, qApp, [use] {
        if (auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget()))
            use(*dialog);
        else
            whenAsked<Dialog>(use);
    });
}
