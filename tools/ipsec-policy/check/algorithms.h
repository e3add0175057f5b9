#ifndef IPSEC_POLICY_ALGORITHMS_H
#define IPSEC_POLICY_ALGORITHMS_H

/// \file
/// What the numbers in SA proposals stand for. The format gives them no meaning, so an operator says in a file what his
/// system takes them for; docs/algorithms.md tells how.

#include <map>
#include <string>

/// What RFC 8221 says of an algorithm, as far as it matters here.
enum class Status { MUST_NOT, SHOULD_NOT, OUTGOING, FINE };

struct Algorithm {
    std::string name;
    std::string statusName; ///< in the words of the RFC, such as "MUST-"
    Status      status;
    bool        isAEAD;    ///< an encryption that needs no hash beside it
    bool        isCounter; ///< an encryption that must never meet the same counter again
};

class Algorithms {
  public:
    /// Reads the file, or standard input for "-". Throws a Failure (TROUBLE) that names the file, and the member that
    /// is wrong.
    static Algorithms read(const std::string& fileName);

    /// The same with the file's content. Throws a Failure (TROUBLE) without the name of a file.
    static Algorithms parse(const std::string& json);

    const Algorithm* encryption(unsigned long number) const { return find(encryption_, number); } ///< null: not named
    const Algorithm* hash(unsigned long number) const { return find(hash_, number); }             ///< null: not named

  private:
    using Table = std::map<unsigned long, Algorithm>;

    static const Algorithm* find(const Table& table, unsigned long number)
    {
        const auto entry = table.find(number);
        return entry == table.end() ? nullptr : &entry->second;
    }

    Table encryption_;
    Table hash_;
};

#endif
