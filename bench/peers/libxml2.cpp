#include "event_reader.h"
#include "peer.h"

#include <libxml/parser.h>

#include <array>
#include <cstddef>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

namespace {

using bench::EventReader;

using Context = std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)>;

EventReader& reader(void* userData)
{
    return *static_cast<EventReader*>(userData);
}

const char* toChars(const xmlChar* text)
{
    return reinterpret_cast<const char*>(text);
}

void onStart(void* userData, const xmlChar* name, const xmlChar* /*prefix*/, const xmlChar* /*uri*/,
             int /*namespaceCount*/, const xmlChar** /*namespaces*/, int /*attributeCount*/, int /*defaultedCount*/,
             const xmlChar** /*attributes*/)
{
    reader(userData).start(toChars(name));
}

void onEnd(void* userData, const xmlChar* /*name*/, const xmlChar* /*prefix*/, const xmlChar* /*uri*/)
{
    reader(userData).end();
}

void onText(void* userData, const xmlChar* text, int size)
{
    reader(userData).text(toChars(text), static_cast<std::size_t>(size));
}

void feed(std::istream& in, xmlSAXHandler& handler, EventReader* events)
{
    const Context context(xmlCreatePushParserCtxt(&handler, events, nullptr, 0, nullptr), &xmlFreeParserCtxt);
    if (!context)
        throw std::bad_alloc();

    std::array<char, 65536> chunk;
    int                     error = XML_ERR_OK;
    do {
        in.read(chunk.data(), static_cast<std::streamsize>(chunk.size()));
        error = xmlParseChunk(context.get(), chunk.data(), static_cast<int>(in.gcount()), in ? 0 : 1);
    } while (in && error == XML_ERR_OK);
    if (error != XML_ERR_OK)
        throw std::runtime_error("libxml2 reports error " + std::to_string(error));
}

std::shared_ptr<void> parse(std::istream& in)
{
    xmlSAXHandler handler{};
    handler.initialized    = XML_SAX2_MAGIC;
    handler.startElementNs = [](void*, const xmlChar*, const xmlChar*, const xmlChar*, int, const xmlChar**, int, int,
                                const xmlChar**) {};
    handler.endElementNs   = [](void*, const xmlChar*, const xmlChar*, const xmlChar*) {};
    handler.characters     = [](void*, const xmlChar*, int) {};
    feed(in, handler, nullptr);
    return nullptr;
}

ipsecimpl::IPsecConfig loadConfig(std::istream& in)
{
    EventReader   events;
    xmlSAXHandler handler{};
    handler.initialized    = XML_SAX2_MAGIC;
    handler.startElementNs = onStart;
    handler.endElementNs   = onEnd;
    handler.characters     = onText;
    feed(in, handler, &events);
    return events.take();
}

const bench::Registration registration({"libxml2 SAX2", parse, loadConfig});

} // namespace
