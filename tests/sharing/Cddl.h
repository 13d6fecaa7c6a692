#pragma once

// As much of CDDL as docs/protocol.cddl uses: maps with numbers as keys, arrays of a fixed length or of any, choices of
// names, ranges, and bytes with a size or with another rule in them. What it does not know fails loudly.

#include <QtCore/QByteArray>
#include <QtCore/QCborArray>
#include <QtCore/QCborMap>
#include <QtCore/QCborValue>
#include <QtCore/QMap>
#include <QtCore/QRegularExpression>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <map>

class Cddl
{
public:
    explicit Cddl(QString text)
    {
        text.remove(QRegularExpression(QStringLiteral(";[^\n]*")));
        // A rule goes on until the next line that begins with a name and an equals sign.
        const QRegularExpression begin(QStringLiteral("^([a-z][a-z-]*) = "), QRegularExpression::MultilineOption);
        QString name;
        int from = 0;
        for (auto found = begin.globalMatch(text); found.hasNext();) {
            const QRegularExpressionMatch match = found.next();
            keep(name, text.mid(from, match.capturedStart() - from));
            name = match.captured(1);
            from = match.capturedEnd();
        }
        keep(name, text.mid(from));
    }

    const QMap<QString, QString> &rules() const { return m_rules; }

    // Empty, or where the value is not what the rule says.
    QString problem(const QString &rule, const QCborValue &value) const
    {
        return check(m_rules.value(rule, rule), value, rule);
    }
    QString problem(const QString &rule, const QByteArray &bytes) const
    {
        return problem(rule, QCborValue::fromCbor(bytes));
    }

private:
    void keep(const QString &name, const QString &body)
    {
        if (!name.isEmpty())
            m_rules[name] = body.simplified();
    }

    // Of the commas or the slashes that are in no brackets. Each text is taken apart once.
    const QStringList &parts(const QString &text, QChar separator) const
    {
        QStringList &parts = m_parts[{text, separator}];
        if (!parts.isEmpty())
            return parts;
        parts.append(QString());
        int depth = 0;
        for (const QChar c : text) {
            depth += c == '{' || c == '[' || c == '(' ? 1 : c == '}' || c == ']' || c == ')' ? -1 : 0;
            if (c == separator && depth == 0)
                parts.append(QString());
            else
                parts.last() += c;
        }
        for (QString &part : parts)
            part = part.trimmed();
        parts.removeAll(QString());
        return parts;
    }

    QString check(const QString &type, const QCborValue &value, const QString &place) const
    {
        const QStringList &choices = parts(type, '/');
        if (choices.size() > 1) {
            QStringList problems;
            for (const QString &choice : choices) {
                problems.append(check(choice, value, place));
                if (problems.last().isEmpty())
                    return {};
            }
            return problems.join(QStringLiteral("; "));
        }
        if (type.startsWith('{'))
            return checkMap(parts(type.mid(1, type.size() - 2), ','), value, place);
        if (type.startsWith('['))
            return checkArray(parts(type.mid(1, type.size() - 2), ','), value, place);
        return checkPlain(type, value, place);
    }

    QString checkMap(const QStringList &members, const QCborValue &value, const QString &place) const
    {
        static const QRegularExpression form(QStringLiteral("^(\\? )?(\\d+) => (.+)$"));
        QCborMap rest = value.toMap();
        if (!value.isMap())
            return place + QStringLiteral(": no map");
        for (const QString &member : members) {
            const QRegularExpressionMatch match = form.match(member);
            const qint64 key = match.captured(2).toInt();
            const QString where = place + '.' + match.captured(2);
            if (!match.hasMatch())
                return QStringLiteral("cannot be understood: ") + member;
            if (!rest.contains(key)) {
                if (match.captured(1).isEmpty())
                    return where + QStringLiteral(": missing");
                continue;
            }
            const QString problem = check(match.captured(3), rest.take(key), where);
            if (!problem.isEmpty())
                return problem;
        }
        return rest.isEmpty() ? QString() : place + QStringLiteral(": has more than it may");
    }

    QString checkArray(const QStringList &members, const QCborValue &value, const QString &place) const
    {
        const QCborArray array = value.toArray();
        const bool isAny = members.first().startsWith('*');
        if (!value.isArray() || (!isAny && array.size() != members.size()))
            return place + QStringLiteral(": no such array");
        for (int i = 0; i < array.size(); ++i) {
            const QString problem = check(isAny ? members.first().mid(2) : members[i], array.at(i), place + "[]");
            if (!problem.isEmpty())
                return problem;
        }
        return {};
    }

    QString checkPlain(const QString &type, const QCborValue &value, const QString &place) const
    {
        static const QRegularExpression range(QStringLiteral("^(\\d+)(?:\\.\\.(\\d+))?$"));
        static const QRegularExpression sized(QStringLiteral("^(text|bytes) \\.size \\((\\d+)\\.\\.(\\d+)\\)$"));
        static const QRegularExpression inner(QStringLiteral("^bytes \\.cbor (.+)$"));
        bool isRight = false;
        if (const auto match = range.match(type); match.hasMatch()) {
            const QString most = match.captured(2).isEmpty() ? match.captured(1) : match.captured(2);
            isRight = value.isInteger() && value.toInteger() >= match.captured(1).toLongLong() &&
                      value.toInteger() <= most.toLongLong();
        } else if (const auto size = sized.match(type); size.hasMatch()) {
            const bool isText = size.captured(1) == QLatin1String("text");
            const int length = isText ? value.toString().toUtf8().size() : value.toByteArray().size();
            isRight = (isText ? value.isString() : value.isByteArray()) && length >= size.captured(2).toInt() &&
                      length <= size.captured(3).toInt();
        } else if (const auto embedded = inner.match(type); embedded.hasMatch()) {
            return value.isByteArray() ? check(embedded.captured(1), QCborValue::fromCbor(value.toByteArray()), place)
                                       : place + QStringLiteral(": no bytes");
        } else if (type == QLatin1String("uint")) {
            isRight = value.isInteger() && value.toInteger() >= 0;
        } else if (type == QLatin1String("int")) {
            isRight = value.isInteger();
        } else if (type == QLatin1String("float")) {
            isRight = value.isDouble();
        } else if (m_rules.contains(type)) {
            return check(m_rules.value(type), value, place);
        } else {
            return QStringLiteral("cannot be understood: ") + type;
        }
        return isRight ? QString() : QStringLiteral("%1: not %2").arg(place, type);
    }

    QMap<QString, QString> m_rules;
    mutable std::map<std::pair<QString, QChar>, QStringList> m_parts;
};
