#include "references.h"

#include <ipsecimpl/ipsecimpl.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <optional>
#include <sstream>
#include <string>

using namespace ipsecimpl;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Host groups with these IDs, each named after its own, and one action 2.
IPsecConfig withHostGroups(const std::vector<unsigned int>& ids)
{
    IPsecConfig config;
    for (unsigned int id = 1; !ids.empty() && id <= ids.back(); ++id)
        config.hostGroups.add(HostGroup("host " + std::to_string(id), 0, "", 0));
    for (unsigned int id = 1; !ids.empty() && id <= ids.back(); ++id)
        if (std::find(ids.begin(), ids.end(), id) == ids.end())
            config.hostGroups.remove(id);
    config.actions.add(IPsecAction());
    config.actions.add(IPsecAction(SPD_BYPASS, "action 2", 0, "", 0, KEYMGR_NONE));
    config.actions.remove(1);
    return config;
}

class NamesOf : public testing::TestWithParam<std::vector<unsigned int>> {};

TEST_P(NamesOf, AreFoundWhereThereAreObjectsAndNowhereElse)
{
    const IPsecConfig config = withHostGroups(GetParam());
    const Names       names(config);
    for (unsigned int id = 0; id < 20; ++id) {
        const HostGroup* const group = config.hostGroups.find(id);
        EXPECT_EQ(names.find(Kind::HOST_GROUP, id),
                  group == nullptr ? std::optional<std::string_view>() : std::optional<std::string_view>(group->name))
            << id;
        EXPECT_EQ(names.find(Kind::PROTOCOL_GROUP, id), std::nullopt);
    }
    EXPECT_EQ(names.find(Kind::HOST_GROUP, 4294967295U), std::nullopt);
    EXPECT_EQ(names.find(Kind::ACTION, 1), std::nullopt);
    EXPECT_EQ(names.find(Kind::ACTION, 2), "action 2");
}

using IDs = std::vector<unsigned int>;
INSTANTIATE_TEST_SUITE_P(Names, NamesOf,
                         testing::Values(IDs{}, IDs{1}, IDs{2}, IDs{1, 2, 3}, IDs{1, 2, 4, 5, 9}, IDs{3, 4, 15},
                                         IDs{7, 8, 9, 10, 11}, IDs{1, 19}));

TEST(Names, OfWhatWasAddedBeforeAreNotAddedAgain)
{
    const IPsecConfig config = withHostGroups({1, 2});
    Names             names;
    names.add(Kind::HOST_GROUP, 1, "one");
    names.addMissing(config);
    EXPECT_EQ(names.find(Kind::HOST_GROUP, 1), "one");
    EXPECT_EQ(names.find(Kind::HOST_GROUP, 2), std::nullopt);
    EXPECT_EQ(names.find(Kind::ACTION, 2), "action 2");
}

TEST(Users, AreThePoliciesThatNameAnObjectWhetherItExistsOrNot)
{
    Policies policies;
    policies.add(Policy(7, 1, 1));
    policies.add(Policy(3, 1, 2));
    policies.add(Policy(7, 2, 4294967295U));
    const Users users(policies);
    EXPECT_THAT(users.of(Kind::HOST_GROUP, 7), ElementsAre(1, 3));
    EXPECT_THAT(users.of(Kind::HOST_GROUP, 3), ElementsAre(2));
    EXPECT_THAT(users.of(Kind::HOST_GROUP, 1), IsEmpty());
    EXPECT_THAT(users.of(Kind::PROTOCOL_GROUP, 1), ElementsAre(1, 2));
    EXPECT_THAT(users.of(Kind::ACTION, 4294967295U), ElementsAre(3));
    EXPECT_TRUE(users.has(Kind::HOST_GROUP, 7));
    EXPECT_FALSE(users.has(Kind::HOST_GROUP, 8));
    EXPECT_FALSE(users.has(Kind::HOST_GROUP, 0));
}

} // namespace
