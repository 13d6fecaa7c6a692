#pragma once

#include "board/person/NameTag.h"

#include <QtWidgets/QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace Board {

// Asks for the name and the icon of the person who draws.
class NameDialog : public QDialog
{
    Q_OBJECT

public:
    explicit NameDialog(const Drawer &drawer, QWidget *parent = nullptr);

    const Drawer &drawer() const { return m_drawer; }

private:
    QLayout *makeForm();
    void askForPicture();
    void showIcon();

    Drawer m_drawer;
    QCheckBox *m_shown; // all owned by this dialog
    QLineEdit *m_name;
    QLabel *m_icon;
    QPushButton *m_letter;
};

} // namespace Board
