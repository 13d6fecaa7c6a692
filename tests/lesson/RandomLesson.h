#pragma once

// Lessons as several people might hold them.

#include "RandomActs.h"

#include <limits>
#include <memory>
#include <vector>

class RandomLesson
{
public:
    static constexpr QSize kSize = RandomActs::kSize;
    using Host = RandomActs::Host;

    explicit RandomLesson(unsigned seed, int people = 2, double density = 1, Host host = Host::Exact)
        : m_random(seed)
        , m_lesson({kSize, density})
        , m_acts(m_random, m_lesson, host)
    {
        for (int number = 1; number <= people; ++number)
            m_people.push_back(std::make_unique<InkLesson::Author>(
                m_lesson, number, [this] { return time(); },
                [this](const InkLesson::Record &record) { m_records.push_back(record); }));
        look();
    }

    InkLesson::Lesson &lesson() { return m_lesson; }
    const std::vector<InkLesson::Record> &records() const { return m_records; } // that were told of

    void act(int times)
    {
        for (; times > 0; --times) {
            m_acts.actOnce(*m_people[std::size_t(m_random.below(int(m_people.size())))]);
            look();
        }
    }

    void letGo()
    {
        for (const auto &person : m_people)
            person->finish();
    }

private:
    // So that every page is painted as it changes.
    void look()
    {
        for (int i = 0; i < m_lesson.pageCount(); ++i)
            m_lesson.page(m_lesson.pageId(i)).surface();
    }
    // An odd clock leaps as far as a number goes.
    qint64 time()
    {
        using Limits = std::numeric_limits<qint64>;
        if (!m_acts.isOdd())
            return ++m_time;
        return m_acts.isOdd() ? Limits::max() : Limits::min();
    }

    Random m_random;
    std::vector<InkLesson::Record> m_records;
    InkLesson::Lesson m_lesson;
    RandomActs m_acts;
    qint64 m_time{};
    std::vector<std::unique_ptr<InkLesson::Author>> m_people;
};
