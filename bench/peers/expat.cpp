#include "event_reader.h"
#include "peer.h"

#include <expat.h>

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <type_traits>

namespace {

using bench::EventReader;

using Parser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)>;

EventReader& reader(void* userData)
{
    return *static_cast<EventReader*>(userData);
}

void onStart(void* userData, const XML_Char* name, const XML_Char** /*attributes*/)
{
    reader(userData).start(name);
}

void onEnd(void* userData, const XML_Char* /*name*/)
{
    reader(userData).end();
}

void onText(void* userData, const XML_Char* text, int size)
{
    reader(userData).text(text, static_cast<std::size_t>(size));
}

Parser makeParser()
{
    Parser parser(XML_ParserCreate("UTF-8"), &XML_ParserFree);
    if (!parser)
        throw std::bad_alloc();
    return parser;
}

/// Reads into the parser's own buffer, which saves a copy.
void feed(std::istream& in, XML_Parser parser)
{
    constexpr int chunk = 65536;
    do {
        void* const buffer = XML_GetBuffer(parser, chunk);
        if (buffer == nullptr)
            throw std::bad_alloc();
        in.read(static_cast<char*>(buffer), chunk);
        if (XML_ParseBuffer(parser, static_cast<int>(in.gcount()), !in) != XML_STATUS_OK)
            throw std::runtime_error(XML_ErrorString(XML_GetErrorCode(parser)));
    } while (in);
}

std::shared_ptr<void> parse(std::istream& in)
{
    const Parser parser = makeParser();
    XML_SetElementHandler(
        parser.get(), [](void*, const XML_Char*, const XML_Char**) {}, [](void*, const XML_Char*) {});
    XML_SetCharacterDataHandler(parser.get(), [](void*, const XML_Char*, int) {});
    feed(in, parser.get());
    return nullptr;
}

ipsecimpl::IPsecConfig loadConfig(std::istream& in)
{
    EventReader  events;
    const Parser parser = makeParser();
    XML_SetUserData(parser.get(), &events);
    XML_SetElementHandler(parser.get(), onStart, onEnd);
    XML_SetCharacterDataHandler(parser.get(), onText);
    feed(in, parser.get());
    return events.take();
}

const bench::Registration registration({"expat", parse, loadConfig});

} // namespace
