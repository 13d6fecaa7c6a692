// The placed picture as it is painted, in each phase and on each layer.

#include "CInkPicTure.h"
#include "Canvas.h"
#include "Exact.h"
#include "HandleFrame.h"
#include "MessageLog.h"
#include "PainterState.h"
#include "PlacedPicture.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

QRect clipAfterQuietDraw(CInkGraph &graph, QRect rect)
{
    const MessageLog log;
    return clipAfterDraw(graph, rect);
}

// The image as `target` of a painter under `frame`, without handles.
QImage paintedImage(const QRectF &target, const QTransform &frame = {}, const QSize &size = {400, 300})
{
    return painted(
        [&](QPainter &painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setWorldTransform(frame);
            painter.drawImage(target, stripes(), QRectF(0, 0, 200, 100));
        },
        size);
}

} // namespace

TEST(CInkPicTure, pictureIsPaintedPixelForPixelUnderItsHandles)
{
    Placed picture;
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawImage(QPoint(100, 80), stripes());
        paintHandleFrame(painter, QRect(QPoint(100, 80), QPoint(300, 180)));
    });
    EXPECT_TRUE(samePixels(drawnQuietly(picture), expected));
    picture.SetColor(Qt::red); // of no effect
    EXPECT_TRUE(samePixels(drawnQuietly(picture), expected));

    picture.FinishGraph();
    const QImage plain = painted([](QPainter &painter) { painter.drawImage(QPoint(100, 80), stripes()); });
    EXPECT_TRUE(samePixels(drawnQuietly(picture), plain));
}

TEST(CInkPicTure, handlesNeedNeitherFlagAndNoEditMode)
{
    const QImage plain = paintedImage(QRectF(100, 80, 200, 100));
    Placed edited, finished, hidden, unselected;
    finished.m_bFinished = 1;
    EXPECT_TRUE(samePixels(drawnQuietly(finished), plain));
    hidden.m_bHideHotShape = 1;
    EXPECT_TRUE(samePixels(drawnQuietly(hidden), plain));
    unselected.m_bEditMode = 0;
    EXPECT_TRUE(samePixels(drawnQuietly(unselected), drawnQuietly(edited)));
    unselected.m_nPointCount = 0;
    EXPECT_TRUE(isBlank(drawnQuietly(unselected)));
    unselected.m_nPointCount = -1;
    EXPECT_TRUE(isBlank(drawnQuietly(unselected)));
    unselected.m_nPointCount = 1;
    EXPECT_FALSE(isBlank(drawnQuietly(unselected)));
}

TEST(CInkPicTure, foreignPictureIsShadedInItsFrame)
{
    Placed picture;
    picture.SetOwnerIP(7);
    picture.m_fRotateAngle = 30;
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setWorldTransform(turnAbout(200, 130, 30));
        painter.drawImage(QRectF(100, 80, 200, 100), stripes(), QRectF(0, 0, 200, 100));
        painter.fillRect(QRect(100, 80, 201, 101), QColor(50, 50, 50, 60));
    });
    EXPECT_TRUE(samePixels(drawnQuietly(picture), expected));
}

TEST(CInkPicTure, turnedPictureIsPaintedInItsFrame)
{
    for (const float angle : {1.0f, 90.0f, 135.0f, 359.0f}) {
        SCOPED_TRACE(angle);
        Placed picture;
        picture.m_fRotateAngle = angle;
        const QTransform frame = turnAbout(200, 130, double(angle));
        const QImage edited = painted([&](QPainter &painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setWorldTransform(frame);
            painter.drawImage(QRectF(100, 80, 200, 100), stripes(), QRectF(0, 0, 200, 100));
            paintHandleFrame(painter, QRect(QPoint(100, 80), QPoint(300, 180)));
        });
        EXPECT_TRUE(samePixels(drawnQuietly(picture), edited));
        picture.m_bFinished = 1;
        EXPECT_TRUE(samePixels(drawnQuietly(picture), paintedImage(QRectF(100, 80, 200, 100), frame)));
    }
}

TEST(CInkPicTure, stretchedBoxStretchesTheImageButNotItsStoredSize)
{
    Placed picture;
    drag(picture, {300, 180}, {500, 180});
    EXPECT_EDGES(picture.m_rcHot, 100, 80, 500, 180);
    EXPECT_EQ(picture.m_nImageWidth, 200);
    EXPECT_EQ(picture.m_nImageHeight, 100);
    picture.m_bFinished = 1;
    EXPECT_TRUE(samePixels(drawnQuietly(picture, {600, 300}), paintedImage({100, 80, 400, 100}, {}, {600, 300})));

    // Boxes without extent, or turned inside out.
    for (const QRect &box : {QRect(100, 80, 1, 1), QRect(), QRect(100, 80, 0, 50), QRect(100, 80, -20, -20),
                             QRect(QPoint(INT_MIN, INT_MIN), QPoint(INT_MAX, INT_MAX))}) {
        picture.m_rcHot = box;
        drawnQuietly(picture);
    }
}

