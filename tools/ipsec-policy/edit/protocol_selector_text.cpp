#include "selector_text.h"

#include "edit_words.h"
#include "plain_number.h"
#include "text.h"

#include <cstddef>
#include <vector>

using namespace ipsecimpl;

namespace {

const char USUAL_NAME[] = "Protocol"; // which the library gives

const struct {
    unsigned short number;
    const char*    word;
} PROTOCOLS[] = {{0, "any"},  {1, "icmp"}, {6, "tcp"},     {17, "udp"},  {47, "gre"},
                 {50, "esp"}, {51, "ah"},  {58, "icmpv6"}, {89, "ospf"}, {132, "sctp"}};

const struct {
    Direction   direction;
    const char* word;
} DIRECTIONS[] = {{PROTO_IN, "in"}, {PROTO_OUT, "out"}, {PROTO_INOUT, "in/out"}};

unsigned short number16(const std::string& text, const std::string& wrong)
{
    const auto number = plainNumber(text);
    if (!number || *number < 0 || *number > 0xFFFF)
        throw commandFailure('\'' + printable(text) + wrong);
    return static_cast<unsigned short>(*number);
}

unsigned short readProtocol(const std::string& text)
{
    std::string words;
    for (const auto& protocol : PROTOCOLS) {
        if (text == protocol.word)
            return protocol.number;
        words += ", " + std::string(protocol.word);
    }
    return number16(text, "' is no protocol (0 to 65535" + words + ')');
}

bool isRange(const std::string& text)
{
    const std::size_t dash = text.find('-');
    return dash != std::string::npos && plainNumber(text.substr(0, dash)) && plainNumber(text.substr(dash + 1));
}

unsigned short readPort(const std::string& text)
{
    if (isRange(text))
        throw commandFailure('\'' + printable(text) + "' is no port: a selector has one, or any, but no range");
    return number16(text, "' is no port (0 to 65535)");
}

/// Reads the words behind the protocol.
class Qualifiers {
  public:
    Qualifiers(const std::vector<std::string_view>& words, ProtocolSelector& selector)
        : words_(words)
        , selector_(selector)
    {
    }

    void read()
    {
        while (next_ < words_.size()) {
            const std::string word = unquoted(words_[next_++]);
            if (word == "from") {
                once(hasSource_, "from");
                selector_.srcPort = readPort(following(word));
            } else if (word == "named") {
                once(hasName_, "named");
                selector_.name = following(word);
            } else if (word == "mirrored") {
                once(selector_.mirrored, "mirrored");
            } else {
                readDirection(word);
            }
        }
    }

  private:
    static void once(bool& seen, const std::string& what)
    {
        if (seen)
            throw commandFailure(what + " stands twice in a selector");
        seen = true;
    }

    std::string following(const std::string& word)
    {
        if (next_ == words_.size())
            throw commandFailure("something is missing behind '" + word + '\'');
        return unquoted(words_[next_++]);
    }

    void readDirection(const std::string& word)
    {
        for (const auto& direction : DIRECTIONS)
            if (word == direction.word) {
                once(hasDirection_, "a direction");
                selector_.direction = direction.direction;
                return;
            }
        throw commandFailure('\'' + printable(word) +
                             "' is none of in, out, in/out, from, mirrored and named, which follow a protocol");
    }

    const std::vector<std::string_view>& words_;
    ProtocolSelector&                    selector_;
    std::size_t                          next_         = 1;
    bool                                 hasSource_    = false;
    bool                                 hasName_      = false;
    bool                                 hasDirection_ = false;
};

std::string protocolText(unsigned short number)
{
    for (const auto& protocol : PROTOCOLS)
        if (number == protocol.number)
            return protocol.word;
    return std::to_string(number);
}

} // namespace

void refuseListedPort(const ProtocolSelector& before, std::string_view text)
{
    const bool        isSource = before.dstPort == 0;
    const auto        port     = isSource ? before.srcPort : before.dstPort;
    const std::string number   = std::string(text);
    if (port != 0 && isRange(number))
        throw commandFailure("ports cannot be listed, and there are no ranges: each port is a selector of its own");
    const auto listed = plainNumber(number);
    if (port == 0 || !listed || *listed < 0 || *listed > 0xFFFF)
        return;
    const std::string start = protocolText(before.protocol) + (isSource ? " from " : "/");
    throw commandFailure("ports cannot be listed: write " + start + std::to_string(port) + ", " + start + number +
                         (*listed <= 255 ? " (or '" + number + " in/out', if protocol " + number + " is meant)" : ""));
}

std::string textOf(const ProtocolSelector& selector)
{
    std::string text = protocolText(selector.protocol);
    // The ports mean nothing without a protocol.
    if (selector.protocol != 0 && selector.dstPort != 0)
        text += '/' + std::to_string(selector.dstPort);
    if (selector.protocol != 0 && selector.srcPort != 0)
        text += " from " + std::to_string(selector.srcPort);
    for (const auto& direction : DIRECTIONS)
        if (selector.direction == direction.direction)
            text += ' ' + std::string(direction.word);
    if (selector.mirrored)
        text += " mirrored";
    return selector.name == USUAL_NAME ? text : text + " named " + quotedWord(selector.name);
}

ProtocolSelector readProtocolSelector(std::string_view text)
{
    const std::vector<std::string_view> words = splitWords(text);
    if (words.empty())
        throw commandFailure("a selector is missing");

    const std::string first = unquoted(words[0]);
    const std::size_t slash = first.find('/');
    ProtocolSelector  selector(USUAL_NAME, readProtocol(first.substr(0, slash)), 0, 0, PROTO_INOUT, false);
    if (slash != std::string::npos)
        selector.dstPort = readPort(first.substr(slash + 1));
    Qualifiers(words, selector).read();
    if (selector.protocol == 0 && (selector.dstPort != 0 || selector.srcPort != 0))
        throw commandFailure("a port needs a protocol: any has none");
    return selector;
}
