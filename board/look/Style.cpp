#include "board/look/Style.h"

namespace Board {

QString windowStyle()
{
    return QStringLiteral(R"(
        QMainWindow { background: #e9ecf1; }
        #bar { background: #ffffff; border-bottom: 1px solid #d9dee6; }
        #rail { background: #ffffff; border-right: 1px solid #d9dee6; }
        #tools { background: #ffffff; }
        QLabel { color: #5b6675; font-size: 14px; }
        QLabel[heading="true"] { font-size: 12px; font-weight: bold; padding: 6px 0 0 4px; }
        #hint QComboBox {
            background: #ffffff; border: 1px solid #c3ccd8; border-radius: 8px; padding: 2px 4px 2px 8px;
        }
        #hint QComboBox::drop-down { border: none; width: 20px; }
        #hint QComboBox:focus { border-color: #2563c9; }
        #hint QComboBox QAbstractItemView { background: #ffffff; selection-background-color: #e3ecfb; }
        #hint { background: #ffffff; border-top: 1px solid #d9dee6; }

        QToolButton {
            color: #27313d; background: transparent;
            border: 2px solid transparent; border-radius: 10px; padding: 4px;
        }
        QToolButton:hover { background: #eef2f8; }
        QToolButton:pressed { background: #dfe6f1; }
        QToolButton:focus { border-color: #2563c9; }
        QToolButton:checked { background: #2563c9; color: #ffffff; }
        QToolButton:checked:focus { border-color: #27313d; }
        QToolButton:disabled { color: #a9b2be; }
        #screenBar { background: #ffffff; border: 1px solid #d9dee6; }
        #bar QToolButton { padding: 8px 14px; font-size: 15px; }
        #bar #menu, #bar QToolButton[sign="true"] { font-size: 22px; padding: 4px 10px; }
        QToolButton::menu-indicator { image: none; }

        QMenu { background: #ffffff; color: #27313d; font-size: 15px; border: 1px solid #c3ccd8; padding: 4px; }
        QMenu::item { padding: 8px 28px; border-radius: 6px; }
        QMenu::indicator { width: 14px; height: 14px; left: 8px; }
        QMenu::indicator:unchecked { width: 12px; height: 12px; border: 1px solid #7d8896; border-radius: 3px; }
        QMenu::item:selected { background: #e3ecfb; }
        QMenu::item:disabled { color: #a9b2be; }
        QMenu::separator { height: 1px; background: #d9dee6; margin: 4px 8px; }

        QDialog { background: #ffffff; }
        QDialog QPushButton {
            color: #27313d; background: #ffffff; font-size: 14px; padding: 7px 16px;
            border: 1px solid #c3ccd8; border-radius: 8px;
        }
        QDialog QPushButton:hover { background: #eef2f8; }
        QDialog QPushButton:pressed { background: #dfe6f1; }
        QDialog QPushButton:focus { border: 2px solid #2563c9; padding: 6px 15px; }
        QDialog QPushButton:disabled { color: #a9b2be; }
        QDialog QLineEdit, #rail QLineEdit { font-size: 14px; padding: 6px 8px; border: 1px solid #c3ccd8; border-radius: 8px; }
        QDialog QLineEdit:focus, #rail QLineEdit:focus { border: 2px solid #2563c9; padding: 5px 7px; }
        QDialog QLabel[title="true"] { color: #27313d; font-size: 24px; font-weight: bold; }
        QDialog #words { color: #27313d; font-size: 18px; }
        QDialog QComboBox { font-size: 14px; min-height: 28px; }
        QDialog QProgressBar { background: #e3ecfb; border: none; border-radius: 4px; min-height: 8px; max-height: 8px; }
        QDialog QProgressBar::chunk { background: #2563c9; border-radius: 4px; }
        QDialog QCheckBox { color: #27313d; font-size: 14px; }
        QDialog QTreeView { font-size: 14px; border: 1px solid #d9dee6; border-radius: 8px; }
        QDialog QTreeView::item { padding: 3px 0; }

        QScrollBar:vertical { width: 12px; background: transparent; margin: 0; }
        QScrollBar::handle:vertical { background: #c3ccd8; border-radius: 4px; min-height: 32px; margin: 2px; }
        QScrollBar::add-line, QScrollBar::sub-line { height: 0; }

        #pages QListWidget { background: #eef1f5; border: 2px solid transparent; }
        #pages QListWidget::item { color: #5b6675; border: 2px solid transparent; border-radius: 8px; padding: 3px; }
        #pages QListWidget::item:selected { color: #27313d; background: #dbe6f8; border-color: #2563c9; }
        #pages QListWidget:focus { border-color: #2563c9; }

        QSlider::groove:horizontal { height: 4px; border-radius: 2px; background: #d9dee6; }
        QSlider::sub-page:horizontal { height: 4px; border-radius: 2px; background: #2563c9; }
        QSlider::handle:horizontal {
            width: 16px; height: 16px; margin: -7px 0; border-radius: 9px;
            background: #ffffff; border: 2px solid #2563c9;
        }
        QSlider::handle:horizontal:focus { background: #c9dcfa; }
    )");
}

} // namespace Board
