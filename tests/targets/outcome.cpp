#include "targets/outcome.h"

#include <ipsecimpl/config.h>
#include <ipsecimpl/xml.h>

#include <sstream>

namespace ipsecimpl {
namespace {

/// Stores what `document` loads as, or sets `message`.
std::string reload(const std::string& document, std::string& message)
{
    std::istringstream in(document);
    XMLParser          parser(in);
    std::ostringstream out;
    try {
        IPsecConfig::importXML(parser).exportXML(out);
    } catch (const ParseError& error) {
        message = error.what();
        return {};
    }
    return out.str();
}

const char HEX_DIGITS[] = "0123456789ABCDEF";

} // namespace

DocumentOutcome outcomeOf(const std::string& document)
{
    DocumentOutcome outcome;
    outcome.store = reload(document, outcome.message);
    if (outcome.store.empty())
        return outcome;
    std::string       message;
    const std::string second = reload(outcome.store, message);
    outcome.again            = second == outcome.store ? "the same" : second.empty() ? message : "another store";
    return outcome;
}

std::string DocumentOutcome::line() const
{
    if (store.empty())
        return printableLine(message);
    return "stored, " + std::to_string(store.size()) + " bytes, " + digestText(store) +
           "; again: " + printableLine(again);
}

std::string printableLine(std::string_view text, std::size_t most)
{
    std::string line;
    for (const char c : text.substr(0, most)) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n')
            line += "\\n";
        else if (c == '\\')
            line += "\\\\";
        else if (byte >= 0x20 && byte < 0x7F)
            line += c;
        else
            line = line + "\\x" + HEX_DIGITS[byte / 16] + HEX_DIGITS[byte % 16];
    }
    if (text.size() > most)
        line += "... " + std::to_string(text.size()) + " bytes, " + digestText(text);
    return line;
}

std::uint64_t digest(std::string_view text)
{
    std::uint64_t value = 0xCBF29CE484222325U;
    for (const char c : text) {
        value ^= static_cast<unsigned char>(c);
        value *= 0x100000001B3U;
    }
    return value;
}

std::string digestText(std::string_view text)
{
    std::uint64_t value = digest(text);
    std::string   digits(16, '0');
    for (std::size_t at = digits.size(); at-- > 0; value /= 16)
        digits[at] = HEX_DIGITS[value % 16];
    return digits;
}

} // namespace ipsecimpl
