#include "faults/operations.h"

#include <ipsecimpl/enums.h>

#include <sstream>
#include <string>

namespace ipsecimpl {
namespace {

/// The same for each of the twelve.
template <class E>
std::vector<Operation> operationsOf(const E& last)
{
    const auto one = [last] { return last; };
    const auto two = [last] { return Two<E>{E(0), last}; };

    std::ostringstream name; // with an end that no name has
    name << last << "-is-not-the-name-of-anything";

    Operations value("Enum::");
    value.cannotFail("Enum(int v)", one, [](E& e) { return E(e.valueGet()); })
        .fails("Enum(int v) [refused]", one, [](E& e) { return E(e.valueGet() + 1); })
        .cannotFail("Enum(const Enum&)", one, [](E& e) { return E(e); })
        .cannotFail(
            "operator=(const Enum&)", two, [](Two<E> & e) -> auto& { return e.first = e.second; })
        .cannotFail("valueGet() const", one, [](E& e) { return e.valueGet(); })
        .fails("to_int(const std::string& name) [refused]", one, [text = name.str()](E&) { return E::to_int(text); })
        .cannotFail("operator==(const Enum& a, const Enum& b)", two, [](Two<E>& e) { return e.first == e.second; })
        .cannotFail("operator!=(const Enum& a, const Enum& b)", two, [](Two<E>& e) { return e.first != e.second; })
        .cannotFail("operator<(const Enum& a, const Enum& b)", two, [](Two<E>& e) { return e.first < e.second; });

    std::ostringstream word;
    word << last;
    value.cannotFail("to_int(const std::string& name)", one, [text = word.str()](E&) { return E::to_int(text); });

    Operations insertion("");
    insertion.stores("operator<<(std::basic_ostream<CharT, Traits>& os, const Enum<Num, Names>& e)", one,
                     [](const E& e, std::ostream& out) {
                         for (int i = 0; i < 300 && out << e; ++i) // until it takes more room than a stream starts with
                             continue;
                     });
    return joined({value.all(), insertion.all()});
}

} // namespace

std::vector<Operation> enumOperations()
{
    return joined({
        operationsOf(SPD_TUNNEL),
        operationsOf(KEYMGR_IKE),
        operationsOf(IPSEC_ESP_AH),
        operationsOf(AH_AESXCBCMAC),
        operationsOf(ESP_NULL_AESXCBCMAC),
        operationsOf(IKE_AUTH_RSA),
        operationsOf(IKE_DES_MD5),
        operationsOf(DH_GROUP_14),
        operationsOf(KEYLIFETIME_HRS),
        operationsOf(HOST_INETANY),
        operationsOf(HOST_MCAST),
        operationsOf(PROTO_INOUT),
    });
}

} // namespace ipsecimpl
