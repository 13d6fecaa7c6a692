// Draws the pictures of the tools that the documents show, with the library itself: a PNG file for each tool.
// usage: draw_tool_pictures FOLDER

#include "Sheet.h"

#include <CInk1ArrowLine.h>
#include <CInk4Stars.h>
#include <CInk5Side.h>
#include <CInk5Stars.h>
#include <CInk6Side.h>
#include <CInk6Stars.h>
#include <CInkBeZier.h>
#include <CInkBoom1.h>
#include <CInkBoom2.h>
#include <CInkBrush.h>
#include <CInkCloudLabel.h>
#include <CInkColorBrush.h>
#include <CInkCrayon.h>
#include <CInkDiamond.h>
#include <CInkDownArrow.h>
#include <CInkEllipse.h>
#include <CInkEllipseLabel.h>
#include <CInkEraser.h>
#include <CInkErro.h>
#include <CInkFlatBrush.h>
#include <CInkFloodFillEx.h>
#include <CInkHighLightPen.h>
#include <CInkITriangle.h>
#include <CInkLTriangle.h>
#include <CInkLighting.h>
#include <CInkLove.h>
#include <CInkPencil.h>
#include <CInkPicTure.h>
#include <CInkPolygon.h>
#include <CInkRgnSelect.h>
#include <CInkRight.h>
#include <CInkRightArrow.h>
#include <CInkRoundRect.h>
#include <CInkRoundRectLabel.h>
#include <CInkSprayGun.h>
#include <CInkText.h>
#include <CInkUpArrow.h>
#include <_H.h>

#include <QtCore/QLoggingCategory>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>

#include <cmath>
#include <cstdio>
#include <random>

