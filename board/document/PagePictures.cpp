#include "board/document/PagePictures.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QSaveFile>
#include <QtCore/QSysInfo>
#include <QtGui/QFontDatabase>

#include <algorithm>
#include <array>
#include <utility>

#include <link.h>

namespace Board {

using namespace InkLesson;

namespace {

constexpr const char *kSuffix = ".page";
constexpr int kForm = 1; // of the files

void add(QCryptographicHash &hash, const QByteArray &part)
{
    hash.addData(QByteArray::number(part.size()) + ':' + part);
}

// The program, and those of the libraries in it that have a hand in the pixels.
bool paints(const QByteArray &path)
{
    const QByteArray library = path.mid(path.lastIndexOf('/') + 1);
    constexpr std::array<const char *, 8> kLibraries{"libm.so",   "libInk",   "libQt5Core",  "libQt5Gui",
                                                     "libQt5Svg", "libpng16", "libfreetype", "libharfbuzz"};
    return library.isEmpty() || std::any_of(kLibraries.begin(), kLibraries.end(),
                                            [&library](const char *name) { return library.contains(name); });
}

int addPainter(dl_phdr_info *library, std::size_t, void *hash)
{
    const QByteArray name = library->dlpi_name;
    if (paints(name)) {
        const QFileInfo file(name.isEmpty() ? QStringLiteral("/proc/self/exe") : QFile::decodeName(name));
        const QFileInfo itself(file.canonicalFilePath());
        add(*static_cast<QCryptographicHash *>(hash),
            name + ' ' + QByteArray::number(itself.size()) + ' ' +
                QByteArray::number(itself.lastModified().toMSecsSinceEpoch()));
    }
    return 0;
}

QByteArray painters()
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    dl_iterate_phdr(addPainter, &hash);
    add(hash, QSysInfo::machineUniqueId());
    add(hash, QFontDatabase().families().join(QLatin1Char('\n')).toUtf8());
    return hash.result();
}

void makeRoom(const QString &folder, qint64 most)
{
    const QDir dir(folder);
    for (const QFileInfo &file :
         dir.entryInfoList({QLatin1Char('*') + QLatin1String(kSuffix)}, QDir::Files, QDir::Time)) {
        most -= file.size();
        if (most < 0)
            QFile::remove(file.filePath());
    }
}

void write(const QString &fileName, const QByteArray &bytes)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    file.write(bytes);
    file.commit();
}

} // namespace

PagePictures::PagePictures(QString folder, qint64 most)
    : m_folder(std::move(folder))
    , m_most(most)
{
    m_writing.setMaxThreadCount(1);
}

PagePictures::~PagePictures()
{
    m_writing.waitForDone();
}

QString PagePictures::fileOf(const Lesson &lesson, const PageId &id) const
{
    const Page &page = lesson.page(id);
    if (page.items().size() < kFewestObjects)
        return {};
    static const QByteArray kPainters = painters();
    QCryptographicHash hash(QCryptographicHash::Sha256);
    add(hash, kPainters);
    for (const int number : {kForm, id.author, id.number, page.rect().width(), page.rect().height()})
        add(hash, QByteArray::number(number));
    add(hash, QByteArray::number(page.density(), 'g', 17));
    for (const QByteArray &record : lesson.log())
        add(hash, record);
    return m_folder + QLatin1Char('/') + QString::fromLatin1(hash.result().toHex()) + QLatin1String(kSuffix);
}

std::unique_ptr<PackedLayers> PagePictures::find(const Lesson &lesson, const PageId &page) const
{
    QFile file(fileOf(lesson, page));
    if (file.fileName().isEmpty() || file.size() > kMostBytes || !file.open(QIODevice::ReadWrite))
        return nullptr;
    file.setFileTime(QDateTime::currentDateTime(), QFileDevice::FileModificationTime); // the last to go
    auto picture = PackedLayers::fromBytes(file.read(kMostBytes), lesson.page(page).rect().size());
    if (!picture)
        file.remove(); // or it would stand in the way of a whole one
    return picture;
}

void PagePictures::keep(Lesson &lesson, const PageId &id)
{
    Page &page = lesson.page(id);
    const QString fileName = fileOf(lesson, id);
    if (fileName.isEmpty() || QFile::exists(fileName))
        return;
    const bool wasPacked = page.packed();
    page.pack();
    const QByteArray picture = page.packed() ? page.packed()->toBytes() : QByteArray();
    if (!picture.isEmpty() && picture.size() <= kMostBytes) {
        m_writing.start([folder = m_folder, fileName, bytes = picture, most = m_most] {
            QDir().mkpath(folder);
            write(fileName, bytes);
            makeRoom(folder, most);
        });
    }
    if (!wasPacked)
        page.dropPacked();
}

} // namespace Board
