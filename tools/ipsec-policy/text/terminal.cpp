#include "terminal.h"

#include <cstdlib>
#include <cstring>

#include <sys/ioctl.h>
#include <unistd.h>

namespace {

const std::size_t USUAL_WIDTH    = 80;
const std::size_t LEAST_WIDTH    = 20;
const std::size_t GREATEST_WIDTH = 10000;

bool isUsable(unsigned long width)
{
    return width >= LEAST_WIDTH && width <= GREATEST_WIDTH;
}

bool showsColours()
{
    const char* const noColour = std::getenv("NO_COLOR");
    const char* const terminal = std::getenv("TERM");
    return (noColour == nullptr || *noColour == '\0') && terminal != nullptr && std::strcmp(terminal, "dumb") != 0 &&
           isatty(STDOUT_FILENO) == 1;
}

const char* escapeOf(Colour colour)
{
    switch (colour) {
    case Colour::RED:
        return "\x1b[31m";
    case Colour::YELLOW:
        return "\x1b[33m";
    case Colour::GREEN:
        return "\x1b[32m";
    case Colour::CYAN:
        return "\x1b[36m";
    default:
        return "\x1b[1m";
    }
}

} // namespace

std::size_t outputWidth()
{
    if (const char* const columns = std::getenv("COLUMNS"); columns != nullptr && *columns >= '0' && *columns <= '9') {
        char*               end   = nullptr;
        const unsigned long width = std::strtoul(columns, &end, 10);
        if (*end == '\0' && isUsable(width))
            return width;
    }
    struct winsize size = {};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && isUsable(size.ws_col))
        return size.ws_col;
    return USUAL_WIDTH;
}

std::string coloured(std::string_view text, Colour colour)
{
    std::string result;
    appendColoured(result, text, colour);
    return result;
}

void appendColoured(std::string& line, std::string_view text, Colour colour)
{
    static const bool shown = showsColours();
    if (shown)
        line += escapeOf(colour);
    line += text;
    if (shown)
        line += "\x1b[0m";
}
