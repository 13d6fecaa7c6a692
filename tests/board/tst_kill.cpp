#include "PageProbe.h"
#include "Patience.h"
#include "board/document/Document.h"

#include <QtCore/QProcess>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>
#include <QtTest/QtTest>

using namespace Board;

class tst_kill : public QObject
{
    Q_OBJECT

private slots:
    void losesNoCommittedObject();
};

// Two hundred times, at a random moment.
void tst_kill::losesNoCommittedObject()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    int cutLines = 0;
    for (int i = 0; i < 200; ++i) {
        const QTemporaryDir folder;
        QProcess writer;
        writer.start(QStringLiteral(JOURNAL_WRITER), {folder.path()});
        QVERIFY(writer.waitForReadyRead(kPatience)); // it draws
        QThread::usleep(random.bounded(20000));
        writer.kill();
        QVERIFY(writer.waitForFinished(kPatience));
        const QByteArray printed = writer.readAllStandardOutput();
        const int done = int(printed.count('\n'));
        QVERIFY(done > 0);

        const QStringList journals = InkLesson::Journal::abandoned(folder.path());
        QCOMPARE(journals.size(), 1);
        Document document(kSize);
        const QString problem = document.recover(journals.constFirst());
        QVERIFY2(problem.isEmpty() || problem.endsWith(QStringLiteral("it was cut off here")), qPrintable(problem));
        cutLines += problem.isEmpty() ? 0 : 1;
        const int kept = document.stepsToUndo();
        QVERIFY2(kept == done || kept == done + 1, qPrintable(QStringLiteral("%1 of %2").arg(kept).arg(done)));
    }
    qInfo("%d times within a line", cutLines);
}

QTEST_GUILESS_MAIN(tst_kill)
#include "tst_kill.moc"
