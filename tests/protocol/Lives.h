#pragma once

// Whole lives of objects on small layers, for what counts their allocations or watches their memory.

#include "Tools.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <array>

// Lines at debug level allocate; here nobody reads them.
class Silence
{
public:
    Silence()
        : m_previous(qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {}))
    {
    }
    ~Silence() { qInstallMessageHandler(m_previous); }

private:
    Q_DISABLE_COPY(Silence)
    QtMessageHandler m_previous;
};

// Painters that stay open for many lives.
struct OpenLayers
{
    explicit OpenLayers(const QSize &size)
        : images{blankCanvas(size, Qt::white), blankCanvas(size), blankCanvas(size, Qt::blue), blankCanvas(size)}
    {
        for (std::size_t i = 0; i < images.size(); ++i)
            painters[i].begin(&images[i]);
    }

    // Takes back the states that a tool leaves on the painters, which belong to the painter.
    void draw(const Tool &tool, CInkGraph &graph)
    {
        graph.Draw(painters[0], painters[1], painters[2], painters[3], images[0].rect(), 0, 0);
        const std::string &painted = graph.m_bFinished ? tool.paintsCommitted : tool.paintsInProgress;
        if (!tool.is(LeavesStates))
            return;
        for (const char number : painted) {
            painters[std::size_t(number - '1')].restore();
            painters[std::size_t(number - '1')].restore();
        }
    }

    std::array<QImage, 4> images;
    std::array<QPainter, 4> painters;
};

// Draws an object, paints it in progress and formed, and gives it up at one of four points, told by `life`.
void live(const Tool &tool, OpenLayers &layers, int life);
