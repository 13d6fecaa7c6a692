#include "DocumentProbe.h"
#include "board/document/PagePictures.h"

#include <QtCore/QTemporaryDir>

#include <algorithm>

using namespace Board;

namespace {

constexpr int kMany = int(PagePictures::kFewestObjects);

// So many lines, one below the other, all of them red.
void drawLines(Document &document, int count, int first = 0)
{
    for (int i = first; i < first + count; ++i)
        draw(document, "line", {10 + i / 280 * 100, 10 + i % 280}, {80 + i / 280 * 100, 10 + i % 280});
}

int preparedOf(const Document &document)
{
    const auto &items = document.page().items();
    return int(std::count_if(items.begin(), items.end(), [](const auto &item) { return item->sprite != nullptr; }));
}

} // namespace

class tst_PagePictures : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void showWhatWasSaved();
    void areKeptOfManyObjectsAlone_data();
    void areKeptOfManyObjectsAlone();
    void tellLessonsApart();
    void comeWithTheFirstOpening();
    void areNotKeptOfWhatWasChanged();
    void areNotKeptOfASharedLesson();
    void thatAreBrokenAreMadeAnew_data();
    void thatAreBrokenAreMadeAnew();
    void leaveWhenThereIsNoRoom();

private:
    QStringList pictures() const { return QDir(m_folder->filePath("pages")).entryList(QDir::Files); }
    QString lesson() const { return m_folder->filePath("lesson.inkboard"); }
    void keepPictures(Document &document) { document.keepPictures(m_folder->filePath("pages")); }
    void saveLines(Document &document, int count);

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_PagePictures::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

// Somebody looks at the page.
void tst_PagePictures::saveLines(Document &document, int count)
{
    drawLines(document, count);
    document.page().surface();
    QCOMPARE(document.save(lesson()), QString());
}

