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
    const std::string first = promptedSecret(what + ": ");
    if (promptedSecret("Once more: ") != first)
        throw commandFailure("what was typed is not the same twice");
    if (first.empty())
        throw commandFailure("nothing was typed (an empty key is given by = alone)");
    return first;
}

/// What messages call a key file. Its name is not told: whoever forgets what '@' means has typed a key there.
const char NAMED_FILE[] = "the file named behind '@'";

std::string contentOf(const std::string& fileName)
try {
    return readFileBeside(fileName, "key file", NAMED_FILE);
} catch (const Failure& failure) {
    if (isStandardStream(fileName) || access(fileName.c_str(), F_OK) == 0)
        throw;
    throw commandFailure(failure.what() + std::string(" (a key itself stands there without '@')"));
}

} // namespace

std::string Secrets::read(std::string_view value, const std::string& what)
{
    if (value == "?")
        return promptedTwice(what);
    if (!value.empty() && value.front() == '@')
        return fromFile(unquoted(value.substr(1)));
    return unquoted(value);
}

std::string Secrets::fromFile(const std::string& fileName)
{
    if (isStandardStream(fileName)) {
        if (inputIsTaken_)
            throw commandFailure("standard input cannot be read for a key: it is the script, or was read before");
        inputIsTaken_ = true;
    }
    const std::string shown = isStandardStream(fileName) ? "standard input" : NAMED_FILE;
    const std::string text  = withoutLineEnd(contentOf(fileName));
    if (text.empty())
        throw commandFailure(shown + ": there is no key in it");
    if (text.find('\n') != std::string::npos)
        throw commandFailure(shown + ": a key has one line, this has more");
    if (text.find('\0') != std::string::npos)
        throw commandFailure(shown + ": a key is a text, this has NUL characters");
    return text;
}
