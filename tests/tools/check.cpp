#include "program.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include <sys/stat.h>

using testing::HasSubstr;
using testing::Not;

namespace {

const char NOTHING_FOUND[] = "nothing found in 1 file\n";

std::string discarding(const std::string& changeCount)
{
    return "<action><changeCount>" + changeCount +
           "</changeCount><name>a</name><builtinName>0</builtinName><descr></descr><builtinDescr>0</builtinDescr>"
           "<type>0</type><state>0</state><spdAction>DISCARD</spdAction></action>";
}

/// With a note: no policy uses the action.
std::string withNote()
{
    return document("", "", "\n" + entry("action", 1, discarding("1")));
}

/// With a warning, and the note.
std::string withWarning()
{
    return document("", "", "\n" + entry("action", 1, discarding("010")));
}

/// With three errors.
std::string withErrors()
{
    return document("", "", "", "\n" + entry("policy", 3, policy(1, 2, 3)));
}

const std::string NOTE = ":2:24: note: unused-action: actions/1\n"
                         "     2 | <actionEntry><id>1</id><action><changeCount>1</changeCount><name>...\n"
                         "       |                        ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~\n"
                         "    No policy uses action 1 'a'. Name it in a policy, or remove it.\n\n";

class Check : public InFolder {
  protected:
    /// For its owner alone, so that nothing is to be said of its mode.
    static void write(const std::string& fileName, const std::string& content)
    {
        writeFile(fileName, content);
        ASSERT_EQ(chmod(fileName.c_str(), 0600), 0);
    }
};

TEST_F(Check, FindsNothingInAnEmptyConfiguration)
{
    EXPECT_EQ(run({"check", "-"}, document()), printed(NOTHING_FOUND));
}

TEST_F(Check, TellsAllThatIsFoundWithItsPlace)
{
    write("policy.xml", withErrors());
    EXPECT_EQ(run({"check", "policy.xml"}),
              (Outcome{1, R"(policy.xml:2:45: error: dangling-reference: policies/3/hostGroupID
     2 | ...><id>3</id><policy><hostGroupID>1</hostGroupID><protocolGroupID>2...
       |                                    ^
    There is no host group with ID 1. Add it, or name one that exists.

policy.xml:2:77: error: dangling-reference: policies/3/protocolGroupID
     2 | ...1</hostGroupID><protocolGroupID>2</protocolGroupID><actionID>3</a...
       |                                    ^
    There is no protocol group with ID 2. Add it, or name one that exists.

policy.xml:2:106: error: dangling-reference: policies/3/actionID
     2 | ...ID>2</protocolGroupID><actionID>3</actionID></policy></policyEntr...
       |                                    ^
    There is no action with ID 3. Add it, or name one that exists.

3 errors in 1 file
)",
                       ""}));
}

struct Ending {
    std::vector<std::string> options;
    int                      note;    ///< exit status where notes are the worst that is found
    int                      warning; ///< where warnings are
    int                      error;   ///< where errors are
};

std::ostream& operator<<(std::ostream& out, const Ending& ending)
{
    for (const std::string& option : ending.options)
        out << option << ' ';
    return out;
}

class CheckEnding : public testing::TestWithParam<Ending> {};

TEST_P(CheckEnding, DependsOnTheLevelsThatAreReported)
{
    const auto statusOf = [](const std::string& text) {
        std::vector<std::string> arguments = {"check", "-"};
        arguments.insert(arguments.end(), GetParam().options.begin(), GetParam().options.end());
        return run(arguments, text).status;
    };
    EXPECT_EQ(statusOf(document()), 0);
    EXPECT_EQ(statusOf(withNote()), GetParam().note);
    EXPECT_EQ(statusOf(withWarning()), GetParam().warning);
    EXPECT_EQ(statusOf(withErrors()), GetParam().error);
    EXPECT_EQ(statusOf("<ipsec>"), GetParam().error);
}

// clang-format off
const Ending ENDINGS[] = {
    {{},                               0, 1, 1},
    {{"--level=note"},                 0, 1, 1},
    {{"--level=warning"},              0, 1, 1},
    {{"--level=error"},                0, 0, 1},
    {{"--strict"},                     1, 1, 1},
    {{"--strict", "--level=note"},     1, 1, 1},
    {{"--strict", "--level=warning"},  0, 1, 1},
    {{"--strict", "--level=error"},    0, 0, 1},
    {{"--json"},                       0, 1, 1},
    {{"--sarif"},                      0, 1, 1},
    {{"--sarif", "--strict"},          1, 1, 1},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Check, CheckEnding, testing::ValuesIn(ENDINGS));

