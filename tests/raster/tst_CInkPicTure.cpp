// The placed picture: what it takes as an image, where it lies and how it is edited.

#include "CInkPicTure.h"
#include "Canvas.h"
#include "Exact.h"
#include "MessageLog.h"
#include "PlacedPicture.h"
#include "Png.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

#include <climits>

namespace {

// Claims 20 000 x 20 000 pixels of one bit, and holds none.
QByteArray hugePngHeader()
{
    return pngHeader(20000, 20000) + pngChunk("IDAT", "") + pngChunk("IEND", {});
}

void expectEnded(const CInkPicTure &picture, const char *what)
{
    EXPECT_EQ(picture.m_bFinished, 1) << what;
    EXPECT_EQ(picture.m_bHideHotShape, 1) << what;
}

// Without an image: no size, both corners at (30,40), in edit mode all the same, and nothing to paint.
void expectEmptyAt30And40(CInkPicTure &picture, const char *what)
{
    SCOPED_TRACE(what);
    EXPECT_EQ(picture.m_nImageWidth, 0);
    EXPECT_EQ(picture.m_nImageHeight, 0);
    EXPECT_POINT(picture.m_graphData.at(0), 30.0, 40.0);
    EXPECT_POINT(picture.m_graphData.at(1), 30.0, 40.0);
    EXPECT_EDGES(picture.m_rcHot, 30, 40, 30, 40);
    EXPECT_EQ(picture.m_nPointCount, 2);
    EXPECT_EQ(picture.m_bEditMode, 1);
    const MessageLog log;
    EXPECT_TRUE(isBlank(drawn(picture)));
    picture.m_bFinished = picture.m_bHideHotShape = 0;
    EXPECT_TRUE(isBlank(drawn(picture)));
    EXPECT_TRUE(log.lines.isEmpty());
}

int s_freed = 0;
uchar s_pixels[16] = {};

// A 2 x 2 image that counts in s_freed when the last copy of it is gone.
QImage countedImage()
{
    return QImage(
        s_pixels, 2, 2, QImage::Format_ARGB32, [](void *) { ++s_freed; }, nullptr);
}

} // namespace

TEST(CInkPicTure, eachSourceGivesASelectedPictureAtItsTopLeftCorner)
{
    QImage image = stripes();
    QByteArray png = encoded(image, "PNG");
    const QTemporaryDir folder;
    const QString path = folder.filePath("picture.txt"); // the name does not tell the format
    ASSERT_TRUE(image.save(path, "PNG"));

    CInkPicTure fromImage(&image, QPoint(10, 20)), fromMemory(png.data(), png.size(), QPoint(10, 20)),
        fromFile(path, QPoint(10, 20));
    for (CInkPicTure *picture : {&fromImage, &fromMemory, &fromFile}) {
        EXPECT_EQ(picture->m_nWidth, 4);
        EXPECT_EQ(picture->m_penStyle, Qt::SolidLine);
        EXPECT_EQ(picture->GetPointCount(), 2);
        EXPECT_EQ(picture->m_bEditMode, 1);
        EXPECT_EQ(picture->m_bFinished, 0);
        EXPECT_EQ(picture->m_bHideHotShape, 0);
        EXPECT_EQ(picture->m_modifyType, 1);
        ASSERT_EQ(picture->m_graphData.size(), 2);
        EXPECT_POINT(picture->m_graphData[0], 10.0, 20.0);
        EXPECT_POINT(picture->m_graphData[1], 210.0, 120.0);
        EXPECT_EDGES(picture->m_rcHot, 10, 20, 210, 120);
        EXPECT_POINT(picture->m_ptCenter, 110.0, 70.0);
        EXPECT_EQ(picture->m_nImageWidth, 200);
        EXPECT_EQ(picture->m_nImageHeight, 100);
        ASSERT_TRUE(picture->m_pPicture);
        EXPECT_TRUE(samePixels(*picture->m_pPicture, image));
    }
    EXPECT_NE(fromImage.m_pPicture, &image);
    image.fill(Qt::red);
    EXPECT_TRUE(samePixels(*fromImage.m_pPicture, stripes()));
}

TEST(CInkPicTure, pictureOfOnePixelHasABoxOfTwo)
{
    QImage dot(1, 1, QImage::Format_ARGB32);
    dot.fill(0xFF123456u);
    CInkPicTure picture(&dot, QPoint(50, 60));
    EXPECT_EDGES(picture.m_rcHot, 50, 60, 51, 61);
    EXPECT_EQ(picture.FinishGraph(), true);
    const QImage image = drawnQuietly(picture);
    EXPECT_EQ(image.pixel(50, 60), 0xFF123456u);
    for (const QPoint &beside : {QPoint(49, 60), QPoint(51, 60), QPoint(50, 59), QPoint(50, 61)})
        EXPECT_EQ(image.pixel(beside), 0u);
}

