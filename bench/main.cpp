// All benchmarks in one process, so that a ratio compares like with like.

#include "Bench.h"

#include <QtCore/QLoggingCategory>

#ifdef __GLIBC__
#include <malloc.h>
#endif

int main(int argc, char **argv)
{
    // As in use: lines at debug level are for those who look for them.
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);

#ifdef __GLIBC__
    // A host keeps its finished objects, so the image of a new one is memory that was never used before. Here objects
    // come and go: without this, the C library would hand the same memory out again.
    mallopt(M_MMAP_THRESHOLD, 1 << 20);
#endif

    Bench::registerStrokes();
    Bench::registerPeers();
    Bench::registerTextured();
    Bench::registerPage();
    Bench::registerFills();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
}
