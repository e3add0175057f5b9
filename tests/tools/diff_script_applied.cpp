// The commands that `diff --script` writes, carried out.

#include "diff.h"
#include "document.h"
#include "edit_commands.h"
#include "edited_config.h"
#include "program.h"
#include "random_document.h"
#include "secrets.h"

#include <gmock/gmock.h>

#include <exception>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

using namespace ipsecimpl;

namespace {

IPsecConfig loaded(const std::string& text)
{
    return parseDocument(text, "the document");
}

/// What the commands make of `before`.
std::string edited(IPsecConfig&& before, const std::string& commands)
{
    EditedConfig       config(std::move(before));
    Secrets            secrets(true);
    Editor             editor(config, secrets, false);
    std::istringstream lines(commands);
    for (std::string line; std::getline(lines, line);)
        editor.execute(line);
    IPsecConfig after = config.finished();
    return storeDocument(after, "what was edited");
}

/// What is left between `after` and what the script makes of `before`, or what is wrong with the script.
std::string leftOver(const std::string& before, const std::string& after)
{
    const IPsecConfig old    = loaded(before);
    const IPsecConfig fresh  = loaded(after);
    const std::string script = scriptOf(difference(old, fresh, {true, false}), "new.xml");
    try {
        const std::string left = diffText(loaded(edited(loaded(before), script)), fresh, {true, false});
        return left.empty() ? "" : left + script;
    } catch (const std::exception& error) {
        return error.what() + ("\n" + script);
    }
}

const unsigned int SEEDS = 200;
const unsigned int BATCH = 20;

/// One batch of seeds, that begins with the parameter.
class DiffScriptOfRandomDocuments : public testing::TestWithParam<unsigned int> {};

TEST_P(DiffScriptOfRandomDocuments, TurnsEachIntoTheOther)
{
    for (unsigned int seed = GetParam(); seed < GetParam() + BATCH; ++seed) {
        RandomDocuments   documents(seed);
        const std::string a = documents.next();
        const std::string b = documents.next();
        EXPECT_EQ(leftOver(a, b), "") << "seed " << seed;
        EXPECT_EQ(leftOver(b, a), "") << "seed " << seed;
    }
}

TEST_P(DiffScriptOfRandomDocuments, LeadsAwayFromWhatCannotBeStored)
{
    for (unsigned int seed = GetParam(); seed < GetParam() + BATCH; ++seed) {
        const std::string lossy = RandomDocuments(seed, true).next();
        EXPECT_EQ(leftOver(lossy, RandomDocuments(seed).next()), "") << "seed " << seed;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, DiffScriptOfRandomDocuments, testing::Range(0U, SEEDS, BATCH));

/// What makes a script more than a list of changes: without it the random documents would prove nothing.
TEST(RandomDocuments, MakeScriptsOfAllKinds)
{
    std::string scripts;
    for (unsigned int seed = 0; seed < SEEDS; ++seed) {
        RandomDocuments   documents(seed);
        const IPsecConfig lossy = loaded(RandomDocuments(seed, true).next());
        const IPsecConfig old   = loaded(documents.next());
        const IPsecConfig fresh = loaded(documents.next());
        scripts += scriptOf(difference(lossy, old, {true, false}), "") + scriptOf(difference(old, fresh, {}), "");
    }
    for (const std::string start :
         {"replace action 3 ", "set policy 3 actionID=0\n", "set policy 3 actionID=missing=", "add policy 0 0 missing=",
          "set actions nextID=", "remove action 2147483647 ", "add action \"\" id=2147483647 ",
          "set action 3 spdAction=TUNNEL\n", "set action 3 keyMgr=MKM\n", "set action 3 ikePhase1/authType=RSA\n",
          "set action 3 manualKey/inboundAuthKey=?\n", "set action 3 ikePhase1/presharedKey=?\n"})
        EXPECT_THAT(scripts, testing::HasSubstr('\n' + start));
    EXPECT_THAT(scripts, testing::ContainsRegex("\nremove selector host-group [0-9]+ .* addr1=\"a<b\"\n"));
}

using Pair = std::pair<std::string, std::string>;

/// Ordered pairs of the samples, with the empty configuration among them.
class DiffScriptOfExamples : public InFolder, public testing::WithParamInterface<Pair> {
  protected:
    DiffScriptOfExamples()
    {
        writeFile("empty.xml", document());
        writeFile("old.xml", contentOf(pathOf(GetParam().first)));
        writeFile("new.xml", contentOf(pathOf(GetParam().second)));
    }

  private:
    static std::string pathOf(const std::string& name)
    {
        return name == "empty" ? "empty.xml" : EXAMPLES_DIR "/configs/" + name + ".xml";
    }
};

TEST_P(DiffScriptOfExamples, MakesEditTurnOneIntoTheOther)
{
    const Outcome script = run({"diff", "--script", "--show-keys", "old.xml", "new.xml"});
    EXPECT_EQ(script.status, 1) << script;
    EXPECT_EQ(script.err, "");
    const Outcome edited = run({"edit", "old.xml", "-"}, script.out);
    EXPECT_EQ(edited.status, 0) << edited;
    EXPECT_EQ(edited.err, "");
    EXPECT_EQ(run({"diff", "--show-keys", "old.xml", "new.xml"}), printed(""));
}

std::vector<Pair> allPairs()
{
    const std::vector<std::string> names = {"home-router", "branch-office", "server-farm", "empty"};
    std::vector<Pair>              pairs;
    for (const std::string& before : names)
        for (const std::string& after : names)
            if (before != after)
                pairs.emplace_back(before, after);
    return pairs;
}

INSTANTIATE_TEST_SUITE_P(Diff, DiffScriptOfExamples, testing::ValuesIn(allPairs()));

} // namespace
