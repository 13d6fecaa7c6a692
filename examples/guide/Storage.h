#pragma once

#include <CInkGraph>

class QDataStream;

namespace Guide {

// Writes the fields that an object needs to be painted and edited again. Which class it is of is the host's to write.
void save(QDataStream &out, const CInkGraph &object);

// Reads them into an object of the same class, fresh from its constructor.
void load(QDataStream &in, CInkGraph &object);

} // namespace Guide
