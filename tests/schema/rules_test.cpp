// The rules of the written form one by one: what breaks one is refused by the schema and by the reader, or it is known
// which of the two takes it, and what comes of it.

#include "schema/documents.h"
#include "schema/rules.h"
#include "schema/validator.h"
#include "support/documents.h"

#include <ipsecimpl/config.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

/// The message without the elements that were open.
std::string firstLine(const std::string& message)
{
    return message.substr(0, message.find('\n'));
}

/// The document with every element, changed by each rule.
template <class Rule>
std::vector<std::string> brokenBy(const std::vector<Rule>& rules)
{
    std::vector<std::string> documents;
    for (const Rule& rule : rules)
        documents.push_back(changed(everyElement(), rule.from, rule.to));
    return documents;
}

TEST(Rules, AreKeptByTheDocumentWithEveryElement)
{
    EXPECT_EQ(rewritten<IPsecConfig>(everyElement()), everyElement());
    EXPECT_EQ(verdictOf(Schema::RelaxNG, everyElement()), Verdict::Valid);
    EXPECT_EQ(verdictOf(Schema::XMLSchema, everyElement()), Verdict::Valid);
}

TEST(Rules, AreUpheldBySchemaAndReader)
{
    const std::vector<std::string> documents = brokenBy(refusedByBoth());
    const std::vector<Verdict>     relaxNG   = verdictsOf(Schema::RelaxNG, documents);
    const std::vector<Verdict>     xsd       = verdictsOf(Schema::XMLSchema, documents);
    for (std::size_t i = 0; i < documents.size(); ++i) {
        const RefusedByBoth& rule = refusedByBoth()[i];
        EXPECT_NE(relaxNG[i], Verdict::Valid) << rule.rule;
        EXPECT_EQ(xsd[i] == Verdict::Valid, rule.xsd == XSD::Takes) << rule.rule;
        EXPECT_EQ(firstLine(refusalOf<IPsecConfig>(documents[i])), rule.message) << rule.rule;
    }
}

TEST(Rules, ThatTheReaderDoesNotUphold)
{
    const std::vector<std::string> documents = brokenBy(takenByReader());
    const std::vector<Verdict>     relaxNG   = verdictsOf(Schema::RelaxNG, documents);
    const std::vector<Verdict>     xsd       = verdictsOf(Schema::XMLSchema, documents);
    for (std::size_t i = 0; i < documents.size(); ++i) {
        const TakenByReader& rule = takenByReader()[i];
        EXPECT_NE(relaxNG[i], Verdict::Valid) << rule.rule;
        EXPECT_EQ(xsd[i] == Verdict::Valid, rule.xsd == XSD::Takes) << rule.rule;
        EXPECT_EQ(rewritten<IPsecConfig>(documents[i]), changed(everyElement(), rule.from, rule.stored)) << rule.rule;
    }
}

TEST(Rules, ThatNoSchemaCanUphold)
{
    const std::vector<std::string> documents = brokenBy(takenBySchema());
    const std::vector<Verdict>     relaxNG   = verdictsOf(Schema::RelaxNG, documents);
    const std::vector<Verdict>     xsd       = verdictsOf(Schema::XMLSchema, documents);
    for (std::size_t i = 0; i < documents.size(); ++i) {
        const TakenBySchema& rule = takenBySchema()[i];
        EXPECT_EQ(relaxNG[i], Verdict::Valid) << rule.rule;
        EXPECT_EQ(xsd[i], Verdict::Valid) << rule.rule;
        if (rule.message.empty()) {
            EXPECT_EQ(rewritten<IPsecConfig>(documents[i]), changed(everyElement(), rule.from, rule.stored))
                << rule.rule;
        } else {
            EXPECT_EQ(firstLine(refusalOf<IPsecConfig>(documents[i])), rule.message) << rule.rule;
        }
    }
}

TEST(Rules, AboutTheRootAreUpheldByAllButTheXMLSchema)
{
    const std::string part = "<policies>\n<nextpolicy>1</nextpolicy>\n</policies>\n";
    EXPECT_EQ(verdictOf(Schema::RelaxNG, part), Verdict::Invalid);
    EXPECT_EQ(verdictOf(Schema::XMLSchema, part), Verdict::Valid);
    EXPECT_EQ(firstLine(refusalOf<IPsecConfig>(part)),
              "parse_simple_tag: wrong tag; expected <ipsec>, found <policies>");
}

TEST(Rules, AreKeptByTextsThatAreNoXML)
{
    for (const NoXML& text : noXML()) {
        const std::string document = changed(everyElement(), "own.pem", text.text);
        EXPECT_EQ(rewritten<IPsecConfig>(document), document) << text.rule;
        EXPECT_EQ(verdictOf(Schema::RelaxNG, document), Verdict::NotXML) << text.rule;
    }
}

TEST(Rules, AreKeptByReferencesInTextsWhichTheLibraryDoesNotExpand)
{
    const std::string document = changed(everyElement(), "own.pem", "A &amp; B");
    EXPECT_EQ(rewritten<IPsecConfig>(document), document);
    EXPECT_EQ(verdictOf(Schema::RelaxNG, document), Verdict::Valid);
}

} // namespace
} // namespace ipsecimpl
