// Loads a whole document, from a buffer that holds all of it and from one that holds nothing ready. Both must come to
// the same: the same configuration or the same message, and the same left unread.

#include "loading.h"

#include <string>

namespace ipsecimpl {
namespace {

void run(std::string_view document)
{
    ByteBuffer bytes{std::string(document)};
    Loaded     expected = loadedFrom(bytes);
    Loaded     found    = loaded(document);
    require("message", expected.message, found.message);
    require("consumed", std::to_string(expected.consumed), std::to_string(found.consumed));
    if (expected.config)
        require("configuration", stored(*expected.config), stored(*found.config));
}

} // namespace
} // namespace ipsecimpl

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ipsecimpl::run(ipsecimpl::textOf(data, size));
    return 0;
}
