#pragma once

// Whether a Draw gives the painter back as it found it. The clip is not looked at: most tools leave theirs.

#include <QtGui/QPainter>

#include <gtest/gtest.h>

// A state that no tool would choose.
inline void setOddState(QPainter &painter)
{
    painter.setPen(QPen(Qt::magenta, 7, Qt::DotLine, Qt::FlatCap, Qt::MiterJoin));
    painter.setBrush(QBrush(Qt::cyan, Qt::Dense4Pattern));
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing, false);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setWorldTransform(QTransform::fromTranslate(3, 5));
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    painter.setOpacity(0.5);
}

inline void expectOddState(const QPainter &painter)
{
    EXPECT_EQ(painter.pen(), QPen(Qt::magenta, 7, Qt::DotLine, Qt::FlatCap, Qt::MiterJoin));
    EXPECT_EQ(painter.brush(), QBrush(Qt::cyan, Qt::Dense4Pattern));
    EXPECT_EQ(painter.renderHints(), QPainter::SmoothPixmapTransform);
    EXPECT_EQ(painter.worldTransform(), QTransform::fromTranslate(3, 5));
    EXPECT_TRUE(painter.worldMatrixEnabled());
    EXPECT_EQ(painter.compositionMode(), QPainter::CompositionMode_SourceAtop);
    EXPECT_EQ(painter.opacity(), 0.5);
}

// The clip in force, in the painter's coordinates; null where there is none. For clips of one rectangle.
inline QRect clipOf(const QPainter &painter)
{
    return painter.hasClipping() ? painter.clipBoundingRect().toRect() : QRect();
}
