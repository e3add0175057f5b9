#include "targets/damage.h"

#include <algorithm>
#include <cstddef>

namespace ipsecimpl {
namespace {

const char* const NUMBERS[] = {
    "-9223372036854775809",
    "-9223372036854775808",
    "-4294967296",
    "-2147483649",
    "-2147483648",
    "-1",
    "0",
    "1",
    "65535",
    "65536",
    "2147483647",
    "2147483648",
    "4294967295",
    "4294967296",
    "18446744073709551616",
    "1111111111111111111111111111111111111111",
    "0x7F",
    "0x80000000",
    "010",
    "08",
    "0b1",
    "+5",
    "--5",
    " 5 ",
    "5\xB2",
    "\xD9\xA3",
    "",
};

const char DIGITS[]   = "0123456789";
const char MEANINGS[] = "<>/=&;'\"\n\t -.:_x0";

std::size_t placeIn(const std::string& document, bench::Random& random)
{
    return document.empty() ? 0 : random.below(static_cast<unsigned int>(document.size()));
}

char anyByte(bench::Random& random)
{
    return static_cast<char>(static_cast<unsigned char>(random.below(256)));
}

std::string highBytes(bench::Random& random)
{
    std::string bytes;
    for (unsigned int left = random.below(12); left > 0; --left)
        bytes += static_cast<char>(static_cast<unsigned char>(random.from(128, 255)));
    return bytes;
}

/// Replaces the first text of a leaf behind `place`, if there is one.
void replaceText(std::string& document, std::size_t place, const std::string& text)
{
    const std::size_t begin = document.find('>', place);
    const std::size_t end   = document.find('<', place = begin + 1);
    if (begin != std::string::npos && end != std::string::npos)
        document.replace(place, end - place, text);
}

/// Replaces the first digits behind `place`, if there are some.
void replaceNumber(std::string& document, std::size_t place, const std::string& number)
{
    const std::size_t begin = document.find_first_of(DIGITS, place);
    if (begin == std::string::npos)
        return;
    const std::size_t end = std::min(document.find_first_not_of(DIGITS, begin), document.size());
    document.replace(begin, end - begin, number);
}

void damage(std::string& document, bench::Random& random)
{
    const std::size_t place  = placeIn(document, random);
    const std::size_t length = random.from(1, 20);
    switch (random.below(14)) {
    case 0:
        document.replace(place, 1, 1, anyByte(random));
        break;
    case 1:
        document.insert(place, 1, anyByte(random));
        break;
    case 2:
        document.insert(place, 1, MEANINGS[random.below(sizeof(MEANINGS) - 1)]);
        break;
    case 3:
        document.erase(place, length);
        break;
    case 4:
        document.insert(place, document.substr(placeIn(document, random), length));
        break;
    case 5:
    case 6:
    case 7:
        replaceText(document, place, highBytes(random));
        break;
    case 8:
        if (random.percent(20))
            document.erase(place);
        break;
    default:
        replaceNumber(document, place, random.oneOf(NUMBERS));
        break;
    }
}

} // namespace

std::string damaged(std::string document, bench::Random& random)
{
    for (unsigned int left = random.from(1, 3); left > 0; --left)
        damage(document, random);
    return document;
}

} // namespace ipsecimpl
