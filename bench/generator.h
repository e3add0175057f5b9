#ifndef IPSECIMPL_BENCH_GENERATOR_H
#define IPSECIMPL_BENCH_GENERATOR_H

#include <ipsecimpl/config.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <sstream>
#include <string>

namespace bench {

/// Random numbers that are the same with every standard library: the engine is fixed by the standard, its
/// distributions are not, so none is used.
class Random {
  public:
    explicit Random(std::uint64_t seed)
        : engine_(seed)
    {
    }

    /// 0 to `count - 1`.
    unsigned int below(unsigned int count) { return static_cast<unsigned int>(engine_() % count); }

    unsigned int from(unsigned int first, unsigned int last) { return first + below(last - first + 1); }

    bool percent(unsigned int chance) { return below(100) < chance; }

    template <class T, std::size_t N>
    const T& oneOf(const T (&values)[N])
    {
        return values[below(N)];
    }

    std::string hexDigits(unsigned int count);

  private:
    std::mt19937_64 engine_;
};

/// A configuration as a large operator has it: `policies` policies, half as many host groups and as many actions, a
/// quarter as many protocol groups (one of each at least), 1 to 5 selectors in a group. Of the actions 45 % have keys
/// from IKE (two thirds pre-shared, the rest certificates), 30 % manual keys, and 25 % let pass or drop.
///
/// It is built as any program builds one, through constructors, setters and add(): an action's change counter is what
/// its setters counted, so that another program can build the very same configuration. The same arguments give the same
/// configuration everywhere.
ipsecimpl::IPsecConfig makeConfig(unsigned int policies, std::uint64_t seed = 1);

/// A configuration of the same size in which next to nothing is to be found: each object is used, no two policies are for
/// the same traffic, and every action is a tunnel with what is strongest in phase 1. That its hash is SHA1 is a note on
/// each; the format has no better.
ipsecimpl::IPsecConfig makeTidyConfig(unsigned int policies, std::uint64_t seed = 1);

/// The configuration as it is stored. With 20,000 policies: 21 MB in 890,000 lines.
std::string makeDocument(unsigned int policies, std::uint64_t seed = 1);

/// What makes up a configuration.
ipsecimpl::HostSelector     makeHostSelector(Random& random);
ipsecimpl::ProtocolSelector makeProtocolSelector(Random& random);
ipsecimpl::HostGroup        makeHostGroup(Random& random, unsigned int number);
ipsecimpl::ProtocolGroup    makeProtocolGroup(Random& random, unsigned int number);
ipsecimpl::IPsecAction      makeIKEAction(Random& random, unsigned int number, const ipsecimpl::IKEAuthType& authType);
ipsecimpl::IPsecAction      makeManualAction(Random& random, unsigned int number);
ipsecimpl::IPsecAction      makePlainAction(Random& random, unsigned int number);

/// `value` as it is stored, which works for a whole configuration and for each element.
template <class Value>
std::string stored(Value&& value)
{
    std::ostringstream out;
    value.exportXML(out);
    return out.str();
}

} // namespace bench

#endif
