#ifndef IPSECIMPL_FUZZ_LOADING_H
#define IPSECIMPL_FUZZ_LOADING_H

#include "input.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ipsecimpl {

/// What loading a document came to: a configuration, or a message.
struct Loaded {
    std::optional<IPsecConfig> config;
    std::string                message;
    std::size_t                consumed = 0;
};

/// Loads from a buffer that knows its position. Nothing but a ParseError is caught.
template <class Buffer>
Loaded loadedFrom(Buffer& buffer)
{
    Loaded    loaded;
    XMLParser parser(streamOn<0>(buffer));
    try {
        loaded.config = IPsecConfig::importXML(parser);
    } catch (const ParseError& error) {
        loaded.message = error.what();
    }
    loaded.consumed = buffer.position();
    return loaded;
}

/// Loads a document that stands in the buffer as a whole.
inline Loaded loaded(std::string_view document)
{
    WholeBuffer buffer(document);
    return loadedFrom(buffer);
}

/// Loads what the library itself wrote, which it has to read to its last line end.
IPsecConfig reloaded(std::string_view document);

} // namespace ipsecimpl

#endif
