#include "understood_rules.h"

#include "understood.h"

#include <algorithm>
#include <iterator>

namespace understood {

const Rule NO_NUMBER = {
    "no-number",
    Level::ERROR,
    "A text that is no number was read as 0",
    "Where a number is expected, a text that does not begin with one is taken for 0\n"
    "without a word, and so is an empty one: a lifetime becomes 0, a policy loses\n"
    "its group. Write the number in decimal digits.",
    "",
};

const Rule NUMBER_CUT_SHORT = {
    "number-cut-short",
    Level::ERROR,
    "What follows a number was ignored",
    "A number is read up to the first character that does not belong to it, and the\n"
    "rest is dropped: '28800s' is 28800, '1,000' is 1, and '0x50' is 0 where only\n"
    "decimal numbers are read (IDs of entries, next IDs, protocols and ports).\n"
    "Write the number alone, without a unit; units have elements of their own.",
    "",
};

const Rule NEGATIVE_NUMBER = {
    "negative-number",
    Level::ERROR,
    "A negative number became a great one",
    "The number has no room for a sign: -1 becomes 4294967295, or 65535 where it is\n"
    "a protocol or a port. Write the number that is meant.",
    "",
};

const Rule NUMBER_TOO_LARGE = {
    "number-too-large",
    Level::ERROR,
    "A number was cut down to the greatest there is room for",
    "Numbers have 32 bits. A greater one becomes the greatest: 4294967295, or\n"
    "2147483647 for IDs of entries, next IDs, prefix lengths and the numbers that\n"
    "may be negative (those have a smallest one too, -2147483648). Write a number\n"
    "within these.",
    "",
};

const Rule NUMBER_TRUNCATED = {
    "number-truncated",
    Level::ERROR,
    "Of a protocol or port number only the low 16 bits were kept",
    "Protocols and ports have 16 bits. Of a greater number the rest is dropped, so\n"
    "that 65616 becomes port 80, and 65536 becomes 0, which is any. Write a number\n"
    "from 0 to 65535.",
    "",
};

const Rule OCTAL_NUMBER = {
    "octal-number",
    Level::WARNING,
    "A leading 0 made a number octal",
    "Most numbers are octal if they begin with 0: '010' is 8. (IDs of entries, next\n"
    "IDs, protocols and ports are decimal all the same.) Write the number without\n"
    "leading zeros.",
    "",
};

const Rule HEXADECIMAL_NUMBER = {
    "hexadecimal-number",
    Level::NOTE,
    "A number in hexadecimal digits",
    "The number was read as it is meant, but it will be stored in decimal digits.\n"
    "There is nothing to do, unless decimal digits were meant.",
    "",
};

const Rule NUMBER_SPELLING = {
    "number-spelling",
    Level::NOTE,
    "A number that is stored in other characters",
    "A plus sign, leading zeros of a decimal number, or white space in its attribute:\n"
    "the number was read as it is meant, but it will be stored in plain decimal\n"
    "digits. There is nothing to do.",
    "",
};

const Rule VALUE_CHANGED = {
    "value-changed",
    Level::ERROR,
    "A value is not what the document says",
    "The configuration in memory has another value than the document, for none of the\n"
    "usual reasons. Compare the two (see 'ipsec-policy show'), and write the value\n"
    "that is meant in a plainer form.",
    "",
};

const Rule KEY_TRIMMED = {
    "key-trimmed",
    Level::WARNING,
    "White space at the ends of a key was dropped",
    "White space between a tag and a text is no part of the text. If it belongs to\n"
    "the key, the peer has another one, and no connection comes about; this format\n"
    "cannot keep it. Choose another key, or write this one without the white space.",
    "",
};

const Rule WHITE_SPACE_TRIMMED = {
    "white-space-trimmed",
    Level::NOTE,
    "White space at the ends of a text was dropped",
    "White space between a tag and a text is no part of the text, line ends\n"
    "included. If it is not meant to be, nothing is wrong; it is gone once the\n"
    "document is stored.",
    "",
};

const Rule EMPTY_ATTRIBUTE = {
    "empty-attribute",
    Level::WARNING,
    "An attribute without a value reads as an empty text",
    "In <name value/> nothing is said of the value, and the text is empty. Write\n"
    "<name></name> if that is meant.",
    "",
};

const Rule ENTITY_KEPT = {
    "entity-kept",
    Level::WARNING,
    "An XML entity stands for itself",
    "This format has no entities: '&amp;' is five characters, in a key as in a\n"
    "name, and will be sent, shown and stored as such. Write the character itself;\n"
    "'&', quotes and '>' need no other form. ('<' cannot be written.)",
    "",
};

const Rule DUPLICATE_SELECTOR = {
    "duplicate-selector",
    Level::WARNING,
    "A selector that the group has already was dropped",
    "A group holds each selector once. Of those that say the same, the first one\n"
    "stays, with its name; protocol selectors may be the same though their names\n"
    "differ. If a selector was copied to be changed, the change is missing;\n"
    "otherwise remove it.",
    "",
};

const Rule NEXT_ID_RAISED = {
    "next-id-raised",
    Level::WARNING,
    "The next ID is another than the document says",
    "The next ID is greater than every ID in use, and the greatest if the document\n"
    "has several. One that is too small was probably forgotten when an entry was\n"
    "added by hand. Write the number that is in force, so that the document tells\n"
    "the truth.",
    "",
};

const Rule NEXT_ID_REPEATED = {
    "next-id-repeated",
    Level::NOTE,
    "The next ID stands more than once in a collection",
    "The greatest counts; once the document is stored there is one. Remove the\n"
    "others.",
    "",
};

bool isOfAnotherNumber(const Rule& rule)
{
    const Rule* const CHANGING[] = {
        &NO_NUMBER,        &NUMBER_CUT_SHORT, &NEGATIVE_NUMBER, &NUMBER_TOO_LARGE,
        &NUMBER_TRUNCATED, &VALUE_CHANGED,    &OCTAL_NUMBER,
    };
    return std::find(std::begin(CHANGING), std::end(CHANGING), &rule) != std::end(CHANGING);
}

} // namespace understood

const std::vector<const Rule*>& understoodRules()
{
    using namespace understood;
    static const std::vector<const Rule*> rules = {
        &NO_NUMBER,          &NUMBER_CUT_SHORT, &NEGATIVE_NUMBER,     &NUMBER_TOO_LARGE,
        &NUMBER_TRUNCATED,   &VALUE_CHANGED,    &OCTAL_NUMBER,        &KEY_TRIMMED,
        &DUPLICATE_SELECTOR, &ENTITY_KEPT,      &NEXT_ID_RAISED,      &EMPTY_ATTRIBUTE,
        &HEXADECIMAL_NUMBER, &NUMBER_SPELLING,  &WHITE_SPACE_TRIMMED, &NEXT_ID_REPEATED,
    };
    return rules;
}
