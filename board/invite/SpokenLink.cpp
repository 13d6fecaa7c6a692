#include "board/invite/SpokenLink.h"

#include <QtCore/QCryptographicHash>

namespace Board {

namespace {

constexpr char kAlphabet[] = "0123456789ABCDEFGHJKMNPQRSTVWXYZ";
constexpr int kBits = 5; // of a letter
constexpr int kGroup = 4;
constexpr int kNameBytes = 16;
constexpr int kStandardPort = 4640;
constexpr auto kBase64 = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

QString addressText(const QUrl &door)
{
    if (door.scheme() == QLatin1String("https"))
        return QStringLiteral("https://") + door.authority();
    QUrl url = door;
    url.setPort(door.port(80));
    return url.authority();
}

// Sixteen bits, of which the last four are none of the sum.
QByteArray sum(const QString &address, const QByteArray &name)
{
    QByteArray bytes = QCryptographicHash::hash(address.toUtf8() + '\n' + name, QCryptographicHash::Sha256).left(2);
    bytes[1] = char(bytes[1] & 0xF0);
    return bytes;
}

// The first bits are the high ones of the first byte.
QString lettersOf(const QByteArray &bytes)
{
    QString letters;
    unsigned bits = 0;
    int count = 0;
    for (const char byte : bytes) {
        bits = (bits << 8U) | static_cast<unsigned char>(byte);
        for (count += 8; count >= kBits; count -= kBits)
            letters += QLatin1Char(kAlphabet[(bits >> unsigned(count - kBits)) & 31U]);
    }
    return letters;
}

QByteArray bytesOf(const QString &letters)
{
    const QLatin1String alphabet(kAlphabet);
    QByteArray bytes;
    unsigned bits = 0;
    int count = 0;
    for (const QChar letter : letters) {
        bits = (bits << unsigned(kBits)) | unsigned(alphabet.indexOf(letter));
        count += kBits;
        if (count >= 8) {
            count -= 8;
            bytes += char((bits >> unsigned(count)) & 0xFFU);
        }
    }
    bytes += char((bits << unsigned(8 - count)) & 0xFFU);
    return bytes;
}

} // namespace

std::optional<SpokenLink> SpokenLink::of(const LessonLink &link)
{
    const QByteArray name = QByteArray::fromBase64(link.lesson.toLatin1(), kBase64);
    if (name.size() != kNameBytes || QLatin1String(name.toBase64(kBase64)) != link.lesson)
        return std::nullopt;
    SpokenLink spoken{addressText(link.door), {}};
    const QString letters = lettersOf(name + sum(spoken.address, name));
    for (int i = 0; i < kLetters; i += kGroup)
        spoken.groups.append(letters.mid(i, kGroup));
    return spoken;
}

std::optional<QString> spokenLetters(const QString &text)
{
    QString letters;
    for (const QChar sign : text) {
        if (sign.isSpace() || sign == QLatin1Char('-') || sign == QChar(0x2013))
            continue;
        QChar letter = sign.toUpper();
        if (letter == QLatin1Char('O'))
            letter = QLatin1Char('0');
        if (letter == QLatin1Char('I') || letter == QLatin1Char('L'))
            letter = QLatin1Char('1');
        if (!QLatin1String(kAlphabet).contains(letter))
            return std::nullopt;
        letters += letter;
    }
    return letters;
}

std::optional<LessonLink> linkOf(const QString &address, const QString &letters)
{
    const bool hasScheme = address.contains(QLatin1String("://"));
    QUrl door(hasScheme ? address : QStringLiteral("http://") + address, QUrl::StrictMode);
    if (!hasScheme && door.port() < 0)
        door.setPort(kStandardPort);
    const QByteArray bytes = bytesOf(letters);
    const QByteArray name = bytes.left(kNameBytes);
    door.setFragment(QLatin1String(name.toBase64(kBase64)));
    const auto link = LessonLink::fromText(door.toString());
    if (letters.size() != SpokenLink::kLetters || !link || bytes.mid(kNameBytes) != sum(addressText(link->door), name))
        return std::nullopt;
    return link;
}

} // namespace Board
