#pragma once

#include <QtCore/qglobal.h>

// Marks what the shared library exports; everything else is hidden.
#if defined(INKGRAPHICS_BUILD)
#define INK_EXPORT Q_DECL_EXPORT
#else
#define INK_EXPORT Q_DECL_IMPORT
#endif
