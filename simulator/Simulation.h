#pragma once

#include "Board.h"

#include <QtCore/QString>

namespace Simulator {

// What has come of one seed.
struct Outcome
{
    QString problem; // empty where everything is as it must be
    std::vector<quint64> sights;
    QByteArray digest; // of the stream and of all that the boards have; the same for the same seed
    quint64 entries{};
    qint64 milliseconds{}; // of virtual time
};

// A teacher, pupils, doors and an engine on one clock, and all that may happen to them. `tap` sees every message.
Outcome simulate(unsigned seed, const QString &folder, const Tap &tap = {});

} // namespace Simulator