TEST(CInkPicTure, clipStaysOnThePainter)
{
    // While edited the rectangle to repaint is not part of it.
    Placed picture;
    EXPECT_EDGES(clipAfterQuietDraw(picture, QRect(0, 0, 20, 20)), 53, -17, 343, 273);
    picture.m_fRotateAngle = 40;
    picture.m_bEditMode = 0; // no application, no screen
    EXPECT_EDGES(clipAfterQuietDraw(picture, QRect(7, 8, 20, 20)), 7, 8, 26, 27);
    picture.m_nPointCount = 0;
    EXPECT_EDGES(clipAfterQuietDraw(picture, QRect(7, 8, 20, 20)), 0, 0, 4, 4);
}

TEST(CInkPicTure, painterIsGivenBackInEachPhase)
{
    Placed edited, turned, committed, foreign;
    turned.m_fRotateAngle = 30;
    committed.FinishGraph();
    foreign.SetOwnerIP(7);
    CInkPicTure empty(nullptr, 0, QPoint(30, 40));
    for (CInkPicTure *picture : std::initializer_list<CInkPicTure *>{&edited, &turned, &committed, &foreign, &empty}) {
        MessageLog log;
        QImage image = blankCanvas();
        QPainter painter(&image);
        QRect all(1, 2, 300, 200);
        setOddState(painter);
        picture->Draw(painter, all);
        EXPECT_EDGES(all, 1, 2, 300, 201);
        expectOddState(painter);
        EXPECT_TRUE(painter.hasClipping());
        log.lines.clear();
        painter.restore(); // nothing to restore
        EXPECT_EQ(log.lines.size(), 1);
    }
}

TEST(CInkPicTure, eachPaintingWritesOneDebugLineWithTargetAndSource)
{
    Placed picture;
    const MessageLog log;
    drawn(picture);
    ASSERT_EQ(log.lines.size(), 1);
    EXPECT_EQ(log.lines[0].type, QtDebugMsg);
    EXPECT_EQ(log.lines[0].category, QString("default"));
    EXPECT_TRUE(log.lines[0].text.startsWith("CINKPicture")) << log.lines[0].text.toStdString();
    const int target = log.lines[0].text.indexOf("100,80 200x100");
    const int source = log.lines[0].text.indexOf("0,0 200x100", target + 1);
    EXPECT_GT(target, 0);
    EXPECT_GT(source, target);
}

TEST(CInkPicTure, layersFollowTheCommit)
{
    Placed picture;
    MessageLog log;
    const QImage edited = drawn(picture);
    Layers before;
    log.lines.clear();
    before.draw(picture);
    EXPECT_EQ(log.debugLines(), 1);
    EXPECT_TRUE(samePixels(before.surface, edited));
    EXPECT_TRUE(isBlank(before.page));
    EXPECT_TRUE(isBlank(before.ink));
    EXPECT_TRUE(isBlank(before.background));

    picture.FinishGraph();
    const QImage plain = paintedImage(QRectF(100, 80, 200, 100));
    Layers after, skipped;
    after.draw(picture);
    EXPECT_TRUE(samePixels(after.surface, plain));
    EXPECT_TRUE(samePixels(after.ink, plain));
    EXPECT_TRUE(samePixels(after.page, plain));
    EXPECT_TRUE(isBlank(after.background));
    skipped.draw(picture, 1);
    EXPECT_TRUE(isBlank(skipped.surface));
    EXPECT_TRUE(isBlank(skipped.page));
}

// The image has the colours 0 and 1 alone; Qt reads behind the end of the table.
TEST(CInkPicTure, pixelsWithoutAColorPaintNothing)
{
    QImage image(20, 10, QImage::Format_Indexed8);
    image.setColorTable({0xFFFF0000u, 0xFF0000FFu});
    image.fill(0);
    image.setPixel(1, 0, 1);
    image.scanLine(0)[2] = 255;
    CInkPicTure picture(&image, QPoint(100, 80));
    picture.FinishGraph();
    const QImage page = drawnQuietly(picture);
    EXPECT_EQ(page.pixel(100, 80), 0xFFFF0000u);
    EXPECT_EQ(page.pixel(101, 80), 0xFF0000FFu);
    EXPECT_EQ(page.pixel(102, 80), 0u);
    EXPECT_EQ(page.pixel(119, 89), 0xFFFF0000u);
}
