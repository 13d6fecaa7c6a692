#include "board/pages/PageStrip.h"

#include "board/canvas/Canvas.h"
#include "board/commands/CommandGroup.h"
#include "board/focus/ArrowKeys.h"

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QAction>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include <functional>
#include <utility>

namespace Board {

namespace {

constexpr QSize kThumbnail{128, 80};
constexpr int kStripWidth = 168;
constexpr int kRefreshDelay = 300; // milliseconds
constexpr int kOthersDelay = 2000; // of pages that others draw on

QIcon thumbnail(const InkLesson::Page &page, double ratio)
{
    QPixmap pixmap =
        QPixmap::fromImage(page.picture().scaled(kThumbnail * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    pixmap.setDevicePixelRatio(ratio);
    QIcon icon(pixmap);
    icon.addPixmap(pixmap, QIcon::Selected); // or the page that is shown would be tinted
    return icon;
}

} // namespace

PageStrip::PageStrip(Document &document, Canvas &canvas, QWidget *parent)
    : QWidget(parent)
    , m_document(document)
    , m_canvas(canvas)
    , m_keys(new ArrowKeys(this))
    , m_list(new QListWidget(this))
{
    setObjectName(QStringLiteral("pages"));
    setFixedWidth(kStripWidth);
    m_list->setAccessibleName(tr("Pages"));
    m_list->setIconSize(kThumbnail);
    m_list->setViewMode(QListView::IconMode);
    m_list->setFlow(QListView::TopToBottom);
    m_list->setWrapping(false);
    m_list->setMovement(QListView::Snap);
    m_list->setDragDropMode(QAbstractItemView::InternalMove);
    m_list->setFocusPolicy(Qt::TabFocus);
    m_list->setFrameShape(QFrame::NoFrame);
    auto *buttons = new QHBoxLayout;
    buttons->setContentsMargins(6, 4, 6, 4);
    addCommands(*buttons);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(buttons);
    column->addWidget(m_list, 1);

    m_refreshing.setSingleShot(true);
    m_refreshing.setInterval(kRefreshDelay);
    connect(&m_refreshing, &QTimer::timeout, this, &PageStrip::refreshChanged);
    m_refreshingOthers.setSingleShot(true);
    m_refreshingOthers.setInterval(kOthersDelay);
    connect(&m_refreshingOthers, &QTimer::timeout, this, &PageStrip::refreshOthers);
    connect(&canvas, &Canvas::changed, this, [this] {
        refreshLeft();
        m_changed = m_document.author().page();
        m_refreshing.start();
    });
    connect(&document, &Document::pageChanged, this, [this](const InkLesson::PageId &page) {
        m_elsewhere.insert(page);
        if (!m_refreshingOthers.isActive())
            m_refreshingOthers.start();
    });
    connect(&document, &Document::opened, this, [this] {
        m_refreshing.stop();
        m_elsewhere.clear();
        m_icons.clear();
    });
    connect(&document, &Document::pagesChanged, this, &PageStrip::showPages);
    connect(&document, &Document::currentChanged, this, &PageStrip::showCurrent);
    connect(m_list, &QListWidget::currentRowChanged, this, [this](int row) {
        m_canvas.finish();
        m_document.showPage(row);
    });
    connect(
        m_list->model(), &QAbstractItemModel::rowsMoved, this,
        [this](const QModelIndex & /*parent*/, int from, int /*last*/, const QModelIndex & /*target*/, int before) {
            movePage(from, before > from ? before - 1 : before);
        },
        Qt::QueuedConnection); // the list itself is still moving
    showPages();
}

void PageStrip::addCommands(QHBoxLayout &buttons)
{
    const CommandGroup group(tr("Pages"), *window());
    const auto add = [&](const char *name, const QString &title, const char *icon, const char *keys,
                         const std::function<void(int)> &act) {
        QAction *action = group.add(name, title, QLatin1String(keys));
        action->setIconText(QString::fromUtf8(icon));
        connect(action, &QAction::triggered, this, [this, act] {
            m_canvas.finish();
            act(m_document.current());
        });
        auto *button = new QToolButton(this);
        button->setDefaultAction(action);
        m_keys->add(*button);
        button->setAccessibleName(title);
        buttons.addWidget(button);
    };
    add("add-page", tr("Add a page"), "+", "Ctrl+N", [this](int page) { m_document.addPage(page + 1); });
    add("remove-page", tr("Remove the page"), "−", "Ctrl+Shift+N", [this](int page) { m_document.removePage(page); });
    add("previous-page", tr("Previous page"), "↑", "PgUp", [this](int page) { m_document.showPage(page - 1); });
    add("next-page", tr("Next page"), "↓", "PgDown", [this](int page) { m_document.showPage(page + 1); });
}

void PageStrip::movePage(int from, int to)
{
    m_canvas.finish();
    m_document.movePage(from, to);
}

void PageStrip::showPages()
{
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (int i = 0; i < m_document.pageCount(); ++i)
        m_list->addItem(new QListWidgetItem(icon(m_document.lesson().pageId(i)), QString::number(i + 1)));
    showCurrent();
}

// A page that nobody looks at is painted for its picture alone.
QIcon PageStrip::icon(const InkLesson::PageId &id)
{
    QIcon &icon = m_icons[id];
    if (!icon.isNull())
        return icon;
    InkLesson::Page &page = m_document.lesson().page(id);
    const bool isKept = page.isPainted() || id == m_document.author().page();
    icon = thumbnail(page, devicePixelRatioF());
    if (!isKept)
        page.release();
    return icon;
}

// What was drawn on a page that is left may not be in its picture yet.
void PageStrip::refreshLeft()
{
    if (m_refreshing.isActive() && m_changed != m_document.author().page())
        refreshChanged();
}

void PageStrip::showCurrent()
{
    refreshLeft();
    const QSignalBlocker blocker(m_list);
    m_list->setCurrentRow(m_document.current());
}

void PageStrip::refreshChanged()
{
    m_refreshing.stop();
    refresh(m_changed);
}

void PageStrip::refresh(const InkLesson::PageId &page)
{
    m_icons.erase(page);
    if (QListWidgetItem *item = m_list->item(m_document.lesson().indexOf(page)))
        item->setIcon(icon(page));
}

// Not while something is in the hand: a page that nobody looks at has to be painted for it.
void PageStrip::refreshOthers()
{
    if (m_document.author().hand()) {
        m_refreshingOthers.start();
        return;
    }
    for (const InkLesson::PageId &page : std::exchange(m_elsewhere, {}))
        refresh(page);
}

} // namespace Board
