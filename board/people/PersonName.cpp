#include "board/people/PersonName.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTextBoundaryFinder>
#include <QtCore/QVector>

#include <algorithm>
#include <iterator>

namespace Board {

namespace {

constexpr int kMostSigns = 31; // as many as a person may give here
constexpr int kMostMarks = 2;  // on one letter

// Letters that show nothing.
bool isFiller(uint point)
{
    constexpr uint kFillers[] = {0x115F, 0x1160, 0x3164, 0xFFA0, 0x2800, 0xFFFD};
    return std::find(std::begin(kFillers), std::end(kFillers), point) != std::end(kFillers);
}

enum class Sign { Seen, Mark, Blank, Left };

// Joiners are kept: some scripts are not spelled right without them, and they change nothing but their neighbours.
Sign signOf(uint point)
{
    constexpr uint kNonJoiner = 0x200C;
    constexpr uint kJoiner = 0x200D;
    if (point == kNonJoiner || point == kJoiner)
        return Sign::Mark;
    switch (QChar::category(point)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
        return Sign::Mark;
    case QChar::Separator_Space:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return Sign::Blank;
    case QChar::Other_Control:
        return point == '\t' || point == '\n' || point == '\r' ? Sign::Blank : Sign::Left;
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
        return Sign::Left;
    default:
        return isFiller(point) ? Sign::Left : Sign::Seen;
    }
}

// Empty for none.
QString knownName(const QString &name)
{
    constexpr int kMostRead = 200; // of what came
    QVector<uint> points;
    int marks = kMostMarks; // none without a letter
    bool hasGap = false;
    for (const uint point : name.left(kMostRead).toUcs4()) {
        const Sign sign = signOf(point);
        if (sign == Sign::Blank)
            hasGap = true;
        if (sign != Sign::Seen && (sign != Sign::Mark || hasGap || marks == kMostMarks))
            continue;
        if (points.size() + (hasGap ? 2 : 1) > kMostSigns)
            break;
        marks = sign == Sign::Mark ? marks + 1 : 0;
        if (hasGap && !points.isEmpty())
            points.append(' ');
        hasGap = false;
        points.append(point);
    }
    return QString::fromUcs4(points.constData(), points.size());
}

} // namespace

QString shownName(const QString &name)
{
    const QString known = knownName(name);
    return known.isEmpty() ? QCoreApplication::translate("Board::PersonName", "Somebody") : known;
}

bool hasName(const QString &name)
{
    return !knownName(name).isEmpty();
}

QString isolatedName(const QString &name)
{
    constexpr ushort kIsolate = 0x2068;
    constexpr ushort kEnd = 0x2069;
    return QChar(kIsolate) + shownName(name) + QChar(kEnd);
}

QString initialOf(const QString &name)
{
    const QString known = knownName(name);
    if (known.isEmpty())
        return QStringLiteral("?");
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, known);
    return known.left(finder.toNextBoundary()).toUpper();
}

} // namespace Board
