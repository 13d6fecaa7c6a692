#pragma once

// What one person does to a lesson, by chance: everything that can be done to pages and objects. Random numbers are
// drawn in braces or in statements of their own: the order of a call's arguments is the compiler's.

#include "RandomCases.h"

#include "lesson/authoring/Author.h"
#include "lesson/objects/Tools.h"

#include "PointerEvent.h"

#include <vector>

class RandomActs
{
public:
    static constexpr QSize kSize{160, 120};

    // Whether a host hands over what no file can keep, as well.
    enum class Host { Exact, Odd };

    // Both outlive it.
    RandomActs(Random &random, InkLesson::Lesson &lesson, Host host = Host::Exact)
        : m_random(random)
        , m_lesson(lesson)
        , m_host(host)
    {
    }

    // Every fourth time, of an odd host.
    bool isOdd() { return m_host == Host::Odd && m_random.oneIn(4); }

    void actOnce(InkLesson::Author &person)
    {
        using namespace InkLesson;
        if (m_lesson.indexOf(person.page()) < 0 || m_random.oneIn(20))
            person.turnTo(m_lesson.pageId(m_random.below(m_lesson.pageCount())));
        const ObjectId object = anyObject(person.page());
        switch (m_random.below(24)) {
        case 0:
            person.undo();
            break;
        case 1:
            person.redo();
            break;
        case 2:
            person.remove({object, anyObject(person.page())});
            break;
        case 3:
            person.order(object, m_random.oneIn(3) ? kNothing : anyObject(person.page()));
            break;
        case 4:
            person.change({Change{object, color(), m_random.from(1, 9)},
                           Change{anyObject(person.page()), {}, {}, {}, {}, point() / 4}});
            break;
        case 5:
            person.duplicate(object, point() / 4);
            break;
        case 6:
            if (m_random.oneIn(4))
                person.clear();
            break;
        case 7:
            person.setPaper(paper());
            break;
        case 8:
            managePages(person);
            break;
        case 9:
            pour(person);
            break;
        case 10:
            person.insert(picture(person.page()));
            gesture(person);
            break;
        case 11:
        case 12:
        case 13:
            if (person.reopen(object))
                edit(person);
            break;
        case 14:
            person.discard();
            break;
        default:
            draw(person);
        }
    }

private:
    void pour(InkLesson::Author &person)
    {
        const QPoint seed = point();
        person.pour(seed, color());
    }

    void draw(InkLesson::Author &person)
    {
        using namespace InkLesson;
        const Tool &tool = tools()[std::size_t(m_random.below(int(tools().size())))];
        Life life{QString::fromLatin1(tool.name)};
        life.ink.color = color();
        life.ink.width = m_random.from(1, 9);
        life.ink.dash = m_random.oneIn(3) ? Qt::DashLine : Qt::SolidLine;
        if (isOdd())
            life.ink.dash = m_random.of({Qt::NoPen, Qt::DotLine, Qt::CustomDashLine});
        life.canvas = isOdd() ? m_random.of({QSize(), QSize(1, 1), QSize(20000, 20000)})
                              : m_lesson.page(person.page()).rect().size();
        person.begin(life);
        gesture(person);
        for (int more = m_random.below(3); more > 0; --more)
            gesture(person);
        if (tool.takesText)
            person.act(TextAct{isOdd() ? QString(QChar(0xD800)) + QChar(0) : QStringLiteral("text"), image()});
        if (m_random.oneIn(2))
            person.finish();
    }

    void edit(InkLesson::Author &person)
    {
        using namespace InkLesson;
        if (isOdd())
            person.act(DashAct{m_random.of({Qt::NoPen, Qt::DashDotLine, Qt::CustomDashLine})});
        for (int times = m_random.from(1, 3); times > 0 && person.hand(); --times) {
            switch (m_random.below(4)) {
            case 0:
                person.act(ColorAct{color()});
                break;
            case 1:
                person.act(WidthAct{m_random.from(1, 9)});
                break;
            default:
                grab(person);
            }
        }
    }

