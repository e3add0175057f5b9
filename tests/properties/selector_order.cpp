// The order of selectors: a strict weak one, and the one in which a group keeps its selectors, however they came in.

#include "properties/random_model.h"
#include "properties/runs.h"
#include "support/contents.h"
#include "support/xml.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <utility>
#include <vector>

namespace ipsecimpl {
namespace {

// What is done to selectors of both kinds.

template <class Selector>
Selector make(RandomModel& model);

template <>
HostSelector make(RandomModel& model)
{
    return model.hostSelector();
}

template <>
ProtocolSelector make(RandomModel& model)
{
    return model.protocolSelector();
}

const char* tagOf(const HostGroup&)
{
    return __hostGroupTag;
}
const char* tagOf(const ProtocolGroup&)
{
    return __protocolGroupTag;
}

/// Replaces one field of `selector` by that of `other`.
void takeOne(HostSelector& selector, const HostSelector& other, unsigned int which)
{
    if (which == 0)
        selector.family = other.family;
    else if (which == 1)
        selector.selectorType = other.selectorType;
    else if (which == 2)
        selector.addr1 = other.addr1;
    else if (which == 3)
        selector.addr2 = other.addr2;
    else
        selector.length = other.length;
}

void takeOne(ProtocolSelector& selector, const ProtocolSelector& other, unsigned int which)
{
    if (which == 0)
        selector.protocol = other.protocol;
    else if (which == 1)
        selector.dstPort = other.dstPort;
    else if (which == 2)
        selector.srcPort = other.srcPort;
    else if (which == 3)
        selector.direction = other.direction;
    else
        selector.mirrored = other.mirrored;
}

/// Three selectors that differ in few fields: what is hard to order.
template <class Selector>
std::array<Selector, 3> nearlyEqual(RandomModel& model)
{
    const Selector          base   = make<Selector>(model);
    std::array<Selector, 3> triple = {base, base, base};
    for (Selector& selector : triple)
        for (unsigned int changes = model.random().below(3); changes > 0; --changes) {
            const Selector other = make<Selector>(model);
            takeOne(selector, other, model.random().below(5));
        }
    return triple;
}

template <class Selector>
bool equivalent(const Selector& a, const Selector& b)
{
    return !(a < b) && !(b < a);
}

/// Which of the laws does not hold for one triple; empty if all do. The first four are what std::set asks of an order.
template <class Selector>
std::string brokenLaw(const Selector& a, const Selector& b, const Selector& c)
{
    const bool ab = a < b, ba = b < a, bc = b < c, cb = c < b, ac = a < c, ca = c < a;
    if (a < a)
        return "nothing is before itself";
    if (ab && ba)
        return "two are not before each other";
    if (ab && bc && !ac)
        return "what is before one before a third is before the third";
    if (!ab && !ba && !bc && !cb && (ac || ca))
        return "what is equivalent to the same is equivalent";
    if (!ab && !ba && (bc != ac || cb != ca))
        return "what is equivalent stands in the same place";
    if (a.compare(b) != (ab ? -1 : ba ? 1 : 0) || a.compare(b) != -b.compare(a))
        return "compare() says the same";
    if ((a <= b) == ba || (a > b) != ba || (a >= b) == ab)
        return "the other operators say the same";
    if (!(a == a) || (a == b) != (b == a) || (a != b) == (a == b) || (a == b && b == c && !(a == c)))
        return "equality is an equivalence";
    return "";
}

template <class Selector>
void expectStrictWeakOrderOfTriples()
{
    forEachSeed([](std::uint64_t seed) {
        RandomModel                   model(seed);
        const std::array<Selector, 3> triple = nearlyEqual<Selector>(model);
        for (const Selector& a : triple)
            for (const Selector& b : triple)
                for (const Selector& c : triple)
                    ASSERT_EQ(brokenLaw(a, b, c), "") << contentsOf(a) << contentsOf(b) << contentsOf(c);
    });
}

TEST(SelectorOrder, IsAStrictWeakOneForHosts)
{
    expectStrictWeakOrderOfTriples<HostSelector>();
}

TEST(SelectorOrder, IsAStrictWeakOneForProtocols)
{
    expectStrictWeakOrderOfTriples<ProtocolSelector>();
}

/// Selectors in some order. Pointers, as a protocol selector that is assigned to keeps its name.
template <class Selector>
using Order = std::vector<const Selector*>;

template <class Selector>
Order<Selector> addressesOf(const std::list<Selector>& selectors)
{
    Order<Selector> order;
    for (const Selector& selector : selectors)
        order.push_back(&selector);
    return order;
}

/// The group that must come of it: sorted, and of equivalent ones the first.
template <class Group, class Selector>
std::string expected(Order<Selector> order)
{
    std::stable_sort(order.begin(), order.end(), [](const Selector* a, const Selector* b) { return *a < *b; });
    order.erase(
        std::unique(order.begin(), order.end(), [](const auto* a, const auto* b) { return equivalent(*a, *b); }),
        order.end());
    Group group;
    for (const Selector* const selector : order)
        group.selectors.insert(group.selectors.end(), *selector);
    EXPECT_EQ(group.selectors.size(), order.size());
    return contentsOf(group);
}

template <class Group, class Selector>
std::string inserted(const Order<Selector>& order)
{
    Group group;
    for (const Selector* const selector : order)
        group.selectors.insert(*selector);
    return contentsOf(group);
}

template <class Group, class Selector>
std::string loaded(const Order<Selector>& order)
{
    const std::string tag  = tagOf(Group());
    std::string       text = "<" + tag + "><name/><builtinName/><descr/><builtinDescr/><selectors>";
    for (const Selector* const selector : order)
        text += written(*selector);
    return contentsOf(read<Group>(text + "</selectors></" + tag + ">"));
}

template <class Group, class Selector>
void expectOrderKeptUnderEveryPermutation()
{
    forEachSeed([](std::uint64_t seed) {
        RandomModel         model(seed);
        std::list<Selector> selectors;
        if (seed % 100 == 0)
            for (const Selector& selector : nearlyEqual<Selector>(model))
                selectors.push_back(selector);
        for (const Selector& selector : nearlyEqual<Selector>(model))
            selectors.push_back(selector);

        Order<Selector> order = addressesOf(selectors);
        std::sort(order.begin(), order.end());
        do {
            ASSERT_EQ(inserted<Group>(order), expected<Group>(order));
        } while (std::next_permutation(order.begin(), order.end()));
    });
}

TEST(SelectorOrder, IsKeptByAHostGroupUnderEveryPermutation)
{
    expectOrderKeptUnderEveryPermutation<HostGroup, HostSelector>();
}

TEST(SelectorOrder, IsKeptByAProtocolGroupUnderEveryPermutation)
{
    expectOrderKeptUnderEveryPermutation<ProtocolGroup, ProtocolSelector>();
}

/// Forty selectors, each of them and some copies in a random order.
template <class Group, class Selector>
void expectOrderKeptOfMany()
{
    forEachSeed([](std::uint64_t seed) {
        RandomModel         model(seed);
        std::list<Selector> selectors;
        while (selectors.size() < 40)
            selectors.push_back(model.random().percent(90) || selectors.empty() ? make<Selector>(model)
                                                                                : selectors.back());

        Order<Selector> order = addressesOf(selectors);
        for (std::size_t left = order.size(); left > 1; --left)
            std::swap(order[left - 1], order[model.random().below(static_cast<unsigned int>(left))]);
        ASSERT_EQ(inserted<Group>(order), expected<Group>(order));
        ASSERT_EQ(loaded<Group>(order), expected<Group>(order));
    });
}

TEST(SelectorOrder, IsKeptByALargeHostGroup)
{
    expectOrderKeptOfMany<HostGroup, HostSelector>();
}

TEST(SelectorOrder, IsKeptByALargeProtocolGroup)
{
    expectOrderKeptOfMany<ProtocolGroup, ProtocolSelector>();
}

} // namespace
} // namespace ipsecimpl
