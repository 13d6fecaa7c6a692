#include "board/invite/Addresses.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace Board {

namespace {

using Flag = QNetworkInterface::InterfaceFlag;

enum class Kind { Lan, Wide, Six, VirtualLan, VirtualWide, VirtualSix, OwnMaking, Loopback };

// What programs for containers, guests and private networks call theirs. A bridge "br0" is often a machine's own.
constexpr const char *kVirtualNames[] = {"docker", "br-",  "virbr", "veth",    "vmnet", "vboxnet", "lxc", "lxdbr",
                                         "podman", "cni",  "tun",   "tap",     "wg",    "zt",      "ppp", "tailscale",
                                         "utun",   "vnet", "kube",  "flannel", "cali",  "incusbr", "ham"};

bool isVirtual(const MachineAddress &found)
{
    return found.flags.testFlag(Flag::IsPointToPoint) ||
           std::any_of(std::begin(kVirtualNames), std::end(kVirtualNames),
                       [&](const char *name) { return found.interface.startsWith(QLatin1String(name)); });
}

bool isOfLan(const QHostAddress &address)
{
    constexpr const char *kLans[] = {"192.168.0.0/16", "10.0.0.0/8", "172.16.0.0/12"};
    return std::any_of(std::begin(kLans), std::end(kLans), [&](const char *lan) {
        return address.isInSubnet(QHostAddress::parseSubnet(QString::fromLatin1(lan)));
    });
}

std::optional<Kind> kindOf(const MachineAddress &found)
{
    const bool isFour = found.address.protocol() == QAbstractSocket::IPv4Protocol;
    if (!found.flags.testFlag(Flag::IsRunning) || found.address.isNull() || found.address.isMulticast())
        return std::nullopt;
    if (found.address.isLoopback() || found.flags.testFlag(Flag::IsLoopBack))
        return isFour ? std::optional(Kind::Loopback) : std::nullopt;
    if (found.address.isLinkLocal())
        return isFour ? std::optional(Kind::OwnMaking) : std::nullopt;
    const bool isUnlikely = isVirtual(found);
    if (!isFour)
        return isUnlikely ? Kind::VirtualSix : Kind::Six;
    if (isOfLan(found.address))
        return isUnlikely ? Kind::VirtualLan : Kind::Lan;
    return isUnlikely ? Kind::VirtualWide : Kind::Wide;
}

// Something better makes it needless.
bool isLastResort(Kind kind)
{
    return kind == Kind::OwnMaking || kind == Kind::Loopback;
}

} // namespace

QList<QHostAddress> likeliestFirst(const QList<MachineAddress> &found)
{
    std::vector<std::pair<Kind, QHostAddress>> known;
    for (const MachineAddress &entry : found) {
        const auto kind = kindOf(entry);
        const auto isSame = [&](const auto &other) { return other.second == entry.address; };
        if (kind && std::none_of(known.begin(), known.end(), isSame))
            known.emplace_back(*kind, entry.address);
    }
    std::stable_sort(known.begin(), known.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    QList<QHostAddress> sorted;
    for (const auto &[kind, address] : known) {
        if (isLastResort(kind) && kind != known.front().first)
            break;
        sorted.append(address);
    }
    return sorted;
}

// An address of IPv6 gets brackets around it.
QUrl doorUrl(const QHostAddress &address, int port)
{
    QUrl url;
    url.setScheme(QStringLiteral("http"));
    url.setHost(address.toString());
    url.setPort(port);
    url.setPath(QStringLiteral("/"));
    return url;
}

QList<QUrl> doorAddresses(int port)
{
    QList<MachineAddress> found;
    for (const QNetworkInterface &network : QNetworkInterface::allInterfaces()) {
        for (const QNetworkAddressEntry &entry : network.addressEntries())
            found.append({network.name(), network.flags(), entry.ip()});
    }
    QList<QHostAddress> sorted = likeliestFirst(found);
    if (sorted.isEmpty())
        sorted.append(QHostAddress(QHostAddress::LocalHost));
    QList<QUrl> urls;
    for (const QHostAddress &address : qAsConst(sorted))
        urls.append(doorUrl(address, port));
    return urls;
}

} // namespace Board
