// Keys must not reach the screen, whatever is wrong with the document: each of them is planted in a document that is
// then damaged at every byte, and everything that the program prints is searched for pieces of it.

#include "program.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <iterator>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace {

const std::size_t PIECE = 4;

#if defined(EMULATED)
const std::size_t STEP = 41; // such a program takes a hundred times as long
#elif defined(SANITIZED)
const std::size_t STEP = 7; // such a program takes ten times as long
#else
const std::size_t STEP = 1;
#endif

// Among them texts that look like names and like pieces of messages.
const std::vector<std::string> KEYS = {"Kq7Zv9Wx",    "J8'w\"Hd2Ru", "Tb5 Yc3 Ng1",
                                       "-Pm6.Qs4:Vf", "'X0k' for <", "'value' zU9e-Lt2j"};

std::string withPresharedKey(const std::string& element)
{
    return document("", "",
                    entry("action", 1,
                          action("p", "",
                                 "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>PSK"
                                 "</authType>" +
                                     element +
                                     "<proposal><dhGroup>G2</dhGroup><keyLifetime>1</keyLifetime><keyLifetimeUnits>"
                                     "MINS</keyLifetimeUnits></proposal></ikePhase1><ikePhase2><dhGroup>G1</dhGroup>"
                                     "<keyLifetime>5</keyLifetime><keyLifetimeUnits>KB</keyLifetimeUnits>"
                                     "</ikePhase2>")));
}

std::string leaf(const std::string& tag, const std::string& text)
{
    return "<" + tag + ">" + text + "</" + tag + ">";
}

std::string valueLeaf(const std::string& tag, const std::string& text, char quote)
{
    return "<" + tag + " value=" + quote + text + quote + "/>";
}

std::string withManualKeys()
{
    return document("", "",
                    entry("action", 1,
                          action("m", "",
                                 "<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal><protocol>"
                                 "NONE</protocol><encryption>2</encryption><hash>2</hash></saProposal>" +
                                     leaf("inboundDecrKey", KEYS[0]) + leaf("outboundEncrKey", KEYS[1]) +
                                     leaf("outboundEncrIV", KEYS[2]) + leaf("inboundAuthKey", KEYS[3]) +
                                     valueLeaf("outboundAuthKey", KEYS[5], '"') + "</manualKey>")));
}

/// Has the program print all that it says of a document where no key belongs on the screen: all but what `format`
/// stores. Of the other commands that show something one is asked each time, in turn, if the document loads: else they
/// say what `show` says.
void sayEverything(const Copy& program, const std::string& text, std::size_t turn)
{
    static const std::vector<std::string> OTHERS[] = {
        {"show", "-", "actions", "1"}, {"show", "--json", "-"}, {"graph", "-"}, {"format", "--check", "--json", "-"}};
    if (program({"show", "-"}, text) == 0)
        program(OTHERS[turn % std::size(OTHERS)], text);
    program.silently({"format", "-"}, text);
}

/// What the program prints of the documents, one after the other. The first has its turn.
std::string everythingSaid(const std::vector<std::string>& texts, std::size_t turn = 0)
{
    const Outcome outcome = runCopies([&](const Copy& program) {
        for (const std::string& text : texts)
            sayEverything(program, text, turn++);
        return 0;
    });
    EXPECT_EQ(outcome.status, 0);
    return outcome.out + outcome.err;
}

/// The pieces of all keys that `text` holds and that messages about a document without keys do not.
std::set<std::string> piecesOfKeysIn(const std::string& text)
{
    const std::set<std::string> common = {"valu", "alue", "' fo", " for", "for ", "or <"};
    std::set<std::string>       found;
    for (const std::string& key : KEYS)
        for (std::size_t i = 0; i + PIECE <= key.size(); ++i) {
            const std::string piece = key.substr(i, PIECE);
            if (common.count(piece) == 0 && text.find(piece) != std::string::npos)
                found.insert(piece);
        }
    return found;
}

struct Damage {
    const char* what;
    /// What becomes of `text` when it is done at the byte `at`.
    std::string (*apply)(std::string text, std::size_t at);
};

