// Keys must not reach any report of check, wherever they stand in a document and whether it loads or not. Documents are
// checked by the hundred, each in a file of its own, and all that is said of them is searched for pieces of keys.

#include "program.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include <sys/stat.h>

using testing::IsEmpty;

namespace {

// Among them texts that look like numbers, names and tags.
const std::vector<std::string> KEYS = {"Kq7Zv9Wx", "0xc0ffee5eb6d4a2f1c0ffee5eb6d4a2f1", "8371920465173", "J8'w\"Hd2Ru",
                                       "Tb5 Yc3 Ng1"};

// Longer than what numbers a report has of its own.
const std::size_t PIECE = 5;

// Between the bytes at which documents are damaged, to have done with it in seconds.
#ifdef EMULATED
const std::size_t STEP = 41;
#else
const std::size_t STEP = 5;
#endif

/// The pieces of keys in a text.
std::vector<std::string> piecesOfKeysIn(const std::string& text)
{
    std::vector<std::string> found;
    for (const std::string& key : KEYS)
        for (std::size_t i = 0; i + PIECE <= key.size(); ++i)
            if (text.find(key.substr(i, PIECE)) != std::string::npos)
                found.push_back(key.substr(i, PIECE));
    return found;
}

std::string leaf(const std::string& tag, const std::string& text)
{
    return "<" + tag + ">" + text + "</" + tag + ">";
}

std::string valueLeaf(const std::string& tag, const std::string& text)
{
    const char quote = text.find('"') == std::string::npos ? '"' : '\'';
    return "<" + tag + " value=" + quote + text + quote + "/>";
}

const char PROPOSAL[] = "<proposal><dhGroup>G1</dhGroup><keyLifetime>0</keyLifetime><keyLifetimeUnits>MINS"
                        "</keyLifetimeUnits><transform>IKE_DES_MD5</transform></proposal>";
const char PHASE2[]   = "<ikePhase2><dhGroup>NONE</dhGroup><keyLifetime>010</keyLifetime><keyLifetimeUnits>SECS"
                        "</keyLifetimeUnits></ikePhase2>";

/// There is something to find on all sides of the keys, on one line with them.
std::string withKeys(const std::string& presharedKey, const std::string& decrKey, const std::string& encrKey,
                     const std::string& initialisation, const std::string& inKey, const std::string& outKey)
{
    const std::string ike = "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>PSK</authType>" +
                            presharedKey + PROPOSAL + "</ikePhase1>" + PHASE2;
    const std::string manual =
        "<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal><protocol>ESP+AH</protocol>"
        "<encryption>02</encryption><hash>02</hash></saProposal><inboundESPSPI>1</inboundESPSPI>"
        "<outboundESPSPI>0x1</outboundESPSPI><inboundAHSPI>+1</inboundAHSPI><outboundAHSPI>-1</outboundAHSPI>" +
        decrKey + encrKey + initialisation + inKey + outKey + "</manualKey>";
    return document("", "", entry("action", 1, action("p", "", ike)) + entry("action", 2, action("m", "", manual)),
                    entry("policy", 1, policy(1, 1, 1)) + entry("policy", 2, policy(1, 1, 2)));
}

std::string withKeys(std::string (&element)(const std::string& tag, const std::string& text), const std::string& key)
{
    return withKeys(element("presharedKey", key), element("inboundDecrKey", key), element("outboundEncrKey", key),
                    element("outboundEncrIV", key), element("inboundAuthKey", key), element("outboundAuthKey", key));
}

class CheckSecrets : public InFolder {
  protected:
    ~CheckSecrets() override { EXPECT_THAT(names_, IsEmpty()) << "some documents were not checked"; }

    void add(const std::string& document)
    {
        const std::string name = "d" + std::to_string(names_.size()) + ".xml";
        writeFile(name, document);
        EXPECT_EQ(chmod(name.c_str(), 0600), 0);
        names_.push_back(name);
    }

    /// Checks what was added, and returns how many findings there are.
    std::size_t expectSilence()
    {
        std::size_t findings = 0;
        for (const char* const option : {"--strict", "--json", "--sarif"}) {
            std::vector<std::string> arguments = {"check", option};
            arguments.insert(arguments.end(), names_.begin(), names_.end());
            const Outcome outcome = run(arguments, "", [] { setenv("COLUMNS", "1000", 1); });
            EXPECT_EQ(outcome.status, 1);
            EXPECT_EQ(outcome.err, "");
            EXPECT_THAT(piecesOfKeysIn(outcome.out), IsEmpty()) << outcome.out;
            if (option == std::string("--strict"))
                for (std::size_t at = outcome.out.find("\n    "); at != std::string::npos;
                     at             = outcome.out.find("\n    ", at + 1))
                    ++findings;
        }
        names_.clear();
        return findings;
    }

