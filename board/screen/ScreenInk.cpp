#include "board/screen/ScreenInk.h"

#include "board/controls/ColorRow.h"
#include "board/controls/WidthControl.h"
#include "board/pictures/ScreenGrab.h"
#include "board/screen/ScreenBar.h"
#include "board/screen/ScreenPage.h"

#include "lesson/paper/PageSize.h"

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtX11Extras/QX11Info>

namespace Board {

namespace {

constexpr int kBarGap = 12; // pixels between the bar and the upper edge of the screen

} // namespace

ScreenInk::Backdrop ScreenInk::fittingBackdrop()
{
    return QX11Info::isPlatformX11() && !QX11Info::isCompositingManagerRunning() ? Backdrop::Grabbed
                                                                                 : Backdrop::Transparent;
}

ScreenInk::ScreenInk(QScreen &screen, Backdrop backdrop)
    : m_backdrop(backdrop)
    , m_document(InkLesson::pageSizeAt(screen.size(), screen.devicePixelRatio()), screen.devicePixelRatio())
    , m_page(std::make_unique<ScreenPage>(m_document, screen))
    , m_bar(std::make_unique<ScreenBar>())
{
    const QRect area = screen.geometry();
    m_bar->move(area.center().x() - m_bar->width() / 2, area.top() + kBarGap);
    m_bar->installEventFilter(this);
    m_page->installEventFilter(this);
    connectBar();
    m_page->choose(tools().front());
    showPage();
}

ScreenInk::~ScreenInk() = default;

Canvas &ScreenInk::canvas()
{
    return *m_page;
}

QWidget &ScreenInk::bar()
{
    return *m_bar;
}

void ScreenInk::connectBar()
{
    connect(m_bar.get(), &ScreenBar::chosen, this, &ScreenInk::choose);
    connect(m_bar.get(), &ScreenBar::pointed, this, &ScreenInk::choosePointer);
    connect(m_bar.get(), &ScreenBar::undone, m_page.get(), &Canvas::undo);
    connect(m_bar.get(), &ScreenBar::cleared, m_page.get(), &Canvas::clear);
    connect(m_bar.get(), &ScreenBar::ended, this, &ScreenInk::ended);
    connect(&m_bar->colors(), &ColorRow::picked, m_page.get(), &Canvas::setColor);
    connect(&m_bar->colors(), &ColorRow::picked, &m_bar->inkWidth(), &WidthControl::setColor);
    connect(&m_bar->inkWidth(), &WidthControl::picked, m_page.get(), &Canvas::setInkWidth);
    m_page->setColor(m_bar->colors().color());
    m_page->setInkWidth(m_bar->inkWidth().inkWidth());
}

void ScreenInk::showPage()
{
    if (m_backdrop == Backdrop::Grabbed) {
        m_bar->hide();
        grabScreen(*m_page, [this](const QImage &picture) {
            m_page->setBackdrop(picture);
            m_bar->show();
        });
    } else {
        m_page->show();
        m_bar->show();
    }
}

void ScreenInk::choose(const Tool &tool)
{
    m_page->choose(tool);
    if (!std::exchange(m_points, false))
        return;
    if (m_backdrop == Backdrop::Transparent)
        m_page->letClicksThrough(false);
    else
        showPage();
}

void ScreenInk::choosePointer()
{
    m_page->finish();
    m_points = true;
    if (m_backdrop == Backdrop::Transparent)
        m_page->letClicksThrough(true);
    else
        m_page->hide();
}

// Whichever of the two windows the desktop puts on top.
void ScreenInk::cutOutBar()
{
    m_page->setMask(QRegion(m_page->rect()) - m_bar->geometry().translated(-m_page->pos()));
}

bool ScreenInk::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Close) {
        event->ignore();
        emit ended();
        return true;
    }
    const bool moves =
        event->type() == QEvent::Move || event->type() == QEvent::Resize || event->type() == QEvent::Show;
    if (moves && m_page && m_bar)
        cutOutBar();
    return QObject::eventFilter(object, event);
}

void writeOnScreen(QWidget &window)
{
    window.hide();
    auto *ink = new ScreenInk(*window.screen());
    ink->setParent(&window);
    QObject::connect(ink, &ScreenInk::ended, &window, [&window, ink] {
        ink->deleteLater();
        window.show();
        window.activateWindow();
    });
}

} // namespace Board
