#include "algorithms.h"

#include "check_samples.h"
#include "failure.h"
#include "program.h"

#include "support/xml.h"

#include <ipsecimpl/ipsecimpl.h>

#include <gtest/gtest.h>

using namespace ipsecimpl;

namespace {

const char EXAMPLE[] = EXAMPLES_DIR "/algorithms.json";

/// A file of one encryption, number 12.
std::string encryption(const std::string& members)
{
    return R"({"encryption": {"12": )" + members + R"(}, "hash": {}})";
}

/// A file of one hash, number 5.
std::string hash(const std::string& members)
{
    return R"({"encryption": {}, "hash": {"5": )" + members + "}}";
}

std::string refusal(const std::string& json)
{
    try {
        Algorithms::parse(json);
        return "accepted";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.status, ExitStatus::TROUBLE);
        return failure.what();
    }
}

TEST(Algorithms, AreFoundByTheirNumbers)
{
    const Algorithms algorithms = Algorithms::parse(
        R"({"encryption": {"4294967295": {"name": "A", "status": "MAY", "counter": true}, "0": {"name": "B", "status":
            "SHOULD NOT", "aead": true, "counter": false}}, "hash": {"7": {"status": "MUST-", "name": "C"}}})");
    const Algorithm* const a = algorithms.encryption(4294967295U);
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->name, "A");
    EXPECT_EQ(a->statusName, "MAY");
    EXPECT_EQ(a->status, Status::FINE);
    EXPECT_FALSE(a->isAEAD);
    EXPECT_TRUE(a->isCounter);
    const Algorithm* const b = algorithms.encryption(0);
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(b->status, Status::SHOULD_NOT);
    EXPECT_TRUE(b->isAEAD);
    EXPECT_FALSE(b->isCounter);
    const Algorithm* const c = algorithms.hash(7);
    ASSERT_NE(c, nullptr);
    EXPECT_EQ(c->name, "C");
    EXPECT_EQ(c->status, Status::OUTGOING);
    EXPECT_EQ(algorithms.encryption(7), nullptr);
    EXPECT_EQ(algorithms.hash(0), nullptr);
}

TEST(Algorithms, HaveTheStatusesOfTheRFC)
{
    const struct {
        const char* name;
        Status      status;
    } STATUSES[] = {{"MUST", Status::FINE},
                    {"MUST-", Status::OUTGOING},
                    {"SHOULD+", Status::FINE},
                    {"SHOULD", Status::FINE},
                    {"SHOULD-", Status::OUTGOING},
                    {"MAY", Status::FINE},
                    {"SHOULD NOT", Status::SHOULD_NOT},
                    {"MUST NOT", Status::MUST_NOT}};
    for (const auto& expected : STATUSES) {
        const Algorithms algorithms =
            Algorithms::parse(hash(std::string(R"({"name": "X", "status": ")") + expected.name + "\"}"));
        ASSERT_NE(algorithms.hash(5), nullptr);
        EXPECT_EQ(algorithms.hash(5)->status, expected.status) << expected.name;
        EXPECT_EQ(algorithms.hash(5)->statusName, expected.name);
    }
}

