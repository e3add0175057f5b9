// Every number field of every element in every form of a number, against what a 32-bit libc makes of it.

#include "hostile/elements.h"
#include "hostile/small_documents.h"
#include "hostile/sweep.h"

#include "support/number_forms.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

enum class Field {
    Signed,     ///< strtol, base 0
    Unsigned,   ///< strtoul, base 0
    Protocol,   ///< strtol, base 10, the low 16 bits; 0 must have no ports
    Port,       ///< strtol, base 10, the low 16 bits
    EntryID,    ///< strtol, base 10, 1 at least
    NextEntryID ///< strtol, base 10, 1 at least; does not go below what the entries need
};

struct NumberField {
    std::string document; ///< the small one it stands in
    std::string tag;
    Field       field;
};

const std::vector<NumberField> fields{
    {"hostGroup", "builtinName", Field::Signed},
    {"hostGroup", "builtinDescr", Field::Signed},
    {"hostSelector-length", "length", Field::Signed},
    {"protocolGroup", "builtinName", Field::Signed},
    {"protocolGroup", "builtinDescr", Field::Signed},
    {"protocolSelector", "protocol", Field::Protocol},
    {"protocolSelector", "dstPort", Field::Port},
    {"protocolSelector", "srcPort", Field::Port},
    {"protocolSelector-any", "protocol", Field::Port},
    {"action-bypass", "changeCount", Field::Signed},
    {"action-bypass", "builtinName", Field::Signed},
    {"action-bypass", "builtinDescr", Field::Signed},
    {"action-bypass", "type", Field::Signed},
    {"action-bypass", "state", Field::Signed},
    {"manualKey", "inboundESPSPI", Field::Unsigned},
    {"manualKey", "outboundESPSPI", Field::Unsigned},
    {"manualKey", "inboundAHSPI", Field::Unsigned},
    {"manualKey", "outboundAHSPI", Field::Unsigned},
    {"proposal", "keyLifetime", Field::Unsigned},
    {"ikePhase2", "keyLifetime", Field::Unsigned},
    {"saProposal", "encryption", Field::Unsigned},
    {"saProposal", "hash", Field::Unsigned},
    {"policy", "hostGroupID", Field::Unsigned},
    {"policy", "protocolGroupID", Field::Unsigned},
    {"policy", "actionID", Field::Unsigned},
    {"hostGroups", "id", Field::EntryID},
    {"protocolGroups", "id", Field::EntryID},
    {"actions", "id", Field::EntryID},
    {"policies", "id", Field::EntryID},
    {"hostGroups", "nexthostGroup", Field::NextEntryID},
    {"protocolGroups", "nextprotocolGroup", Field::NextEntryID},
    {"actions", "nextaction", Field::NextEntryID},
    {"policies", "nextpolicy", Field::NextEntryID},
};

/// The name of the next-ID element in a collection.
std::string nextTagIn(const std::string& document)
{
    const std::size_t begin = document.find("<next") + 1;
    return document.substr(begin, document.find('>', begin) - begin);
}

/// What the document becomes, with the text of `form` in the field.
std::string expectedFor(const NumberField& field, const std::string& document, const NumberForm& form)
{
    const std::string next   = nextTagIn(document);
    const auto        number = [&](auto value) { return withText(document, field.tag, std::to_string(value)); };
    switch (field.field) {
    case Field::Signed:
        return number(form.signedValue);
    case Field::Unsigned:
        return number(form.unsignedValue);
    case Field::Protocol:
    case Field::Port:
        if (form.text.empty())
            return "ParseError: missing data for <" + field.tag + ">";
        if (field.field == Field::Protocol && static_cast<std::uint16_t>(form.decimalValue) == 0)
            return "ParseError: nonzero 'srcPort'/'dstProt' requires nonzero 'protocol'";
        return number(static_cast<std::uint16_t>(form.decimalValue));
    case Field::EntryID:
        if (form.decimalValue < 1)
            return "ParseError: invalid ID for " + next.substr(4);
        return withText(number(form.decimalValue), next,
                        std::to_string(std::max(3U, static_cast<std::uint32_t>(form.decimalValue) + 1)));
    case Field::NextEntryID:
        if (form.text.empty())
            return "ParseError: " + next + " missing required data";
        if (form.decimalValue < 1)
            return "ParseError: invalid value for " + next;
        return number(std::max(3, form.decimalValue));
    }
    return {};
}

TEST(NumberField, OfEveryElementIsReadAsA32BitLibcReadsIt)
{
    std::size_t cases = 0;
    for (const NumberField& field : fields) {
        const SmallDocument& document = smallDocument(field.document);
        for (const NumberForm& form : numberForms()) {
            EXPECT_EQ(resultAlike(document.element, withText(document.text, field.tag, form.text), 1 + cases % 23),
                      expectedFor(field, document.text, form))
                << field.tag << ": " << form.text;
            ++cases;
        }
    }
    reportCases(cases);
}

TEST(NumberField, OfEveryElementThatMayHaveItsTextInAnAttributeIsReadFromThereAlike)
{
    std::size_t cases = 0;
    for (const NumberField& field : fields) {
        if (field.field == Field::Protocol || field.field == Field::Port || field.field == Field::NextEntryID)
            continue;
        const SmallDocument& document = smallDocument(field.document);
        const std::string    line     = leafIn(document.text, field.tag);
        for (const NumberForm& form : numberForms()) {
            const std::string attribute = "<" + field.tag + " value=\"" + form.text + "\"/>";
            EXPECT_EQ(resultAlike(document.element, changed(document.text, line, attribute), 1 + cases % 23),
                      expectedFor(field, document.text, form))
                << attribute;
            ++cases;
        }
    }
    reportCases(cases);
}

/// The innermost two names of a path, which say which field it is: "saProposal/hash".
std::string fieldIn(const std::string& path)
{
    const std::size_t last = path.rfind('/');
    const std::size_t from = last == std::string::npos ? last : path.rfind('/', last - 1);
    return path.substr(from + 1);
}

TEST(NumberField, IsInTheTableOfFieldsWhereverADocumentHasANumber)
{
    std::set<std::string> inTable;
    std::set<std::string> inDocuments;
    for (const SmallDocument& document : smallDocuments()) {
        if (!document.written)
            continue;
        for (const ElementPlace& element : elementsIn(document.text)) {
            const std::string text(document.text, element.content, element.contentEnd - element.content);
            const std::string tag = element.path.substr(element.path.rfind('/') + 1);
            if (!text.empty() && text.find_first_not_of("-0123456789") == std::string::npos)
                inDocuments.insert(fieldIn(element.path));
            for (const NumberField& field : fields)
                if (field.document == document.name && field.tag == tag)
                    inTable.insert(fieldIn(element.path));
        }
    }
    EXPECT_EQ(inTable, inDocuments);
    EXPECT_EQ(inTable.size(), 32U);
}

} // namespace
} // namespace ipsecimpl
