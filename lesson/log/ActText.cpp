#include "lesson/log/ActText.h"

#include "PointerEvent.h"

#include <algorithm>
#include <limits>

namespace InkLesson {

namespace {

struct Letter
{
    char letter;
    int code;
};
constexpr Letter kEvents[] = {{'d', PT_DOWN}, {'m', PT_MOVE}, {'u', PT_UP}, {'c', PT_DBLCLK}};

const Letter *letterOf(int code)
{
    const auto *found =
        std::find_if(std::begin(kEvents), std::end(kEvents), [&](const Letter &l) { return l.code == code; });
    return found == std::end(kEvents) ? nullptr : found;
}

// Reads numbers, each of which may begin with a space.
class Numbers
{
public:
    Numbers(const char *at, const char *end)
        : m_at(at)
        , m_end(end)
    {
    }

    const char *at() const { return m_at; }

    bool read(qint64 &number)
    {
        constexpr qint64 kMost = 1LL << 33; // the way from one end of an int to the other
        if (m_at != m_end && *m_at == ' ')
            ++m_at;
        const bool isNegative = m_at != m_end && *m_at == '-';
        m_at += isNegative ? 1 : 0;
        const char *first = m_at;
        for (number = 0; m_at != m_end && *m_at >= '0' && *m_at <= '9' && number < kMost; ++m_at)
            number = 10 * number + (*m_at - '0');
        number = isNegative ? -number : number;
        return m_at != first;
    }

private:
    const char *m_at;
    const char *const m_end;
};

// The acts that are a letter alone.
bool appendPlain(char letter, std::vector<Act> &acts)
{
    if (letter == 'f')
        acts.emplace_back(FinishAct());
    else if (letter == 'r')
        acts.emplace_back(ReopenAct());
    else if (letter == 'p')
        acts.emplace_back(PaintAct());
    else
        return false;
    return true;
}

bool isInt(qint64 number)
{
    return number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
}

} // namespace

bool ActText::write(const Act &act, QByteArray &text)
{
    if (const auto *event = std::get_if<PointerAct>(&act)) {
        if (const Letter *letter = letterOf(event->code))
            text += letter->letter;
        else
            text += 'e' + QByteArray::number(event->code) + ' ';
        text += QByteArray::number(event->pt.x() - m_x) + ' ' + QByteArray::number(event->pt.y() - m_y);
        m_x = event->pt.x();
        m_y = event->pt.y();
        return true;
    }
    const char letter = std::holds_alternative<FinishAct>(act)   ? 'f'
                        : std::holds_alternative<ReopenAct>(act) ? 'r'
                        : std::holds_alternative<PaintAct>(act)  ? 'p'
                                                                 : 0;
    if (letter)
        text += letter;
    return letter != 0;
}

bool ActText::read(const QByteArray &text, std::vector<Act> &acts)
{
    const char *at = text.constData();
    const char *const end = at + text.size();
    while (at != end) {
        const char letter = *at++;
        if (appendPlain(letter, acts))
            continue;
        const auto *event =
            std::find_if(std::begin(kEvents), std::end(kEvents), [&](const Letter &l) { return l.letter == letter; });
        qint64 code = event == std::end(kEvents) ? 0 : event->code;
        if (code == 0 && letter != 'e')
            return false;
        Numbers numbers(at, end);
        qint64 dx = 0, dy = 0;
        if ((code == 0 && !numbers.read(code)) || !numbers.read(dx) || !numbers.read(dy))
            return false;
        at = numbers.at();
        m_x += dx;
        m_y += dy;
        if (!isInt(code) || !isInt(m_x) || !isInt(m_y))
            return false;
        acts.emplace_back(PointerAct{int(code), QPoint(int(m_x), int(m_y))});
    }
    return true;
}

} // namespace InkLesson
