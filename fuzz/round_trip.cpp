// Loads a document, stores it, loads what was stored, and stores that. What loads comes back, but for what the format
// cannot carry, and then this is exactly what happens:
//
// - White space at the ends of a text is lost, and with it, of two selectors that differed in nothing else, the second.
// - A protocol selector without a name, or with one of white space alone, is stored, but the document does not load.
// - A text with `<` in it may be read as anything. It takes another text for the rest to come back.

#include "loading.h"
#include "support/contents.h"
#include "texts.h"

#include <string>

namespace ipsecimpl {
namespace {

void checkReturns(IPsecConfig& config)
{
    std::string once = stored(config);
    if (hasUnnamedSelector(config)) {
        require("an unnamed selector", "missing data for <name>", loaded(once).message);
        nameSelectors(config);
        once = stored(config);
    }
    trimTexts(config);
    const std::string expected = stored(config);
    IPsecConfig       again    = reloaded(once);
    require("fields", contentsOf(config), contentsOf(again));
    require("stored, loaded, stored", expected, stored(again));
    again = reloaded(expected);
    require("fields, once more", contentsOf(config), contentsOf(again));
    require("and once more", expected, stored(again));
}

void run(std::string_view document)
{
    Loaded first = loaded(document);
    if (!first.config)
        return;
    IPsecConfig& config = *first.config;
    if (hasMarkup(config)) {
        loaded(stored(config));
        removeMarkup(config);
    }
    checkReturns(config);
}

} // namespace
} // namespace ipsecimpl

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ipsecimpl::run(ipsecimpl::textOf(data, size));
    return 0;
}
