#ifndef IPSECIMPL_TESTS_TARGETS_OUTCOME_H
#define IPSECIMPL_TESTS_TARGETS_OUTCOME_H

/// \file
/// What comes of documents, as text that can be compared with what comes of them on another target.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ipsecimpl {

struct DocumentOutcome {
    std::string store;   ///< the configuration as it is stored again; empty if the document does not load
    std::string message; ///< what() of the ParseError; empty if the document loads
    std::string again;   ///< what comes of loading and storing the store: "the same", "another store" or a message

    /// One line: the message, or the store's length and digest, and what comes of that.
    std::string line() const;
};

DocumentOutcome outcomeOf(const std::string& document);

/// `text` on one line, in which bytes that are not printable ASCII stand as "\xE4". If it is longer than `most`, its
/// beginning and its digest.
std::string printableLine(std::string_view text, std::size_t most = 400);

/// 64-bit FNV-1a.
std::uint64_t digest(std::string_view text);
std::string   digestText(std::string_view text); ///< 16 digits

} // namespace ipsecimpl

#endif
