#include "peer.h"

namespace bench {

std::vector<Peer>& peers()
{
    static std::vector<Peer> all;
    return all;
}

std::string readAll(std::istream& in)
{
    std::string    text;
    constexpr auto chunk = std::size_t{1} << 20U;
    std::size_t    size  = 0;
    do {
        text.resize(size + chunk);
        in.read(&text[size], static_cast<std::streamsize>(chunk));
        size += static_cast<std::size_t>(in.gcount());
    } while (in);
    text.resize(size);
    return text;
}

} // namespace bench
