#ifndef IPSECIMPL_FUZZ_ENTRY_EDITS_H
#define IPSECIMPL_FUZZ_ENTRY_EDITS_H

#include "action_edits.h"
#include "input.h"
#include "model.h"

#include <iterator>
#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

namespace ipsecimpl {

constexpr unsigned int lastID = 2147483647;

template <class Entry>
unsigned int someID(Program& program, const model::Collection<Entry>& collection)
{
    static constexpr unsigned int others[] = {0, 1, lastID, lastID + 1, std::numeric_limits<unsigned int>::max()};

    const unsigned int choice = program.take();
    if (choice < 5)
        return others[choice];
    if (collection.entries.empty())
        return collection.nextID;
    return std::next(collection.entries.begin(), static_cast<int>(choice % collection.entries.size()))->first;
}

template <class Entries, class Element, class Entry>
void add(Entries& entries, model::Collection<Entry>& expected, Element&& element, const Entry& entry)
{
    const model::Refusal refusal = expected.nextID > lastID ? "no ID left for " + expected.singular : "";
    require("add", refusal, refusalOf<invalid_operation>([&] {
                if (entries.add(std::forward<Element>(element)) != expected.nextID)
                    fault("ID", std::to_string(expected.nextID), "another one");
            }));
    if (refusal.empty())
        expected.entries.emplace(expected.nextID++, entry);
}

template <class Entries, class Entry>
void remove(Entries& entries, model::Collection<Entry>& expected, unsigned int id)
{
    const bool removed = expected.entries.erase(id) != 0;
    if (removed && id == lastID)
        expected.nextID = lastID;
    require("remove", removed ? "done" : "none", entries.remove(id) ? "done" : "none");
}

template <class Entry>
model::Refusal missing(const model::Collection<Entry>& expected, unsigned int id)
{
    return expected.entries.count(id) != 0 ? "" : "no " + expected.singular + " with ID " + std::to_string(id);
}

template <class Entries, class Entry>
void look(const Entries& entries, const model::Collection<Entry>& expected, unsigned int id)
{
    const model::Refusal refusal = missing(expected, id);
    require("find", refusal.empty() ? "one" : "none", entries.find(id) != nullptr ? "one" : "none");
    require("at", refusal, refusalOf<std::invalid_argument>([&] { entries.at(id); }));
}

template <class Entries, class Element, class Entry>
void replace(Entries& entries, model::Collection<Entry>& expected, unsigned int id, const Element& element,
             const Entry& entry)
{
    const model::Refusal refusal = missing(expected, id);
    require("replace", refusal, refusalOf<std::invalid_argument>([&] { entries.replace(id, element); }));
    if (!refusal.empty())
        return;
    if constexpr (std::is_same_v<Entry, model::Action>)
        expected.entries.at(id).assign(entry);
    else
        expected.entries.at(id) = entry;
}

/// One step with a collection that the program chooses, taken by the library and by the model.
template <class Entries, class Element, class Entry>
void editEntries(Program& program, Entries& entries, model::Collection<Entry>& expected, Element& element, Entry entry)
{
    const unsigned int step = program.below(6), id = someID(program, expected);
    switch (step) {
    case 0:
        add(entries, expected, std::move(element), entry);
        break;
    case 1:
        if constexpr (std::is_same_v<Entry, model::Action>)
            entry.type = entry.state = 0; // a copy is added
        add(entries, expected, std::as_const(element), entry);
        break;
    case 2:
        remove(entries, expected, id);
        break;
    case 3:
        look(entries, expected, id);
        break;
    default:
        replace(entries, expected, id, element, entry);
    }
}

} // namespace ipsecimpl

#endif
