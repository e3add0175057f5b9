#include <ipsecimpl/xml.h>

#include "xml/joined.h"

namespace ipsecimpl {

ParseError::ParseError(const std::string& msg)
    : std::runtime_error(msg)
{
}

ParseError::ParseError(const std::string& msg, const std::stack<std::string>& tags)
    : std::runtime_error(where(msg, tags))
{
}

// Out of line, so that the type information is in the library alone and callers can catch it.
ParseError::~ParseError() = default;

std::string ParseError::where(const std::string& msg, const std::stack<std::string>& tags)
{
    std::string text = msg;
    for (std::stack<std::string> open = tags; !open.empty(); open.pop())
        text += joined({"\nfrom <", open.top(), ">"});
    return text;
}

} // namespace ipsecimpl
