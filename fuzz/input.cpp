#include "input.h"

#include <cstdlib>
#include <iostream>

namespace ipsecimpl {

void fault(std::string_view message, std::string_view expected, std::string_view found)
{
    std::cerr << "FAULT: " << message << "\n--- expected\n"
              << expected << "\n--- found\n"
              << found << "\n---" << std::endl;
    std::abort();
}

unsigned int Program::take()
{
    if (rest_.empty())
        return 0;
    const auto byte = static_cast<unsigned char>(rest_.front());
    rest_.remove_prefix(1);
    return byte;
}

Program Program::part(std::size_t count)
{
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return Program(taken);
}

} // namespace ipsecimpl
