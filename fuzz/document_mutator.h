#ifndef IPSECIMPL_FUZZ_DOCUMENT_MUTATOR_H
#define IPSECIMPL_FUZZ_DOCUMENT_MUTATOR_H

#include <cstddef>
#include <random>
#include <string>
#include <string_view>

namespace ipsecimpl {

/// Changes documents element by element and word by word, so that most of what comes out is still nearly a document.
/// Whatever text it is given, it makes another one of it.
class DocumentMutator {
  public:
    explicit DocumentMutator(unsigned int seed)
        : random_(seed)
    {
    }

    /// `document` with one change.
    std::string changed(std::string_view document);

    /// `document` with an element of `other` in it.
    std::string crossed(std::string_view document, std::string_view other);

    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_); }

  private:
    std::string      withOtherContent(std::string_view document);
    std::string_view someFragment();

    std::minstd_rand random_;
};

} // namespace ipsecimpl

#endif
