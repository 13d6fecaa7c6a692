#pragma once

#include <CInkGraph.h>

#include <QtCore/QString>
#include <QtGui/QImage>

#include <functional>
#include <vector>

struct Event
{
    int code; // a PointerEvent
    QPoint pt;
};

// A small page with the four layers of a host.
class Sheet
{
public:
    static constexpr QSize kSize{160, 130};

    Sheet();

    // Feeds the events and paints after each, as a host does.
    void play(CInkGraph &object, const std::vector<Event> &events);

    // Commits what is not committed yet, paints it, and shows the page alone.
    void finish(CInkGraph &object);

    // The page with what is in progress upon it.
    QImage picture() const { return m_surface; }

private:
    void draw(CInkGraph &object);

    QImage m_background, m_ink, m_page, m_surface;
};

// A folder of pictures, one file a tool. Each operation tells whether it has drawn something and could save it.
class Album
{
public:
    explicit Album(QString folder);

    // While it is edited, and beside that once it is committed. `ready` is called between the two.
    bool edited(const char *name, CInkGraph &object, const std::vector<Event> &events,
                const std::function<void()> &ready = {}) const;

    // Committed, over what `prepare` has left on the page.
    bool stroke(const char *name, CInkGraph &object, const std::vector<Event> &events,
                const std::function<void(Sheet &)> &prepare = {}) const;

private:
    bool save(const char *name, const QImage &picture, bool drawn) const;

    QString m_folder;
};
