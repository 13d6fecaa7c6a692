#pragma once

#include <QtGui/QImage>

namespace InkLesson {

// What lies under the ink of a page.
struct Paper
{
    enum class Kind { Blank, Ruled, Squared, Picture };
    Kind kind{Kind::Blank};
    QImage picture{}; // in the upper left corner; exactImage()
};

} // namespace InkLesson
