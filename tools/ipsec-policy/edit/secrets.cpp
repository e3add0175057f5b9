#include "secrets.h"

#include "edit_words.h"
#include "files.h"

#include <unistd.h>

namespace {

std::string withoutLineEnd(std::string text)
{
    for (const char end : {'\n', '\r'})
        if (!text.empty() && text.back() == end)
            text.pop_back();
    return text;
}

std::string promptedTwice(const std::string& what)
{
    std::string first = promptedSecret(what + ": ");
    if (promptedSecret("Once more: ") != first)
        throw commandFailure("what was typed is not the same twice");
    if (first.empty())
        throw commandFailure("nothing was typed (an empty key is given by = alone)");
    return first;
}

/// What messages call a key file. Its name is not told: whoever forgets what '@' means has typed a key there.
std::string shownFile(const std::string& fileName, const std::string& field)
{
    return isStandardStream(fileName) ? "standard input" : "the file for " + field;
}

/// What to try if there is no such file.
std::string hintAt(const std::string& fileName)
{
    if (fileName.compare(0, 2, "~/") == 0)
        return " ('~' is not replaced by the home folder: write that folder's name)";
    return R"( (a key itself stands there without '@', or in quotes if it begins with one: ="@..."))";
}

std::string contentOf(const std::string& fileName, const std::string& shown)
try {
    return readFileBeside(fileName, "key file", shown);
} catch (const Failure& failure) {
    if (isStandardStream(fileName) || access(fileName.c_str(), F_OK) == 0)
        throw;
    throw commandFailure(failure.what() + hintAt(fileName));
}

} // namespace

std::string Secrets::read(std::string_view value, const std::string& field, const std::string& owner)
{
    if (value == "?")
        return promptedTwice(field + " of " + owner);
    if (!value.empty() && value.front() == '@')
        return fromFile(unquoted(value.substr(1)), field);
    return unquoted(value);
}

std::string Secrets::fromFile(const std::string& fileName, const std::string& field)
{
    if (fileName.empty())
        throw commandFailure(field + ": a file's name is missing behind '@'");
    if (isStandardStream(fileName)) {
        if (inputIsTaken_)
            throw commandFailure("standard input cannot be read for a key: it is the script, or was read before");
        inputIsTaken_ = true;
    }
    const std::string shown = shownFile(fileName, field);
    std::string       text  = withoutLineEnd(contentOf(fileName, shown));
    if (text.empty())
        throw commandFailure(shown + ": there is no key in it");
    if (text.find('\n') != std::string::npos)
        throw commandFailure(shown + ": a key has one line, this has more");
    if (text.find('\0') != std::string::npos)
        throw commandFailure(shown + ": a key is a text, this has NUL characters");
    return text;
}
