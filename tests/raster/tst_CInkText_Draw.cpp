// The text frame as it is painted, in each phase and on each layer.

#include "CInkText.h"
#include "Canvas.h"
#include "Exact.h"
#include "HandleFrame.h"
#include "MessageLog.h"
#include "PainterState.h"
#include "TextFrame.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

// What an edited text from (100,100) to (299,249) shows.
void paintTextFrame(QPainter &painter)
{
    painter.setPen(QPen(QBrush(QColor(52, 75, 132)), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.drawRect(QRect(100, 100, 200, 150));
    painter.drawRect(QRect(177, 249, 45, 24));
    for (const int y : {255, 261, 267})
        painter.drawLine(185, y, 213, y);
    for (const QPoint &dot : {QPoint(284, 245), QPoint(288, 245), QPoint(292, 245), QPoint(296, 245), QPoint(288, 241),
                              QPoint(292, 241), QPoint(296, 241), QPoint(292, 237), QPoint(296, 237), QPoint(296, 233)})
        painter.fillRect(QRect(dot, QSize(2, 2)), QColor(52, 75, 132));
}

QImage textFrame()
{
    return painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        paintTextFrame(painter);
    });
}

QImage dashedBox(const QRect &box)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QBrush(QColor(0, 0, 0, 255)), 1.3, Qt::DashLine, Qt::SquareCap, Qt::RoundJoin));
        painter.drawRect(box);
    });
}

QImage textAt(int x, int y)
{
    return painted([&](QPainter &painter) { painter.drawImage(QPoint(x, y), renderedText()); });
}

class RenderedText : public EditedText
{
public:
    RenderedText()
    {
        QImage image = renderedText();
        SetTextImage(&image);
    }
};

} // namespace

TEST(CInkText_Draw, freshOrAbandonedTextPaintsNothing)
{
    CInkText fresh, abandoned, finished;
    EXPECT_TRUE(isBlank(drawn(fresh)));
    fresh.m_nPointCount = -1;
    EXPECT_TRUE(isBlank(drawn(fresh)));
    drag(abandoned, {100, 100}, {300, 100});
    EXPECT_TRUE(isBlank(drawn(abandoned)));
    drag(finished, {100, 100}, {299, 249});
    finished.FinishGraph();
    EXPECT_TRUE(isBlank(drawn(finished)));
}

TEST(CInkText_Draw, draggedTextIsADashedBox)
{
    DraggedText text;
    text.SetColor(Qt::red); // neither is used
    text.SetWidth(20);
    text.m_fRotateAngle = 30;
    EXPECT_TRUE(samePixels(drawn(text), dashedBox(QRect(100, 100, 200, 150))));
    text.m_bHideHotShape = 1;
    EXPECT_TRUE(samePixels(drawn(text), dashedBox(QRect(100, 100, 200, 150))));

    CInkText back;
    feed(back, PT_DOWN, 299, 249);
    EXPECT_TRUE(samePixels(drawn(back), dashedBox(QRect(299, 249, 1, 1))));
    feed(back, PT_MOVE, 100, 100);
    EXPECT_TRUE(samePixels(drawn(back), dashedBox(QRect(100, 100, 200, 150))));
    back.m_graphData = {QPointF(100.9, 100.9), QPointF(299.9, 249.9)};
    EXPECT_TRUE(samePixels(drawn(back), dashedBox(QRect(100, 100, 200, 150))));
}

TEST(CInkText_Draw, editedTextShowsFrameTabAndGrip)
{
    EditedText text;
    EXPECT_TRUE(samePixels(drawn(text), textFrame()));
    text.m_fRotateAngle = 30; // texts are not turned
    EXPECT_TRUE(samePixels(drawn(text), textFrame()));
    text.m_bHideHotShape = 1;
    EXPECT_TRUE(isBlank(drawn(text)));
}

TEST(CInkText_Draw, gripIsATriangleOfTenDots)
{
    EditedText text;
    const QImage image = drawn(text);
    const char *const rows[] = {
        "................", // y = 232
        ".............##.", //
        ".............##.", //
        "................", //
        "................", //
        ".........##..##.", //
        ".........##..##.", //
        "................", //
        "................", //
        ".....##..##..##.", //
        ".....##..##..##.", //
        "................", //
        "................", //
        ".##..##..##..##.", //
        ".##..##..##..##.", //
        "................", //
    };
    // The corner is (283,233) to (298,248).
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x)
            EXPECT_EQ(image.pixel(283 + x, 232 + y), rows[y][x] == '#' ? 0xFF344B84u : 0u) << x << ',' << y;
    }
}

