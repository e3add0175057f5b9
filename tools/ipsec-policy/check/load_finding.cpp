#include "load_finding.h"

#include <string>
#include <utility>

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

Finding loadFinding(const LoadFault& fault)
{
    std::string message = "Reading ends here: " + fault.message + ". " + fault.advice;
    if (!fault.openElements.empty())
        message += " Open elements: " + shownElements(fault) + '.';
    message += " No more of this document was checked.";

    Finding finding;
    finding.rule        = &DOES_NOT_LOAD;
    finding.message     = std::move(message);
    finding.isAboutFile = true;
    finding.offset      = fault.place.offset;
    finding.length      = fault.place.length;
    finding.isLocated   = true;
    return finding;
}
