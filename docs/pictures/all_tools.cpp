// Draws the picture of the README: one page of the board on which each tool that leaves a mark has drawn something.
//
//     all_tools FILE.png

#include "Page.h"
#include "Player.h"

#include "PointerEvent.h"

#include <QtGui/QFont>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>

#include <cstdio>
#include <string_view>

using namespace Board;

namespace {

constexpr int kColumns = 8;
constexpr QSize kCell{120, 112};
constexpr int kMargin = 20;
constexpr int kSampleLeft = 18; // in a cell
constexpr double kScale = 2.6;  // of the sample that draws a tool's icon
constexpr double kWidthScale = 1.8;
constexpr int kLabelTop = 88;
constexpr QSize kLabel{120, 18};
constexpr int kFontSize = 12; // pixels

const QColor kColors[] = {QColor(0x1d, 0x35, 0x57), QColor(0xd6, 0x28, 0x28), QColor(0x2a, 0x9d, 0x5c),
                          QColor(0x1f, 0x7a, 0xc2), QColor(0xe0, 0x7a, 0x1f), QColor(0x7b, 0x3f, 0xa0)};

QString name(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

QPoint onPage(const QPoint &cell, const QPointF &sample)
{
    return cell + QPoint(kSampleLeft, 0) + (sample * kScale).toPoint();
}

// A point of the smooth curve through four, between the second and the third.
QPointF between(const QPointF &a, const QPointF &b, const QPointF &c, const QPointF &d, double t)
{
    return b + ((c - a) * t + (2 * a - 5 * b + 4 * c - d) * t * t + (3 * b - a - 3 * c + d) * t * t * t) / 2;
}

// As a hand draws it, with more points than an icon needs.
Gesture smoothed(const Gesture &sample, const QPoint &cell)
{
    constexpr int kSteps = 8;
    Gesture gesture;
    const int last = int(sample.size()) - 1;
    const auto point = [&](int i) { return QPointF(sample[std::size_t(qBound(0, i, last))]); };
    for (int i = 0; i < last; ++i) {
        for (int step = 0; step < (last > 1 ? kSteps : 1); ++step)
            gesture.push_back(
                onPage(cell, between(point(i - 1), point(i), point(i + 1), point(i + 2), double(step) / kSteps)));
    }
    gesture.push_back(onPage(cell, point(last)));
    return gesture;
}

class Poster
{
public:
    explicit Poster(int cells)
        : m_page(QSize(2 * kMargin + kColumns * kCell.width(),
                       2 * kMargin + (cells + kColumns - 1) / kColumns * kCell.height()))
    {
    }

    const QImage &picture() const { return m_page.picture(); }

    void add(const Tool &tool)
    {
        QPoint cell = nextCell(toolTitle(tool));
        const Ink ink{m_color, qRound(tool.sampleWidth * kWidthScale)};
        if (tool.sampleOnInk)
            draw("pencil", {m_color, 32}, {{onPage(cell, {10, 16}), onPage(cell, {22, 16})}});
        const QString toolName = name(tool.name);
        if (toolName == QLatin1String("fill")) {
            draw("rounded-rectangle", {m_color, 4}, {{onPage(cell, {5, 7}), onPage(cell, {27, 25})}});
            draw(tool.name, {m_color.lighter(170), 1}, {{onPage(cell, {16, 16}), onPage(cell, {16, 16})}});
        } else if (toolName == QLatin1String("select")) {
            draw("ellipse", {m_color, 5}, {{onPage(cell, {5, 6}), onPage(cell, {25, 26})}});
            draw(tool.name, ink,
                 {{onPage(cell, {15, 4}), onPage(cell, {28, 28})},    // lifts the right half,
                  {onPage(cell, {20, 16}), onPage(cell, {25, 20})}}); // and moves it
        } else if (toolName == QLatin1String("text")) {
            write(QRect(onPage(cell, {3, 6}), onPage(cell, {29, 26})), name("Abc"), 34, m_color);
        } else {
            if (tool.movesAsItGrows)
                cell += QPoint(-8, 28); // the nib turns it up and to the left
            std::vector<Gesture> gestures;
            for (const Gesture &sample : tool.sample)
                gestures.push_back(smoothed(sample, cell));
            draw(tool.name, ink, gestures);
        }
    }

    void addPicture(const QString &title)
    {
        Life life{kPictureTool};
        const QPoint cell = nextCell(title);
        life.canvas = m_page.rect().size();
        life.picture = landscape();
        life.position = onPage(cell, {2, 5});
        m_page.insert(life);
        m_page.finish();
    }

private:
    QPoint nextCell(const QString &title)
    {
        const QPoint cell(kMargin + m_cells % kColumns * kCell.width(), kMargin + m_cells / kColumns * kCell.height());
        m_color = kColors[std::size_t(m_cells) % std::size(kColors)];
        ++m_cells;
        write(QRect(cell + QPoint(0, kLabelTop), kLabel), title, kFontSize, QColor(0x55, 0x55, 0x55));
        return cell;
    }

    void draw(const char *tool, const Ink &ink, const std::vector<Gesture> &gestures)
    {
        const Tool &row = *findTool(name(tool));
        if (row.scatters)
            return playStroke({ink.color, ink.width, gestures.front()}, row, m_page);
        Life life;
        life.tool = name(tool);
        life.ink = ink;
        life.canvas = m_page.rect().size();
        m_page.begin(life, createObject(life), Page::Reach::Everywhere, row.lift);
        for (const Gesture &gesture : gestures)
            playGesture(gesture, m_page);
        m_page.finish();
    }

    void write(const QRect &frame, const QString &text, int fontSize, const QColor &color)
    {
        Life life;
        life.tool = name("text");
        life.canvas = m_page.rect().size();
        m_page.begin(life, createObject(life));
        playGesture({frame.topLeft(), frame.bottomRight()}, m_page);
        QImage image(frame.size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        QFont font(name("DejaVu Sans"));
        font.setPixelSize(fontSize);
        painter.setFont(font);
        painter.setPen(color);
        painter.drawText(image.rect(), Qt::AlignCenter, text);
        painter.end();
        m_page.act(TextAct{text, exactImage(image)});
        m_page.finish();
    }

    // The sun over two hills.
    static QImage landscape()
    {
        QImage image(74, 56, QImage::Format_RGB32);
        image.fill(QColor(0xbf, 0xe3, 0xf5));
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0xff, 0xd1, 0x3b));
        painter.drawEllipse(QPoint(56, 15), 8, 8);
        painter.setBrush(QColor(0x5a, 0xa4, 0x5a));
        painter.drawEllipse(QPoint(18, 62), 40, 32);
        painter.setBrush(QColor(0x3d, 0x86, 0x4a));
        painter.drawEllipse(QPoint(62, 66), 34, 28);
        return exactImage(image);
    }

    Page m_page;
    QColor m_color;
    int m_cells{};
};

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    std::vector<const Tool *> drawing;
    for (const Tool &tool : tools()) {
        const bool leavesMark =
            tool.name != std::string_view("water-color-pen") && tool.name != std::string_view("heart");
        if (tool.use == Use::Draws && leavesMark)
            drawing.push_back(&tool);
    }
    Poster poster(int(drawing.size()) + 1);
    for (const Tool *tool : drawing)
        poster.add(*tool);
    poster.addPicture(name("Picture"));
    if (argc == 2 && poster.picture().save(QString::fromLocal8Bit(argv[1])))
        return 0;
    std::fprintf(stderr, "usage: %s FILE.png\n", argv[0]);
    return 1;
}
