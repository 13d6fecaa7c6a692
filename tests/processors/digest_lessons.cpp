// Prints a line for each object that lessons show: the file, its page, its tool and a digest of its geometry. Or makes
// lessons to be read, by chance.
//
// usage: digest_lessons FILE...
//        digest_lessons --make LESSONS FOLDER

#include "Geometry.h"
#include "RandomLesson.h"

#include "lesson/storage/LessonFile.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLoggingCategory>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int kActs = 60; // of each lesson

// Says what went wrong, and tells whether nothing did.
bool isFine(const QString &problem)
{
    if (!problem.isEmpty())
        std::fprintf(stderr, "%s\n", qUtf8Printable(problem));
    return problem.isEmpty();
}

bool makeLesson(unsigned seed, const QDir &folder)
{
    RandomLesson random(seed);
    random.act(kActs);
    random.letGo();
    return isFine(InkLesson::saveLesson(random.lesson(), folder.filePath(QStringLiteral("%1.inkboard").arg(seed))));
}

void print(const char *file, int page, const InkLesson::Item &item)
{
    Digest digest;
    add(digest, Snapshot(*item.object));
    digest.add(item.object->GetUpdateRect());
    digest.add(item.asked);
    std::printf("%s %d %s %016llx\n", file, page, item.tool ? item.tool->name : "picture", digest.value());
}

bool printLesson(const QString &fileName)
{
    QString problem;
    const auto lesson = InkLesson::openLesson(fileName, problem);
    if (!isFine(problem))
        return false;
    const QByteArray name = QFileInfo(fileName).fileName().toUtf8();
    for (int page = 0; page < lesson->pageCount(); ++page) {
        for (const auto &item : lesson->page(lesson->pageId(page)).items())
            print(name.constData(), page, *item);
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    bool good = argc > 1;
    if (argc == 4 && std::strcmp(argv[1], "--make") == 0) {
        for (int seed = 1; seed <= std::atoi(argv[2]); ++seed)
            good = good && makeLesson(unsigned(seed), QDir(QString::fromLocal8Bit(argv[3])));
    } else {
        for (int i = 1; i < argc; ++i)
            good = good && printLesson(QString::fromLocal8Bit(argv[i]));
    }
    return good ? EXIT_SUCCESS : EXIT_FAILURE;
}
