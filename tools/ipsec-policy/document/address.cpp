#include "address.h"

#include <cstddef>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

using namespace ipsecimpl;

namespace {

int socketFamily(const AddressFamily& family)
{
    return family == HOST_INET ? AF_INET : AF_INET6;
}

std::size_t bytesOf(const AddressFamily& family)
{
    return family == HOST_INET ? sizeof(in_addr) : sizeof(in6_addr);
}

} // namespace

const char* nameOf(const AddressFamily& family)
{
    return family == HOST_INET ? "IPv4" : "IPv6";
}

int bitsOf(const AddressFamily& family)
{
    return static_cast<int>(8 * bytesOf(family));
}

std::optional<Address> addressIn(const std::string& text, const AddressFamily& family)
{
    Address address{family, {}};
    // The C function would not see what follows a NUL.
    if (text.find('\0') != std::string::npos ||
        inet_pton(socketFamily(family), text.c_str(), address.bytes.data()) != 1)
        return std::nullopt;
    return address;
}

std::optional<Address> addressIn(const std::string& text)
{
    return addressIn(text, text.find(':') == std::string::npos ? HOST_INET : HOST_INET6);
}

std::string textOf(const Address& address)
{
    std::array<char, INET6_ADDRSTRLEN> text{};
    inet_ntop(socketFamily(address.family), address.bytes.data(), text.data(), static_cast<socklen_t>(text.size()));
    return text.data();
}

Address maskOf(const AddressFamily& family, int length)
{
    Address mask{family, {}};
    auto    left = static_cast<std::size_t>(length);
    for (std::size_t i = 0; left > 0; ++i) {
        const std::size_t bits = left < 8 ? left : 8;
        mask.bytes[i]          = static_cast<unsigned char>(0xFFU << (8 - bits));
        left -= bits;
    }
    return mask;
}

std::optional<int> lengthOf(const Address& mask)
{
    int length = 0;
    for (std::size_t i = 0; i < mask.bytes.size() && mask.bytes[i] == 0xFF; ++i)
        length += 8;
    if (length < bitsOf(mask.family))
        for (unsigned int bit = 0x80; (mask.bytes[static_cast<std::size_t>(length / 8)] & bit) != 0; bit >>= 1U)
            ++length;
    if (maskOf(mask.family, length).bytes != mask.bytes)
        return std::nullopt;
    return length;
}

Address inverse(const Address& mask)
{
    Address result = mask;
    for (std::size_t i = 0; i < bytesOf(mask.family); ++i)
        result.bytes[i] = static_cast<unsigned char>(~mask.bytes[i]);
    return result;
}

Address masked(const Address& address, const Address& mask)
{
    Address result = address;
    for (std::size_t i = 0; i < result.bytes.size(); ++i)
        result.bytes[i] = address.bytes[i] & mask.bytes[i];
    return result;
}