void tst_PagePictures::showWhatWasSaved()
{
    Document saved(kSize);
    keepPictures(saved);
    saveLines(saved, kMany);
    QTRY_COMPARE(pictures().size(), 1);
    QCOMPARE(QFile::permissions(m_folder->filePath("pages/") + pictures().front()) &
                 (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
             QFile::Permissions());

    Document opened(kSize);
    keepPictures(opened);
    QCOMPARE(opened.open(lesson()), QString());
    QCOMPARE(preparedOf(opened), 0);
    compareDocuments(opened, saved);
    QVERIFY(isRed(opened.page(), {40, 10}));
    QCOMPARE(preparedOf(opened), 0);
    QTRY_COMPARE(preparedOf(opened), kMany);
    compareDocuments(opened, saved);

    Document painted(kSize); // without pictures
    QCOMPARE(painted.open(lesson()), QString());
    QCOMPARE(preparedOf(painted), kMany);
    compareDocuments(painted, saved);
}

void tst_PagePictures::areKeptOfManyObjectsAlone_data()
{
    QTest::addColumn<int>("objects");
    QTest::addColumn<int>("kept");
    QTest::newRow("below") << 299 << 0;
    QTest::newRow("from") << 300 << 1;
}

void tst_PagePictures::areKeptOfManyObjectsAlone()
{
    QFETCH(int, objects);
    QFETCH(int, kept);
    {
        Document document(kSize);
        keepPictures(document);
        saveLines(document, objects);
    } // waits for what is written
    QCOMPARE(pictures().size(), kept);
}

// The same objects with one step more, which is undone, are another log.
void tst_PagePictures::tellLessonsApart()
{
    Document saved(kSize);
    keepPictures(saved);
    saveLines(saved, kMany);
    QTRY_COMPARE(pictures().size(), 1);
    drawLines(saved, 1, kMany);
    QCOMPARE(saved.save(lesson()), QString());
    QTRY_COMPARE(pictures().size(), 2);
    saved.undo();
    QCOMPARE(saved.save(lesson()), QString());
    QTRY_COMPARE(pictures().size(), 3);
    Document opened(kSize);
    keepPictures(opened);
    QCOMPARE(opened.open(lesson()), QString());
    QCOMPARE(preparedOf(opened), 0);
    compareDocuments(opened, saved);
    QVERIFY(!isRed(opened.page(), {140, 31})); // the line along 30 is 4 wide
    QVERIFY(isRed(opened.page(), {140, 30}));  // as that along 29
}

void tst_PagePictures::comeWithTheFirstOpening()
{
    Document saved(kSize); // elsewhere
    saveLines(saved, kMany);
    Document opened(kSize);
    keepPictures(opened);
    QCOMPARE(opened.open(lesson()), QString());
    QCOMPARE(preparedOf(opened), kMany);
    opened.page().surface();
    QTRY_COMPARE(pictures().size(), 1);
    QCOMPARE(opened.open(lesson()), QString());
    QCOMPARE(preparedOf(opened), 0);
    compareDocuments(opened, saved);
}

void tst_PagePictures::areNotKeptOfWhatWasChanged()
{
    Document saved(kSize);
    saveLines(saved, kMany);
    {
        Document opened(kSize);
        keepPictures(opened);
        QCOMPARE(opened.open(lesson()), QString());
        opened.page().surface();
        drawLines(opened, 1, kMany);
        QTest::qWait(1500);
    }
    QCOMPARE(pictures().size(), 0);
}

void tst_PagePictures::areNotKeptOfASharedLesson()
{
    {
        Document document(kSize);
        keepPictures(document);
        InkLesson::Sharing sharing;
        sharing.address = QStringLiteral("http://127.0.0.1:1/");
        sharing.token = "token";
        sharing.authors = {1};
        document.share(sharing);
        saveLines(document, kMany);
    }
    QCOMPARE(pictures().size(), 0);
}

void tst_PagePictures::thatAreBrokenAreMadeAnew_data()
{
    QTest::addColumn<int>("bytes");
    QTest::newRow("empty") << 0;
    QTest::newRow("cut off") << 1000;
}

void tst_PagePictures::thatAreBrokenAreMadeAnew()
{
    QFETCH(int, bytes);
    Document saved(kSize);
    keepPictures(saved);
    saveLines(saved, kMany);
    QTRY_COMPARE(pictures().size(), 1);
    const QString name = m_folder->filePath("pages/") + pictures().front();
    write(name, contents(name).left(bytes));
    Document opened(kSize);
    keepPictures(opened);
    QCOMPARE(opened.open(lesson()), QString());
    QCOMPARE(preparedOf(opened), kMany);
    QCOMPARE(pictures().size(), 0);
    compareDocuments(opened, saved);
    QTRY_COMPARE(pictures().size(), 1);
    QCOMPARE(opened.open(lesson()), QString());
    QCOMPARE(preparedOf(opened), 0);
}

// What was of use longest ago goes first.
void tst_PagePictures::leaveWhenThereIsNoRoom()
{
    Document document(kSize);
    drawLines(document, kMany);
    document.page().surface();
    const QString folder = m_folder->filePath("pages");
    const InkLesson::PageId page = document.author().page();
    PagePictures(folder).keep(document.lesson(), page);
    QCOMPARE(pictures().size(), 1);
    const QString first = pictures().front();
    const qint64 size = QFileInfo(folder + '/' + first).size();
    QFile old(folder + '/' + first);
    QVERIFY(old.open(QIODevice::ReadWrite));
    QVERIFY(old.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
    old.close();
    drawLines(document, 1, kMany);
    PagePictures(folder, 3 * size).keep(document.lesson(), page);
    QCOMPARE(pictures().size(), 2);
    drawLines(document, 1, kMany + 1);
    PagePictures(folder, 3 * size).keep(document.lesson(), page); // each is a little larger than the first
    QCOMPARE(pictures().size(), 2);
    QVERIFY(!pictures().contains(first));
}

QTEST_MAIN(tst_PagePictures)
#include "tst_PagePictures.moc"
