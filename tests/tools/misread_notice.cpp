// That values were not understood as written is told by the commands that only look, too.

#include "program.h"

#include <string>

namespace {

class MisreadNotice : public InFolder {};

/// A document with so many values that are not numbers.
std::string misreading(std::size_t count)
{
    std::string text = document("", "", "", entry("policy", 1, policy(1, 2, 3)));
    for (const char* const tag : {"<hostGroupID>", "<protocolGroupID>", "<actionID>"})
        if (count > 0 && count-- > 0)
            text.insert(text.find('<', text.find(tag) + 1), "x");
    return text;
}

std::string notice(const std::string& text)
{
    return "ipsec-policy: " + text + " not understood as written; 'ipsec-policy check' tells which\n";
}

TEST_F(MisreadNotice, TellsHowManyValues)
{
    writeFile("p.xml", misreading(3));
    EXPECT_EQ(run({"show", "p.xml"}).err, notice("p.xml: 3 values were"));
    EXPECT_EQ(run({"show", "--json", "p.xml"}).err, notice("p.xml: 3 values were"));
    EXPECT_EQ(run({"graph", "p.xml"}).err, notice("p.xml: 3 values were"));
    EXPECT_EQ(run({"show", "-"}, misreading(1)).err, notice("standard input: 1 value was"));
}

TEST_F(MisreadNotice, ChangesNeitherTheResultNorTheExitStatus)
{
    const Outcome plain   = run({"show", "-"}, misreading(0));
    const Outcome misread = run({"show", "-"}, misreading(3));
    EXPECT_EQ(misread.status, 0);
    EXPECT_EQ(misread.out, plain.out);
    EXPECT_EQ(plain.err, "");
}

TEST_F(MisreadNotice, OfTwoDocumentsNamesTheOne)
{
    writeFile("a.xml", misreading(0));
    writeFile("b.xml", misreading(2));
    EXPECT_EQ(run({"diff", "a.xml", "b.xml"}), (Outcome{0, "", notice("b.xml: 2 values were")}));
    EXPECT_EQ(run({"diff", "b.xml", "a.xml"}), (Outcome{0, "", notice("b.xml: 2 values were")}));
}

TEST_F(MisreadNotice, IsForSelectorsThatAreDroppedToo)
{
    const std::string selector =
        "<hostSelector><family>AF_INET</family><selectorType>ANY</selectorType></hostSelector>";
    const auto having = [&](const std::string& selectors, const std::string& id) {
        return document(entry("hostGroup", 1, group("hostGroup", "a", "", selectors)), "", "",
                        entry("policy", 1,
                              "<policy><hostGroupID>" + id +
                                  "</hostGroupID><protocolGroupID>1</protocolGroupID>"
                                  "<actionID>1</actionID></policy>"));
    };
    EXPECT_EQ(run({"show", "-"}, having(selector, "1")).err, "");
    EXPECT_EQ(run({"show", "-"}, having(selector + selector, "1")).err, notice("standard input: 1 selector was"));
    EXPECT_EQ(run({"show", "-"}, having(selector + selector + selector, "x")).err,
              notice("standard input: 1 value and 2 selectors were"));
}

TEST_F(MisreadNotice, IsNotForOtherSpellingsOfAValue)
{
    std::string text = misreading(0);
    text.replace(text.find("<hostGroupID>1<"), 15, "<hostGroupID> 0x1 <");
    EXPECT_EQ(run({"show", "-"}, text).err, "");
}

TEST_F(MisreadNotice, IsForOctalAndEmptyNumbers)
{
    std::string text = misreading(0);
    text.replace(text.find("<hostGroupID>1<"), 15, "<hostGroupID>010<");
    EXPECT_EQ(run({"show", "-"}, text).err, notice("standard input: 1 value was"));
    EXPECT_EQ(run({"graph", "-"}, text).err, notice("standard input: 1 value was"));
    text.replace(text.find("<actionID>3</actionID>"), 22, "<actionID/>");
    EXPECT_EQ(run({"show", "-"}, text).err, notice("standard input: 2 values were"));
    writeFile("a.xml", text);
    writeFile("b.xml", misreading(0));
    EXPECT_EQ(run({"diff", "a.xml", "b.xml"}).err, notice("a.xml: 2 values were"));
}

TEST_F(MisreadNotice, IsNotForDocumentsThatTakeLongToCompare)
{
    const std::string fill(256 * 1024, '\n');
    EXPECT_EQ(run({"show", "-"}, misreading(3) + fill), run({"show", "-"}, misreading(0)));
    EXPECT_EQ(run({"check", "--level=error", "-"}, misreading(3) + fill).status, 1);
}

TEST_F(MisreadNotice, NeverDisturbsACompletion)
{
    writeFile("p.xml", misreading(3));
    const Outcome outcome = run({"__complete", "show", "p.xml", "policies", ""});
    EXPECT_EQ(outcome.err, "");
    EXPECT_NE(outcome.out, "");
}

} // namespace
