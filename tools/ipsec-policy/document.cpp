#include "document.h"

#include "failure.h"
#include "files.h"
#include "load_message.h"
#include "text.h"

#include <istream>
#include <new>
#include <sstream>
#include <streambuf>

using ipsecimpl::IPsecConfig;
using ipsecimpl::ParseError;
using ipsecimpl::XMLParser;

const char DOCUMENT_HELP[] = "The configuration; - is standard input";

namespace {

/// Reads a text where it stands.
class TextBuffer : public std::streambuf {
  public:
    explicit TextBuffer(std::string& text) { setg(text.data(), text.data(), text.data() + text.size()); }

    std::size_t read() const { return static_cast<std::size_t>(gptr() - eback()); }
};

IPsecConfig parse(std::istream& in)
{
    XMLParser parser(in);
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
    return Failure(ExitStatus::FINDINGS, shown + ": " + message);
}

} // namespace

IPsecConfig loadDocument(const std::string& fileName)
{
    std::string  text = readFile(fileName);
    TextBuffer   buffer(text);
    std::istream in(&buffer);
    try {
        IPsecConfig       config = parse(in);
        const std::size_t next   = text.find_first_not_of(WHITE_SPACE, buffer.read());
        if (next != std::string::npos)
            throw documentFailure(fileName, lineAfter(text, next) + ": something follows </ipsec>");
        return config;
    } catch (const ParseError& error) {
        throw documentFailure(fileName, loadMessage(error.what(), {text, buffer.read(), in.eof()}));
    }
}

std::string storeDocument(IPsecConfig& config, const std::string& fileName)
{
    std::string text = written(config);
    bool        same = false;
    try {
        TextBuffer   buffer(text);
        std::istream in(&buffer);
        IPsecConfig  again = parse(in);
        same               = written(again) == text;
    } catch (const ParseError&) {
        // The message could quote a piece of a key.
    }
    if (!same)
        throw documentFailure(fileName, "this configuration cannot be stored: once written it would not load as the "
                                        "same (a text holds '<' or has white space at an end, or a protocol selector "
                                        "has no name)");
    return text;
}
