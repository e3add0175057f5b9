#include <support/xml.h>

#include <ipsecimpl/config.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

namespace ipsecimpl {
namespace {

const std::string policyElement = "<policy>\n"
                                  "<hostGroupID>1</hostGroupID>\n"
                                  "<protocolGroupID>2</protocolGroupID>\n"
                                  "<actionID>3</actionID>\n"
                                  "</policy>\n";

std::string entry(const std::string& id, const std::string& element = policyElement)
{
    return "<policyEntry>\n<id>" + id + "</id>\n" + element + "</policyEntry>\n";
}

std::string next(const std::string& id)
{
    return "<nextpolicy>" + id + "</nextpolicy>\n";
}

std::string policies(const std::string& content)
{
    return "<policies>\n" + content + "</policies>\n";
}

std::vector<unsigned int> idsOf(const Policies& collection)
{
    std::vector<unsigned int> ids;
    for (const auto& [id, policy] : collection)
        ids.push_back(id);
    return ids;
}

using IDs = std::vector<unsigned int>;

std::string action(const std::string& name, int type)
{
    return "<action><changeCount>0</changeCount><name>" + name +
           "</name><builtinName>0</builtinName><descr/><builtinDescr>0</builtinDescr><type>" + std::to_string(type) +
           "</type><state>0</state><spdAction>BYPASS</spdAction></action>";
}

/// The <type> that an action has: nothing but its document shows it.
std::string typeOf(const IPsecAction& a)
{
    const std::string text = written(a);
    const std::size_t from = text.find("<type>") + 6;
    return text.substr(from, text.find("</type>") - from);
}

// Documents

TEST(IndexedCollection, IsEmptyWithNextID1WhenNew)
{
    const Policies collection;
    EXPECT_TRUE(collection.empty());
    EXPECT_EQ(collection.size(), 0U);
    EXPECT_EQ(collection.nextIDGet(), 1U);
    EXPECT_EQ(collection.begin(), collection.end());
}

TEST(IndexedCollection, WritesAnEmptyCollectionAsThreeLines)
{
    EXPECT_EQ(written(Policies()), "<policies>\n<nextpolicy>1</nextpolicy>\n</policies>\n");
    EXPECT_EQ(written(Actions()), "<actions>\n<nextaction>1</nextaction>\n</actions>\n");
    EXPECT_EQ(written(HostGroups()), "<hostGroups>\n<nexthostGroup>1</nexthostGroup>\n</hostGroups>\n");
    EXPECT_EQ(written(ProtocolGroups()),
              "<protocolGroups>\n<nextprotocolGroup>1</nextprotocolGroup>\n</protocolGroups>\n");
}

TEST(IndexedCollection, ReadsBothFormsOfAnEmptyCollection)
{
    for (const char* text : {"<policies/>", "<policies></policies>", "<policies>\n \n</policies>"}) {
        const Policies collection = read<Policies>(text);
        EXPECT_TRUE(collection.empty()) << text;
        EXPECT_EQ(collection.nextIDGet(), 1U) << text;
    }
}

TEST(IndexedCollection, NamesItsElementsAfterTheSingularTagAsItIsSpelt)
{
    HostGroups hosts;
    hosts.add(HostGroup("h", 0, "", 0));
    EXPECT_EQ(written(hosts), "<hostGroups>\n<nexthostGroup>2</nexthostGroup>\n<hostGroupEntry>\n<id>1</id>\n" +
                                  written(HostGroup("h", 0, "", 0)) + "</hostGroupEntry>\n</hostGroups>\n");
    ProtocolGroups protocols;
    protocols.add(ProtocolGroup("p", 0, "", 0));
    EXPECT_EQ(written(protocols),
              "<protocolGroups>\n<nextprotocolGroup>2</nextprotocolGroup>\n<protocolGroupEntry>\n<id>1</id>\n" +
                  written(ProtocolGroup("p", 0, "", 0)) + "</protocolGroupEntry>\n</protocolGroups>\n");
    Actions actions;
    actions.add(IPsecAction());
    EXPECT_EQ(written(actions), "<actions>\n<nextaction>2</nextaction>\n<actionEntry>\n<id>1</id>\n" +
                                    written(IPsecAction()) + "</actionEntry>\n</actions>\n");
}

TEST(IndexedCollection, WritesEntriesInAscendingOrderOfTheirIDs)
{
    EXPECT_EQ(rewritten<Policies>(policies(entry("7") + entry("3"))), policies(next("8") + entry("3") + entry("7")));
}

TEST(IndexedCollection, TakesTheLargestOfAllThatTheDocumentSaysForTheNextID)
{
    const std::pair<std::string, unsigned int> rows[] = {
        {entry("7") + entry("3"), 8},
        {next("20") + entry("4"), 20},
        {entry("4") + next("20"), 20},
        {next("2") + entry("9"), 10},
        {entry("9") + next("2"), 10},
        {next("5") + next("3"), 5},
        {next("3") + next("5") + next("4"), 5},
        {next("  12 junk "), 12},
        {next("010"), 10},
        {next("2147483647"), 2147483647U},
        {next("2147483648"), 2147483647U},
        {next("4294967295"), 2147483647U},
        {next("2147483648") + entry("2147483647"), 2147483648U},
        {entry("2147483647"), 2147483648U},
    };
    for (const auto& [content, id] : rows)
        EXPECT_EQ(read<Policies>(policies(content)).nextIDGet(), id) << content;
}

TEST(IndexedCollection, ReadsIDsAsDecimalNumbersAndIgnoresWhatFollows)
{
    const std::pair<const char*, unsigned int> rows[] = {
        {"12abc", 12},
        {"007", 7},
        {"010", 10},
        {"+5", 5},
        {"1x", 1},
        {"2147483647", 2147483647U},
        {"2147483648", 2147483647U},
        {"99999999999999999999", 2147483647U},
    };
    for (const auto& [text, id] : rows)
        EXPECT_EQ(idsOf(read<Policies>(policies(entry(text)))), IDs{id}) << text;
}

TEST(IndexedCollection, ReadsTheLeafFormsOfAnID)
{
    EXPECT_EQ(idsOf(read<Policies>("<policies><policyEntry><id value=\"3\"/>" + policyElement +
                                   "</policyEntry></policies>")),
              IDs{3});
}

TEST(IndexedCollection, RefusesWhatItCannotUnderstandWithItsOwnMessageAlone)
{
    const std::pair<std::string, const char*> rows[] = {
        {policies(entry("0")), "invalid ID for policy"},
        {policies(entry("-1")), "invalid ID for policy"},
        {policies(entry("abc")), "invalid ID for policy"},
        {policies(entry("")), "invalid ID for policy"},
        {policies(entry("0x10")), "invalid ID for policy"},
        {policies(entry("-99999999999999999999")), "invalid ID for policy"},
        {"<policies><policyEntry><id/>", "invalid ID for policy"},
        {policies(entry("1") + entry("1")), "duplicate ID"},
        {policies(entry("2147483647") + entry("2147483648")), "duplicate ID"},
        {policies("<policyEntry/>"), "policy missing required data"},
        {policies("<nextpolicy/>"), "policy missing required data"},
        {policies("<nextpolicy></nextpolicy>"), "nextpolicy missing required data"},
        {policies("<nextpolicy> \n </nextpolicy>"), "nextpolicy missing required data"},
        {policies(next("0")), "invalid value for nextpolicy"},
        {policies(next("-1")), "invalid value for nextpolicy"},
        {policies(next("abc")), "invalid value for nextpolicy"},
        {policies("<foo>"), "unknown tag: foo"},
        {policies("<policy>"), "unknown tag: policy"},
        {policies("<policyentry>"), "unknown tag: policyentry"},
        {policies("<nextPolicy>1</nextPolicy>"), "unknown tag: nextPolicy"},
        {policies("<foo broken"), "unknown tag: foo"}, // before the rest of that tag is read
    };
    for (const auto& [text, message] : rows)
        EXPECT_EQ(refusalOf<Policies>(text), message) << text;
}

TEST(IndexedCollection, NamesItsOwnKindInItsMessages)
{
    EXPECT_EQ(refusalOf<Actions>("<actions><actionEntry/>"), "action missing required data");
    EXPECT_EQ(refusalOf<Actions>("<actions><nextaction/>"), "action missing required data");
    EXPECT_EQ(refusalOf<Actions>("<actions><nextaction></nextaction>"), "nextaction missing required data");
    EXPECT_EQ(refusalOf<Actions>("<actions><nextaction>0</nextaction>"), "invalid value for nextaction");
    EXPECT_EQ(refusalOf<Actions>("<actions><actionEntry><id>0</id>"), "invalid ID for action");
    EXPECT_EQ(refusalOf<Actions>("<actions><foo>"), "unknown tag: foo");
    EXPECT_EQ(refusalOf<HostGroups>("<hostGroups><nexthostGroup></nexthostGroup>"),
              "nexthostGroup missing required data");
    EXPECT_EQ(refusalOf<HostGroups>("<hostGroups><hostGroupEntry><id>x</id>"), "invalid ID for hostGroup");
    EXPECT_EQ(refusalOf<ProtocolGroups>("<protocolGroups><protocolGroupEntry/>"),
              "protocolGroup missing required data");
}

TEST(IndexedCollection, PassesTheParsersErrorsThrough)
{
    const std::pair<std::string, const char*> rows[] = {
        {"<actions>", "parse_simple_tag: wrong tag; expected <policies>, found <actions>\nfrom <actions>"},
        {"<policies a='1'>", "parse_tag_end: invalid attribute or missing '>'\nfrom <policies>"},
        {"<policies>", "parse_tag: expected '<', found '\xFF'\nfrom <policies>"},
        {"<policies>text", "parse_tag: expected '<', found 't'\nfrom <policies>"},
        {"<policies></actions>", "parse_end_tag: begin/end tags don't match\nfrom <policies>"},
        {"<policies></policies >", "parse_end_tag: malformed end tag\nfrom <policies>"},
        {policies("<policyEntry a='1'>"),
         "parse_tag_end: invalid attribute or missing '>'\nfrom <policyEntry>\nfrom <policies>"},
        {policies("<policyEntry>" + policyElement),
         "parse_tagged_value: wrong tag; expected <id>, found <policy>\n"
         "from <policy>\nfrom <policyEntry>\nfrom <policies>"},
        {policies("<policyEntry></policyEntry>"),
         "parse_tagged_value: missing tag; expected <id>\nfrom <policyEntry>\nfrom <policies>"},
        {policies(entry("1", "")),
         "parse_simple_tag: missing tag; expected <policy>\nfrom <policyEntry>\nfrom <policies>"},
        {policies(entry("1", policyElement + policyElement)),
         "parse_end_tag: expected '/', got 'p'\nfrom <policyEntry>\nfrom <policies>"},
        {policies("<nextpolicy value='3'/>"),
         "parse_tag_end: invalid attribute or missing '>'\nfrom <nextpolicy>\nfrom <policies>"},
        {policies("<nextpolicy>3<x>"), "parse_end_tag: expected '/', got 'x'\nfrom <nextpolicy>\nfrom <policies>"},
    };
    for (const auto& [text, message] : rows)
        EXPECT_EQ(refusalOf<Policies>(text), message) << text;
}

TEST(IndexedCollection, ReportsADuplicateAfterItsElementAndBeforeTheEndOfTheEntry)
{
    const std::string first = "<policies>" + entry("1") + "<policyEntry><id>1</id>";
    EXPECT_EQ(refusalOf<Policies>(first + "<policy><hostGroupID>1</hostGroupID></policy>"),
              "parse_tagged_value: missing tag; expected <protocolGroupID>\n"
              "from <policy>\nfrom <policyEntry>\nfrom <policies>");
    EXPECT_EQ(refusalOf<Policies>(first + policyElement + "garbage"), "duplicate ID");
}

TEST(IndexedCollection, RefusesAnIDBeforeItReadsTheElement)
{
    EXPECT_EQ(refusalOf<Policies>("<policies><policyEntry><id>0</id>garbage"), "invalid ID for policy");
}

// A self-closed element is let through, its children are read, and then its parents' end tags end one element too many.
// What is open is a wrong one from there on, or none at all.

const std::string policyChildren = "<hostGroupID>1</hostGroupID><protocolGroupID>2</protocolGroupID>"
                                   "<actionID>3</actionID>";

TEST(IndexedCollection, GoesOnWithItsOwnEntriesAfterASelfClosedElement)
{
    const std::string first = "<policies><policyEntry><id>1</id><policy/>" + policyChildren +
                              "</policyEntry></policies>"; // the second ends what is still open
    EXPECT_EQ(refusalOf<Policies>(first + "<policyEntry><id>2</id><policy>" + policyChildren +
                                  "</policy></policyEntry></x>"),
              "parse_end_tag: begin/end tags don't match");
    EXPECT_EQ(refusalOf<Policies>(first + "<policies><id>2</id><policy>" + policyChildren + "</policy></policies></x>"),
              "unknown tag: policies");
}

TEST(IndexedCollection, RefusesTheEndTagOfAnEntryWhileWhatIsAroundItIsOpen)
{
    const std::string ended = "<policies><policyEntry><id>1</id><policy/>" + policyChildren + "</policyEntry>";
    EXPECT_EQ(refusalOf<Policies>(ended + "</policyEntry></policies>"),
              "parse_end_tag: begin/end tags don't match\nfrom <policies>");
}

TEST(IndexedCollection, RefusesAnEndTagWhenSelfClosedElementsHaveLeftNoneOpen)
{
    const std::string leaves = "<changeCount/><name/><builtinName/><descr/><builtinDescr/><type/><state/>"
                               "<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr>";
    const std::string manual = "<manualKey/><saProposal/><protocol>NONE</protocol><encryption/><hash/>";
    EXPECT_EQ(refusalOf<IPsecConfig>("<ipsec><hostGroups/><protocolGroups/><actions><actionEntry><id>1</id><action/>" +
                                     leaves + manual + "</actionEntry></actions></ipsec></x>"),
              "parse_end_tag: begin/end tags don't match");
    EXPECT_EQ(refusalOf<Actions>("<actions><actionEntry><id>1</id><action>" + leaves + manual +
                                 "</action></actionEntry></actions></x>"),
              "parse_end_tag: begin/end tags don't match");
}

// Editing

TEST(IndexedCollection, HandsOutIDsInOrder)
{
    Policies collection;
    EXPECT_EQ(collection.add(Policy(1, 1, 1)), 1U);
    EXPECT_EQ(collection.add(Policy(2, 2, 2)), 2U);
    EXPECT_EQ(collection.nextIDGet(), 3U);
    EXPECT_EQ(collection.size(), 2U);
    EXPECT_FALSE(collection.empty());
    EXPECT_EQ(collection.at(2).actionID, 2U);
}

TEST(IndexedCollection, DoesNotHandOutAnIDAgainAfterItsEntryIsRemoved)
{
    Policies collection;
    collection.add(Policy(1, 1, 1));
    collection.add(Policy(2, 2, 2));
    EXPECT_TRUE(collection.remove(2));
    EXPECT_EQ(collection.nextIDGet(), 3U);
    EXPECT_EQ(collection.add(Policy(3, 3, 3)), 3U);
    EXPECT_EQ(idsOf(collection), (IDs{1, 3}));
}

TEST(IndexedCollection, FindsWhatIsThereAndNothingElse)
{
    Policies collection = read<Policies>(policies(entry("5")));
    ASSERT_NE(collection.find(5), nullptr);
    collection.find(5)->actionID = 9;
    EXPECT_EQ(std::as_const(collection).find(5)->actionID, 9U);
    EXPECT_EQ(collection.find(4), nullptr);
    EXPECT_EQ(std::as_const(collection).find(0), nullptr);
}

TEST(IndexedCollection, SaysWhichEntryIsMissing)
{
    Policies          collection = read<Policies>(policies(next("9") + entry("5")));
    const std::string before     = written(collection);
    EXPECT_EQ(collection.at(5).hostGroupID, 1U);
    EXPECT_EQ(errorOf<std::invalid_argument>([&] { collection.at(4); }), "no policy with ID 4");
    EXPECT_EQ(errorOf<std::invalid_argument>([&] { std::as_const(collection).at(0); }), "no policy with ID 0");
    EXPECT_EQ(errorOf<std::invalid_argument>([&] { collection.replace(6, Policy(0, 0, 0)); }), "no policy with ID 6");
    EXPECT_FALSE(collection.remove(6));
    EXPECT_EQ(written(collection), before);
}

TEST(IndexedCollection, ReplacesAnElementUnderItsID)
{
    Policies collection = read<Policies>(policies(next("9") + entry("5")));
    EXPECT_EQ(&collection.replace(5, Policy(7, 8, 9)), collection.find(5));
    EXPECT_EQ(collection.at(5).protocolGroupID, 8U);
    EXPECT_EQ(collection.nextIDGet(), 9U);
    EXPECT_EQ(collection.size(), 1U);
}

TEST(IndexedCollection, ReplacesAnElementByItself)
{
    HostGroups collection;
    collection.add(HostGroupAny());
    collection.replace(1, collection.at(1));
    EXPECT_EQ(written(collection.at(1)), written(HostGroupAny()));
}

TEST(IndexedCollection, VisitsElementsInOrderAndLetsThemBeChanged)
{
    Policies collection = read<Policies>(policies(entry("7") + entry("3")));
    for (auto& [id, policy] : collection)
        policy.actionID = id * 10;
    EXPECT_EQ(idsOf(collection), (IDs{3, 7}));
    EXPECT_EQ(collection.at(3).actionID, 30U);
    EXPECT_EQ(collection.at(7).actionID, 70U);
}

TEST(IndexedCollection, KeepsReferencesToElementsWhenOthersComeAndGo)
{
    Policies      collection = read<Policies>(policies(entry("7") + entry("3")));
    const Policy* seven      = collection.find(7);
    collection.remove(3);
    collection.add(Policy(0, 0, 0));
    EXPECT_EQ(collection.find(7), seven);
}

// The top of the range

TEST(IndexedCollection, HandsOutTheLastIDAndThenRefuses)
{
    Policies collection = read<Policies>(policies(next("2147483647")));
    EXPECT_EQ(collection.add(Policy(1, 1, 1)), 2147483647U);
    EXPECT_EQ(collection.nextIDGet(), 2147483648U);

    const std::string before = written(collection);
    EXPECT_EQ(errorOf<invalid_operation>([&] { collection.add(Policy(2, 2, 2)); }), "no ID left for policy");
    EXPECT_EQ(written(collection), before);
    EXPECT_EQ(collection.nextIDGet(), 2147483648U);
}

TEST(IndexedCollection, RefusesAFullRangeInTheWordsOfItsKind)
{
    Actions actions = read<Actions>("<actions><actionEntry><id>2147483647</id>" + action("a", 0) +
                                    "</actionEntry></actions>");
    EXPECT_EQ(errorOf<invalid_operation>([&] { actions.add(IPsecAction()); }), "no ID left for action");
    HostGroups groups =
        read<HostGroups>("<hostGroups><hostGroupEntry><id>2147483647</id>" + written(HostGroupAny()) +
                         "</hostGroupEntry></hostGroups>");
    EXPECT_EQ(errorOf<invalid_operation>([&] { groups.add(HostGroup()); }), "no ID left for hostGroup");
}

TEST(IndexedCollection, GivesTheLastIDBackWhenItsEntryIsRemoved)
{
    // Otherwise the document could not carry the next ID: it reads 2147483648 as 2147483647.
    Policies collection = read<Policies>(policies(entry("2147483647")));
    EXPECT_TRUE(collection.remove(2147483647U));
    EXPECT_EQ(collection.nextIDGet(), 2147483647U);
    EXPECT_EQ(collection.add(Policy(1, 1, 1)), 2147483647U);
}

TEST(IndexedCollection, ComesBackFromADocumentInEveryStateThatEditingReaches)
{
    // Each letter is an edit at the top of the range: add, remove the last ID, remove another, replace.
    for (const std::string edits : {"", "a", "aa", "aal", "alal", "aao", "aaol", "aaolaa", "or", "aar", "lll"}) {
        Policies collection = read<Policies>(policies(next("2147483646") + entry("5")));
        for (const char edit : edits) {
            if (edit == 'a' && collection.nextIDGet() <= 2147483647U)
                collection.add(Policy(1, 2, 3));
            if (edit == 'l')
                collection.remove(2147483647U);
            if (edit == 'o')
                collection.remove(2147483646U);
            if (edit == 'r')
                collection.replace(5, Policy(9, 9, 9));
        }
        const Policies back = read<Policies>(written(collection));
        EXPECT_EQ(idsOf(back), idsOf(collection)) << edits;
        EXPECT_EQ(back.nextIDGet(), collection.nextIDGet()) << edits;
        EXPECT_EQ(written(back), written(collection)) << edits;
        for (const auto& [id, policy] : collection)
            EXPECT_LT(id, collection.nextIDGet()) << edits;
    }
}

// Copies, and what actions leave out of them

TEST(IndexedCollection, IsCopiedWithItsNextID)
{
    const Policies original = read<Policies>(policies(next("20") + entry("4")));
    Policies       copy(original);
    EXPECT_EQ(written(copy), written(original));
    copy.at(4).actionID = 99;
    EXPECT_EQ(original.at(4).actionID, 3U);

    Policies target = read<Policies>(policies(entry("7")));
    target          = original;
    EXPECT_EQ(written(target), written(original));
    target = *&target;
    EXPECT_EQ(written(target), written(original));
}

TEST(IndexedCollection, LeavesAnEmptyOneBehindWhenItIsMoved)
{
    static_assert(std::is_nothrow_move_constructible_v<Policies> && std::is_nothrow_move_assignable_v<Policies>);
    Policies          original = read<Policies>(policies(next("20") + entry("4")));
    const std::string before   = written(original);
    Policies          moved(std::move(original));
    EXPECT_EQ(written(moved), before);
    EXPECT_EQ(written(original), written(Policies())); // NOLINT(bugprone-use-after-move): it is promised

    Policies target = read<Policies>(policies(entry("7")));
    target          = std::move(moved);
    EXPECT_EQ(written(target), before);
    EXPECT_EQ(written(moved), written(Policies())); // NOLINT(bugprone-use-after-move): it is promised
}

TEST(IndexedCollection, CarriesTypeAndStateOfItsActionsFromDocumentToDocument)
{
    const Actions actions =
        read<Actions>("<actions><actionEntry><id>1</id>" + action("a", 5) + "</actionEntry></actions>");
    EXPECT_EQ(typeOf(actions.at(1)), "5");
}

TEST(IndexedCollection, StartsTypeAndStateAt0InAnActionThatIsCopiedIn)
{
    const IPsecAction original = read<IPsecAction>(action("a", 5));
    Actions           actions;
    actions.add(original);
    EXPECT_EQ(typeOf(actions.at(1)), "0");
    actions.add(read<IPsecAction>(action("b", 6))); // moved in: it stays the same action
    EXPECT_EQ(typeOf(actions.at(2)), "6");
}

TEST(IndexedCollection, KeepsTypeAndStateOfAnActionThatIsReplaced)
{
    Actions actions = read<Actions>("<actions><actionEntry><id>1</id>" + action("a", 5) + "</actionEntry></actions>");
    actions.replace(1, read<IPsecAction>(action("b", 6)));
    EXPECT_EQ(actions.at(1).nameGet(), "b");
    EXPECT_EQ(typeOf(actions.at(1)), "5");
}

TEST(IndexedCollection, IsUnchangedByAssignmentToItself)
{
    Actions actions = read<Actions>("<actions><actionEntry><id>1</id>" + action("a", 5) + "</actionEntry></actions>");
    const IPsecAction* const element = actions.find(1);
    const std::string        before  = written(actions);
    actions                          = *&actions;
    EXPECT_EQ(written(actions), before); // type and state included
    EXPECT_EQ(actions.find(1), element);
    actions = std::move(*&actions);
    EXPECT_EQ(written(actions), before);
    EXPECT_EQ(actions.find(1), element);
}

TEST(IndexedCollection, StartsTypeAndStateAt0InACopyWhateverTheTargetHeld)
{
    const Actions original =
        read<Actions>("<actions><actionEntry><id>1</id>" + action("a", 5) + "</actionEntry></actions>");
    EXPECT_EQ(typeOf(Actions(original).at(1)), "0");

    Actions target = read<Actions>("<actions><actionEntry><id>1</id>" + action("b", 7) + "</actionEntry></actions>");
    target         = original;
    EXPECT_EQ(typeOf(target.at(1)), "0");
    EXPECT_EQ(target.at(1).nameGet(), "a");
}

} // namespace
} // namespace ipsecimpl
