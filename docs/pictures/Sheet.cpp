#include "Sheet.h"

#include <QtGui/QPainter>

#include <cstdio>
#include <utility>

Sheet::Sheet()
    : m_background(kSize, QImage::Format_ARGB32_Premultiplied)
    , m_ink(kSize, QImage::Format_ARGB32_Premultiplied)
{
    m_background.fill(Qt::white);
    m_ink.fill(Qt::transparent);
    m_page = m_surface = m_background;
}

void Sheet::play(CInkGraph &object, const std::vector<Event> &events)
{
    draw(object); // a placed picture needs no event
    for (const Event &event : events) {
        if (object.m_bFinished)
            return;
        QRect update;
        object.AddPoint(event.code, event.pt, update);
        draw(object);
    }
}

void Sheet::finish(CInkGraph &object)
{
    if (!object.m_bFinished && object.FinishGraph())
        draw(object);
    m_surface = m_page;
}

void Sheet::draw(CInkGraph &object)
{
    m_surface = m_page.copy();
    QPainter page(&m_page), surface(&m_surface), background(&m_background), ink(&m_ink);
    object.Draw(page, surface, background, ink, QRect({0, 0}, kSize), 0, 0);
}

Album::Album(QString folder)
    : m_folder(std::move(folder))
{
}

bool Album::edited(const char *name, CInkGraph &object, const std::vector<Event> &events,
                   const std::function<void()> &ready) const
{
    Sheet sheet;
    const QImage before = sheet.picture();
    sheet.play(object, events);
    const QImage whileEdited = sheet.picture();
    if (ready)
        ready();
    sheet.play(object, {});
    sheet.finish(object);

    QImage picture(2 * Sheet::kSize.width(), Sheet::kSize.height(), QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.drawImage(0, 0, whileEdited);
    painter.drawImage(Sheet::kSize.width(), 0, sheet.picture());
    painter.end();
    return save(name, picture, whileEdited != before);
}

bool Album::stroke(const char *name, CInkGraph &object, const std::vector<Event> &events,
                   const std::function<void(Sheet &)> &prepare) const
{
    Sheet sheet;
    if (prepare)
        prepare(sheet);
    const QImage before = sheet.picture();
    sheet.play(object, events);
    sheet.finish(object);
    return save(name, sheet.picture(), sheet.picture() != before);
}

bool Album::save(const char *name, const QImage &picture, bool drawn) const
{
    const QString file = QStringLiteral("%1/%2.png").arg(m_folder, QString::fromLatin1(name));
    if (drawn && picture.save(file))
        return true;
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(file), drawn ? "cannot be written" : "nothing was drawn");
    return false;
}
