// Texts of recorded strokes, most of them broken. What is read keeps the promises that a player relies on.

#include "Input.h"

#include "lesson/strokes/StrokeReader.h"

#include <cstdlib>

namespace {

void require(bool kept)
{
    if (!kept)
        std::abort();
}

} // namespace

void Fuzz::run(const std::uint8_t *data, std::size_t size)
{
    InkLesson::StrokeFile file;
    InkLesson::StrokeReader reader;
    if (!reader.read(QByteArray(reinterpret_cast<const char *>(data), int(size)), file)) {
        require(!reader.error().isEmpty());
        return;
    }
    require(!file.size.isEmpty());
    for (const InkLesson::Stroke &stroke : file.strokes)
        require(stroke.color.isValid() && stroke.width >= 1 && stroke.width <= 1000 && !stroke.points.empty());
}
