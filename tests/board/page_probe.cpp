// page_probe PICTURE X,Y...: prints the colour of each of the pixels as #rrggbb, one a line.

#include <QtCore/QFile>
#include <QtCore/QStringList>
#include <QtCore/QTextStream>
#include <QtGui/QColor>
#include <QtGui/QImage>

int main(int argc, char **argv)
{
    const QImage picture(argc > 1 ? QFile::decodeName(argv[1]) : QString());
    if (picture.isNull()) {
        QTextStream(stderr) << "page_probe: no such picture\n";
        return EXIT_FAILURE;
    }
    QTextStream out(stdout);
    for (int i = 2; i < argc; ++i) {
        const QStringList pixel = QString::fromLocal8Bit(argv[i]).split(QLatin1Char(','));
        out << picture.pixelColor(pixel.value(0).toInt(), pixel.value(1).toInt()).name() << '\n';
    }
    return EXIT_SUCCESS;
}
