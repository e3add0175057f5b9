#include <ipsecimpl/actions.h>

namespace ipsecimpl {

invalid_operation::invalid_operation(const std::string& msg)
    : std::logic_error(msg)
{
}

// Out of line, so that the type information is in the library alone and callers can catch it.
invalid_operation::~invalid_operation() = default;

} // namespace ipsecimpl
