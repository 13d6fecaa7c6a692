#include "board/sharing/LessonLink.h"

#include <QtCore/QRandomGenerator>
#include <QtCore/QRegularExpression>

#include <array>

namespace Board {

QString LessonLink::text() const
{
    QUrl url = door;
    url.setFragment(lesson);
    return url.toString();
}

QUrl LessonLink::socket() const
{
    QUrl url = door;
    url.setScheme(door.scheme() == QLatin1String("https") ? QStringLiteral("wss") : QStringLiteral("ws"));
    url.setPath(QStringLiteral("/socket"));
    return url;
}

std::optional<LessonLink> LessonLink::fromText(const QString &text)
{
    static const QRegularExpression kName(QStringLiteral("^[A-Za-z0-9_-]{1,64}$"));
    constexpr int kMostLetters = 1000;
    if (text.size() > kMostLetters)
        return std::nullopt;
    const QUrl url(text.trimmed(), QUrl::StrictMode);
    const bool isWeb = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    if (!url.isValid() || !isWeb || url.host().isEmpty() || !kName.match(url.fragment()).hasMatch())
        return std::nullopt;
    const QUrl door = url.adjusted(QUrl::RemoveFragment | QUrl::RemoveQuery | QUrl::RemoveUserInfo | QUrl::RemovePath);
    return LessonLink{door.resolved(QUrl(QStringLiteral("/"))), url.fragment()};
}

LessonLink LessonLink::fresh(const QUrl &door)
{
    std::array<quint32, 4> bits;
    QRandomGenerator::system()->fillRange(bits.data(), qsizetype(bits.size()));
    const QByteArray bytes(reinterpret_cast<const char *>(bits.data()), int(sizeof bits));
    return {door, QString::fromLatin1(bytes.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals))};
}

} // namespace Board
