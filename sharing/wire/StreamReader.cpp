#include "sharing/wire/StreamReader.h"

#include <algorithm>
#include <cstring>

namespace InkSharing {

namespace {

Chain following(const Chain &before, const QByteArray &entry)
{
    Sha256 hash;
    hash.add(before.data(), before.size());
    hash.add(entry);
    Chain chain;
    std::memcpy(chain.data(), hash.result().constData(), chain.size());
    return chain;
}

std::shared_ptr<Sha256> hashing(const QByteArray &bytes)
{
    auto hash = std::make_shared<Sha256>();
    hash->add(bytes);
    return hash;
}

} // namespace

StreamReader::StreamReader(Keep keep)
    : m_keep(keep)
{
}

std::optional<Entry> StreamReader::take(const QByteArray &bytes)
{
    Taken taken{following(chainAt(length()), bytes)};
    Entry entry;
    QString problem;
    const bool isCounted =
        readEntry(bytes, entry, problem) && std::visit([&](const auto &one) { return counts(one, taken); }, entry);
    m_taken.push_back(std::move(taken));
    return isCounted ? std::optional<Entry>(std::move(entry)) : std::nullopt;
}

bool StreamReader::counts(const LessonEntry &entry, Taken &taken)
{
    if (m_lesson)
        return false;
    taken.what = Taken::What::Lesson;
    m_lesson = entry;
    join(entry.tokenHash, entry.authors);
    return true;
}

bool StreamReader::counts(const MemberEntry &entry, Taken &taken)
{
    if (!m_lesson || isClaimed(entry.author) || !authorsOf(entry.tokenHash).empty())
        return false;
    taken.what = Taken::What::Member;
    join(entry.tokenHash, {entry.author});
    return true;
}

void StreamReader::join(const QByteArray &tokenHash, const std::vector<int> &authors)
{
    for (const int author : authors)
        m_memberOf[author] = m_members.size();
    m_members.push_back({tokenHash, authors});
}

int StreamReader::placeOf(int author) const
{
    const auto member = m_memberOf.find(author);
    return member == m_memberOf.end() ? 0 : int(member->second) + 1;
}

bool StreamReader::counts(const RecordEntry &entry, Taken &taken)
{
    const auto member = m_memberOf.find(entry.id.author);
    if (member == m_memberOf.end())
        return false;
    int &number = m_numbers[entry.id.author];
    InkLesson::StepId &last = m_members[member->second].last;
    if (entry.after != last || entry.id.number <= number ||
        !std::all_of(entry.contents.begin(), entry.contents.end(), [&](const auto &hash) { return isWhole(hash); }))
        return false;
    taken.what = Taken::What::Record;
    taken.id = entry.id;
    taken.last = std::exchange(last, entry.id);
    taken.number = std::exchange(number, entry.id.number);
    return true;
}

bool StreamReader::counts(const PieceEntry &entry, Taken &taken)
{
    const auto member = m_memberOf.find(entry.author);
    if (member == m_memberOf.end() || isWhole(entry.hash) || entry.index != nextPiece(entry.author, entry.hash))
        return false;
    Partial &partial = m_partials[{member->second, entry.hash}];
    if (entry.index == 0)
        partial = {0, entry.count, {}, hashing({})};
    if (entry.count != partial.count)
        return false;
    ++partial.next;
    partial.hash->add(entry.bytes);
    if (m_keep == Keep::Contents)
        partial.bytes += entry.bytes;
    taken.what = Taken::What::Piece;
    taken.id.author = entry.author;
    taken.hash = entry.hash;
    if (partial.next == partial.count && partial.hash->result() == entry.hash)
        m_contents[entry.hash] = partial.bytes;
    return true;
}

void StreamReader::takeBackTo(std::size_t length)
{
    while (m_taken.size() > length) {
        const Taken taken = std::move(m_taken.back());
        m_taken.pop_back();
        takeBack(taken);
    }
}

void StreamReader::takeBack(const Taken &taken)
{
    switch (taken.what) {
    case Taken::What::Nothing:
        break;
    case Taken::What::Lesson:
        m_lesson.reset();
        [[fallthrough]];
    case Taken::What::Member:
        for (const int author : m_members.back().authors)
            m_memberOf.erase(author);
        m_members.pop_back();
        break;
    case Taken::What::Record:
        m_members[m_memberOf.at(taken.id.author)].last = taken.last;
        m_numbers[taken.id.author] = taken.number;
        break;
    case Taken::What::Piece:
        takeBackPiece(taken);
    }
}

void StreamReader::takeBackPiece(const Taken &taken)
{
    Partial &partial = m_partials[{m_memberOf.at(taken.id.author), taken.hash}];
    if (partial.next == partial.count)
        m_contents.erase(taken.hash);
    --partial.next;
    partial.bytes.truncate(partial.next * kPieceBytes);
    partial.hash = hashing(partial.bytes);
}

std::vector<int> StreamReader::authorsOf(const QByteArray &tokenHash) const
{
    const auto member =
        std::find_if(m_members.begin(), m_members.end(), [&](const Member &one) { return one.tokenHash == tokenHash; });
    return member == m_members.end() ? std::vector<int>() : member->authors;
}

InkLesson::StepId StreamReader::lastOf(int author) const
{
    const auto member = m_memberOf.find(author);
    return member == m_memberOf.end() ? InkLesson::kNothing : m_members[member->second].last;
}

QByteArray StreamReader::content(const QByteArray &hash) const
{
    const auto found = m_contents.find(hash);
    return found == m_contents.end() ? QByteArray() : found->second;
}

int StreamReader::nextPiece(int author, const QByteArray &hash) const
{
    const auto member = m_memberOf.find(author);
    const auto partial = member == m_memberOf.end() ? m_partials.end() : m_partials.find({member->second, hash});
    return partial == m_partials.end() ? 0 : partial->second.next;
}

} // namespace InkSharing