  private:
    std::vector<std::string> names_;
};

TEST_F(CheckSecrets, ThePiecesWouldBeFound)
{
    writeFile("keys.xml", withKeys(leaf, KEYS[0]));
    const Outcome outcome = run({"check", "--show-keys", "keys.xml"});
    EXPECT_THAT(piecesOfKeysIn(outcome.out), testing::ElementsAre("Kq7Zv", "q7Zv9", "7Zv9W", "Zv9Wx"));
}

TEST_F(CheckSecrets, StayHiddenWhereTheyBelong)
{
    for (const std::string& key : KEYS) {
        add(withKeys(leaf, key));
        add(withKeys(valueLeaf, key));
    }
    EXPECT_GT(expectSilence(), 100U);
}

TEST_F(CheckSecrets, StayHiddenInAttributesThatLookLikeElements)
{
    for (const std::string& key : KEYS) {
        if (key.find('"') != std::string::npos)
            continue;
        add(withKeys(valueLeaf, "x\n<name>" + key + "</name>\n<descr>" + key));
        add(withKeys(valueLeaf, "/>" + key + "</presharedKey><name>" + key));
        add(withKeys(valueLeaf, ">\n\n" + key + "<"));
    }
    EXPECT_GT(expectSilence(), 100U);
}

/// Where the numbers stand that are all of a leaf's text.
std::vector<std::pair<std::size_t, std::size_t>> numbersIn(const std::string& text)
{
    const char DIGITS[] = "0123456789";

    std::vector<std::pair<std::size_t, std::size_t>> numbers;
    for (std::size_t at = text.find_first_of(DIGITS); at != std::string::npos; at = text.find_first_of(DIGITS, at)) {
        const std::size_t end = text.find_first_not_of(DIGITS, at);
        if (text[at - 1] == '>' && text[end] == '<')
            numbers.emplace_back(at, end - at);
        at = end;
    }
    return numbers;
}

TEST_F(CheckSecrets, StayHiddenInPlaceOfANumber)
{
    const std::string all = withKeys(leaf, "k");
    for (const auto& [offset, length] : numbersIn(all))
        for (const std::string& key : KEYS) {
            add(std::string(all).replace(offset, length, key));
            add(std::string(all).replace(offset, length, "1" + key));
        }
    const std::string router = contentOf(EXAMPLES_DIR "/configs/home-router.xml");
    for (const auto& [offset, length] : numbersIn(router))
        add(std::string(router).replace(offset, length, KEYS[1]));
    EXPECT_GT(expectSilence(), 1000U);
}

TEST_F(CheckSecrets, StayHiddenWhateverIsTooMuchInTheDocument)
{
    std::size_t first = 0; // another one of the bytes in a step for each damage
    for (const std::string& text : {withKeys(leaf, KEYS[0]), withKeys(valueLeaf, KEYS[0])})
        for (const char damage : {'<', '>', '/', ' ', '\'', '"', '=', '\n', '\0'}) {
            for (std::size_t at = first++ % STEP; at < text.size(); at += STEP)
                add(std::string(text).insert(at, 1, damage));
            EXPECT_GT(expectSilence(), text.size() / STEP / 2);
        }
}

TEST_F(CheckSecrets, StayHiddenWhateverIsMissing)
{
    for (const std::string& text : {withKeys(leaf, KEYS[0]), withKeys(valueLeaf, KEYS[0])}) {
        for (std::size_t at = 0; at < text.size(); at += STEP) {
            add(std::string(text).erase(at, 1));
            add(text.substr(0, at));
        }
        EXPECT_GT(expectSilence(), text.size() / STEP);
    }
}

TEST_F(CheckSecrets, StayHiddenInTheWrongElement)
{
    const std::string text = withKeys(leaf, "k");
    for (const std::string& key : KEYS)
        for (std::size_t at = text.find('<'); at != std::string::npos; at = text.find('<', at + 1)) {
            add(std::string(text).insert(at, key));
            add(std::string(text).insert(at, leaf(key, "x")));
            add(std::string(text).insert(at, leaf("key", key)));
            add(std::string(text).insert(text.find('>', at), ' ' + key));
            add(std::string(text).insert(text.find('>', at), " value='" + key));
        }
    EXPECT_GT(expectSilence(), 500U);
}

} // namespace
