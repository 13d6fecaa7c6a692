#pragma once

#include <QtCore/QByteArray>

namespace InkDoor {

// Lines of the text format of Prometheus.
inline QByteArray metricHead(const QByteArray &name, const QByteArray &help, const QByteArray &type)
{
    return "# HELP " + name + ' ' + help + "\n# TYPE " + name + ' ' + type + '\n';
}

inline QByteArray counterText(const QByteArray &name, const QByteArray &help, quint64 value)
{
    return metricHead(name, help, "counter") + name + ' ' + QByteArray::number(value) + '\n';
}

inline QByteArray gaugeText(const QByteArray &name, const QByteArray &help, qint64 value)
{
    return metricHead(name, help, "gauge") + name + ' ' + QByteArray::number(value) + '\n';
}

} // namespace InkDoor
