#pragma once

#include <QtCore/qglobal.h>

// Marks what the shared library exports; everything else is hidden. What contains the static library exports nothing
// of it: a host that is compiled against that one defines INKGRAPHICS_STATIC, as our CMake target does.
#if defined(INKGRAPHICS_STATIC)
#define INK_EXPORT
#elif defined(INKGRAPHICS_BUILD)
#define INK_EXPORT Q_DECL_EXPORT
#else
#define INK_EXPORT Q_DECL_IMPORT
#endif
