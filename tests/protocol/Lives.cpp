#include "Lives.h"

#include "Canvas.h"

void live(const Tool &tool, OpenLayers &layers, int life)
{
    const Graph graph(tool.make());
    graph->SetCanvasSize({32, 24});
    graph->SetColor(QColor(200, 0, 0));
    feed(*graph, PT_DOWN, 4, 4);
    feed(*graph, PT_MOVE, 9, 12);
    layers.draw(tool, *graph);
    if (life % 4 == 0)
        return;
    feed(*graph, PT_MOVE, 25, 15);
    feed(*graph, PT_UP, 28, 20);
    layers.draw(tool, *graph);
    if (life % 4 == 1)
        return;
    graph->FinishGraph();
    if (tool.handOver)
        tool.handOver(*graph);
    layers.draw(tool, *graph);
    if (life % 4 == 3)
        layers.draw(tool, *graph);
}
