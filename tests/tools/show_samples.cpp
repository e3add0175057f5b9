// What `show` makes of the example documents, in every form.

#include "program.h"
#include "support/golden.h"

#include <nlohmann/json.hpp>

#include <cstdlib>
#include <ostream>
#include <string>
#include <vector>

namespace {

struct Sample {
    std::string name;
    std::string hostGroup; ///< one of them, and so on
    std::string protocolGroup;
    std::string action;
    std::string policy;

    std::string path() const { return EXAMPLES_DIR "/configs/" + name + ".xml"; }
};

std::ostream& operator<<(std::ostream& out, const Sample& sample)
{
    return out << sample.name;
}

class ShowSample : public testing::TestWithParam<Sample> {
  protected:
    /// What `show` prints of the sample.
    static std::string shown(const std::vector<std::string>& arguments, const char* columns = "80")
    {
        std::vector<std::string> all = {"show", GetParam().path()};
        all.insert(all.end(), arguments.begin(), arguments.end());
        const Outcome outcome = run(all, "", [columns] { setenv("COLUMNS", columns, 1); });
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }

    static void expectShown(const std::string& form, const std::vector<std::string>& arguments,
                            const char* columns = "80")
    {
        expectGolden("show/" + GetParam().name + "." + form, shown(arguments, columns));
    }
};

TEST_P(ShowSample, OverviewHasFourTables)
{
    expectShown("txt", {});
}

TEST_P(ShowSample, OverviewFitsANarrowTerminal)
{
    expectShown("40.txt", {}, "40");
}

TEST_P(ShowSample, OverviewUsesAWideTerminal)
{
    expectShown("132.txt", {}, "132");
}

TEST_P(ShowSample, KeysAreShownOnDemand)
{
    expectShown("keys.txt", {"--show-keys", "actions"});
}

TEST_P(ShowSample, TablesOfTheKindsMakeUpTheOverview)
{
    EXPECT_EQ(shown({"host-groups"}) + "\n" + shown({"protocol-groups"}) + "\n" + shown({"actions"}) + "\n" +
                  shown({"policies"}),
              shown({}));
}

TEST_P(ShowSample, OneObjectHasAllItsFields)
{
    expectShown("host-group.txt", {"host-groups", GetParam().hostGroup});
    expectShown("protocol-group.txt", {"protocol-groups", GetParam().protocolGroup});
    expectShown("action.txt", {"actions", GetParam().action});
    expectShown("policy.txt", {"policies", GetParam().policy});
}

TEST_P(ShowSample, OneObjectFitsANarrowTerminal)
{
    expectShown("action.40.txt", {"actions", GetParam().action}, "40");
}

TEST_P(ShowSample, JsonHasAllObjectsInFull)
{
    expectShown("json", {"--json"});
}

TEST_P(ShowSample, JsonWithKeysHasThemAsTexts)
{
    expectShown("keys.json", {"--json", "--show-keys", "actions"});
}

TEST_P(ShowSample, JsonOfAKindIsAPartOfAll)
{
    const auto all = nlohmann::ordered_json::parse(shown({"--json"}));
    for (const auto& [kind, tag] : {std::pair("host-groups", "hostGroups"), std::pair("policies", "policies"),
                                    std::pair("protocol-groups", "protocolGroups"), std::pair("actions", "actions")}) {
        nlohmann::ordered_json part;
        part[tag]           = all[tag];
        part["nextID"][tag] = all["nextID"][tag];
        EXPECT_EQ(shown({"--json", kind}), part.dump(2) + "\n");
    }
}

TEST_P(ShowSample, JsonOfAnObjectIsAPartOfAll)
{
    const auto all = nlohmann::ordered_json::parse(shown({"--json"}));
    for (const auto& [kind, tag] : {std::pair("host-groups", "hostGroups"), std::pair("policies", "policies"),
                                    std::pair("protocol-groups", "protocolGroups"), std::pair("actions", "actions")})
        for (const auto& object : all[tag])
            EXPECT_EQ(shown({"--json", kind, object["id"].dump()}), object.dump(2) + "\n");
}

INSTANTIATE_TEST_SUITE_P(Show, ShowSample,
                         testing::Values(Sample{"home-router", "Office network", "4", "Office tunnel", "5"},
                                         Sample{"branch-office", "7", "6", "4", "11"},
                                         Sample{"server-farm", "3", "2", "3", "2"}));

} // namespace
