#include "Style.h"

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
        #hint { background: #ffffff; border-top: 1px solid #d9dee6; padding-left: 16px; }

        QToolButton {
            color: #27313d; background: transparent;
            border: 2px solid transparent; border-radius: 10px; padding: 4px;
        }
        QToolButton:hover { background: #eef2f8; }
        QToolButton:pressed { background: #dfe6f1; }
        QToolButton:focus { border-color: #8fb0e6; }
        QToolButton:checked { background: #2563c9; color: #ffffff; }
        QToolButton:disabled { color: #a9b2be; }
        #bar QToolButton { padding: 8px 14px; font-size: 15px; }

        QScrollBar:vertical { width: 12px; background: transparent; margin: 0; }
        QScrollBar::handle:vertical { background: #c3ccd8; border-radius: 4px; min-height: 32px; margin: 2px; }
        QScrollBar::add-line, QScrollBar::sub-line { height: 0; }

        #pages QListWidget { background: #eef1f5; }

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
