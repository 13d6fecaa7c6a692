// same_pixels EXPECTED FOUND [X Y WIDTH HEIGHT]
//
// Whether two pictures are the same, but for what lies within a rectangle: there, the second has something on white.

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <cstdio>
#include <cstdlib>

namespace {

QImage read(const char *fileName)
{
    return QImage(QString::fromLocal8Bit(fileName)).convertToFormat(QImage::Format_RGB32);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3 && argc != 7) {
        std::fprintf(stderr, "usage: same_pixels EXPECTED FOUND [X Y WIDTH HEIGHT]\n");
        return 2;
    }
    QImage expected = read(argv[1]);
    QImage found = read(argv[2]);
    if (argc == 7) {
        const QRect free(std::atoi(argv[3]), std::atoi(argv[4]), std::atoi(argv[5]), std::atoi(argv[6]));
        QImage white(free.size(), QImage::Format_RGB32);
        white.fill(Qt::white);
        if (found.copy(free) == white) {
            std::fprintf(stderr, "%s: nothing in the rectangle\n", argv[2]);
            return 1;
        }
        for (QImage *image : {&expected, &found})
            QPainter(image).fillRect(free, Qt::white);
    }
    if (expected.isNull() || expected != found) {
        std::fprintf(stderr, "%s: not the pixels of %s\n", argv[2], argv[1]);
        return 1;
    }
    return 0;
}
