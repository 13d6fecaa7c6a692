#pragma once

// What goes through Qt's message logger while a MessageLog lives. Nothing of it reaches the terminal.

#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtCore/QtGlobal>

#include <algorithm>

class MessageLog
{
public:
    struct Line
    {
        QtMsgType type;
        QString category;
        QString text;
    };

    MessageLog()
        : m_outer(s_current)
        , m_previous(qInstallMessageHandler(&MessageLog::take))
    {
        s_current = this;
    }
    ~MessageLog()
    {
        s_current = m_outer;
        qInstallMessageHandler(m_previous);
    }

    // Lines at debug level, whatever their category.
    int debugLines() const
    {
        return int(std::count_if(lines.begin(), lines.end(), [](const Line &line) { return line.type == QtDebugMsg; }));
    }

    QVector<Line> lines;

private:
    Q_DISABLE_COPY(MessageLog)

    static void take(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        s_current->lines.append({type, QString::fromLatin1(context.category), text});
    }

    static inline MessageLog *s_current = nullptr;
    MessageLog *m_outer;
    QtMessageHandler m_previous;
};
