#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtNetwork/QHostAddress>
#include <QtNetwork/QNetworkInterface>

namespace Board {

// An address of this machine, and the interface that has it.
struct MachineAddress
{
    QString interface;
    QNetworkInterface::InterfaceFlags flags;
    QHostAddress address;
};

// Those by which other machines may reach this one, the likeliest first: IPv4 of a local network, other IPv4, IPv6,
// then the same of bridges and tunnels that programs make. Where there is none, IPv4 that machines give themselves
// without a network, and at last the address that leads back here. Those of IPv6 that hold on one cable only are left
// out: another machine would have to know a name for that cable.
QList<QHostAddress> likeliestFirst(const QList<MachineAddress> &found);

QUrl doorUrl(const QHostAddress &address, int port);

// Addresses of a door on this machine, the likeliest first; never empty.
QList<QUrl> doorAddresses(int port);

} // namespace Board
