#pragma once

#include "board/sharing/LessonLink.h"

#include <QtCore/QCoreApplication>

#include <optional>

namespace Board {

// Reads what somebody has typed or pasted: a link, with blanks or line breaks wherever a letter or a hand has put them,
// or the address and the code of a spoken one.
class LinkReader
{
    Q_DECLARE_TR_FUNCTIONS(Board::LinkReader)

public:
    explicit LinkReader(const QString &text);

    const std::optional<LessonLink> &link() const { return m_link; }

    // What is still missing or wrong, in words; empty for a link, and where nothing was typed.
    QString hint() const { return m_hint; }

private:
    void readLink(QString text);
    void readSpoken(const QString &text);

    std::optional<LessonLink> m_link;
    QString m_hint;
};

} // namespace Board