TEST(CInkText_Draw, tabLinesLieAtTheQuartersOfItsHeight)
{
    EditedText text;
    text.m_rcHot = text.m_rcStretchCorner = QRect(0, 0, 1, 1);
    for (const auto &[tab, quarter] : {std::pair(QRect(50, 50, 45, 24), 6), std::pair(QRect(50, 50, 60, 103), 25),
                                       std::pair(QRect(50, 50, 45, 3), 0)}) {
        text.m_rcMoveTab = tab;
        const QImage image = painted([&](QPainter &painter) { text.DrawHotShape(painter); });
        const QImage expected = painted([&, area = tab, step = quarter](QPainter &painter) {
            painter.setPen(QPen(QBrush(QColor(52, 75, 132)), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
            painter.drawRect(QRect(0, 0, 1, 1));
            painter.drawRect(area);
            for (int i = 1; i <= 3; ++i)
                painter.drawLine(58, 50 + i * step, 50 + area.width() - 9, 50 + i * step);
            for (const QPoint &dot : {QPoint(1, -3), QPoint(5, -3), QPoint(9, -3), QPoint(13, -3)})
                painter.fillRect(QRect(dot, QSize(2, 2)), QColor(52, 75, 132)); // above the canvas
        });
        EXPECT_TRUE(samePixels(image, expected));
    }
}

TEST(CInkText_Draw, tabLinesOfATabBeyondAllMeasureAreOutOfSight)
{
    EditedText text;
    text.m_rcHot = text.m_rcStretchCorner = QRect(-90, -90, 1, 1);
    text.m_rcMoveTab.setCoords(50, -1'000'000'000, 94, 2'000'000'000); // lines at -250, 500 and 1250 million
    const QImage image = painted([&](QPainter &painter) { text.DrawHotShape(painter); });
    EXPECT_EQ(image.pixel(50, 100), 0xFF344B84u);
    for (int y = 0; y < 300; ++y)
        ASSERT_EQ(qAlpha(image.pixel(70, y)), 0) << y;
}

TEST(CInkText_Draw, foreignTextIsShaded)
{
    EditedText text;
    text.SetOwnerIP(1);
    const QImage image = drawn(text);
    EXPECT_TRUE(samePixels(image, painted([](QPainter &painter) {
                               painter.fillRect(QRect(100, 100, 200, 150), QColor(50, 50, 50, 60));
                           })));
    text.SetDrawerIP(1);
    EXPECT_TRUE(samePixels(drawn(text), textFrame()));
}

TEST(CInkText_Draw, handlesAreAskedWithBothKindsOfAntialiasing)
{
    class Asked : public EditedText
    {
    public:
        void DrawHotShape(QPainter &painter) override { hints.append(painter.renderHints()); }
        QVector<QPainter::RenderHints> hints;
    };
    Asked text;
    painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.setRenderHint(QPainter::TextAntialiasing, false); // a new painter has it
        text.Draw(painter, all);
    });
    ASSERT_EQ(text.hints.size(), 1);
    EXPECT_TRUE(text.hints[0].testFlag(QPainter::Antialiasing));
    EXPECT_TRUE(text.hints[0].testFlag(QPainter::TextAntialiasing));
}

TEST(CInkText_Draw, committedTextIsItsImageFivePixelsIn)
{
    RenderedText text;
    EXPECT_TRUE(samePixels(drawn(text), textAt(105, 105)));
    text.m_fRotateAngle = 30;
    EXPECT_TRUE(samePixels(drawn(text), textAt(105, 105)));
    text.m_rcHot = QRect(0, 0, 3, 3); // not read
    EXPECT_TRUE(samePixels(drawn(text), textAt(105, 105)));
    text.m_bEditMode = 0;
    EXPECT_TRUE(samePixels(drawn(text), textAt(105, 105)));
    text.ResetHotData(QRect(130, 110, 200, 100));
    EXPECT_TRUE(samePixels(drawn(text), textAt(135, 115)));
    text.MoveGraph(-20, 10);
    EXPECT_TRUE(samePixels(drawn(text), textAt(115, 125)));
}

