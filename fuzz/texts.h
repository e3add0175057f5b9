#ifndef IPSECIMPL_FUZZ_TEXTS_H
#define IPSECIMPL_FUZZ_TEXTS_H

#include <ipsecimpl/config.h>

#include <functional>
#include <string>

namespace ipsecimpl {

/// Runs `change` on each text that a document of `config` holds, whatever the rules for changing it are.
void changeTexts(IPsecConfig& config, const std::function<void(std::string&)>& change);

/// That one of these texts has a `<` in it: what is stored then may be read as anything.
bool hasMarkup(IPsecConfig& config);

/// Puts another character in the place of each `<`.
void removeMarkup(IPsecConfig& config);

/// Removes the white space at the ends of the texts, as storing and loading does. Of two selectors that differ in
/// nothing else the first one stays.
void trimTexts(IPsecConfig& config);

/// That a protocol selector has no name, or one of white space alone: what is stored then does not load.
bool hasUnnamedSelector(const IPsecConfig& config);

/// Gives such selectors a name.
void nameSelectors(IPsecConfig& config);

} // namespace ipsecimpl

#endif