TEST_F(Check, LeavesOutWhatIsBelowTheLevel)
{
    EXPECT_THAT(run({"check", "-"}, withWarning()).out, HasSubstr("1 warning, 1 note in 1 file\n"));
    const std::string warnings = run({"check", "-", "--level", "warning"}, withWarning()).out;
    EXPECT_THAT(warnings, Not(HasSubstr("note")));
    EXPECT_THAT(warnings, HasSubstr("warning: octal-number: actions/1/changeCount\n"));
    EXPECT_THAT(warnings, HasSubstr("\n1 warning in 1 file; 1 finding of lower levels left out\n"));
    EXPECT_EQ(run({"check", "-", "--level", "error"}, withWarning()),
              printed("nothing found in 1 file; 2 findings of lower levels left out\n"));
    EXPECT_EQ(run({"check", "-", "--level", "error"}, document()), printed(NOTHING_FOUND));
}

TEST_F(Check, ChecksEveryFileInTheOrderOfTheArguments)
{
    write("b.xml", withNote());
    write("a.xml", document());
    write("c.xml", "");
    EXPECT_EQ(run({"check", "c.xml", "b.xml", "-", "a.xml"}, withNote()),
              (Outcome{1,
                       "c.xml:1:1: error: does-not-load\n"
                       "    Reading ends here: the document is empty. Make a configuration with\n"
                       "    'ipsec-policy new'. No more of this document was checked.\n\n"
                       "b.xml" +
                           NOTE + "standard input" + NOTE + "1 error, 2 notes in 4 files\n",
                       ""}));
}

TEST_F(Check, ChecksTheOtherFilesWhenOneCannotBeRead)
{
    write("a.xml", withNote());
    EXPECT_EQ(run({"check", "none.xml", "a.xml", "."}),
              (Outcome{2, "a.xml" + NOTE + "1 note in 1 file; 2 files could not be read\n",
                       "ipsec-policy: none.xml: No such file or directory\nipsec-policy: .: Is a directory\n"}));
    EXPECT_EQ(run({"check", "none.xml"}), (Outcome{2, "nothing found in 0 files; 1 file could not be read\n",
                                                   "ipsec-policy: none.xml: No such file or directory\n"}));
}

TEST_F(Check, TellsWhatIsAboutTheFileFirst)
{
    write("a.xml", withNote());
    ASSERT_EQ(chmod("a.xml", 0606), 0);
    EXPECT_EQ(run({"check", "a.xml"}), (Outcome{1,
                                                "a.xml: error: writable-by-others\n"
                                                "    Everybody can change this file (mode 0606): take that away with "
                                                "chmod go-w.\n\na.xml" +
                                                    NOTE + "1 error, 1 note in 1 file\n",
                                                ""}));
}

TEST_F(Check, EscapesTheFileName)
{
    write("a\x1b[2J\n.xml", withNote());
    EXPECT_EQ(run({"check", "a\x1b[2J\n.xml"}), printed("a\\x1b[2J\\n.xml" + NOTE + "1 note in 1 file\n"));
}

TEST_F(Check, FitsTheTerminalButForTheFirstLinesOfFindings)
{
    const Outcome      outcome = run({"check", "-"}, withErrors(), [] { setenv("COLUMNS", "40", 1); });
    std::istringstream lines(outcome.out);
    std::size_t        longest = 0;
    for (std::string line; std::getline(lines, line);)
        if (line.find("error: dangling-reference") == std::string::npos)
            longest = std::max(longest, line.size());
    EXPECT_EQ(longest, 40U);
}

TEST_F(Check, HasNoColoursWhereNobodyLooks)
{
    EXPECT_THAT(run({"check", "-"}, withErrors()).out, Not(HasSubstr("\x1b")));
}

TEST_F(Check, OfALineWithoutEndShowsAPiece)
{
    const std::string blanks(5'000'000, ' ');
    const std::string text    = "<ipsec>" + blanks + withNote().substr(7);
    const Outcome     outcome = run({"check", "-"}, text);
    EXPECT_EQ(outcome.err, "");
    EXPECT_LT(outcome.out.size(), 1000U);
    EXPECT_THAT(outcome.out, HasSubstr("standard input:2:24: note: unused-action: actions/1\n"));
}