std::ostream& operator<<(std::ostream& out, const Damage& damage)
{
    return out << damage.what;
}

template <char C>
std::string insertion(std::string text, std::size_t at)
{
    return text.insert(at, 1, C);
}

class PlantedKeys : public testing::TestWithParam<Damage> {
  protected:
    static void expectSilence(const std::string& original)
    {
        ASSERT_EQ(run({"show", "-"}, original).status, 0) << "it does load before the damage";
        std::vector<std::string> texts;
        for (std::size_t at = 0; at < original.size(); at += STEP)
            texts.push_back(GetParam().apply(original, at));
        const std::set<std::string> found = piecesOfKeysIn(everythingSaid(texts));
        if (!found.empty() || HasFailure()) {
            for (std::size_t i = 0; i < texts.size(); ++i) {
                SCOPED_TRACE(texts[i]);
                ASSERT_THAT(piecesOfKeysIn(everythingSaid({texts[i]}, i)), testing::IsEmpty());
            }
        }
        EXPECT_THAT(found, testing::IsEmpty()) << "though in none of them alone";
    }
};

TEST_P(PlantedKeys, PresharedKeyStaysHidden)
{
    expectSilence(withPresharedKey(leaf("presharedKey", KEYS[0])));
}

TEST_P(PlantedKeys, PresharedKeyInAnAttributeStaysHidden)
{
    expectSilence(withPresharedKey(valueLeaf("presharedKey", KEYS[4], '"')));
}

TEST_P(PlantedKeys, ManualKeysStayHidden)
{
    expectSilence(withManualKeys());
}

// clang-format off
const Damage DAMAGES[] = {
    {"a byte is missing",  [](std::string text, std::size_t at) { return text.erase(at, 1); }},
    {"cut short",          [](std::string text, std::size_t at) { return text.erase(at); }},
    {"a '<' too many",     insertion<'<'>},
    {"a '>' too many",     insertion<'>'>},
    {"a '/' too many",     insertion<'/'>},
    {"a blank too many",   insertion<' '>},
    {"a quote too many",   insertion<'\''>},
    {"a NUL",              insertion<'\0'>},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(EveryByte, PlantedKeys, testing::ValuesIn(DAMAGES));

class MisplacedKey : public testing::TestWithParam<std::string> {};

TEST_P(MisplacedKey, StaysHidden)
{
    ASSERT_EQ(run({"show", "-"}, GetParam()).status, 1);
    EXPECT_THAT(piecesOfKeysIn(everythingSaid({GetParam()})), testing::IsEmpty()) << everythingSaid({GetParam()});
}

std::string withAuthType(const std::string& element)
{
    return document(
        "", "",
        entry("action", 1,
              action("p", "", "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1>" + element)));
}

// clang-format off
const std::string MISPLACED_KEYS[] = {
    // As a tag, or in place of one.
    withPresharedKey("<presharedKey" + KEYS[0] + "</presharedKey>"),
    withPresharedKey("<" + KEYS[0] + "></presharedKey>"),
    withPresharedKey("<" + KEYS[0] + "/>"),
    withPresharedKey("<presharedKey/>" + KEYS[0]),
    withPresharedKey(KEYS[0] + "</presharedKey>"),
    document("", "", "<" + KEYS[0] + "/>"),
    "<" + KEYS[0] + "/>",
    "<ipsec><" + KEYS[0] + ">",
    document(entry("hostGroup", 1, "<hostGroup><" + KEYS[0] + ">")),
    // As an attribute.
    withPresharedKey("<presharedKey " + KEYS[0] + "/>"),
    withPresharedKey("<presharedKey " + KEYS[0] + "='x'/>"),
    document("", entry("protocolGroup", 1, group("protocolGroup", "g", "",
                                                 "<protocolSelector>" + leaf(KEYS[0], "x")))),
    // As the text of a neighbour, which messages quote as it stands.
    withAuthType(leaf("authType", KEYS[0])),
    withAuthType(leaf("authType", KEYS[1])),
    withAuthType(leaf("authType", KEYS[4])),
    withAuthType(leaf("authType", KEYS[5])),
    withAuthType(leaf("authType", "authType'" + KEYS[0])),
    withAuthType(leaf("authType", KEYS[0] + "\nfrom <ipsec>")),
    withAuthType(leaf("authType", "x\nfrom <" + KEYS[0] + ">\nfrom <ipsec>")),
    withAuthType(leaf("authType", "x\nfrom <ipsec>\n" + KEYS[0])),
    withAuthType(leaf("authType", "x'\nfrom <ipsec>\n" + KEYS[0])),
    withAuthType(valueLeaf("authType", "x\nfrom <" + KEYS[0], '"')),
    withAuthType(valueLeaf("authType", "x' <" + KEYS[0] + "> '" + KEYS[0], '"')),
    withAuthType(valueLeaf("authType", "'x'<" + KEYS[0], '"')),
    // And where a NUL cuts the message.
    withAuthType(leaf("authType", KEYS[0] + std::string(1, '\0'))),
    withAuthType(leaf("authType", "x' " + KEYS[0] + std::string(1, '\0'))),
    withAuthType(leaf("authType", "x' for <authType> " + KEYS[0] + std::string(1, '\0'))),
    withAuthType(leaf("authType", "x\nfrom <" + KEYS[0] + ">" + std::string(1, '\0'))),
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(PlantedKeys, MisplacedKey, testing::ValuesIn(MISPLACED_KEYS));

TEST(PlantedKeys, ThePiecesWouldBeFound)
{
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"show", "--show-keys", "-"},
                                                      {"show", "--show-keys", "-", "actions", "1"},
                                                      {"show", "--show-keys", "-", "--json"}}) {
        const Outcome outcome = run(arguments, withManualKeys());
        EXPECT_THAT(piecesOfKeysIn(outcome.out),
                    testing::IsSupersetOf({"Kq7Z", "v9Wx", "Hd2R", "Yc3 ", "Qs4:", "Lt2j"}));
    }
}

