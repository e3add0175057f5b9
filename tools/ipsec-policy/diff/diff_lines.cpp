#include "diff_lines.h"

#include "text.h"

namespace {

const std::size_t HANGING = 4; // shows which lines go on with the one before

struct Look {
    const char* mark;
    Colour      colour;
};

/// What a line begins with: the marks tell what the colours tell.
Look lookOf(Change change)
{
    switch (change) {
    case Change::ADDED:
        return {"+ ", Colour::GREEN};
    case Change::REMOVED:
        return {"- ", Colour::RED};
    default:
        return {"~ ", Colour::YELLOW};
    }
}

} // namespace

void DiffLines::addHeading(Change change, const std::string& text)
{
    addWrapped(lookOf(change).mark + text, Colour::BOLD);
}

void DiffLines::addContext(const std::string& path, const std::string& value)
{
    const std::string text = "    " + path + ": " + value;
    for (const std::string& line : wrapped(text, width_, HANGING))
        text_.append(line).append(1, '\n');
}

void DiffLines::addLone(Change change, const std::string& path, const std::string& value)
{
    const Look look = lookOf(change);
    addWrapped("  " + (look.mark + path) + ": " + value, look.colour);
}

void DiffLines::addChanged(const std::string& path, const std::string& before, const std::string& after)
{
    const std::string start = "  " + (lookOf(Change::CHANGED).mark + path) + ": ";
    if (columnsOf(start + before + ARROW + after) > width_) {
        addLone(Change::REMOVED, path, before);
        addLone(Change::ADDED, path, after);
    } else {
        text_ += start + coloured(before, Colour::RED) + ARROW + coloured(after, Colour::GREEN) + '\n';
    }
}

void DiffLines::addWrapped(const std::string& text, Colour colour)
{
    for (const std::string& line : wrapped(text, width_, HANGING))
        text_ += coloured(line, colour) + '\n';
}