TEST(Algorithms, AreRefusedWithTheMemberThatIsWrong)
{
    const std::string NUMBER = "this must be a decimal number from 0 to 4294967295";
    const std::string STATUSES =
        "this must be one of: MUST, MUST-, SHOULD+, SHOULD, SHOULD-, MAY, SHOULD NOT, MUST NOT";
    const struct {
        std::string json;
        std::string message;
    } REFUSED[] = {
        {"[]", "this must be an object, { ... }"},
        {"null", "this must be an object, { ... }"},
        {"{}", "encryption: this member is missing"},
        {R"({"encryption": {}})", "hash: this member is missing"},
        {R"({"encryption": {}, "hash": []})", "hash: this must be an object, { ... }"},
        {R"({"encryption": {}, "hash": {}, "hashes": {}})", "hashes: no such member; there are: encryption, hash"},
        {R"({"encryption": {}, "hash": {}, "hash": {}})", "hash: this member occurs twice"},
        {R"({"encryption": {"1": {}, "1": {}}, "hash": {}})", "encryption/1: this member occurs twice"},
        {encryption(R"({"name": "a", "name": "b"})"), "encryption/12/name: this member occurs twice"},
        {encryption("7"), "encryption/12: this must be an object, { ... }"},
        {encryption(R"({"status": "MUST"})"), "encryption/12/name: this member is missing"},
        {encryption(R"({"name": "X"})"), "encryption/12/status: this member is missing"},
        {encryption(R"({"name": "", "status": "MUST"})"), "encryption/12/name: this must be a text that is not empty"},
        {encryption(R"({"name": 7, "status": "MUST"})"), "encryption/12/name: this must be a text that is not empty"},
        {encryption(R"({"name": "X", "status": 1})"), "encryption/12/status: this must be a text that is not empty"},
        {encryption(R"({"name": "X", "status": "must"})"), "encryption/12/status: " + STATUSES},
        {hash(R"({"name": "X", "status": "MUSTNOT"})"), "hash/5/status: " + STATUSES},
        {encryption(R"({"name": "X", "status": "MUST", "aead": 1})"), "encryption/12/aead: this must be true or false"},
        {encryption(R"({"name": "X", "status": "MUST", "counter": "no"})"),
         "encryption/12/counter: this must be true or false"},
        {encryption(R"({"name": "X", "status": "MUST", "AEAD": true})"),
         "encryption/12/AEAD: no such member; there are: name, status, aead, counter"},
        {hash(R"({"name": "X", "status": "MUST", "aead": true})"),
         "hash/5/aead: no such member; there are: name, status"},
        {R"({"encryption": {"": {}}, "hash": {}})", "encryption/: " + NUMBER},
        {R"({"encryption": {"x\u001b": {}}, "hash": {}})", "encryption/x\\x1b: " + NUMBER},
        {R"({"encryption": {"-1": {}}, "hash": {}})", "encryption/-1: " + NUMBER},
        {R"({"encryption": {"012": {}}, "hash": {}})", "encryption/012: " + NUMBER},
        {R"({"encryption": {"0x1": {}}, "hash": {}})", "encryption/0x1: " + NUMBER},
        {R"({"encryption": {}, "hash": {"4294967296": {}}})", "hash/4294967296: " + NUMBER},
        {R"({"encryption": {}, "hash": {"99999999999999999999": {}}})", "hash/99999999999999999999: " + NUMBER},
    };
    for (const auto& refused : REFUSED)
        EXPECT_EQ(refusal(refused.json), refused.message) << refused.json;
}

TEST(Algorithms, AreRefusedWithThePlaceOfASyntaxErrorButNotItsText)
{
    EXPECT_EQ(refusal(""),
              "line 1, column 1: syntax error while parsing value - unexpected end of input; expected '[', "
              "'{', or a literal");
    EXPECT_EQ(refusal("{\n  \"encryption\": secret"),
              "line 2, column 17: syntax error while parsing value - invalid literal");
    EXPECT_EQ(refusal("{} {}"),
              "line 1, column 4: syntax error while parsing value - unexpected '{'; expected end of input");
}

class AlgorithmsFile : public InFolder {};

TEST_F(AlgorithmsFile, IsNamedInMessages)
{
    writeFile("numbers\n.json", "{}");
    try {
        Algorithms::read("numbers\n.json");
        FAIL() << "accepted";
    } catch (const Failure& failure) {
        EXPECT_STREQ(failure.what(), "numbers\\n.json: encryption: this member is missing");
        EXPECT_EQ(failure.status, ExitStatus::TROUBLE);
    }
}

TEST_F(AlgorithmsFile, ThatIsMissingIsAFailure)
{
    try {
        Algorithms::read("none.json");
        FAIL() << "accepted";
    } catch (const Failure& failure) {
        EXPECT_STREQ(failure.what(), "none.json: No such file or directory");
    }
}

TEST(AlgorithmsExample, NamesWhatTheStarterConfigurationHasAsFine)
{
    const Findings findings = findingsIn(read<IPsecConfig>(run({"new"}).out), contentOf(EXAMPLE));
    for (const Finding& finding : findings)
        EXPECT_EQ(finding.rule->level, Level::NOTE) << textOf(finding);
    EXPECT_TRUE(textsOf(findings, "unknown-algorithm").empty());
    EXPECT_TRUE(textsOf(findings, "algorithm-outgoing").empty());
}

TEST(AlgorithmsExample, IsTheOneOfTheDocumentation)
{
    EXPECT_NE(contentOf(DOCS_DIR "/algorithms.md").find("```json\n" + contentOf(EXAMPLE) + "```\n"), std::string::npos);
}

} // namespace
