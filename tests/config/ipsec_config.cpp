#include <support/streams.h>
#include <support/xml.h>

#include <ipsecimpl/ipsecimpl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <locale>
#include <type_traits>
#include <utility>

namespace ipsecimpl {
namespace {

const std::string emptyDocument = "<ipsec>\n"
                                  "<hostGroups>\n<nexthostGroup>1</nexthostGroup>\n</hostGroups>\n"
                                  "<protocolGroups>\n<nextprotocolGroup>1</nextprotocolGroup>\n</protocolGroups>\n"
                                  "<actions>\n<nextaction>1</nextaction>\n</actions>\n"
                                  "<policies>\n<nextpolicy>1</nextpolicy>\n</policies>\n"
                                  "</ipsec>\n";

/// A configuration with something in every collection.
IPsecConfig sample()
{
    HostGroups hosts;
    hosts.add(HostGroupAny());
    hosts.add(HostGroupLocalv6());
    ProtocolGroups protocols;
    protocols.add(ProtocolGroupSystem());
    Actions actions;
    actions.add(ActionDiscard());
    IPsecAction tunnel(SPD_TUNNEL, "tunnel", 0, "to the branch", 0, KEYMGR_IKE);
    tunnel.tunnelEndpointSet("192.0.2.1");
    actions.add(tunnel);
    Policies policies;
    policies.add(Policy(2, 1, 2));
    return IPsecConfig(hosts, protocols, actions, policies);
}

IPsecConfig load(std::istream& in)
{
    XMLParser parser(in);
    return IPsecConfig::importXML(parser);
}

TEST(IPsecConfig, IsWrittenAsFourteenLinesWhenEmpty)
{
    EXPECT_EQ(written(IPsecConfig()), emptyDocument);
    EXPECT_EQ(rewritten<IPsecConfig>(emptyDocument), emptyDocument);
}

TEST(IPsecConfig, ReadsSelfClosedCollectionsAsEmpty)
{
    EXPECT_EQ(rewritten<IPsecConfig>("<ipsec><hostGroups/><protocolGroups/><actions/><policies/></ipsec>"),
              emptyDocument);
}

TEST(IPsecConfig, WritesItsCollectionsInTheirOrder)
{
    IPsecConfig config = sample();
    EXPECT_EQ(written(config), "<ipsec>\n" + written(config.hostGroups) + written(config.protocolGroups) +
                                   written(config.actions) + written(config.policies) + "</ipsec>\n");
}

TEST(IPsecConfig, ComesBackWithEveryCollectionIDAndNextID)
{
    IPsecConfig config = sample();
    config.hostGroups.remove(1);
    IPsecConfig back = read<IPsecConfig>(written(config));
    EXPECT_EQ(written(back), written(config));
    EXPECT_EQ(back.hostGroups.nextIDGet(), 3U);
    EXPECT_EQ(back.hostGroups.find(1), nullptr);
    EXPECT_EQ(back.hostGroups.at(2).selectors, config.hostGroups.at(2).selectors);
    EXPECT_EQ(back.actions.at(2).tunnelEndpointGet(), "192.0.2.1");
    EXPECT_EQ(back.actions.at(2).changeCountGet(), 1);
    EXPECT_EQ(back.policies.at(1).hostGroupID, 2U);
}

TEST(IPsecConfig, KeepsPoliciesThatNameWhatIsNotThere)
{
    const std::string text = "<ipsec><hostGroups/><protocolGroups/><actions/><policies><policyEntry><id>1</id>"
                             "<policy><hostGroupID>5</hostGroupID><protocolGroupID>0</protocolGroupID>"
                             "<actionID>4294967295</actionID></policy></policyEntry></policies></ipsec>";
    const IPsecConfig config = read<IPsecConfig>(text);
    EXPECT_EQ(config.policies.at(1).hostGroupID, 5U);
    EXPECT_EQ(config.policies.at(1).actionID, 4294967295U);
}

TEST(IPsecConfig, RefusesCollectionsThatAreMissingOrMisplaced)
{
    const std::pair<const char*, const char*> rows[] = {
        {"<ipsec><hostGroups/><actions/><protocolGroups/><policies/></ipsec>",
         "parse_simple_tag: wrong tag; expected <protocolGroups>, found <actions>\nfrom <actions>\nfrom <ipsec>"},
        {"<ipsec><hostGroups/><protocolGroups/><policies/></ipsec>",
         "parse_simple_tag: wrong tag; expected <actions>, found <policies>\nfrom <policies>\nfrom <ipsec>"},
        {"<ipsec><hostGroups/><protocolGroups/><actions/></ipsec>",
         "parse_simple_tag: missing tag; expected <policies>\nfrom <ipsec>"},
        {"<ipsec></ipsec>", "parse_simple_tag: missing tag; expected <hostGroups>\nfrom <ipsec>"},
        {"<ipsec><hostGroups/><hostGroups/>",
         "parse_simple_tag: wrong tag; expected <protocolGroups>, found <hostGroups>\nfrom <hostGroups>\nfrom <ipsec>"},
        {"<ipsec><hostGroups/><protocolGroups/><actions/><policies/><policies/></ipsec>",
         "parse_end_tag: expected '/', got 'p'\nfrom <ipsec>"},
        {"<ipsec/>", "parse_tag: expected '<', found '\xFF'"},
        {"<ipsec/><foo/>", "parse_simple_tag: wrong tag; expected <hostGroups>, found <foo>\nfrom <foo>"},
        {"", "parse_tag: expected '<', found '\xFF'"},
        {"ipsec", "parse_tag: expected '<', found 'i'"},
        {"<?xml version=\"1.0\"?><ipsec>", "parse_tag: unnamed tag"},
        {"<!-- x --><ipsec>", "parse_tag: unnamed tag"},
        {"<IPsec>", "parse_simple_tag: wrong tag; expected <ipsec>, found <IPsec>\nfrom <IPsec>"},
        {"<ipsec version=\"1\">", "parse_tag_end: invalid attribute or missing '>'\nfrom <ipsec>"},
    };
    for (const auto& [text, message] : rows)
        EXPECT_EQ(refusalOf<IPsecConfig>(text), message) << text;
}

TEST(IPsecConfig, NamesTheElementsThatAreOpenWhereADocumentIsBroken)
{
    EXPECT_EQ(refusalOf<IPsecConfig>("<ipsec><hostGroups/><protocolGroups/><actions/><policies><policyEntry>"
                                     "<id>1</id><policy><hostGroupID>1</policy>"),
              "parse_end_tag: begin/end tags don't match\n"
              "from <hostGroupID>\nfrom <policy>\nfrom <policyEntry>\nfrom <policies>\nfrom <ipsec>");
}

TEST(IPsecConfig, TurnsAnUnknownWordInASelectorIntoAParseError)
{
    EXPECT_EQ(refusalOf<IPsecConfig>("<ipsec><hostGroups><hostGroupEntry><id>1</id><hostGroup><name/><builtinName/>"
                                     "<descr/><builtinDescr/><selectors><hostSelector><family>IPv4</family>"),
              "bad value: to_int");
}

TEST(IPsecConfig, LeavesTheCallersConfigurationAloneWhenALoadFails)
{
    IPsecConfig       config = sample();
    const std::string before = written(config);
    const std::string broken = before.substr(0, before.size() - 3);
    EXPECT_EQ(errorOf([&] { config = read<IPsecConfig>(broken); }), "parse_end_tag: malformed end tag\nfrom <ipsec>");
    EXPECT_EQ(written(config), before);
}

TEST(IPsecConfig, FailsAtEveryByteWhereADocumentBreaksOff)
{
    const std::string whole = written(sample());
    const std::size_t end   = whole.rfind('>');
    for (std::size_t length = 0; length <= end; ++length)
        EXPECT_FALSE(refusalOf<IPsecConfig>(whole.substr(0, length)).empty()) << length;
    EXPECT_NO_THROW(read<IPsecConfig>(whole.substr(0, end + 1)));
}

TEST(IPsecConfig, LeavesWhatFollowsTheDocumentInTheStream)
{
    std::istringstream in(emptyDocument + "rest");
    load(in);
    EXPECT_TRUE(in.good());
    std::string rest;
    std::getline(in, rest, '\0');
    EXPECT_EQ(rest, "\nrest");
}

TEST(IPsecConfig, LoadsTwoDocumentsFromOneStream)
{
    std::string first = written(sample());
    first.pop_back(); // back to back, without a line end between them
    std::istringstream in(first + emptyDocument);
    IPsecConfig        one = load(in);
    IPsecConfig        two = load(in);
    EXPECT_EQ(written(one), first + "\n");
    EXPECT_EQ(written(two), emptyDocument);
}

TEST(IPsecConfig, LoadsFromABufferThatHandsOutSingleBytes)
{
    const std::string whole = written(sample());
    ByteBuffer        buffer(whole);
    std::istream      in(&buffer);
    IPsecConfig       config = load(in);
    EXPECT_EQ(written(config), whole);
    EXPECT_EQ(buffer.rest(), "\n");
}

TEST(IPsecConfig, IsReadAlikeWhateverTheWhiteSpaceBetweenTags)
{
    std::string spaced;
    for (const char c : written(sample()))
        spaced += c == '\n' ? std::string(" \t\r\n\v\f ") : std::string(1, c);
    EXPECT_EQ(rewritten<IPsecConfig>(spaced), written(sample()));
}

TEST(IPsecConfig, FlushesTheStreamOnceForEachLine)
{
    class Buffer : public std::stringbuf {
      public:
        std::ptrdiff_t flushes = 0;

      protected:
        int sync() override { return ++flushes, 0; }
    } buffer;
    std::ostream out(&buffer);
    sample().exportXML(out);
    const std::string text = buffer.str();
    EXPECT_EQ(buffer.flushes, std::count(text.begin(), text.end(), '\n'));
}

TEST(IPsecConfig, WritesNumbersAsTheStreamWritesThem)
{
    struct Grouped : std::numpunct<char> {
        char        do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    Policies           policies = read<Policies>("<policies><nextpolicy>1234567</nextpolicy></policies>");
    std::ostringstream grouped;
    grouped.imbue(std::locale(std::locale::classic(), new Grouped));
    policies.exportXML(grouped);
    EXPECT_EQ(grouped.str(), "<policies>\n<nextpolicy>1.234.567</nextpolicy>\n</policies>\n");

    std::ostringstream hexadecimal;
    hexadecimal << std::hex << std::showbase;
    policies.exportXML(hexadecimal);
    EXPECT_EQ(hexadecimal.str(), "<policies>\n<nextpolicy>0x12d687</nextpolicy>\n</policies>\n");
    EXPECT_NE(hexadecimal.flags() & std::ios_base::hex, std::ios_base::fmtflags()); // and they stay set
}

TEST(IPsecConfig, WritesPortsWithoutASignWhateverTheFlags)
{
    std::ostringstream out;
    out << std::showpos;
    ProtocolSelector("web", 6, 80, 0, PROTO_IN, true).exportXML(out);
    EXPECT_EQ(out.str(), "<protocolSelector>\n<protocol>6</protocol>\n<name>web</name>\n<dstPort>80</dstPort>\n"
                         "<srcPort>0</srcPort>\n<direction>IN</direction>\n<mirrored>MIRRORED</mirrored>\n"
                         "</protocolSelector>\n");

    std::ostringstream signs;
    signs << std::showpos;
    HostGroup("h", -1, "", 2).exportXML(signs);
    EXPECT_EQ(signs.str(), "<hostGroup>\n<name>h</name>\n<builtinName>-1</builtinName>\n<descr></descr>\n"
                           "<builtinDescr>+2</builtinDescr>\n<selectors>\n</selectors>\n</hostGroup>\n");
}

TEST(IPsecConfig, ReturnsAFailedStreamWithoutWriting)
{
    IPsecConfig        config = sample();
    std::ostringstream out;
    out.setstate(std::ios_base::failbit);
    EXPECT_EQ(&config.exportXML(out), &out);
    EXPECT_TRUE(out.fail());
    EXPECT_EQ(out.str(), "");
}

TEST(IPsecConfig, LosesTextsThatTheDocumentCannotCarry)
{
    IPsecConfig config;
    config.hostGroups.add(HostGroup("  outer blanks ", 0, "", 0));
    EXPECT_NE(written(config).find("<name>  outer blanks </name>\n"), std::string::npos);
    EXPECT_EQ(read<IPsecConfig>(written(config)).hostGroups.at(1).name, "outer blanks");

    config.hostGroups.at(1).name = "a<b";
    EXPECT_NE(written(config).find("<name>a<b</name>\n"), std::string::npos);
    EXPECT_EQ(refusalOf<IPsecConfig>(written(config)),
              "parse_end_tag: expected '/', got 'b'\n"
              "from <name>\nfrom <hostGroup>\nfrom <hostGroupEntry>\nfrom <hostGroups>\nfrom <ipsec>");
}

TEST(IPsecConfig, CarriesTextsWithAnyOtherByte)
{
    std::string text = "x";
    for (int c = 0; c < 256; ++c)
        if (c != '<')
            text += static_cast<char>(c);
    text += "x &lt; \"y\" 'z' >";
    IPsecConfig config;
    config.hostGroups.add(HostGroup(text, 0, "", 0));
    EXPECT_EQ(read<IPsecConfig>(written(config)).hostGroups.at(1).name, text);
}

TEST(IPsecConfig, IsCopiedAsAWhole)
{
    const IPsecConfig original = sample();
    IPsecConfig       copy(original);
    EXPECT_EQ(written(copy), written(sample()));
    copy.policies.remove(1);
    EXPECT_NE(original.policies.find(1), nullptr);

    copy = original;
    EXPECT_EQ(written(copy), written(sample()));
    copy = *&copy;
    EXPECT_EQ(written(copy), written(sample()));
}

TEST(IPsecConfig, IsUnchangedByAssignmentToItself)
{
    IPsecConfig config = sample();
    config.actions.at(2).typeSet(5);
    config.actions.at(2).stateSet(6);
    const std::string        before  = written(config);
    const IPsecAction* const element = config.actions.find(2);
    config                           = *&config;
    EXPECT_EQ(written(config), before); // type and state included
    EXPECT_EQ(config.actions.find(2), element);
    config = std::move(*&config);
    EXPECT_EQ(written(config), before);
    EXPECT_EQ(config.actions.find(2), element);
}

TEST(IPsecConfig, WritesThroughANonConstMember)
{
    static_assert(std::is_same_v<decltype(&IPsecConfig::exportXML), std::ostream& (IPsecConfig::*)(std::ostream&)>);
}

TEST(IPsecConfig, CarriesTypeAndStateWhereverALoadedConfigurationGoes)
{
    IPsecConfig config = sample();
    config.actions.at(2).typeSet(5);
    config.actions.at(2).stateSet(-6);
    const std::string text   = written(config);
    IPsecConfig       loaded = read<IPsecConfig>(text); // returned
    EXPECT_EQ(written(loaded), text);
    IPsecConfig moved(std::move(loaded));
    EXPECT_EQ(written(moved), text);
    IPsecConfig assigned = sample();
    assigned             = std::move(moved);
    EXPECT_EQ(written(assigned), text);
    assigned = read<IPsecConfig>(text);
    EXPECT_EQ(written(assigned), text);
    EXPECT_EQ(assigned.actions.at(2).stateGet(), -6);
}

TEST(IPsecConfig, IsMovedAndLeavesAnEmptyOneBehind)
{
    static_assert(std::is_nothrow_move_constructible_v<IPsecConfig>);
    static_assert(std::is_nothrow_move_assignable_v<IPsecConfig>);
    IPsecConfig original = sample();
    IPsecConfig moved(std::move(original));
    EXPECT_EQ(written(moved), written(sample()));
    EXPECT_EQ(written(original), emptyDocument); // NOLINT(bugprone-use-after-move): it is promised
}

TEST(IPsecConfig, NeverHoldsBuiltInObjectsByItself)
{
    const IPsecConfig config = read<IPsecConfig>(emptyDocument);
    EXPECT_TRUE(config.hostGroups.empty() && config.protocolGroups.empty() && config.actions.empty());
}

} // namespace
} // namespace ipsecimpl
