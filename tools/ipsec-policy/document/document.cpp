#include "document.h"

#include "files.h"
#include "huge_pages.h"
#include "storability.h"
#include "text.h"
#include "text_buffer.h"

#include <istream>
#include <new>
#include <sstream>
#include <utility>

using ipsecimpl::IPsecConfig;
using ipsecimpl::ParseError;
using ipsecimpl::XMLParser;

const char DOCUMENT_HELP[] = "The configuration; - is standard input";

namespace {

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

std::string shownFile(const std::string& fileName)
{
    return isStandardStream(fileName) ? "standard input" : printable(fileName);
}

/// To look for misread values takes about as long as to load the document, so it is only done where that is nothing.
void tellOfMisread(std::string_view text, const IPsecConfig& config, const std::string& fileName)
{
    const std::size_t CHEAP = std::size_t{256} * 1024;

    const std::string misread = text.size() < CHEAP ? misreadIn(text, config) : "";
    if (!misread.empty())
        printMessage(shownFile(fileName) + ": " + misread + "; 'ipsec-policy check' tells which");
}

} // namespace

LoadError::LoadError(LoadFault loadFault)
    : std::runtime_error(loadMessage(loadFault))
    , fault(std::move(loadFault))
{
}

LoadFailure::LoadFailure(const std::string& fileName, const LoadError& error)
    : Failure(ExitStatus::FINDINGS, shownFile(fileName) + ':' + error.what())
    , fault(error.fault)
{
}

IPsecConfig loadDocument(const std::string& fileName, std::size_t maxSize)
{
    const std::string text   = readFile(fileName, maxSize);
    IPsecConfig       config = parseDocument(text, fileName);
    tellOfMisread(text, config, fileName);
    return config;
}

IPsecConfig parseDocument(std::string_view text, const std::string& fileName)
{
    try {
        return parseDocument(text);
    } catch (const LoadError& error) {
        throw LoadFailure(fileName, error);
    }
}

IPsecConfig parseDocument(std::string_view text)
{
    useHugePagesForHeap(2 * text.size());
    TextBuffer   buffer(text);
    std::istream in(&buffer);
    try {
        IPsecConfig       config = parse(in);
        const std::size_t next   = text.find_first_not_of(WHITE_SPACE, buffer.read());
        if (next != std::string::npos)
            throw LoadError(loadFaultBehind(text, next));
        return config;
    } catch (const ParseError& error) {
        throw LoadError(loadFault(error.what(), {text, buffer.read(), in.eof()}));
    }
}

std::string storeDocument(IPsecConfig& config, const std::string& fileName)
{
    const auto refuse = [&fileName](const std::string& why) {
        throw Failure(ExitStatus::FINDINGS,
                      shownFile(fileName) +
                          ": this configuration cannot be stored: once written it would not load as the same" + why);
    };
    if (const std::string place = firstUnstorable(config); !place.empty())
        refuse("\n" + place);

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
        refuse("");
    return text;
}
