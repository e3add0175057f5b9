#include "misplaced.h"

#include "lexer.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <vector>

namespace {

/// An element that is in its parent only if a leaf before it has one of some words.
struct Condition {
    std::string_view              parent;
    std::string_view              child;
    std::string_view              leaf;
    std::vector<std::string_view> words;
};

const std::vector<Condition>& conditions()
{
    static const std::vector<Condition> all = {
        {"hostSelector", "addr1", "selectorType", {"SINGLE", "RANGE", "SUBNET_LENGTH", "SUBNET_MASK"}},
        {"hostSelector", "addr2", "selectorType", {"RANGE"}},
        {"hostSelector", "length", "selectorType", {"SUBNET_LENGTH"}},
        {"hostSelector", "mask", "selectorType", {"SUBNET_MASK"}},
        {"action", "tunnelEndpoint", "spdAction", {"TUNNEL"}},
        {"action", "keyMgr", "spdAction", {"TRANSPORT", "TUNNEL"}},
        {"action", "manualKey", "keyMgr", {"MKM"}},
        {"action", "ikePhase1", "keyMgr", {"IKE"}},
        {"action", "ikePhase2", "keyMgr", {"IKE"}},
        {"ikePhase1", "presharedKey", "authType", {"PSK"}},
        {"ikePhase1", "localCert", "authType", {"RSA"}},
        {"ikePhase1", "peerTrust", "authType", {"RSA"}},
    };
    return all;
}

const Condition* conditionOf(std::string_view parent, std::string_view child)
{
    const auto isIt = [=](const Condition& each) { return each.parent == parent && each.child == child; };
    const auto it   = std::find_if(conditions().begin(), conditions().end(), isIt);
    return it == conditions().end() ? nullptr : &*it;
}

struct Child {
    std::string_view name;
    std::string_view text; ///< if it is a leaf
};

/// The children of an element before `offset`, as far as they can be told.
std::vector<Child> childrenBefore(std::string_view document, const OpenElement& parent, std::size_t offset)
{
    std::vector<Child> children;
    Lexer              lexer(document.substr(0, offset), parent.tag.end());
    try {
        while (lexer.skipSpace() < offset) {
            const StartTag tag = lexer.startTag();
            children.push_back({tag.name, {}});
            if (lexer.isLeaf(tag))
                children.back().text = lexer.rest(tag).text.in(document);
            else
                lexer.skipRest(tag);
        }
    } catch (const std::logic_error&) { // what is known is enough
    }
    return children;
}

const Child* find(const std::vector<Child>& children, std::string_view name)
{
    const auto it = std::find_if(children.begin(), children.end(), [name](const Child& c) { return c.name == name; });
    return it == children.end() ? nullptr : &*it;
}

std::string joinedWords(const std::vector<std::string_view>& words)
{
    std::string text;
    for (const std::string_view& word : words)
        text.append(&word == &words.front() ? "" : &word == &words.back() ? " or " : ", ").append(word);
    return text;
}

} // namespace

std::string misplacedAdvice(std::string_view document, const OpenElement& parent, std::size_t offset)
{
    const std::string_view name      = tagNameAt(document, offset);
    const Condition*       condition = conditionOf(parent.name, name);
    if (condition == nullptr)
        return {};
    const std::vector<Child> children = childrenBefore(document, parent, offset);
    if (find(children, name) != nullptr)
        return "There is a <" + std::string(name) + "> before this one: remove one of them.";

    // A leaf that is not there because of another one: that is the reason.
    const Child* leaf = find(children, condition->leaf);
    while (leaf == nullptr && (condition = conditionOf(parent.name, condition->leaf)) != nullptr)
        leaf = find(children, condition->leaf);
    if (leaf == nullptr)
        return {};
    const auto& words = condition->words;
    if (std::find(words.begin(), words.end(), leaf->text) != words.end())
        return {};
    const std::string article =
        std::string_view("aeiou").find(parent.name.front()) != std::string_view::npos ? "An" : "A";
    return article + " <" + std::string(parent.name) + "> with " + std::string(leaf->name) + ' ' +
           std::string(leaf->text) + " has no <" + std::string(name) + ">: remove it, or set " +
           std::string(leaf->name) + " to " + joinedWords(words) + '.';
}