TEST(CInkText_Draw, imageOfAFreshTextGoesToTheOriginPlusFive)
{
    QImage image = renderedText();
    CInkText text;
    text.SetTextImage(&image);
    EXPECT_TRUE(samePixels(drawn(text), textAt(5, 5)));
    // Its frame is null, so the host's rectangle alone opens the clip.
    EXPECT_EDGES(clipAfterDraw(text, QRect(20, 20, 100, 100)), -10, -10, 119, 119);
}

TEST(CInkText_Draw, imageIsNotPaintedWhileTheFrameIsEdited)
{
    RenderedText text;
    text.m_bFinished = text.m_bHideHotShape = 0;
    EXPECT_TRUE(samePixels(drawn(text), textFrame()));
    text.m_bEditMode = 0;
    EXPECT_TRUE(samePixels(drawn(text), dashedBox(QRect(100, 100, 200, 150))));
}

TEST(CInkText_Draw, oneByOneAndNullImagesAreTaken)
{
    QImage dot(1, 1, QImage::Format_ARGB32), null;
    dot.fill(0xFF123456u);
    EditedText text;
    text.SetTextImage(&dot);
    const QImage image = drawn(text);
    EXPECT_EQ(image.pixel(105, 105), 0xFF123456u);
    EXPECT_EQ(image.pixel(104, 105), 0u);
    EXPECT_EQ(image.pixel(106, 105), 0u);
    EXPECT_EQ(image.pixel(105, 106), 0u);
    text.SetTextImage(&null);
    EXPECT_TRUE(isBlank(drawn(text)));
}

TEST(CInkText_Draw, textIsPaintedUnderThePaintersTransformAndBrush)
{
    DraggedText dragged;
    EditedText edited;
    RenderedText rendered;
    for (CInkText *text : std::initializer_list<CInkText *>{&dragged, &edited, &rendered}) {
        const QImage image = painted([&](QPainter &painter) {
            QRect all(-30, -20, 400, 300);
            painter.translate(30, 20);
            painter.setBrush(QColor(0, 200, 0, 90));
            text->Draw(painter, all);
        });
        const QImage expected = painted([&](QPainter &painter) {
            painter.translate(30, 20);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setBrush(QColor(0, 200, 0, 90));
            if (text == &rendered) {
                painter.drawImage(QPoint(105, 105), renderedText());
            } else if (text == &edited) {
                paintTextFrame(painter);
            } else {
                painter.setPen(QPen(Qt::black, 1.3, Qt::DashLine, Qt::SquareCap, Qt::RoundJoin));
                painter.drawRect(QRect(100, 100, 200, 150));
            }
        });
        EXPECT_TRUE(samePixels(image, expected));
    }
}

TEST(CInkText_Draw, clipStaysOnThePainter)
{
    CInkText fresh;
    EXPECT_EDGES(clipAfterDraw(fresh, QRect(7, 8, 20, 20)), 0, 0, 4, 4);
    DraggedText dragged;
    EXPECT_EDGES(clipAfterDraw(dragged, QRect(7, 8, 20, 20)), 7, 8, 309, 259);
    EditedText edited; // with the rectangle to repaint
    EXPECT_EDGES(clipAfterDraw(edited, QRect(7, 8, 20, 20)), 7, 8, 309, 281);
    EXPECT_EDGES(clipAfterDraw(edited, QRect()), 90, 90, 309, 281);
    CInkText abandoned;
    drag(abandoned, {100, 100}, {101, 100});
    EXPECT_EDGES(clipAfterDraw(abandoned, QRect()), 90, 90, 111, 110);
    RenderedText rendered;
    EXPECT_EDGES(clipAfterDraw(rendered, QRect()), 90, 90, 309, 281);
}