TEST(CInkPicTure, bytesThatDoNotDecodeEndThePicture)
{
    const QByteArray png = encoded(stripes(), "PNG");
    const QByteArray jpeg = encoded(stripes().convertToFormat(QImage::Format_RGB32), "JPG");
    const struct
    {
        const char *what;
        QByteArray bytes;
        int length;
    } rows[] = {
        {"no image", "no image at all", 15},
        {"zeros", QByteArray(500, '\0'), 500},
        {"PNG signature", png, 8},
        {"half a PNG", png.left(png.size() / 2), png.size() / 2},
        {"start of a JPEG", jpeg, 20},
        {"JPEG signature", jpeg, 2},
        {"zero length", png, 0},
        {"negative length", png, -1},
        {"lowest length", png, INT_MIN},
        {"one byte", png, 1},
        {"huge PNG", hugePngHeader(), hugePngHeader().size()},
    };
    for (const auto &row : rows) {
        QByteArray bytes = row.bytes;
        CInkPicTure picture(bytes.data(), row.length, QPoint(30, 40));
        EXPECT_EQ(picture.m_pPicture, nullptr) << row.what;
        expectEnded(picture, row.what);
        expectEmptyAt30And40(picture, row.what);
    }
}

TEST(CInkPicTure, nullPointersEndThePicture)
{
    for (const int length : {0, 100, -1, INT_MAX}) {
        CInkPicTure picture(nullptr, length, QPoint(30, 40));
        EXPECT_EQ(picture.m_pPicture, nullptr);
        expectEnded(picture, "null buffer");
        expectEmptyAt30And40(picture, "null buffer");
    }
    CInkPicTure picture(static_cast<QImage *>(nullptr), QPoint(30, 40));
    ASSERT_TRUE(picture.m_pPicture);
    EXPECT_TRUE(picture.m_pPicture->isNull());
    expectEnded(picture, "null image");
    expectEmptyAt30And40(picture, "null image");
}

TEST(CInkPicTure, fileThatDoesNotLoadLeavesAnEmptyPictureThatIsNotEnded)
{
    const QTemporaryDir folder;
    QFile garbage(folder.filePath("garbage.png")), huge(folder.filePath("huge.png"));
    ASSERT_TRUE(garbage.open(QIODevice::WriteOnly));
    garbage.write("no image at all");
    garbage.close();
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly));
    huge.write(hugePngHeader());
    huge.close();
    for (const QString &path :
         {folder.filePath("missing.png"), folder.path(), QString(), QString(""), garbage.fileName(), huge.fileName()}) {
        SCOPED_TRACE(path.toStdString());
        const MessageLog log;
        CInkPicTure picture(path, QPoint(30, 40));
        ASSERT_TRUE(picture.m_pPicture);
        EXPECT_TRUE(picture.m_pPicture->isNull());
        EXPECT_EQ(picture.m_bFinished, 0);
        EXPECT_EQ(picture.m_bHideHotShape, 0);
        expectEmptyAt30And40(picture, "file");
    }
}

TEST(CInkPicTure, nullImageThatIsNoNullPointerDoesNotEndThePicture)
{
    QImage null;
    CInkPicTure picture(&null, QPoint(30, 40));
    EXPECT_EQ(picture.m_bFinished, 0);
    EXPECT_EQ(picture.m_bHideHotShape, 0);
    expectEmptyAt30And40(picture, "null image");
}

TEST(CInkPicTure, secondBufferIsNotTakenAndEndsThePicture)
{
    QByteArray small = encoded(stripes(5, 7), "PNG");
    Placed picture;
    const QImage *held = picture.m_pPicture;
    picture.InitPicture(small.data(), small.size());
    EXPECT_EQ(picture.m_pPicture, held);
    EXPECT_EQ(picture.m_nImageWidth, 200);
    EXPECT_EQ(picture.m_nImageHeight, 100);
    expectEnded(picture, "second buffer");

    // A null image from a file is held too.
    CInkPicTure missing(QString("/no/such/file"), QPoint(30, 40));
    missing.InitPicture(small.data(), small.size());
    EXPECT_TRUE(missing.m_pPicture->isNull());
    expectEnded(missing, "buffer after a missing file");
}

