#pragma once

#include <QtCore/QList>
#include <QtCore/QPointF>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QRegion>

#include <functional>
#include <vector>

class QPainter;

namespace Board {

// Where somebody else points on the page that is shown here.
struct OtherPointer
{
    QString name{}; // from outside
    QColor color{};
    QPointF at{}; // page pixels
};

// The pointers of the others, each an arrow in its person's colour with the name beside it, over the page and no part
// of it. Everything but OtherPointer::at is in pixels of the widget that they are painted on. Each change returns what
// has to be repainted.
class OtherPointers
{
public:
    using Mapping = std::function<QPointF(const QPointF &page)>;

    QRegion setPointers(const QList<OtherPointer> &pointers);

    // Where a point of the page lies in the widget now, and how large that is. Pointers beyond it are not shown; a name
    // that would reach beyond it stands on the other side of its arrow.
    QRegion setView(const Mapping &toWidget, const QRect &widget);

    QRegion setShown(bool isShown);
    bool isShown() const { return m_isShown; }

    // Keeps the painter's state.
    void paint(QPainter &painter) const;

private:
    struct Placed
    {
        QPoint tip;
        QRect plate; // behind the name
        QString name;
        QColor color;

        bool operator==(const Placed &other) const;
    };

    QRegion place();
    Placed placed(const OtherPointer &pointer) const;
    static QRect area(const Placed &placed);

    QList<OtherPointer> m_pointers;
    Mapping m_toWidget;
    QRect m_widget;
    bool m_isShown{true};
    std::vector<Placed> m_placed;
};

} // namespace Board
