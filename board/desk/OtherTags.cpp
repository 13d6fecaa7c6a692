#include "board/desk/OtherTags.h"

#include <algorithm>
#include <utility>

namespace Board {

void OtherTags::setPeople(const std::map<int, Drawer> &people)
{
    for (auto &[author, tag] : m_tags)
        m_left |= tag.follow(nullptr);
    m_tags.clear();
    for (const auto &[author, drawer] : people) {
        NameTag &tag = m_tags[author];
        tag.setDensity(m_density);
        tag.setDrawer(drawer);
    }
}

void OtherTags::setDensity(double density)
{
    m_density = density;
    for (auto &[author, tag] : m_tags)
        tag.setDensity(density);
}

QRegion OtherTags::follow(const InkLesson::Page &page)
{
    QRegion area = std::exchange(m_left, {});
    for (auto &[author, tag] : m_tags) {
        const auto isTheirs = [author = author](const InkLesson::Hand &hand) { return hand.author == author; };
        const auto hand = std::find_if(page.hands().begin(), page.hands().end(), isTheirs);
        CInkGraph *object = hand == page.hands().end() ? nullptr : hand->object.get();
        if (object)
            tag.sign(*object);
        area |= tag.follow(object);
    }
    return area;
}

void OtherTags::paint(QPainter &painter) const
{
    for (const auto &[author, tag] : m_tags)
        tag.paint(painter);
}

} // namespace Board
