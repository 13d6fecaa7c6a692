#include "board/editors/TextEditor.h"

#include "CInkText.h"

#include <QtCore/QtMath>
#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QPainter>
#include <QtGui/QTextDocument>
#include <QtWidgets/QFrame>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTextEdit>

#include <algorithm>

namespace Board {

namespace {

constexpr int kInset = 5; // page pixels; the object paints its image that far inside its frame
constexpr int kMinSize = 8;
constexpr int kMaxSize = 200;
constexpr int kFirstSize = 24; // of the font, pixels of a plain screen
constexpr int kBarGap = 8;     // between bar and frame

} // namespace

TextEditor::TextEditor(CInkText &text, QWidget *parent)
    : ObjectEditor(parent)
    , m_text(text)
    , m_edit(new QTextEdit(this))
    , m_color(text.m_color)
{
    m_edit->setObjectName(QStringLiteral("text"));
    m_edit->setAccessibleName(tr("Text"));
    m_edit->setAcceptRichText(false);
    m_edit->setFrameShape(QFrame::NoFrame);
    m_edit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_edit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_edit->document()->setDocumentMargin(0);
    setFocusProxy(m_edit);
    connect(m_edit, &QTextEdit::textChanged, this, &TextEditor::edited);
    makeBar();
    showStyle();
    m_bar->show();
}

TextEditor::~TextEditor()
{
    delete m_bar;
}

void TextEditor::makeBar()
{
    m_bar = new QFrame(parentWidget());
    m_bar->setObjectName(QStringLiteral("textBar"));
    m_bar->setAttribute(Qt::WA_NoMousePropagation);
    m_bar->setCursor(Qt::ArrowCursor);
    m_bar->setStyleSheet(
        QStringLiteral("#textBar { background: white; border: 1px solid #d9dee6; border-radius: 6px; }"));
    m_sample = new QLabel(tr("Aa"), m_bar);
    m_size = new QSpinBox(m_bar);
    m_size->setRange(kMinSize, kMaxSize);
    m_size->setValue(kFirstSize);
    m_size->setSuffix(tr(" px"));
    m_size->setAccessibleName(tr("Size of the text"));
    m_size->setToolTip(m_size->accessibleName());
    auto *row = new QHBoxLayout(m_bar);
    row->setContentsMargins(8, 4, 8, 4);
    row->addWidget(m_sample);
    row->addWidget(m_size);
    connect(m_size, QOverload<int>::of(&QSpinBox::valueChanged), this, [this] {
        showStyle();
        emit edited();
    });
    connect(m_size, &QSpinBox::editingFinished, m_edit, QOverload<>::of(&QWidget::setFocus));
}

void TextEditor::setColor(const QColor &color)
{
    m_color = color;
    showStyle();
}

void TextEditor::showStyle()
{
    const QString color = m_color.name();
    m_edit->setStyleSheet(
        QStringLiteral("background: transparent; border: none; padding: 0; color: %1; font-size: %2px;")
            .arg(color)
            .arg(std::max(qRound(m_size->value() * m_view.zoom()), 1)));
    m_sample->setStyleSheet(QStringLiteral("font-weight: bold; color: %1;").arg(color));
}

void TextEditor::follow(const View &view)
{
    const bool zooms = view.zoom() != m_view.zoom();
    m_view = view;
    setGeometry(view.fromPage(m_text.m_rcImage));
    const int inset = qRound(kInset * view.scale() / view.ratio());
    m_edit->setGeometry(rect().adjusted(inset, inset, -inset, -inset));
    placeBar(view.fromPage(m_text.m_rcText));
    if (zooms)
        showStyle();
}

// Above the frame; where there is no room, below its tab.
void TextEditor::placeBar(const QRect &frame)
{
    const QSize size = m_bar->sizeHint();
    const int rightmost = std::max(parentWidget()->width() - size.width(), 0);
    const int above = frame.top() - kBarGap - size.height();
    m_bar->setGeometry(
        QRect(QPoint(std::clamp(frame.left(), 0, rightmost), above >= 0 ? above : frame.bottom() + kBarGap), size));
}

bool TextEditor::isLeft() const
{
    return m_text.m_bClickOutside;
}

void TextEditor::hideEvent(QHideEvent * /*event*/)
{
    if (m_bar)
        m_bar->hide();
}

std::optional<InkLesson::Act> TextEditor::entered()
{
    const QString text = m_edit->toPlainText();
    if (text.trimmed().isEmpty())
        return std::nullopt;
    return InkLesson::TextAct{text, InkLesson::exactImage(rendered())};
}

// As it will be painted. The editor itself may break lines elsewhere while the page is zoomed.
void TextEditor::layOut(QTextDocument &document) const
{
    m_edit->ensurePolished(); // or the font is not yet that of the style
    document.setDocumentMargin(0);
    QFont font = m_edit->font();
    font.setPixelSize(qRound(m_size->value() * m_view.density()));
    document.setDefaultFont(font);
    document.setDefaultTextOption(m_edit->document()->defaultTextOption());
    document.setPlainText(m_edit->toPlainText());
    document.setTextWidth(m_text.m_rcImage.width() - 2 * kInset);
}

// Of the image with its inset, in page pixels.
int TextEditor::neededHeight() const
{
    QTextDocument document;
    layOut(document);
    const double typed = m_edit->document()->size().height() * m_view.ratio() / m_view.scale();
    return qCeil(std::max(document.size().height(), typed)) + 2 * kInset;
}

// Its corner is dragged down. Before that, where the page ends, its tab is dragged up.
std::vector<InkLesson::Gesture> TextEditor::makingRoom(const QRect &page) const
{
    const QRect &frame = m_text.m_rcHot;
    const int by = std::min(neededHeight() - m_text.m_rcImage.height(), page.height() - frame.height());
    if (by <= 0)
        return {};
    const QPoint up(0, -std::clamp(frame.bottom() + by - page.bottom(), 0, std::max(frame.top() - page.top(), 0)));
    const QPoint tab = m_text.m_rcMoveTab.center();
    const QPoint corner = m_text.m_rcStretchCorner.center() + up;
    const InkLesson::Gesture growing{corner, frame.bottomRight() + up + QPoint(0, by)};
    if (up.isNull())
        return {growing};
    return {{tab, tab + up}, growing};
}

QImage TextEditor::rendered() const
{
    QTextDocument document;
    layOut(document);
    const QSize size = m_text.m_rcImage.size() - QSize(2 * kInset, 2 * kInset);
    QImage image(size.expandedTo({1, 1}), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, m_color);
    document.documentLayout()->draw(&painter, context);
    return image;
}

} // namespace Board
