#pragma once

#include "lesson/log/StepId.h"

#include <QtCore/QByteArray>
#include <QtCore/QCborArray>
#include <QtCore/QCborMap>
#include <QtCore/QCoreApplication>
#include <QtCore/QSize>
#include <QtCore/QString>

#include <vector>

namespace InkSharing {

// The values of a map that came from outside, each under a small number, read into what they must be. The first that is
// not gives the error; what is read after it is of no meaning.
class Fields
{
    Q_DECLARE_TR_FUNCTIONS(InkSharing::Fields)

public:
    // A map of at most so many values, none of them deep. Room for what the bytes claim to hold is not made.
    explicit Fields(const QByteArray &bytes, int mostParts = 1 << 12);

    bool isRight() const { return m_error.isEmpty(); }
    const QString &error() const { return m_error; } // "token: not what it must be"

    bool has(int key) const { return m_map.contains(key); }
    qint64 number(int key, const char *name, qint64 least, qint64 most);
    double real(int key, const char *name);
    QByteArray bytes(int key, const char *name, int least, int most);
    QString text(int key, const char *name, int most);
    InkLesson::StepId id(int key, const char *name);     // kNothing where it is left out
    std::vector<int> authors(int key, const char *name); // at most 256
    QSize size(int key, const char *name);               // of a page
    QCborArray array(int key, const char *name, int most);

    // For what a reader finds out by itself.
    void fail(const char *name);

private:
    QCborMap m_map;
    QString m_error;
};

QCborArray pairOf(const InkLesson::StepId &id);

// Two numbers in an array that name a record. False where they do not.
bool readId(const QCborValue &value, InkLesson::StepId &id);

} // namespace InkSharing