TEST_F(Check, TellsScriptsTheSame)
{
    write("a.xml", withWarning());
    ASSERT_EQ(chmod("a.xml", 0602), 0);
    EXPECT_EQ(run({"check", "--json", "none.xml", "a.xml", "--level=warning"}),
              (Outcome{2, R"({
  "findings": [
    {
      "file": "a.xml",
      "level": "error",
      "code": "writable-by-others",
      "message": "Everybody can change this file (mode 0602): take that away with chmod go-w."
    },
    {
      "file": "a.xml",
      "line": 2,
      "column": 45,
      "endColumn": 48,
      "level": "warning",
      "code": "octal-number",
      "path": "actions/1/changeCount",
      "message": "'010' was read as 8, because a leading 0 makes it octal. Write it without the leading 0."
    }
  ],
  "errors": 1,
  "warnings": 1,
  "notes": 0,
  "leftOut": 1,
  "files": 1,
  "unread": [
    {
      "file": "none.xml",
      "message": "none.xml: No such file or directory"
    }
  ]
}
)",
                       "ipsec-policy: none.xml: No such file or directory\n"}));
}

TEST_F(Check, TellsScriptsThatNothingIsFound)
{
    EXPECT_EQ(run({"check", "--json", "-"}, document()),
              printed("{\n  \"findings\": [],\n  \"errors\": 0,\n  \"warnings\": 0,\n  \"notes\": 0,\n"
                      "  \"leftOut\": 0,\n  \"files\": 1,\n  \"unread\": []\n}\n"));
}

std::string withProposal()
{
    return document("", "",
                    entry("action", 1,
                          action("a", "",
                                 "<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal><protocol>"
                                 "AH</protocol><encryption>0</encryption><hash>2</hash></saProposal><inboundAHSPI>1000"
                                 "</inboundAHSPI><outboundAHSPI>1000</outboundAHSPI><inboundAuthKey>"
                                 "0123456789abcdef0123456789abcdef</inboundAuthKey><outboundAuthKey>"
                                 "fedcba9876543210fedcba9876543210</outboundAuthKey></manualKey>")));
}

TEST_F(Check, GoesByTheOperatorsAlgorithms)
{
    EXPECT_THAT(run({"check", "-"}, withProposal()).out, Not(HasSubstr("algorithm")));
    EXPECT_THAT(run({"check", "-", "--algorithms", EXAMPLES_DIR "/algorithms.json"}, withProposal()).out,
                HasSubstr("error: algorithm-must-not: actions/1/manualKey/saProposal/hash\n"));
    write("policy.xml", withProposal());
    EXPECT_THAT(run({"check", "policy.xml", "--algorithms", "-"}, contentOf(EXAMPLES_DIR "/algorithms.json")).out,
                HasSubstr("error: algorithm-must-not: "));
}

TEST_F(Check, ChecksNothingWithoutTheAlgorithmsThatItShouldGoBy)
{
    EXPECT_EQ(run({"check", "-", "--algorithms", "none.json"}, withProposal()),
              troubled("none.json: No such file or directory"));
    const Outcome outcome = run({"check", "policy.xml", "--algorithms", "-"}, "{}");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("ipsec-policy: standard input: "));
}

TEST_F(Check, ShowsKeysOnRequestAlone)
{
    std::string text = withProposal();
    text.replace(text.find("0123"), 4, "s3cr"); // which is not hexadecimal
    EXPECT_THAT(run({"check", "-"}, text).out, HasSubstr("<inboundAuthKey>***</inboundAuthKey>"));
    EXPECT_THAT(run({"check", "-"}, text).out, Not(HasSubstr("s3cr")));
    EXPECT_THAT(run({"check", "-", "--show-keys"}, text).out, HasSubstr("<inboundAuthKey>s3cr456789abcdef"));

    const std::string broken = "<ipsec><presharedKey>s3cr</presharedKey>";
    EXPECT_THAT(run({"check", "-"}, broken).out, HasSubstr("<ipsec><presharedKey>***</presharedKey>"));
    EXPECT_THAT(run({"check", "-", "--show-keys"}, broken).out, HasSubstr(broken));
}

TEST_F(Check, ExplainsEveryCode)
{
    EXPECT_EQ(run({"check", "--explain", "does-not-load"}), printed(R"(does-not-load (error): The document does not load

The document is not in the format of these configurations, so that no program
loads it. The finding marks what the reader could not take: an element, a tag or
a character; what is really wrong may stand a little before it. The elements
that are open there are listed, the outermost first. Reading ends there, and so
does the check of this file: correct it and check again. Of such a document no
text is shown, as any of it could be a key in the wrong place.
)"));
    EXPECT_THAT(run({"check", "--explain", "ike-md5"}).out, HasSubstr("\n\nSee RFC 8247 "));
}

TEST_F(Check, KnowsNoOtherCode)
{
    EXPECT_EQ(run({"check", "--explain", "x\x1b"}),
              troubled("no finding has the code 'x\\x1b': 'ipsec-policy check --list' lists all"));
    EXPECT_EQ(run({"check", "--explain", "dangling-refrence"}),
              troubled("no finding has the code 'dangling-refrence' (did you mean 'dangling-reference'?)"));
}

} // namespace
