#include "stored_text.h"

#include "load_message.h"

bool holdsMarkup(std::string_view text)
{
    return text.find('<') != std::string_view::npos;
}

bool hasOuterWhiteSpace(std::string_view text)
{
    return !text.empty() && (isWhiteSpace(text.front()) || isWhiteSpace(text.back()));
}

bool isBlank(std::string_view text)
{
    return text.find_first_not_of(WHITE_SPACE) == std::string_view::npos;
}
