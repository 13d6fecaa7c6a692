// Writes inputs for fuzz_records that are right: lessons by chance as files and as streams of CBOR, each of their
// records, and the first lines of the lessons that it is given.
//
//     fuzz_seeds FOLDER [LESSON]...

#include "RandomLesson.h"

#include "lesson/storage/LogReader.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtGui/QGuiApplication>

#include <cstdio>

namespace {

constexpr unsigned kLessons = 400;
constexpr int kLongest = 4000;                                                    // bytes
constexpr char kRecord = 0, kLine = 1, kFile = 4, kFirstVersion = 5, kStream = 6; // as Fuzz::run() tells them apart

void write(const QDir &folder, char kind, const QByteArray &input)
{
    if (input.size() > kLongest)
        return;
    const QByteArray bytes = kind + input;
    const QByteArray name = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
    QFile file(folder.filePath(QString::fromLatin1(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        std::fprintf(stderr, "%s cannot be written\n", qPrintable(file.fileName()));
}

void writeLesson(const QDir &folder, unsigned seed)
{
    RandomLesson random(seed, 1 + int(seed % 3));
    random.act(1 + int(seed % 12));
    random.letGo();
    QByteArray file = InkLesson::headerLine(random.lesson().header()) + '\n', stream;
    for (const QByteArray &record : random.lesson().log()) {
        const QByteArray line = InkLesson::jsonLine(record);
        write(folder, kRecord, record);
        write(folder, kLine, line);
        file += line + '\n';
        stream += record;
    }
    write(folder, kFile, file);
    write(folder, kStream, stream);
}

// The first line, the first two, four, eight, ...
void writeHeads(const QDir &folder, const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QByteArray head;
    for (int lines = 1, next = 1; !file.atEnd(); ++lines) {
        head += file.readLine();
        if (lines != next)
            continue;
        next *= 2;
        write(folder, kFirstVersion, head);
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    if (argc < 2)
        return 2;
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    folder.mkpath(QStringLiteral("."));
    for (unsigned seed = 1; seed <= kLessons; ++seed)
        writeLesson(folder, seed);
    for (int i = 2; i < argc; ++i)
        writeHeads(folder, QString::fromLocal8Bit(argv[i]));
    return 0;
}
