#pragma once

// Boards without a window that share a lesson over a real door of their own.

#include "DocumentProbe.h"
#include "Patience.h"
#include "board/sharing/DocumentSharing.h"

#include "sharing/live/Others.h"

#include <QtCore/QTemporaryDir>

// Whose folders are gone with the last of them.
struct SharingProbe
{
    explicit SharingProbe(const QString &name, const QSize &size = kSize)
        : document(size)
        , sharing(document)
    {
        sharing.setFolder(folder.path());
        sharing.setPort(0);
        sharing.setPerson(name, Qt::darkGreen);
        QObject::connect(&sharing, &Board::DocumentSharing::failed, [this](const QString &words) { problem = words; });
    }

    void share()
    {
        sharing.share();
        QTRY_VERIFY_WITH_TIMEOUT(sharing.isConnected() || !problem.isEmpty(), kPatience);
        QCOMPARE(problem, QString());
    }
    void join(const SharingProbe &other) { join(other.sharing.link()); }
    void join(const Board::LessonLink &link)
    {
        sharing.join(link);
        QTRY_VERIFY_WITH_TIMEOUT(document.isShared() || !problem.isEmpty(), kPatience);
        QCOMPARE(problem, QString());
    }

    // Of somebody else, as it is told here; nobody's is "-".
    QString nameOf(int author) const
    {
        const auto &all = sharing.others()->all();
        const auto found = all.find(author);
        return found == all.end() ? QStringLiteral("-") : found->second.presence.name;
    }

    std::size_t objects() const { return document.page().items().size(); }
    const QImage &seen() const { return document.page().surface(); }

    QTemporaryDir folder;
    Board::Document document;
    Board::DocumentSharing sharing;
    QString problem;
};
