// Collections and actions whose numbers a document has set as high or as low as they go.

#include <support/documents.h>
#include <support/xml.h>

#include <ipsecimpl/ipsecimpl.h>

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

/// What is in a collection's document, and what comes of it.
struct IDs {
    std::vector<std::string> entries;
    std::string              next;   ///< the next-ID element's text; none if empty
    unsigned int             nextID; ///< after loading
    std::vector<unsigned>    added;  ///< the IDs that add() gives until it refuses, or three of them
};

const std::vector<IDs> hostileIDs{
    {{}, "2147483644", 2147483644, {2147483644, 2147483645, 2147483646}},
    {{}, "2147483646", 2147483646, {2147483646, 2147483647}},
    {{}, "2147483647", 2147483647, {2147483647}},
    {{}, "2147483648", 2147483647, {2147483647}}, // as a 32-bit strtol() reads it
    {{}, "4294967295", 2147483647, {2147483647}},
    {{}, "4294967296", 2147483647, {2147483647}},
    {{}, "4294967297", 2147483647, {2147483647}},
    {{}, "18446744073709551617", 2147483647, {2147483647}},
    {{}, "1234567890123456789012345678901234567890", 2147483647, {2147483647}},
    {{"2147483646"}, "", 2147483647, {2147483647}},
    {{"2147483646"}, "1", 2147483647, {2147483647}},
    {{"2147483647"}, "", 2147483648, {}},
    {{"2147483647"}, "1", 2147483648, {}},
    {{"2147483647"}, "2147483647", 2147483648, {}},
    {{"2147483647"}, "4294967295", 2147483648, {}},
    {{"2147483648"}, "", 2147483648, {}},
    {{"4294967295"}, "", 2147483648, {}},
    {{"4294967295", "1"}, "", 2147483648, {}},
    {{"1", "2147483647", "2147483646"}, "2", 2147483648, {}},
    {{"1"}, "", 2, {2, 3, 4}},
};

/// The tags of a collection, and an element of it.
template <class Collection>
struct Kind;

template <>
struct Kind<HostGroups> {
    static constexpr const char *plural = "hostGroups", *singular = "hostGroup";
    static HostGroup             element() { return HostGroup(); }
};

template <>
struct Kind<ProtocolGroups> {
    static constexpr const char *plural = "protocolGroups", *singular = "protocolGroup";
    static ProtocolGroup         element() { return ProtocolGroup(); }
};

template <>
struct Kind<Actions> {
    static constexpr const char *plural = "actions", *singular = "action";
    static IPsecAction           element() { return IPsecAction(); }
};

template <>
struct Kind<Policies> {
    static constexpr const char *plural = "policies", *singular = "policy";
    static Policy                element() { return Policy(0, 0, 0); }
};

template <class Collection>
class HostileIDs : public ::testing::Test {
  protected:
    using Its = Kind<Collection>;

    static std::string document(const std::vector<std::string>& entries, const std::string& next)
    {
        const std::string singular = Its::singular;
        std::string       content  = next.empty() ? "" : leaf("next" + singular, next);
        for (const std::string& id : entries)
            content += leaf(singular + "Entry", leaf("id", id) + written(Its::element()));
        return leaf(Its::plural, content);
    }
};

using Collections = ::testing::Types<HostGroups, ProtocolGroups, Actions, Policies>;
TYPED_TEST_SUITE(HostileIDs, Collections, );

TYPED_TEST(HostileIDs, AreHandedOutUpToTheLastOneAndThenRefused)
{
    const std::string refusal = std::string("no ID left for ") + TestFixture::Its::singular;
    for (const IDs& ids : hostileIDs) {
        auto collection = read<TypeParam>(this->document(ids.entries, ids.next));
        EXPECT_EQ(collection.nextIDGet(), ids.nextID) << ids.next;
        for (const unsigned int id : ids.added)
            EXPECT_EQ(collection.add(TestFixture::Its::element()), id) << ids.next;

        const std::string before = written(collection);
        if (ids.added.size() < 3) {
            EXPECT_EQ(errorOf<invalid_operation>([&] { collection.add(TestFixture::Its::element()); }), refusal);
        }
        EXPECT_EQ(written(collection), before) << ids.next;
        EXPECT_EQ(rewritten<TypeParam>(before), before) << ids.next;
    }
}

