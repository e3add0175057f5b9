// Names and constants of the protocol selector. A row is a value: its word in the document, and under the table its
// constant, in the same order.

#include <ipsecimpl/enums.h>

namespace ipsecimpl {

const char* const __DirectionNames__[] = {"IN", "OUT", "INOUT"};

constexpr Direction PROTO_IN{0};
constexpr Direction PROTO_OUT{1};
constexpr Direction PROTO_INOUT{2};

template int Enum<__DirectionNum__, &__DirectionNames__>::to_int(const std::string&);

namespace {

// The counts are inline constants: only what takes an address makes the library carry them as symbols.
[[gnu::used]] const int* const exportedCounts[] = {
    &__DirectionNum__,
};

} // namespace

} // namespace ipsecimpl
