// Lets objects of every tool live and die, for tools that watch the memory of a whole program.
// usage: run_lives [objects of each tool]

#include "Lives.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv)
{
    const int count = argc > 1 ? std::atoi(argv[1]) : 1000;
    const Silence silence;
    OpenLayers layers({32, 24});
    for (const Tool &tool : allTools()) {
        for (int life = 0; life < count; ++life)
            live(tool, layers, life);
    }
    std::printf("%d objects of each of %zu tools\n", count, allTools().size());
    return count > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