TYPED_TEST(HostileIDs, ThatAreReadAsTheSameOneAreRefused)
{
    EXPECT_EQ(refusalOf<TypeParam>(this->document({"2147483647", "4294967295"}, "")), "duplicate ID");
    EXPECT_EQ(refusalOf<TypeParam>(this->document({"2147483648", "2147483649"}, "")), "duplicate ID");
    EXPECT_EQ(refusalOf<TypeParam>(this->document({"7", "0007x"}, "")), "duplicate ID");
}

struct Setter {
    const char*                       name;
    IPsecKeyMgr                       keyMgr; ///< of the action
    std::function<void(IPsecAction&)> set;    ///< changes what is there
};

TEST(HostileChangeCount, GoesOnAtTheOtherEndOfItsRangeWithEverySetterThatCounts)
{
    const std::vector<Setter> setters{
        {"spdActionSet", KEYMGR_NONE, [](IPsecAction& action) { action.spdActionSet(SPD_BYPASS); }},
        {"keyMgrSet", KEYMGR_NONE, [](IPsecAction& action) { action.keyMgrSet(KEYMGR_IKE); }},
        {"tunnelEndpointSet", KEYMGR_NONE, [](IPsecAction& action) { action.tunnelEndpointSet("another"); }},
        {"manualKeySet", KEYMGR_MKM, [](IPsecAction& action) { action.manualKeySet(MKM()); }},
        {"ikePhase1Set", KEYMGR_IKE, [](IPsecAction& action) { action.ikePhase1Set(action.ikePhase1Get()); }},
        {"ikePhase2Set", KEYMGR_IKE, [](IPsecAction& action) { action.ikePhase2Set(action.ikePhase2Get()); }},
    };
    const std::vector<std::pair<std::string, int>> counts{
        {"2147483646", INT_MAX},
        {"2147483647", INT_MIN},
        {"4294967295", INT_MIN},
        {"-2147483648", INT_MIN + 1},
        {"-4294967296", INT_MIN + 1},
        {"-1", 0},
        {"-2", -1},
        {"0", 1},
    };
    for (const Setter& setter : setters) {
        const std::string original = written(IPsecAction(SPD_TUNNEL, "", 0, "", 0, setter.keyMgr));
        for (const auto& [text, after] : counts) {
            auto action = read<IPsecAction>(withText(original, "changeCount", text));
            setter.set(action);
            EXPECT_EQ(action.changeCountGet(), after) << setter.name << " after " << text;
            EXPECT_EQ(rewritten<IPsecAction>(written(action)), written(action)) << setter.name << " after " << text;
        }
    }
}

TEST(HostileChangeCount, StaysWhereItIsWhenASetterRefusesOrDoesNotCount)
{
    for (const char* text : {"2147483647", "-2147483648"}) {
        auto              action = read<IPsecAction>(withText(written(IPsecAction()), "changeCount", text));
        const std::string before = written(action);
        EXPECT_THROW(action.tunnelEndpointSet("x"), invalid_operation);
        EXPECT_THROW(action.manualKeySet(MKM()), invalid_operation);
        action.spdActionSet(SPD_NONE);
        action.keyMgrSet(KEYMGR_NONE);
        EXPECT_EQ(written(action), before);
        action.nameSet("name");
        action.descrSet("descr");
        EXPECT_EQ(std::to_string(action.changeCountGet()), text);
    }
}

} // namespace
} // namespace ipsecimpl
