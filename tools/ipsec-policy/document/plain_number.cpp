#include "plain_number.h"

#include <algorithm>
#include <charconv>

std::optional<std::int64_t> plainNumber(std::string_view text)
{
    const bool             negative = !text.empty() && text.front() == '-';
    const std::string_view digits   = text.substr(negative ? 1 : 0);
    if (digits.empty() || digits.size() > 10 || (digits.front() == '0' && text != "0") ||
        !std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;

    std::int64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}
