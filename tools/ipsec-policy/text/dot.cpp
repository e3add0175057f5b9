#include "dot.h"

#include "text.h"

#include <vector>

namespace {

const std::size_t LABEL_WIDTH = 40;

/// A backslash would begin an escape, a quote end the text, and "&lt;" be drawn as '<'.
std::string escaped(std::string_view text)
{
    std::string result;
    for (const char c : text) {
        if (c == '"' || c == '\\')
            result += '\\';
        result += c;
        if (c == '&')
            result += "amp;";
    }
    return result;
}

} // namespace

std::string dotText(std::string_view text)
{
    return '"' + escaped(text) + '"';
}

std::string dotLabel(const Lines& lines)
{
    std::vector<WrappedLine> wrapped;
    for (std::size_t line = 0; line < lines.count(); ++line)
        wrap(lines.text(line), LABEL_WIDTH, 0, wrapped);

    std::string label = "\"";
    for (const WrappedLine& line : wrapped)
        label += (label.size() > 1 ? "\\n" : "") + escaped(line.text);
    return label + '"';
}
