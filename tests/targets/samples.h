#ifndef IPSECIMPL_TESTS_TARGETS_SAMPLES_H
#define IPSECIMPL_TESTS_TARGETS_SAMPLES_H

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace ipsecimpl {

struct NamedDocument {
    std::string name; ///< of the file, without its folder
    std::string text;
};

/// The files of `folder` in the order of their names' bytes. Throws std::runtime_error if one cannot be read.
std::vector<NamedDocument> documentsIn(const std::string& folder);

NamedDocument documentIn(const std::string& file);

/// A document that is damaged in so many ways.
struct DamagedSample {
    NamedDocument document;
    unsigned int  times;
    std::uint64_t seed;
};

std::vector<DamagedSample> damagedSamples();

/// Calls `action` with each damaged document.
void forEachDamaged(const DamagedSample&                                                         sample,
                    const std::function<void(unsigned int number, const std::string& document)>& action);

} // namespace ipsecimpl

#endif