namespace {

constexpr QPoint kFrom{30, 60};
constexpr QPoint kTo{130, 115};

std::vector<Event> drag(const QPoint &from = kFrom, const QPoint &to = kTo)
{
    return {{PT_DOWN, from}, {PT_MOVE, (from + to) / 2}, {PT_MOVE, to}, {PT_UP, to}};
}

// A drag, then a click at each of the points.
std::vector<Event> dragAndClicks(const QPoint &from, const QPoint &to, const std::vector<QPoint> &points)
{
    std::vector<Event> events = drag(from, to);
    for (const QPoint &point : points)
        for (const int code : {PT_DOWN, PT_MOVE, PT_UP})
            events.push_back({code, point});
    return events;
}

std::vector<Event> wave()
{
    std::vector<Event> events;
    for (int x = 20; x <= 140; x += 4)
        events.push_back({x == 20 ? PT_DOWN : PT_MOVE, {x, 60 + int(30 * std::sin(x / 14.0))}});
    events.push_back({PT_UP, events.back().pt});
    return events;
}

std::vector<Event> scatter()
{
    std::mt19937 random(1); // the same dots every time
    std::normal_distribution<double> offset(0, 9);
    std::vector<Event> events;
    for (const Event &way : wave())
        for (int i = 0; i < 25; ++i)
            events.push_back({PT_MOVE, way.pt + QPoint(int(offset(random)), int(offset(random)))});
    events.front().code = PT_DOWN;
    events.push_back({PT_UP, events.back().pt});
    return events;
}

// What lies on the page already when an eraser, a fill or a selection comes.
void drawSomethingOn(Sheet &sheet)
{
    auto box = std::make_unique<CInkRectangle>();
    box->SetColor(Qt::darkGray);
    sheet.play(*box, drag({40, 25}, {120, 95}));
    sheet.finish(*box);
}

QImage ramp()
{
    QImage image(60, 45, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, QColor(4 * x, 120, 5 * y));
    return image;
}

// What a host has rendered of what was typed into its editor.
QImage text()
{
    QImage image(110, 60, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(20);
    painter.setFont(font);
    painter.setPen(QColor(20, 60, 160));
    painter.drawText(image.rect(), int(Qt::TextWordWrap), QStringLiteral("Clouds are water"));
    return image;
}

template <typename Tool, typename... Arguments>
std::unique_ptr<Tool> tool(int width, Arguments... arguments)
{
    auto made = std::make_unique<Tool>(arguments...);
    made->SetColor(QColor(20, 60, 160));
    made->SetWidth(width);
    return made;
}

bool drawShapes(const Album &album)
{
    return album.edited("CInkLine", *tool<CInkLine>(4), drag()) &&
           album.edited("CInk1ArrowLine", *tool<CInk1ArrowLine>(4), drag()) &&
           album.edited("CInkRectangle", *tool<CInkRectangle>(4), drag()) &&
           album.edited("CInkRoundRect", *tool<CInkRoundRect>(4), drag()) &&
           album.edited("CInkEllipse", *tool<CInkEllipse>(4), drag()) &&
           album.edited("CInkITriangle", *tool<CInkITriangle>(4), drag()) &&
           album.edited("CInkLTriangle", *tool<CInkLTriangle>(4), drag()) &&
           album.edited("CInkDiamond", *tool<CInkDiamond>(4, Qt::DashLine), drag()) &&
           album.edited("CInkPolygon", *tool<CInkPolygon>(4),
                        dragAndClicks({30, 115}, {60, 60}, {{80, 90}, {130, 70}, {30, 115}})) &&
           album.edited("CInkBeZier", *tool<CInkBeZier>(4, Qt::SquareCap, Qt::SquareCap, Qt::SolidLine),
                        dragAndClicks({25, 105}, {135, 105}, {{60, 45}, {100, 125}}));
}

template <typename Stencil>
bool drawStencil(const Album &album, const char *name)
{
    return album.edited(name, *tool<Stencil>(3), drag());
}

bool drawStencils(const Album &album)
{
    return drawStencil<CInk4Stars>(album, "CInk4Stars") && drawStencil<CInk5Stars>(album, "CInk5Stars") &&
           drawStencil<CInk6Stars>(album, "CInk6Stars") && drawStencil<CInk5Side>(album, "CInk5Side") &&
           drawStencil<CInk6Side>(album, "CInk6Side") && drawStencil<CInkUpArrow>(album, "CInkUpArrow") &&
           drawStencil<CInkDownArrow>(album, "CInkDownArrow") && drawStencil<_H>(album, "_H") &&
           drawStencil<CInkRightArrow>(album, "CInkRightArrow") && drawStencil<CInkRight>(album, "CInkRight") &&
           drawStencil<CInkErro>(album, "CInkErro") && drawStencil<CInkBoom1>(album, "CInkBoom1") &&
           drawStencil<CInkBoom2>(album, "CInkBoom2") && drawStencil<CInkLighting>(album, "CInkLighting") &&
           drawStencil<CInkLove>(album, "CInkLove") && drawStencil<CInkEllipseLabel>(album, "CInkEllipseLabel") &&
           drawStencil<CInkRoundRectLabel>(album, "CInkRoundRectLabel") &&
           drawStencil<CInkCloudLabel>(album, "CInkCloudLabel");
}

bool drawPens(const Album &album)
{
    return album.stroke("CInkPencil", *tool<CInkPencil>(4), wave()) &&
           album.stroke("CInkBrush", *tool<CInkBrush>(10), wave()) &&
           album.stroke("CInkFlatBrush", *tool<CInkFlatBrush>(12), wave()) &&
           album.stroke("CInkHighLightPen", *tool<CInkHighLightPen>(14), wave()) &&
           album.stroke("CInkColorBrush", *tool<CInkColorBrush>(20, Sheet::kSize), wave()) &&
           album.stroke("CInkCrayon", *tool<CInkCrayon>(16, Sheet::kSize), wave()) &&
           album.stroke("CInkSprayGun", *tool<CInkSprayGun>(1, Sheet::kSize), scatter());
}

bool drawRaster(const Album &album)
{
    QImage picture = ramp(), rendered = text();
    CInkText frame;
    CInkRgnSelect select;
    return album.stroke("CInkEraser", *tool<CInkEraser>(16), wave(), drawSomethingOn) &&
           album.stroke("CInkFloodFill", *tool<CInkFloodFill>(1, Sheet::kSize), {{PT_DOWN, {80, 60}}},
                        drawSomethingOn) &&
           album.stroke("CInkFloodFillEx", *tool<CInkFloodFillEx>(1, Sheet::kSize), {{PT_DOWN, {30, 20}}},
                        drawSomethingOn) &&
           album.stroke("CInkRgnSelect", select, drag({60, 10}, {100, 60}), drawSomethingOn) &&
           album.edited("CInkPicTure", *tool<CInkPicTure>(1, &picture, QPoint(50, 65)), {}) &&
           album.edited("CInkText", frame, drag({20, 15}, {140, 95}), [&] { frame.SetTextImage(&rendered); });
}

} // namespace

int main(int argc, char **argv)
{
    // A line for each rectangle, and a warning for the states that each arrow line leaves on the painter.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false\ndefault.warning=false"));
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return EXIT_FAILURE;
    }
    const Album album(QString::fromLocal8Bit(argv[1]));
    return drawShapes(album) && drawStencils(album) && drawPens(album) && drawRaster(album) ? EXIT_SUCCESS
                                                                                            : EXIT_FAILURE;
}
