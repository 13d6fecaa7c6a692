// What a picture asks to repaint while it is not selected: the screen, where there is one.

#include "CInkPicTure.h"
#include "Canvas.h"
#include "Exact.h"
#include "HandleFrame.h"
#include "MessageLog.h"

#include <QtGui/QScreen>
#include <QtWidgets/QApplication>

#include <gtest/gtest.h>

TEST(CInkPicTure_Screen, unselectedPictureCoversTheAvailableScreen)
{
    int argc = 1;
    char name[] = "tst_CInkPicTure_Screen";
    char *argv[] = {name, nullptr};
    const QApplication application(argc, argv);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    ASSERT_FALSE(screen.isEmpty());

    QImage image(200, 100, QImage::Format_ARGB32);
    image.fill(Qt::blue);
    CInkPicTure picture(&image, QPoint(100, 80));
    picture.ShowDrawerName(1);
    picture.m_bEditMode = 0;
    picture.m_rcName = QRect(1, 2, 3, 4);
    EXPECT_EDGES(picture.GetUpdateRect(), screen.left(), screen.top(), screen.right(), screen.bottom());
    EXPECT_EDGES(picture.m_rcName, 1, 2, 3, 5);

    const MessageLog log;
    EXPECT_EDGES(clipAfterDraw(picture, QRect(-20, -30, 10, 10)), -20, -30, screen.right(), screen.bottom());
    picture.m_bEditMode = 1;
    picture.ShowDrawerName(0);
    EXPECT_EDGES(picture.GetUpdateRect(), 53, -17, 343, 273);
}

TEST(CInkPicTure_Screen, applicationWithoutWidgetsHasNoScreen)
{
    int argc = 1;
    char name[] = "tst_CInkPicTure_Screen";
    char *argv[] = {name, nullptr};
    const QCoreApplication application(argc, argv);
    CInkPicTure picture(static_cast<QImage *>(nullptr), QPoint(100, 80));
    picture.m_bEditMode = 0;
    EXPECT_NULL_RECT(picture.GetUpdateRect());
}
