#include "understood.h"

#include "leaf_finder.h"
#include "leaf_words.h"
#include "number_text.h"
#include "understood_rules.h"

#include <string>
#include <utility>

using namespace understood;

namespace {

const std::size_t LONGEST_ENTITY = 16; // with a few leading zeros

Finding findingAt(const Rule& rule, const Misreading& misreading, std::string message)
{
    Finding finding;
    finding.rule      = &rule;
    finding.path      = misreading.path;
    finding.message   = std::move(message);
    finding.offset    = misreading.place.offset;
    finding.length    = misreading.place.length;
    finding.isLocated = true;
    return finding;
}

std::string tagOf(const ObjectPath& path)
{
    return path.field.substr(path.field.rfind('/') + 1); // all of it where there is none
}

/// A text in the place of a number, as it may be shown.
std::string shown(std::string_view text)
{
    if (text.empty())
        return "an empty text";
    if (isPrintableNumber(text))
        return '\'' + std::string(text) + '\'';
    return "a text of " + std::to_string(text.size()) + (text.size() == 1 ? " byte" : " bytes");
}

/// A text as the subject of a sentence.
std::string sentenceAbout(std::string_view text)
{
    std::string sentence = shown(text);
    if (sentence.front() == 'a')
        sentence.front() = 'A';
    return sentence;
}

/// Why a number ends before its text does.
std::string cutMessage(const std::string& read, std::string_view text, bool isDecimal)
{
    if (!isPrintableNumber(text))
        return read + ", and what follows the number was ignored. Write the number alone.";
    if (isDecimal)
        return read + ", because only decimal numbers are read here. Write it in decimal digits.";
    return read + ", because a leading 0 makes it octal, and 8 and 9 are no octal digits. Write it without the leading "
                  "0.";
}

Finding changedFinding(const Misreading& misreading)
{
    return findingAt(VALUE_CHANGED, misreading,
                     "The value that is in force is not this one. See what 'ipsec-policy show' has, and write that.");
}

Finding numberFinding(const Misreading& misreading, std::string_view text, const std::string& stored)
{
    if (!isNumberTag(tagOf(misreading.path)))
        return changedFinding(misreading);
    const std::string read      = sentenceAbout(text) + " was read as " + stored;
    const bool        isDecimal = isDecimalTag(tagOf(misreading.path));
    switch (formOf(text, stored, isDecimal)) {
    case NumberForm::NONE:
        return findingAt(NO_NUMBER, misreading, read + ", because it does not begin with a number. Write a number.");
    case NumberForm::CUT_SHORT:
        return findingAt(NUMBER_CUT_SHORT, misreading, cutMessage(read, text, isDecimal));
    case NumberForm::NEGATIVE:
        return findingAt(NEGATIVE_NUMBER, misreading,
                         read + ", because negative numbers wrap around here. Write the number that is meant.");
    case NumberForm::TOO_LARGE:
        return findingAt(NUMBER_TOO_LARGE, misreading,
                         read + (stored.front() == '-' ? ", the smallest" : ", the greatest") +
                             " number there is room for. Write a number within 32 bits.");
    case NumberForm::TRUNCATED:
        return findingAt(NUMBER_TRUNCATED, misreading,
                         read + ", because only the low 16 bits are kept. Write a number from 0 to 65535.");
    case NumberForm::OCTAL:
        return findingAt(OCTAL_NUMBER, misreading,
                         read + ", because a leading 0 makes it octal. Write it without the leading 0.");
    case NumberForm::HEXADECIMAL:
        return findingAt(HEXADECIMAL_NUMBER, misreading, read + ", and will be stored so.");
    case NumberForm::SPELLING:
        return findingAt(NUMBER_SPELLING, misreading, read + ", and will be stored so.");
    case NumberForm::UNKNOWN:
        break;
    }
    return changedFinding(misreading);
}

/// Whether the next ID that is in force stands in the document as well, behind the one that was misread.
bool isRepeated(const Misreading& nextID, const Source& source)
{
    for (const Misreading& other : source.misreadings())
        if (other.how == Misread::REPEATED_NEXT_ID && other.path.kind == nextID.path.kind &&
            std::to_string(readID(other.text.in(source.document()))) == nextID.stored)
            return true;
    return false;
}

/// What a next ID was read as is not what is stored, if that is greater.
void checkNextID(const Misreading& misreading, const Source& source, Findings& findings)
{
    const std::string_view text = misreading.text.in(source.document());
    const std::string      read = std::to_string(readID(text));
    if (text != read)
        findings.push_back(numberFinding(misreading, text, read));
    if (read != misreading.stored)
        findings.push_back(findingAt(
            NEXT_ID_RAISED, misreading,
            "The next ID is " + misreading.stored + " instead of " + read + ", because " +
                (isRepeated(misreading, source) ? "a greater one stands behind it" : "there are greater IDs") +
                ". Write " + misreading.stored + "."));
}

Finding trimmedFinding(const Misreading& misreading)
{
    if (isSecretTag(tagOf(misreading.path)))
        return findingAt(KEY_TRIMMED, misreading,
                         "White space around the key was dropped. Write the key without it; if it belongs to the key, "
                         "choose another key.");
    return findingAt(WHITE_SPACE_TRIMMED, misreading, "White space around the text was dropped.");
}

void check(const Misreading& misreading, const Source& source, Findings& findings)
{
    const std::string_view text = misreading.text.in(source.document());
    switch (misreading.how) {
    case Misread::OTHERWISE:
        findings.push_back(numberFinding(misreading, text, misreading.stored));
        break;
    case Misread::TRIMMED:
        findings.push_back(trimmedFinding(misreading));
        break;
    case Misread::EMPTY_ATTRIBUTE:
        findings.push_back(findingAt(EMPTY_ATTRIBUTE, misreading,
                                     "The attribute has no value, which reads as an empty text. Write the value."));
        break;
    case Misread::DROPPED:
        findings.push_back(findingAt(DUPLICATE_SELECTOR, misreading,
                                     "This selector says the same as one before it in its group, whatever "
                                     "their names, and was dropped. "
                                     "Remove it, or write what it was meant to be."));
        break;
    case Misread::NEXT_ID:
        checkNextID(misreading, source, findings);
        break;
    case Misread::REPEATED_NEXT_ID:
        findings.push_back(
            findingAt(NEXT_ID_REPEATED, misreading, "The collection has a next ID before this one. Remove one."));
        break;
    }
}

/// How long the XML entity is that `text` begins with; 0 if it is none.
std::size_t entityLength(std::string_view text)
{
    const std::string_view NAMED[] = {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"};
    for (const std::string_view name : NAMED)
        if (text.substr(0, name.size()) == name)
            return name.size();
    if (text.substr(0, 2) != "&#")
        return 0;
    const bool        isHex = text.substr(2, 1) == "x";
    const std::size_t begin = isHex ? 3 : 2;
    const std::size_t end   = text.find_first_not_of(isHex ? "0123456789abcdefABCDEF" : "0123456789", begin);
    return end != std::string_view::npos && end > begin && text[end] == ';' ? end + 1 : 0;
}

/// Nothing is changed here, but who writes an entity means another text.
void checkEntities(const Source& source, Findings& findings)
{
    const std::string_view document = source.document();
    LeafFinder             leaves(source);
    for (std::size_t at = document.find('&'); at != std::string_view::npos; at = document.find('&', at + 1)) {
        const std::size_t length = entityLength(document.substr(at, LONGEST_ENTITY));
        if (length == 0 || !leaves.goTo(at) || isNumberTag(leaves.leaf().tag.name))
            continue;
        findings.push_back(findingAt(ENTITY_KEPT, {Misread::OTHERWISE, leaves.path(), {at, length}, {}, {}},
                                     "What looks like an XML entity is kept as it stands, because this format has "
                                     "none. Write the character itself."));
        at = leaves.leaf().text.end() - 1;
    }
}

} // namespace

void checkUnderstood(const Source& source, Findings& findings)
{
    for (const Misreading& misreading : source.misreadings())
        check(misreading, source, findings);
    checkEntities(source, findings);
}
