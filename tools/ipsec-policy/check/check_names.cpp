#include "checks.h"

#include <algorithm>
#include <cstdint>

using namespace ipsecimpl;

namespace {

const Rule REPEATED = {"repeated-name", Level::NOTE, "Two objects of a kind have the same name",
                       "People tell objects apart by their names. So do the commands of 'ipsec-policy\n"
                       "edit' and 'show', which refuse a name that is not one object's and want the ID\n"
                       "instead.\n"
                       "Give one of them another name.",
                       ""};

/// The entries whose names have the same hash, without those that have no name.
template <class T>
using Row = std::vector<const Entry<T>*>;

/// An entry that has the name of one before it.
template <class T>
struct Repetition {
    const Entry<T>* entry;
    const Entry<T>* first;
};

/// Each entry is held against the first that has its name.
template <class T>
void findRepetitions(Row<T>& row, std::vector<Repetition<T>>& repetitions)
{
    const auto compare = [](const Entry<T>& a, const Entry<T>& b) {
        return nameOf(*a.object).compare(nameOf(*b.object));
    };
    std::sort(row.begin(), row.end(), [&](const Entry<T>* a, const Entry<T>* b) {
        const int difference = compare(*a, *b);
        return difference != 0 ? difference < 0 : a->id < b->id;
    });
    const Entry<T>* first = nullptr;
    for (const Entry<T>* const entry : row) {
        if (first == nullptr || compare(*first, *entry) != 0)
            first = entry;
        else
            repetitions.push_back({entry, first});
    }
}

/// A hash, and below it the entry's place, so that numbers are all there is to sort.
template <class T>
std::vector<std::uint64_t> sortedHashes(const Entries<T>& entries)
{
    std::vector<std::uint64_t> hashes;
    hashes.reserve(entries.size());
    for (const Entry<T>& entry : entries)
        hashes.push_back(static_cast<std::uint64_t>(entry.nameHash) << 32U | hashes.size());
    std::sort(hashes.begin(), hashes.end());
    return hashes;
}

template <class T>
void checkNames(Kind kind, const Entries<T>& entries, Findings& findings)
{
    const std::vector<std::uint64_t> hashes = sortedHashes(entries);
    Row<T>                           row;
    std::vector<Repetition<T>>       repetitions;
    for (std::size_t i = 0, next = 0; i < hashes.size(); i = next) {
        next = i + 1;
        while (next < hashes.size() && hashes[i] >> 32U == hashes[next] >> 32U)
            ++next;
        if (next - i == 1)
            continue;
        row.clear();
        for (std::size_t k = i; k < next; ++k)
            if (const Entry<T>& entry = entries[static_cast<std::size_t>(hashes[k] & 0xFFFFFFFFU)];
                !nameOf(*entry.object).empty())
                row.push_back(&entry);
        findRepetitions(row, repetitions);
    }
    std::sort(repetitions.begin(), repetitions.end(),
              [](const Repetition<T>& a, const Repetition<T>& b) { return a.entry->id < b.entry->id; });
    for (const Repetition<T>& repetition : repetitions)
        report(findings, REPEATED, kind, repetition.entry->id, {"name"},
               joined({capitalised(wordsOf(kind).sentence), " ", std::to_string(repetition.first->id),
                       " has this name too. Give one of the two another."}));
}

} // namespace

Rules nameRules()
{
    return {&REPEATED};
}

void checkNames(const Model& model, Findings& findings)
{
    checkNames(Kind::HOST_GROUP, model.hostGroups(), findings);
    checkNames(Kind::PROTOCOL_GROUP, model.protocolGroups(), findings);
    checkNames(Kind::ACTION, model.actions(), findings);
}
