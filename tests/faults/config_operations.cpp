#include "faults/objects.h"
#include "faults/operations.h"
#include "support/xml.h"

#include <string>
#include <type_traits>
#include <utility>

namespace ipsecimpl {
namespace {

std::vector<Operation> policyOperations()
{
    const auto one = [] { return Policy(1, 2, 3); };
    const auto two = [] { return Two<Policy>{{1, 2, 3}, {4, 5, 6}}; };

    // Only a number with many digits needs memory.
    const std::string text = "<policy><hostGroupID>" + std::string(60, '0') +
                             "</hostGroupID><protocolGroupID>2</protocolGroupID><actionID>3</actionID></policy>";

    Operations policy("Policy::");
    policy
        .cannotFail("Policy(unsigned int hostGroupID, unsigned int protocolGroupID, unsigned int actionID)", nothing,
                    [](Nothing&) { return Policy(1, 2, 3); })
        .cannotFail("Policy(const Policy&) [implicit]", one, [](Policy& p) { return Policy(p); })
        .cannotFail(
            "operator=(const Policy&) [implicit]", two, [](auto& p) -> auto& { return p.first = p.second; })
        .reads<Policy>("importXML(XMLParser& parser)", text)
        .reads<Policy>("importXML(XMLParser& parser) [refused]", text.substr(0, text.rfind("</")))
        .stores("exportXML(std::ostream& out) const", one, [](const auto& p, std::ostream& out) { p.exportXML(out); });
    return policy.all();
}

/// The same for all four. `make(text)` makes an element.
template <class Collection, class Make>
std::vector<Operation> collectionOperations(const std::string& plural, const std::string& singular, const Make& make)
{
    using T = std::decay_t<decltype(make(LONG))>;

    const auto some = [make] {
        Collection collection;
        collection.add(make(LONG));
        collection.add(make(OTHER));
        return collection;
    };
    const auto full = [make, plural, singular] {
        const std::string next = "next" + singular, open = "<" + plural + "><" + next + ">";
        Collection        collection = read<Collection>(open + "2147483647</" + next + "></" + plural + ">");
        collection.add(make(LONG));
        return collection;
    };
    const auto withElement = [some, make] { return Two<Collection, T>{some(), make(OTHER)}; };
    const auto fullWith    = [full, make] { return Two<Collection, T>{full(), make(OTHER)}; };
    const auto two         = [some] { return Two<Collection>{some(), some()}; };

    const std::string text = written(some());

    Operations collection("IndexedCollection::");
    collection.cannotFail("IndexedCollection()", nothing, [](Nothing&) { return Collection(); })
        .fails("IndexedCollection(const IndexedCollection& other)", some, [](auto& c) { return Collection(c); })
        .cannotFail("IndexedCollection(IndexedCollection&& other)", some,
                    [](auto& c) { return Collection(std::move(c)); })
        .fails(
            "operator=(const IndexedCollection& other)", two, [](auto& c) -> auto& { return c.first = c.second; })
        .cannotFail(
            "operator=(IndexedCollection&& other)", two, [](auto& c) -> auto& { return c.first = std::move(c.second); })
        .fails("add(const T& element)", withElement, [](auto& c) { return c.first.add(c.second); })
        .fails("add(const T& element) [refused]", fullWith, [](auto& c) { return c.first.add(c.second); })
        .fails("add(T&& element)", withElement, [](auto& c) { return c.first.add(std::move(c.second)); })
        .fails("add(T&& element) [refused]", fullWith, [](auto& c) { return c.first.add(std::move(c.second)); })
        .cannotFail("find(unsigned int id)", some, [](auto& c) { return c.find(2); })
        .cannotFail("find(unsigned int id) const", some, [](const auto& c) { return c.find(3); })
        .cannotFail(
            "at(unsigned int id)", some, [](auto& c) -> auto& { return c.at(2); })
        .cannotFail(
            "at(unsigned int id) const", some, [](const auto& c) -> auto& { return c.at(2); })
        .fails(
            "at(unsigned int id) [refused]", some, [](auto& c) -> auto& { return c.at(3); })
        .mayFail(
            "replace(unsigned int id, const T& element)", withElement,
            [](auto& c) -> auto& { return c.first.replace(1, c.second); })
        .fails(
            "replace(unsigned int id, const T& element) [refused]", withElement,
            [](auto& c) -> auto& { return c.first.replace(3, c.second); })
        .cannotFail("remove(unsigned int id)", some, [](auto& c) { return c.remove(1); })
        .cannotFail("size() const", some, [](auto& c) { return c.size(); })
        .cannotFail("empty() const", some, [](auto& c) { return c.empty(); })
        .cannotFail("begin()", some, [](auto& c) { return c.begin()->first; })
        .cannotFail("begin() const", some, [](const auto& c) { return c.begin()->first; })
        .cannotFail("end()", some, [](auto& c) { return c.end() == c.begin(); })
        .cannotFail("end() const", some, [](const auto& c) { return c.end() == c.begin(); })
        .cannotFail("nextIDGet() const", some, [](auto& c) { return c.nextIDGet(); })
        .template reads<Collection>("importXML(XMLParser& parser)", text)
        .template reads<Collection>("importXML(XMLParser& parser) [refused]",
                                    text + "<" + singular + "Entry><id>0</id>")
        .stores("exportXML(std::ostream& out) const", some, [](const auto& c, std::ostream& out) { c.exportXML(out); });
    return collection.all();
}

} // namespace

std::vector<Operation> collectionOperations()
{
    return joined({
        collectionOperations<HostGroups>("hostGroups", "hostGroup", hostGroup),
        collectionOperations<ProtocolGroups>("protocolGroups", "protocolGroup", protocolGroup),
        collectionOperations<Actions>("actions", "action", ikeAction),
        collectionOperations<Policies>(
            "policies", "policy",
            [](const std::string& text) { return Policy(1, 2, static_cast<unsigned int>(text.size())); }),
    });
}

std::vector<Operation> configOperations()
{
    const auto two     = [] { return Two<IPsecConfig>{configuration(), IPsecConfig()}; };
    const auto toEmpty = [] { return Two<IPsecConfig>{IPsecConfig(), configuration()}; };

    const std::string text = written(configuration());

    Operations config("IPsecConfig::");
    config.cannotFail("IPsecConfig()", nothing, [](Nothing&) { return IPsecConfig(); })
        .fails(
            "IPsecConfig(const HostGroups& hosts, const ProtocolGroups& protocols, const Actions& actionsToCopy, const"
            " Policies& policiesToCopy)",
            configuration, [](auto& c) { return IPsecConfig(c.hostGroups, c.protocolGroups, c.actions, c.policies); })
        .fails("IPsecConfig(const IPsecConfig& other)", configuration, [](auto& c) { return IPsecConfig(c); })
        .cannotFail("IPsecConfig(IPsecConfig&& other)", configuration,
                    [](auto& c) { return IPsecConfig(std::move(c)); })
        .fails(
            "operator=(const IPsecConfig& other)", toEmpty, [](auto& c) -> auto& { return c.first = c.second; })
        .cannotFail(
            "operator=(IPsecConfig&&)", two, [](auto& c) -> auto& { return c.first = std::move(c.second); })
        .reads<IPsecConfig>("importXML(XMLParser& parser)", text)
        .reads<IPsecConfig>("importXML(XMLParser& parser) [refused]", text.substr(0, text.find("</action>")))
        .stores("exportXML(std::ostream& out)", configuration, [](auto& c, std::ostream& out) { c.exportXML(out); });
    return joined({policyOperations(), config.all()});
}

} // namespace ipsecimpl