    // A drag that begins on a handle, often the one that turns, or in the frame. It may end beyond the page's edge.
    void grab(InkLesson::Author &person)
    {
        constexpr int kTurns = 8; // the last of the handles
        const CInkGraph &object = *person.object();
        const int handle = m_random.oneIn(2) ? kTurns : m_random.below(kTurns);
        const QPoint from = m_random.oneIn(2) ? object.m_rcHot.center() : object.m_hotPts[handle].toPoint();
        const QPoint by = m_random.oneIn(4) ? point() - from : point() / 4;
        person.feed(PT_DOWN, from);
        person.feed(PT_MOVE, {from + by / 2, from + by});
        if (person.hand())
            person.feed(PT_UP, from + by);
    }

    void gesture(InkLesson::Author &person)
    {
        person.feed(PT_DOWN, point());
        for (int moves = m_random.from(1, 6); moves > 0; --moves)
            person.feed(PT_MOVE,
                        m_random.oneIn(2) ? std::vector<QPoint>{point()} : std::vector<QPoint>{point(), point()});
        person.feed(PT_UP, point());
    }

    void managePages(InkLesson::Author &person)
    {
        switch (m_random.below(4)) {
        case 0:
            person.addPage(m_random.below(m_lesson.pageCount() + 1) - (isOdd() ? 1 : 0), isOdd() ? QSize() : kSize);
            break;
        case 1:
            person.movePage(person.page(), m_random.below(m_lesson.pageCount()) - (isOdd() ? 1 : 0));
            break;
        case 2:
            person.grow({m_random.from(100, 200), isOdd() ? 20000 : m_random.from(100, 150)});
            break;
        default:
            person.removePage(person.page());
        }
    }

    InkLesson::ObjectId anyObject(const InkLesson::PageId &page)
    {
        const auto &items = m_lesson.page(page).items();
        return items.empty() ? InkLesson::kNothing : items[std::size_t(m_random.below(int(items.size())))]->id;
    }

    // Now and then far outside, so that the page clips what is drawn.
    QPoint point()
    {
        return m_random.oneIn(8) ? QPoint{m_random.from(-120, 280), m_random.from(-90, 210)}
                                 : QPoint{m_random.from(-10, 170), m_random.from(-10, 130)};
    }
    QColor color()
    {
        if (isOdd())
            return m_random.oneIn(3) ? QColor() : QColor::fromHsvF(m_random.below(100) / 99.0, 0.31, 0.77, 0.43);
        return {m_random.below(256), m_random.below(256), m_random.below(256),
                m_random.oneIn(2) ? 255 : m_random.below(256)};
    }
    QRgb pixel()
    {
        return qRgba(m_random.below(256), m_random.below(256), m_random.below(256),
                     m_random.oneIn(2) ? 255 : m_random.below(256));
    }
    QImage image()
    {
        QImage image(QSize{m_random.from(1, 40), m_random.from(1, 30)}, QImage::Format_ARGB32);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, pixel());
        }
        if (!isOdd())
            return image;
        image.setDevicePixelRatio(2);
        return m_random.oneIn(3) ? QImage()
                                 : image.convertToFormat(m_random.of({QImage::Format_RGB32, QImage::Format_Grayscale8,
                                                                      QImage::Format_ARGB32_Premultiplied}));
    }
    InkLesson::Paper paper()
    {
        using Kind = InkLesson::Paper::Kind;
        const Kind kind = m_random.of({Kind::Blank, Kind::Ruled, Kind::Squared, Kind::Picture});
        return {kind, kind == Kind::Picture ? image() : QImage()};
    }
    InkLesson::Life picture(const InkLesson::PageId &page)
    {
        InkLesson::Life life{QLatin1String(InkLesson::kPictureTool)};
        life.canvas = m_lesson.page(page).rect().size();
        life.picture = image();
        life.position = point() / 2;
        return life;
    }

    Random &m_random;
    InkLesson::Lesson &m_lesson;
    const Host m_host;
};
