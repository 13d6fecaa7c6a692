#pragma once

#include <QtCore/qglobal.h>

// Marks what the shared library exports; everything else is hidden.
#if defined(INKLESSON_BUILD)
#define INKLESSON_EXPORT Q_DECL_EXPORT
#else
#define INKLESSON_EXPORT Q_DECL_IMPORT
#endif