TEST(CInkPicTure, laterBufferIsTakenWhileNoImageIsHeld)
{
    QByteArray small = encoded(stripes(5, 7), "PNG");
    CInkPicTure picture(nullptr, 0, QPoint(30, 40));
    picture.InitPicture(small.data(), small.size());
    ASSERT_TRUE(picture.m_pPicture);
    EXPECT_EQ(picture.m_nImageWidth, 5);
    EXPECT_EQ(picture.m_nImageHeight, 7);
    expectEnded(picture, "ended by the first"); // and stays so
    EXPECT_EDGES(picture.m_rcHot, 30, 40, 30, 40);
}

TEST(CInkPicTure, laterFileOrImageReplacesTheOneHeldButNotTheCorners)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("small.png");
    ASSERT_TRUE(stripes(5, 7).save(path));
    Placed picture;
    picture.InitPicture(path);
    EXPECT_EQ(picture.m_nImageWidth, 5);
    EXPECT_EQ(picture.m_nImageHeight, 7);
    EXPECT_TRUE(samePixels(*picture.m_pPicture, stripes(5, 7)));
    EXPECT_EDGES(picture.m_rcHot, 100, 80, 300, 180);
    EXPECT_EQ(picture.m_bFinished, 0);

    QImage other = stripes(9, 3);
    picture.InitPicture(&other);
    EXPECT_EQ(picture.m_nImageWidth, 9);
    EXPECT_EQ(picture.m_nImageHeight, 3);
    EXPECT_EQ(picture.m_bFinished, 0);

    picture.InitPicture(picture.m_pPicture); // its own
    EXPECT_TRUE(samePixels(*picture.m_pPicture, stripes(9, 3)));

    picture.InitPicture(static_cast<QImage *>(nullptr));
    EXPECT_TRUE(picture.m_pPicture->isNull());
    EXPECT_EQ(picture.m_nImageWidth, 0);
    EXPECT_EQ(picture.m_nImageHeight, 0);
    expectEnded(picture, "null image");

    picture.InitPicture(QString("/no/such/file"));
    EXPECT_TRUE(picture.m_pPicture->isNull());
}

TEST(CInkPicTure, imageIsFreedWhenItIsReplacedAndAtTheEnd)
{
    s_freed = 0;
    {
        QImage first = countedImage(), second = countedImage();
        CInkPicTure picture(&first, QPoint());
        first = QImage();
        EXPECT_EQ(s_freed, 0);
        picture.InitPicture(&second);
        EXPECT_EQ(s_freed, 1);
        picture.InitPicture(QString("/no/such/file"));
        EXPECT_EQ(s_freed, 1); // the host's
        picture.InitPicture(&second);
        second = QImage();
        EXPECT_EQ(s_freed, 1);
    }
    EXPECT_EQ(s_freed, 2);
}

TEST(CInkPicTure, placedByItsCentreWithHalvesRoundedDown)
{
    const struct
    {
        QSize size;
        QPoint center;
        QRect box;
    } rows[] = {
        {{200, 100}, {300, 200}, QRect(QPoint(200, 150), QPoint(400, 250))},
        {{5, 7}, {100, 100}, QRect(QPoint(98, 97), QPoint(103, 104))},
        {{5, 7}, {0, 0}, QRect(QPoint(-2, -3), QPoint(3, 4))},
    };
    for (const auto &row : rows) {
        QImage image = stripes(row.size.width(), row.size.height());
        CInkPicTure picture(&image, QPoint(10, 20));
        picture.m_bEditMode = 0;
        picture.InitGraphData(row.center);
        EXPECT_EDGES(picture.m_rcHot, row.box.left(), row.box.top(), row.box.right(), row.box.bottom());
        EXPECT_POINT(picture.m_graphData[0], double(row.box.left()), double(row.box.top()));
        EXPECT_POINT(picture.m_graphData[1], double(row.box.right()), double(row.box.bottom()));
        EXPECT_EQ(picture.m_bEditMode, 1);
    }
}

TEST(CInkPicTure, farCornersAreSummedInSinglePrecision)
{
    Placed picture;
    picture.InitGraphData(16777216, -16777217);
    EXPECT_POINT(picture.m_graphData[0], 16777216.0, -16777216.0);
    EXPECT_POINT(picture.m_graphData[1], 16777416.0, -16777116.0);
    QImage narrow = stripes(1, 3);
    picture.InitPicture(&narrow);
    picture.InitGraphData(16777216, 16777216);
    EXPECT_POINT(picture.m_graphData[1], 16777216.0, 16777220.0); // 1 and 3 have no float of their own there

    for (const int far : {INT_MAX, INT_MIN}) {
        picture.InitGraphData(far, far);
        drawnQuietly(picture);
        picture.InitGraphData(QPoint(far, far));
        drawnQuietly(picture);
        picture.GetUpdateRect();
    }
}

