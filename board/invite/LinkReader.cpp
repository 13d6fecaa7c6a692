#include "board/invite/LinkReader.h"

#include "board/invite/SpokenLink.h"

#include <QtCore/QRegularExpression>

namespace Board {

LinkReader::LinkReader(const QString &text)
{
    static const QRegularExpression kAround(QStringLiteral("^[\\s<\"'“”„«»]+|[\\s>\"'“”„«»]+$"));
    constexpr int kMostLetters = 2000;
    const QString bare = text.left(kMostLetters).remove(kAround);
    if (bare.contains(QLatin1Char('#')))
        readLink(bare);
    else if (!bare.isEmpty())
        readSpoken(bare);
}

void LinkReader::readLink(QString text)
{
    static const QRegularExpression kBlanks(QStringLiteral("\\s+"));
    text.remove(kBlanks);
    if (!text.contains(QLatin1String("://")))
        text.prepend(QLatin1String("http://"));
    m_link = LessonLink::fromText(text);
    if (!m_link)
        m_hint = tr("This link leads to no lesson. Copy it once more, from the beginning to the end.");
}

void LinkReader::readSpoken(const QString &text)
{
    static const QRegularExpression kFirstBlank(QStringLiteral("\\s"));
    const int end = text.indexOf(kFirstBlank);
    const QString address = text.left(end);
    const bool isAddress = address.contains(QLatin1Char('.')) || address.contains(QLatin1Char(':'));
    const auto letters = spokenLetters(end < 0 ? QString() : text.mid(end));
    const int missing = letters ? SpokenLink::kLetters - letters->size() : 0;
    if (!isAddress)
        m_hint = tr("A link is missing, or the address before the code, such as 192.168.1.5:4640.");
    else if (!letters)
        m_hint = tr("The code has a sign that no code has: there are letters and digits only, and no U.");
    else if (letters->isEmpty())
        m_hint = tr("This is the address. After it comes the code, seven groups of four.");
    else if (missing > 0)
        m_hint = tr("The code goes on: %1 of its %2 signs are here.").arg(letters->size()).arg(SpokenLink::kLetters);
    else if (missing < 0)
        m_hint = tr("The code has %1 signs, and here are %2.").arg(SpokenLink::kLetters).arg(letters->size());
    else if (!(m_link = linkOf(address, *letters)))
        m_hint = tr("Something is mistyped. Compare the address first, then each group of the code.");
}

} // namespace Board
