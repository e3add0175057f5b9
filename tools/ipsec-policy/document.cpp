#include "document.h"

#include "failure.h"
#include "files.h"
#include "text.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <sstream>
#include <streambuf>
#include <string_view>

using ipsecimpl::IPsecConfig;
using ipsecimpl::ParseError;
using ipsecimpl::XMLParser;

const char DOCUMENT_HELP[] = "The configuration; - is standard input";

namespace {

/// Reads a text where it stands.
class TextBuffer : public std::streambuf {
  public:
    explicit TextBuffer(std::string& text) { setg(text.data(), text.data(), text.data() + text.size()); }

    std::string_view rest() const { return {gptr(), static_cast<std::size_t>(egptr() - gptr())}; }
};

IPsecConfig parse(TextBuffer& buffer)
{
    std::istream in(&buffer);
    XMLParser    parser(in);
    return IPsecConfig::importXML(parser);
}

/// Stores into memory: the writer flushes every line.
std::string written(IPsecConfig& config)
{
    std::ostringstream out;
    config.exportXML(out);
    if (!out) // a stream in memory fails for want of memory alone
        throw std::bad_alloc();
    return out.str();
}

Failure documentFailure(const std::string& fileName, const std::string& message)
{
    const std::string shown = isStandardStream(fileName) ? "standard input" : printable(fileName);
    return Failure(ExitStatus::DOCUMENT, shown + ": " + message);
}

bool isSecret(std::string_view tag)
{
    const std::string_view secrets[] = {"presharedKey",    "inboundDecrKey",  "inboundAuthKey",
                                        "outboundEncrKey", "outboundAuthKey", "outboundEncrIV"};
    return std::find(std::begin(secrets), std::end(secrets), tag) != std::end(secrets);
}

/// A parser's message for the terminal, the context on lines of its own. The parser quotes what it did not expect: in
/// an element that holds a key that may be a piece of the key, so there it is left out.
std::string shownMessage(const std::string& message)
{
    const std::string_view CONTEXT = "\nfrom <";

    const std::size_t      end     = std::min(message.find(CONTEXT), message.size());
    const std::string_view context = std::string_view(message).substr(end);
    std::string_view       text    = std::string_view(message).substr(0, end);

    const std::string_view inner =
        context.substr(std::min(CONTEXT.size(), context.size())).substr(0, context.find('>') - CONTEXT.size());
    std::string hidden;
    if (isSecret(inner))
        for (const char* quote : {", got '", "; found '"})
            if (const std::size_t start = text.find(quote); start != std::string_view::npos) {
                text   = text.substr(0, start);
                hidden = " (what stands there is not shown)";
            }

    std::string result = printable(text) + hidden;
    for (std::size_t line = end; line < message.size();) {
        const std::size_t next = std::min(message.find('\n', line + 1), message.size());
        result += '\n' + printable(std::string_view(message).substr(line + 1, next - line - 1));
        line = next;
    }
    return result;
}

} // namespace

IPsecConfig loadDocument(const std::string& fileName)
try {
    std::string text = readFile(fileName);
    TextBuffer  buffer(text);
    IPsecConfig config = parse(buffer);
    if (buffer.rest().find_first_not_of(" \t\n\v\f\r") != std::string_view::npos)
        throw documentFailure(fileName, "there is more than one document: something follows </ipsec>");
    return config;
} catch (const ParseError& error) {
    throw documentFailure(fileName, shownMessage(error.what()));
}

std::string storeDocument(IPsecConfig& config, const std::string& fileName)
{
    std::string text = written(config);
    bool        same = false;
    try {
        TextBuffer  buffer(text);
        IPsecConfig again = parse(buffer);
        same              = written(again) == text;
    } catch (const ParseError&) {
        // The message could quote a piece of a key.
    }
    if (!same)
        throw documentFailure(fileName, "this configuration cannot be stored: once written it would not load as the "
                                        "same (a text holds '<' or has white space at an end, or a protocol selector "
                                        "has no name)");
    return text;
}