TEST(CInkPicTure, listIsSizedWhenThePictureIsPlaced)
{
    Placed picture;
    picture.m_graphData.clear();
    picture.InitGraphData(10, 20);
    ASSERT_EQ(picture.m_graphData.size(), 2);
    EXPECT_EDGES(picture.m_rcHot, 10, 20, 210, 120);
    picture.m_graphData = {QPointF(1, 1), QPointF(2, 2), QPointF(900, 900)};
    picture.InitGraphData(10, 20);
    EXPECT_POINT(picture.m_graphData.at(1), 210.0, 120.0);
}

TEST(CInkPicTure, finishCommitsWithoutMargin)
{
    Placed picture;
    picture.m_graphData[1] = QPointF(310.9, 190.9);
    EXPECT_EQ(picture.FinishGraph(), true);
    expectEnded(picture, "finished");
    EXPECT_EDGES(picture.m_rcHot, 100, 80, 310, 190);
    EXPECT_EQ(picture.m_bEditMode, 1);

    for (const int count : {0, -1}) {
        Placed none;
        none.m_nPointCount = count;
        EXPECT_EQ(none.FinishGraph(), false);
        EXPECT_EQ(none.m_bFinished, 0);
        EXPECT_EQ(none.m_bHideHotShape, 0);
    }
    Placed one;
    one.m_nPointCount = 1;
    EXPECT_EQ(one.FinishGraph(), true);
}

TEST(CInkPicTure, updateRectangleIsTheRectanglesOwnGrownByTen)
{
    // A square of side 235 about (199,129), widened by 10, twice the pen and 10 more.
    Placed picture;
    picture.m_rcName = QRect(1, 2, 3, 4);
    EXPECT_EDGES(picture.GetUpdateRect(), 53, -17, 343, 273);
    EXPECT_NULL_RECT(picture.m_rcName);
    picture.SetWidth(20);
    EXPECT_EDGES(picture.GetUpdateRect(), 11, -59, 385, 315);
    picture.FinishGraph(); // edit mode stays
    EXPECT_EDGES(picture.GetUpdateRect(), 11, -59, 385, 315);
}

TEST(CInkPicTure, nameIsLaidOutAtTheTopLeftOfTheBox)
{
    Placed picture;
    picture.ShowDrawerName(1);
    picture.m_sizeName = QSize(60, 20);
    picture.InitGraphData(300, 250);
    // The rectangle's own label, 360 x 270, is part of it.
    EXPECT_EDGES(picture.GetUpdateRect(), 253, 153, 677, 537);
    EXPECT_EDGES(picture.m_rcName, 300, 250, 359, 269);

    QImage small = stripes(10, 10);
    picture.InitPicture(&small);
    picture.InitGraphData(-100, -100);
    picture.m_sizeName = QSize(400, 20);
    EXPECT_EDGES(picture.GetUpdateRect(), -172, -199, 299, -18);
    EXPECT_EDGES(picture.m_rcName, -100, -100, 299, -81);
}

TEST(CInkPicTure, editedLikeARectangle)
{
    Placed picture;
    EXPECT_EDGES(feed(picture, PT_DOWN, 150, 110), 53, -17, 343, 273);
    EXPECT_EQ(picture.m_modifyType, MT_MOVE);
    EXPECT_EDGES(feed(picture, PT_MOVE, 155, 112), 53, -17, 348, 275);
    EXPECT_EQ(picture.IsSparePoint(), 1);
    EXPECT_EDGES(picture.m_rcHot, 105, 82, 305, 182);
    for (const int code : {0, 3, 4, 99, -1}) {
        EXPECT_EDGES(feed(picture, code, 900, 900), 58, -15, 348, 275);
        EXPECT_EDGES(picture.m_rcHot, 105, 82, 305, 182);
        EXPECT_EQ(picture.IsSparePoint(), 0);
    }
    feed(picture, PT_UP, 156, 114);
    EXPECT_EDGES(picture.m_rcHot, 106, 84, 306, 184);
    drag(picture, {206, 54}, {400, 134}); // the knob, to the right
    EXPECT_EQ(picture.GetRotateAngle(), 90.0f);
    EXPECT_EQ(picture.m_bFinished, 0);
    feed(picture, PT_DOWN, 600, 600);
    expectEnded(picture, "pressed outside");
    EXPECT_EQ(picture.m_modifyType, MT_NONE);
    EXPECT_NULL_RECT(feed(picture, PT_MOVE, 650, 650));
}

TEST(CInkPicTure, screenIsANullRectangleWithoutAnApplication)
{
    Placed picture;
    picture.m_bEditMode = 0;
    picture.m_rcName = QRect(1, 2, 3, 4);
    EXPECT_NULL_RECT(picture.GetUpdateRect());
    EXPECT_EDGES(picture.m_rcName, 1, 2, 3, 5);
}
