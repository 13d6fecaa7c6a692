#pragma once

#include "board/person/NameTag.h"

#include "lesson/pages/Page.h"

#include <QtGui/QRegion>

#include <map>

namespace Board {

// The names and icons of the others beside what they have in hand on the page that is shown.
class OtherTags
{
public:
    void setPeople(const std::map<int, Drawer> &people); // by their authors
    void setDensity(double density);                     // of the page

    // Goes to where their objects are now. Returns the area to repaint, in page pixels.
    QRegion follow(const InkLesson::Page &page);

    void paint(QPainter &painter) const;

private:
    double m_density{1};
    std::map<int, NameTag> m_tags;
    QRegion m_left; // by those who have gone
};

} // namespace Board
