#include "load_finding.h"

#include "span.h"

#include <ipsecimpl/xml.h>

#include <algorithm>
#include <string>
#include <utility>

namespace {

/// Whether the piece of a document that begins with a '<' is a tag with this name, an end tag if the name begins with a
/// slash.
bool isTag(std::string_view text, std::string_view name)
{
    return text.substr(1, name.size()) == name &&
           !ipsecimpl::XMLParser::isNameChar(static_cast<unsigned char>(text.substr(1 + name.size()).front()));
}

/// Where the element begins whose tag ends the text: a leaf, if its end tag does, as it is the leaf's text that the
/// reader does not like; else that tag.
std::size_t startOfLastElement(std::string_view read, std::size_t lastTag)
{
    if (lastTag == 0 || read[lastTag + 1] != '/')
        return lastTag;
    const std::string_view name  = read.substr(lastTag + 2, read.find_first_of(" \t\n\v\f\r>", lastTag) - lastTag - 2);
    const std::size_t      start = read.rfind('<', lastTag - 1);
    return start != std::string_view::npos && isTag(read.substr(start), name) ? start : lastTag;
}

/// What the parser gave up at, in what it read: the last element, tag, or character.
Span placeOf(std::string_view read)
{
    const std::size_t lastTag = read.rfind('<');
    std::size_t       start   = read.size() - 1;
    if (lastTag != std::string_view::npos) {
        const std::size_t tagEnd = read.find('>', lastTag);
        if (tagEnd == std::string_view::npos)
            start = lastTag;
        else if (tagEnd == read.size() - 1)
            start = startOfLastElement(read, lastTag);
    }
    return {start, read.size() - start};
}

/// The start tag of the last ID that was read: two entries of a collection have the same.
Span placeOfDuplicate(std::string_view read)
{
    std::size_t start = read.rfind("<id");
    while (!isTag(read.substr(start), "id"))
        start = read.rfind("<id", start - 1);
    return {start, read.find('>', start) + 1 - start};
}

/// The tag that comes next: the end tag that stands where a start tag should.
Span placeOfNextTag(std::string_view document, std::size_t read)
{
    const std::size_t start = std::min(document.find_first_not_of(WHITE_SPACE, read), document.size());
    const std::size_t end   = document.find('>', start);
    return {start, end == std::string_view::npos ? 1 : end + 1 - start};
}

Span placeOf(std::string_view document, const LoadFault& fault)
{
    const std::string_view read = document.substr(0, fault.read);
    if (!fault.hasPlace || read.empty())
        return {};
    if (fault.isAtEnd)
        return {read.size(), 0};
    if (fault.message.find(": missing tag; ") != std::string::npos)
        return placeOfNextTag(document, fault.read);
    return fault.message == "duplicate ID" ? placeOfDuplicate(read) : placeOf(read);
}

} // namespace

const Rule DOES_NOT_LOAD = {
    "does-not-load",
    Level::ERROR,
    "The document does not load",
    "The document is not in the format of these configurations, so that no program\n"
    "loads it. The finding marks what the reader could not take: an element, a tag\n"
    "or a character; what is really wrong may stand a little before it. The elements\n"
    "that are open there are listed, the outermost first. Reading ends there, and so\n"
    "does the check of this file: correct it and check again. Of such a document no\n"
    "text is shown, as any of it could be a key in the wrong place.",
    "",
};

Finding loadFinding(std::string_view document, const LoadFault& fault)
{
    std::string message = "Reading ends here: " + fault.message + '.';
    if (!fault.openElements.empty()) {
        message += " Open elements:";
        for (const std::string& element : fault.openElements)
            message += ' ' + element;
        message += '.';
    }
    message += " No more of this document was checked.";

    const auto [offset, length] = placeOf(document, fault);
    Finding finding;
    finding.rule        = &DOES_NOT_LOAD;
    finding.message     = std::move(message);
    finding.isAboutFile = true;
    finding.offset      = offset;
    finding.length      = length;
    finding.isLocated   = true;
    return finding;
}
