#ifndef IPSECIMPL_TESTS_PROPERTIES_RANDOM_MODEL_H
#define IPSECIMPL_TESTS_PROPERTIES_RANDOM_MODEL_H

#include "generator.h"

#include <ipsecimpl/ipsecimpl.h>

#include <cstdint>
#include <string>

namespace ipsecimpl {

/// Makes objects of every kind, in every mode, with any value in every field, out of which a document comes back as it
/// was: no `<` and no white space at the ends of a text, a name for each protocol selector, nothing in fields that are
/// not in force. All other bytes are among the texts, and all 32-bit numbers among the numbers; ends and limits are
/// frequent.
///
/// The same seed makes the same objects everywhere.
class RandomModel {
  public:
    explicit RandomModel(std::uint64_t seed)
        : random_(seed)
    {
    }

    IPsecConfig       config();
    HostSelector      hostSelector();
    ProtocolSelector  protocolSelector();
    HostGroup         hostGroup();
    ProtocolGroup     protocolGroup();
    IPsecProposal     saProposal();
    IKEPhase1Proposal proposal();
    IKEPhase1         ikePhase1();
    IKEPhase2         ikePhase2();
    MKM               manualKey();
    IPsecAction       action();
    Policy            policy();

    /// What all of it is made from.
    bench::Random& random() { return random_; }

  private:
    /// Any value of the enumeration.
    template <class E>
    E oneOf();

    template <class Collection, class Make>
    Collection collection(const char* plural, const char* singular, Make make);

    template <class Group, class Make>
    Group group(Make make);

    std::string  text();
    std::string  visibleText(); // not empty
    unsigned int number();
    int          signedNumber() { return static_cast<int>(number()); }
    std::string  address();
    std::string  mask(const AddressFamily& family);
    IPsecAction  builtIn(const SPDAction& spdAction, const IPsecKeyMgr& keyMgr);
    IPsecAction  counted(const SPDAction& spdAction, const IPsecKeyMgr& keyMgr);

    bench::Random random_;
};

} // namespace ipsecimpl

#endif
