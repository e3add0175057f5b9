#include "misplaced.h"

#include "lexer.h"
#include "load_message.h"
#include "number_text.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <vector>

namespace {

/// An element that is in its parent only if a leaf before it has one of some words, or is a number above 1.
struct Condition {
    std::string_view              parent;
    std::string_view              child;
    std::string_view              leaf;
    std::vector<std::string_view> words;       ///< empty for a number
    std::string_view              holder = {}; ///< the element before it that the leaf is in, if not the same parent
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
        {"manualKey", "inboundESPSPI", "protocol", {"ESP", "ESP+AH"}, "saProposal"},
        {"manualKey", "outboundESPSPI", "protocol", {"ESP", "ESP+AH"}, "saProposal"},
        {"manualKey", "inboundAHSPI", "protocol", {"AH", "ESP+AH"}, "saProposal"},
        {"manualKey", "outboundAHSPI", "protocol", {"AH", "ESP+AH"}, "saProposal"},
        {"manualKey", "inboundDecrKey", "encryption", {}, "saProposal"},
        {"manualKey", "outboundEncrKey", "encryption", {}, "saProposal"},
        {"manualKey", "outboundEncrIV", "encryption", {}, "saProposal"},
        {"manualKey", "inboundAuthKey", "hash", {}, "saProposal"},
        {"manualKey", "outboundAuthKey", "hash", {}, "saProposal"},
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
    std::size_t      begin; ///< behind its start tag
    std::string_view text;  ///< if it is a leaf
};

/// The children before `offset` of an element whose start tag ends at `begin`, as far as they can be told.
std::vector<Child> childrenBefore(std::string_view document, std::size_t begin, std::size_t offset)
{
    std::vector<Child> children;
    Lexer              lexer(document.substr(0, offset), begin);
    try {
        while (!lexer.atEndTag() && lexer.offset() < offset) {
            const StartTag tag = lexer.startTag();
            children.push_back({tag.name, lexer.offset(), {}});
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

std::string inAngles(std::string_view name)
{
    return '<' + std::string(name) + '>';
}

/// What to do about a child that is not there because of a condition's leaf; empty if the leaf allows it.
std::string adviceOn(const Condition& condition, std::string_view text, std::string_view child)
{
    const auto& words    = condition.words;
    const bool  isNumber = words.empty();
    const bool  holds = isNumber ? readUnsigned(text) > 1 : std::find(words.begin(), words.end(), text) != words.end();
    if (holds)
        return {};
    // Another text than the number that was read could be a key.
    const std::string read = isNumber ? std::to_string(readUnsigned(text)) : std::string(text);
    const std::string article =
        std::string_view("aeiou").find(condition.parent.front()) != std::string_view::npos ? "An " : "A ";
    const std::string leaf(condition.leaf);
    return article + inAngles(condition.parent) + " with " + leaf + ' ' + read + " has no " + inAngles(child) +
           ": remove it, or set " + leaf + " to " + (isNumber ? "2 or more" : joinedWords(words)) + '.';
}

} // namespace

std::string misplacedAdvice(std::string_view document, const OpenElement& parent, std::size_t offset)
{
    const std::string_view   name     = tagNameAt(document, offset);
    const std::vector<Child> children = childrenBefore(document, parent.tag.end(), offset);
    if (isWordOfFormat(name) && find(children, name) != nullptr)
        return "There is a " + inAngles(name) + " before this one: remove one of them.";

    // A leaf that is not there because of another one: that is the reason.
    for (const Condition* condition = conditionOf(parent.name, name); condition != nullptr;
         condition                  = conditionOf(parent.name, condition->leaf)) {
        std::vector<Child> held;
        const Child* const holder = find(children, condition->holder);
        if (holder != nullptr)
            held = childrenBefore(document, holder->begin, offset);
        if (const Child* const leaf = find(holder != nullptr ? held : children, condition->leaf); leaf != nullptr)
            return adviceOn(*condition, leaf->text, name);
    }
    return {};
}
