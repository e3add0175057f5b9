#include "loading.h"

#include <utility>

namespace ipsecimpl {

IPsecConfig reloaded(std::string_view document)
{
    Loaded result = loaded(document);
    require("reading what was stored", "", result.message);
    require("left unread of what was stored", "\n", document.substr(result.consumed));
    return *std::move(result.config);
}

} // namespace ipsecimpl
