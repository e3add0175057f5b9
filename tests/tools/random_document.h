#ifndef IPSECIMPL_TESTS_TOOLS_RANDOM_DOCUMENT_H
#define IPSECIMPL_TESTS_TOOLS_RANDOM_DOCUMENT_H

#include <array>
#include <random>
#include <string>
#include <vector>

/// Makes documents that load, with objects of all kinds and modes. They have much in common: their objects are drawn
/// from the same few, and their IDs, which have gaps, from the same range.
class RandomDocuments {
  public:
    /// `isLossy`: among the texts are some that load, but cannot be stored.
    explicit RandomDocuments(unsigned int seed, bool isLossy = false);

    std::string next();

  private:
    using Texts = std::vector<std::string>;

    std::string collection(const std::string& plural, const std::string& singular, const Texts& elements);

    unsigned int       below(std::size_t count);
    bool               oneIn(unsigned int count) { return below(count) == 0; }
    const std::string& oneOf(const Texts& texts) { return texts[below(texts.size())]; }

    std::string number(long long least, long long greatest);
    std::string numberLeaf(const std::string& tag, long long least, long long greatest);
    std::string wordLeaf(const std::string& tag, const Texts& words);
    std::string text();
    std::string textLeaf(const std::string& tag);

    std::string hostSelector();
    std::string protocolSelector();
    std::string group(const std::string& tag);
    std::string saProposal();
    std::string groupAndLifetime();
    std::string keyExchange();
    std::string manualKey();
    std::string action();
    std::string policy();

    std::mt19937         random_;
    bool                 isLossy_;
    std::array<Texts, 4> elements_; // host groups, protocol groups, actions, policies
};

#endif
