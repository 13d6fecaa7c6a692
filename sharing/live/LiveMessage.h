#pragma once

#include "lesson/log/Record.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtGui/QColor>

#include <optional>
#include <variant>

namespace InkSharing {

// What boards tell each other beside the stream. Nothing of it is stored; docs/protocol.md has the tables.

constexpr int kMostName = 64; // letters

// Who somebody is, and where. Told at every change, and again and again while somebody is there.
struct Presence
{
    QString name{};
    QColor color{};
    InkLesson::PageId page{InkLesson::kFirstPage}; // that is looked at
    std::optional<QPoint> pointer{};               // page pixels
    bool hasRaised{};                              // a hand
    int taken{};                                   // the object in hand: Author::taken(), 0 for none
    quint64 acts{};                                // that have been done to it since it was taken
};

// Acts of the object in hand. Those from the first on come with what they are done to: a Draw, or a Change of a
// committed object; later ones in a Change.
struct LiveActs
{
    int taken{};
    quint64 from{}; // so many acts were done before
    InkLesson::Record record;
    InkLesson::ObjectId held{}; // that the object has become since
    qint64 time{};              // of the first of these acts, by the author's clock; 0 where it is not told
};

// The object is not in hand any more; what has become of it stands in a record of this number or before.
struct LiveDrop
{
    int taken{};
    int number{};
};

// An author is asked for all acts of the object in hand.
struct LiveAsk
{
    int author{};
};
using LiveMessage = std::variant<Presence, LiveActs, LiveDrop, LiveAsk>;

QByteArray encoded(const LiveMessage &message);

// False where it is none; `problem` says why.
bool readLive(const QByteArray &bytes, LiveMessage &message, QString &problem);

// The acts of such a record.
const std::vector<InkLesson::Act> &actsOf(const InkLesson::Record &record);

} // namespace InkSharing