TEST(PlantedKeys, WhatEachRunSaysIsLookedAt)
{
    const auto named = [](const std::string& name) {
        return document(entry("hostGroup", 1, group("hostGroup", name, "", "")));
    };
    const auto shown = [](const std::string& name) {
        return testing::ContainsRegex("\n 1  " + name + " +\\(nothing\\)");
    };
    const std::string refused = "ipsec-policy: standard input:1:1: ";

    const std::string said = everythingSaid({named("alpha"), "<x/>", named("beta"), named("gamma"), named("delta")});
    for (const char* const name : {"alpha", "beta", "gamma", "delta"})
        EXPECT_THAT(said, shown(name));
    EXPECT_NE(said.find(refused), said.rfind(refused)) << "show and format refuse the second";
    EXPECT_THAT(said, testing::HasSubstr("digraph")) << "the third has its turn";
    EXPECT_THAT(said, testing::HasSubstr("\"written\": ")) << "and the fourth";
}

class PlantedKeyFiles : public InFolder {};

TEST_F(PlantedKeyFiles, CompletionsHoldNone)
{
    for (const std::string& text : {withPresharedKey(leaf("presharedKey", KEYS[0])), withManualKeys(),
                                    withPresharedKey(KEYS[0] + "</presharedKey>")}) {
        writeFile("policy.xml", text);
        for (const std::vector<std::string>& words : {std::vector<std::string>{"show", "policy.xml", "actions", ""},
                                                      {"show", "policy.xml", "policies", ""},
                                                      {"show", "policy.xml", ""},
                                                      {"show", "policy.xml", "actions", KEYS[0].substr(0, 2)}}) {
            std::vector<std::string> arguments = {"__complete"};
            arguments.insert(arguments.end(), words.begin(), words.end());
            const Outcome outcome = run(arguments);
            EXPECT_EQ(outcome.status, 0);
            EXPECT_THAT(piecesOfKeysIn(outcome.out + outcome.err), testing::IsEmpty());
        }
    }
}

} // namespace