TEST(CInkText_Draw, painterIsGivenBackInEachPhase)
{
    DraggedText dragged;
    EditedText edited, foreign, hidden, finished;
    RenderedText rendered;
    foreign.SetOwnerIP(7);
    hidden.m_bHideHotShape = 1;
    finished.FinishGraph();
    for (CInkText *text :
         std::initializer_list<CInkText *>{&dragged, &edited, &foreign, &hidden, &finished, &rendered}) {
        MessageLog log;
        QImage image = blankCanvas();
        QPainter painter(&image);
        QRect all(1, 2, 300, 200);
        setOddState(painter);
        text->Draw(painter, all);
        EXPECT_EDGES(all, 1, 2, 300, 201);
        expectOddState(painter);
        text->DrawHotShape(painter);
        expectOddState(painter);
        EXPECT_TRUE(painter.hasClipping());
        EXPECT_TRUE(log.lines.isEmpty());
        painter.restore(); // nothing to restore
        EXPECT_EQ(log.lines.size(), 1);
    }
}

TEST(CInkText_Draw, layersFollowTheCommit)
{
    EditedText edited;
    Layers before;
    before.draw(edited);
    EXPECT_TRUE(samePixels(before.surface, textFrame()));
    EXPECT_TRUE(isBlank(before.page));
    EXPECT_TRUE(isBlank(before.ink));
    EXPECT_TRUE(isBlank(before.background));
    RenderedText rendered;
    Layers after, skipped;
    after.draw(rendered);
    EXPECT_TRUE(samePixels(after.surface, textAt(105, 105)));
    EXPECT_TRUE(samePixels(after.ink, textAt(105, 105)));
    EXPECT_TRUE(samePixels(after.page, textAt(105, 105)));
    EXPECT_TRUE(isBlank(after.background));
    skipped.draw(rendered, 1);
    EXPECT_TRUE(isBlank(skipped.surface));
}

TEST(CInkText_Draw, emptiedListsAndHugeFramesAreSurvived)
{
    DraggedText dragged;
    EditedText edited;
    RenderedText rendered;
    for (CInkText *text : std::initializer_list<CInkText *>{&dragged, &edited, &rendered}) {
        for (const QVector<QPointF> &points : {QVector<QPointF>(), QVector<QPointF>{{5, 5}}}) {
            text->m_graphData = points;
            drawn(*text);
            text->GetUpdateRect();
            for (const int code : {int(PT_MOVE), int(PT_UP), int(PT_DOWN)})
                feed(*text, code, 290, 240);
        }
        text->FinishGraph();
    }
    // Never formed: the list is sized by the first event.
    CInkText pressed;
    pressed.m_graphData.clear();
    feed(pressed, PT_DOWN, 10, 20);
    EXPECT_EQ(pressed.m_graphData.size(), 2);

    for (const int far : {INT_MAX, INT_MIN}) {
        EditedText text;
        text.m_graphData = {QPointF(far, far), QPointF(0, 0)};
        text.SetHotData(INT_MAX, INT_MAX);
        drawn(text);
        text.m_modifyType = MT_RIGHT_BOTTOM;
        text.StretchGraph(QPoint(far, far));
        text.MoveGraph(float(far), float(far));
        text.MoveGraph(1e30f, -1e30f);
        text.ResetHotData(QRect(QPoint(far, far), QPoint(far, INT_MIN)));
        text.GetUpdateRect();
        CInkText dragged2;
        drag(dragged2, {0, 0}, {far, far});
        dragged2.GetUpdateRect();
    }
    for (const QRect &box : {QRect(), QRect(0, 0, 0, 500), QRect(100, 100, -50, -50)}) {
        EditedText text;
        text.ResetHotData(box);
        text.m_modifyType = MT_RIGHT_BOTTOM;
        text.StretchGraph(QPoint(400, 400));
        drawn(text);
    }
}

TEST(CInkText_Draw, frameWithoutExtentDividesNothing)
{
    EditedText text;
    text.m_rcHot = QRect(100, 100, 0, 50);
    text.m_modifyType = MT_RIGHT_BOTTOM;
    text.StretchGraph(QPoint(400, 400));
    for (const QPointF &point : text.m_graphData) {
        EXPECT_TRUE(qIsFinite(point.x()));
        EXPECT_TRUE(qIsFinite(point.y()));
    }
}

// The colours of such an image's pixels are not in its table; Qt reads behind its end.
TEST(CInkText_Draw, imageWithoutItsColorsPaintsNothing)
{
    QImage image(64, 32, QImage::Format_Indexed8);
    image.fill(7);
    RenderedText text;
    text.SetTextImage(&image);
    EXPECT_TRUE(isBlank(drawn(text)));
}
