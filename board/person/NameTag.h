#pragma once

#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QImage>

class CInkGraph;
class QPainter;

namespace Board {

// A person who draws: the one at this board as the settings keep it, or another one.
struct Drawer
{
    static constexpr int kMaxName = 31; // units of UTF-16 that an object keeps

    QString name{};
    QImage icon{};  // null for the first letter of the name
    bool isShown{}; // beside what is being drawn
    QColor color{}; // behind the name and its letter; invalid for that of the board
};

Drawer readDrawer();
void keepDrawer(const Drawer &drawer);

// The picture, or the letter, in a disc of `side` pixels.
QImage drawerIcon(const Drawer &drawer, int side);

// The drawer's name and icon where the object in progress wants them: over the page, and no part of it. All in page
// pixels.
class NameTag
{
public:
    void setDrawer(const Drawer &drawer);
    void setDensity(double density); // of the page

    // Tells an object that has not been drawn yet whose it is.
    void sign(CInkGraph &object) const;

    // Goes to where the object now is; null for none. Returns the area to repaint.
    QRect follow(CInkGraph *object);

    void paint(QPainter &painter) const;

private:
    void measure();

    Drawer m_drawer;
    double m_density{1};
    QImage m_icon;
    int m_textSize{}; // of the font
    QSize m_nameSize;
    QRect m_nameArea; // empty while it is not shown
    QRect m_iconArea;
};

} // namespace Board
