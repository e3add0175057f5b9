// What each command does to a document.

#include "editing.h"

#include "support/documents.h"

#include <string>
#include <vector>

using ipsecimpl::changed;

namespace {

const std::string WEB  = group("hostGroup", "web", "Servers", "");
const std::string MAIL = group("hostGroup", "mail", "", "");
const std::string HTTP = group("protocolGroup", "http", "", "");
const std::string PASS = action("pass", "", "<spdAction>BYPASS</spdAction>");

/// Two host groups, a protocol group, an action, and two policies.
std::string sample()
{
    return document(entry("hostGroup", 1, WEB) + entry("hostGroup", 4, MAIL), entry("protocolGroup", 1, HTTP),
                    entry("action", 2, PASS),
                    entry("policy", 1, policy(1, 1, 2)) + entry("policy", 3, policy(4, 0, 2)));
}

std::string hosts(const std::string& selectorType, const std::string& more)
{
    return "<hostSelector><family>AF_INET</family><selectorType>" + selectorType + "</selectorType>" + more +
           "</hostSelector>";
}

std::string protocol(int number, const std::string& name, const std::string& ports, const std::string& direction,
                     const std::string& mirrored)
{
    return "<protocolSelector><protocol>" + std::to_string(number) + "</protocol><name>" + name + "</name>" + ports +
           "<direction>" + direction + "</direction><mirrored>" + mirrored + "</mirrored></protocolSelector>";
}

TEST_F(Editing, AddsAHostGroup)
{
    expectEdited(document(), {"add host-group \"Head office\" descr=\"12, High St\" selectors=\"10.2.0.0/16, any4\""},
                 document(entry(
                     "hostGroup", 1,
                     group("hostGroup", "Head office", "12, High St",
                           hosts("SUBNET_LENGTH", "<addr1>10.2.0.0</addr1><length>16</length>") + hosts("ANY", "")))));
}

TEST_F(Editing, AddsAProtocolGroup)
{
    expectEdited(document(), {"add protocol-group Web selectors=\"tcp/443 out mirrored named \\\"Web, TLS\\\"\""},
                 document("", entry("protocolGroup", 1,
                                    group("protocolGroup", "Web", "",
                                          protocol(6, "Web, TLS", "<dstPort>443</dstPort><srcPort>0</srcPort>", "OUT",
                                                   "MIRRORED")))));
}

TEST_F(Editing, AddsAnActionWithEverything)
{
    expectEdited(
        document(),
        {"add action Berlin descr=d type=-5 state=7 spdAction=TUNNEL tunnelEndpoint=192.0.2.7 keyMgr=IKE "
         "ikePhase1/authType=RSA ikePhase1/localCert=me.pem ikePhase1/peerTrust=ca.pem ikePhase1/proposal/dhGroup=G14 "
         "ikePhase1/proposal/keyLifetime=8 ikePhase1/proposal/keyLifetimeUnits=HRS "
         "ikePhase1/proposal/transform=IKE_AES_SHA,IKE_3DES_SHA ikePhase2/dhGroup=G2 ikePhase2/keyLifetime=4294967295 "
         "ikePhase2/keyLifetimeUnits=KB ikePhase2/saProposal=\"ESP:12:5, ESP+AH:4294967295:0\""},
        document(
            "", "",
            entry("action", 1,
                  "<action><changeCount>3</changeCount><name>Berlin</name><builtinName>0</builtinName><descr>d"
                  "</descr><builtinDescr>0</builtinDescr><type>-5</type><state>7</state><spdAction>TUNNEL"
                  "</spdAction><tunnelEndpoint>192.0.2.7</tunnelEndpoint><keyMgr>IKE</keyMgr><ikePhase1><authType>"
                  "RSA</authType><localCert>me.pem</localCert><peerTrust>ca.pem</peerTrust><proposal><dhGroup>G14"
                  "</dhGroup><keyLifetime>8</keyLifetime><keyLifetimeUnits>HRS</keyLifetimeUnits><transform>"
                  "IKE_AES_SHA</transform><transform>IKE_3DES_SHA</transform></proposal></ikePhase1><ikePhase2>"
                  "<dhGroup>G2</dhGroup><keyLifetime>4294967295</keyLifetime><keyLifetimeUnits>KB"
                  "</keyLifetimeUnits><saProposal><protocol>ESP</protocol><encryption>12</encryption><hash>5</hash>"
                  "</saProposal><saProposal><protocol>ESP+AH</protocol><encryption>4294967295</encryption><hash>0"
                  "</hash></saProposal></ikePhase2></action>")));
}

TEST_F(Editing, AddsAManuallyKeyedAction)
{
    expectEdited(
        document(),
        {"add action m spdAction=TRANSPORT keyMgr=MKM manualKey/saProposal/protocol=ESP+AH "
         "manualKey/saProposal/encryption=3 manualKey/saProposal/hash=2 manualKey/inboundESPSPI=0x1000 "
         "manualKey/outboundESPSPI=4097 manualKey/inboundAHSPI=0xFFFFFFFF manualKey/outboundAHSPI=4294967295 "
         "manualKey/inboundDecrKey=aa manualKey/outboundEncrKey=bb manualKey/outboundEncrIV=\"\" "
         "manualKey/inboundAuthKey=cc manualKey/outboundAuthKey=dd"},
        document("", "",
                 entry("action", 1,
                       changed(action("m", "",
                                      "<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal>"
                                      "<protocol>ESP+AH</protocol><encryption>3</encryption><hash>2</hash></saProposal>"
                                      "<inboundESPSPI>4096</inboundESPSPI><outboundESPSPI>4097</outboundESPSPI>"
                                      "<inboundAHSPI>4294967295</inboundAHSPI><outboundAHSPI>4294967295</outboundAHSPI>"
                                      "<inboundDecrKey>aa</inboundDecrKey><outboundEncrKey>bb</outboundEncrKey>"
                                      "<outboundEncrIV/><inboundAuthKey>cc</inboundAuthKey><outboundAuthKey>dd"
                                      "</outboundAuthKey></manualKey>"),
                               "<changeCount>0", "<changeCount>1"))));
}

TEST_F(Editing, AddsAnActionAsTheLibraryMakesIt)
{
    expectEdited(document(), {"add action x"},
                 document("", "", entry("action", 1, action("x", "", "<spdAction>NONE</spdAction>"))));
}

std::string namesNone(int line, const std::string& kind)
{
    return std::to_string(line) + ": taken as it is: ID 0 is no " + kind +
           ". Name one that exists, or remove the policy. [no-reference]";
}

std::string namesMissing(int line, const std::string& kind, const std::string& id)
{
    return std::to_string(line) + ": taken as it is: There is no " + kind + " with ID " + id +
           ". Add it, or name one that exists. [dangling-reference]";
}

TEST_F(Editing, AddsAPolicyByIDsAndByNames)
{
    expectEdited(sample(), {"add policy web http pass", "add policy name=mail 1 2", "add policy 0 0 0"},
                 changed(sample(), "</policies>",
                         entry("policy", 4, policy(1, 1, 2)) + entry("policy", 5, policy(4, 1, 2)) +
                             entry("policy", 6, policy(0, 0, 0)) + "</policies>"),
                 "", {namesNone(3, "host group"), namesNone(3, "protocol group"), namesNone(3, "action")});
}

TEST_F(Editing, AddsAPolicyThatRefersToWhatIsMissingIfThatIsSaid)
{
    expectEdited(sample(), {"add policy missing=2 missing=4294967295 missing=1"},
                 changed(sample(), "</policies>", entry("policy", 4, policy(2, 4294967295, 1)) + "</policies>"), "",
                 {namesMissing(1, "host group", "2"), namesMissing(1, "protocol group", "4294967295"),
                  namesMissing(1, "action", "1")});
}

TEST_F(Editing, AddsTheBuiltInObjectsByName)
{
    hold(document());
    std::vector<std::string> commands;
    for (const char* name : {"any", "local", "any4", "local4", "any6", "local6", "mcast", "mcast4", "mcast6"})
        commands.push_back(std::string("add built-in host-group ") + name);
    for (const char* name : {"protocol-group all", "protocol-group system", "action discard", "action bypass id=7"})
        commands.push_back(std::string("add built-in ") + name);
    EXPECT_EQ(edit(commands), printed(""));

    using namespace ipsecimpl;
    IPsecConfig config;
    for (auto* make : {HostGroupAny, HostGroupLocal, HostGroupAnyv4, HostGroupLocalv4, HostGroupAnyv6, HostGroupLocalv6,
                       HostGroupMcast, HostGroupMcastv4, HostGroupMcastv6})
        config.hostGroups.add(make());
    config.protocolGroups.add(ProtocolGroupAll());
    config.protocolGroups.add(ProtocolGroupSystem());
    config.actions.add(ActionDiscard());
    config.actions.add(ActionBypass());
    EXPECT_EQ(contentOf("p.xml"),
              writtenForm(changed(written(config), "<actionEntry>\n<id>2", "<actionEntry>\n<id>7")));
}

TEST_F(Editing, ReplacesAGroupInItsPlace)
{
    expectEdited(sample(), {"replace host-group web www builtinName=3 builtinDescr=-1 selectors=10.0.0.1"},
                 changed(sample(), WEB,
                         changed(changed(group("hostGroup", "www", "", hosts("SINGLE", "<addr1>10.0.0.1</addr1>")),
                                         "<builtinName>0", "<builtinName>3"),
                                 "<builtinDescr>0", "<builtinDescr>-1")));
}

TEST_F(Editing, ReplacesAPolicyInItsPlace)
{
    expectEdited(sample(), {"replace policy 3 web 0 pass"}, changed(sample(), policy(4, 0, 2), policy(1, 0, 2)), "",
                 {namesNone(1, "protocol group")});
}

TEST_F(Editing, SetsTheFieldsOfAGroup)
{
    expectEdited(sample(),
                 {"set host-group web name=www descr= builtinName=-2147483648 builtinDescr=2147483647",
                  "set host-group www selectors=local4", "set host-group mail selectors="},
                 changed(sample(), WEB,
                         changed(changed(group("hostGroup", "www", "", hosts("LOCAL", "")), "<builtinName>0",
                                         "<builtinName>-2147483648"),
                                 "<builtinDescr>0", "<builtinDescr>2147483647")));
}

TEST_F(Editing, SetsTheReferencesOfAPolicy)
{
    expectEdited(sample(), {"set policy 3 hostGroupID=web protocolGroupID=http actionID=missing=7"},
                 changed(sample(), policy(4, 0, 2), policy(1, 1, 7)), "", {namesMissing(1, "action", "7")});
    expectEdited(sample(), {"set policy 3 hostGroupID=0"}, changed(sample(), policy(4, 0, 2), policy(0, 0, 2)), "",
                 {namesNone(1, "host group")});
}

TEST_F(Editing, FindsAnObjectByItsNewNameAlone)
{
    hold(sample());
    EXPECT_EQ(edit({"set host-group web name=www", "set host-group www descr=x", "replace host-group www web",
                    "set host-group web name=mail", "set host-group 4 name=post", "set host-group mail descr=y"}),
              printed(""));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(changed(changed(sample(), WEB, group("hostGroup", "mail", "y", "")), MAIL,
                                                      group("hostGroup", "post", "", ""))));
}

TEST_F(Editing, AddsAndRemovesSelectors)
{
    const std::string one = hosts("SINGLE", "<addr1>10.0.0.1</addr1>");
    const std::string two = hosts("SINGLE", "<addr1>10.0.0.2</addr1>");
    expectEdited(
        sample(),
        {"add selector host-group web 10.0.0.1, 10.0.0.2, any4 # three", "remove selector host-group web any4"},
        changed(sample(), WEB, group("hostGroup", "web", "Servers", two + one)));
    expectEdited(document("", entry("protocolGroup", 1, HTTP)),
                 {"add selector protocol-group http tcp/80 from 1024 in mirrored named \"a # b\"",
                  "add selector protocol-group http 47", "remove selector protocol-group http gre in/out named other"},
                 document("", entry("protocolGroup", 1,
                                    group("protocolGroup", "http", "",
                                          protocol(6, "a # b", "<dstPort>80</dstPort><srcPort>1024</srcPort>", "IN",
                                                   "MIRRORED")))));
}

TEST_F(Editing, AddsASelectorThatMakesNoSenseIfThatIsSaid)
{
    expectEdited(
        sample(), {"add selector host-group web AF_INET RANGE addr1=\"a, b\" addr2=10.0.0.1"},
        changed(sample(), WEB,
                group("hostGroup", "web", "Servers", hosts("RANGE", "<addr1>a, b</addr1><addr2>10.0.0.1</addr2>"))));
}

TEST_F(Editing, RemovesWhatNobodyUses)
{
    expectEdited(sample(), {"remove policy 1", "remove host-group web", "remove protocol-group http"},
                 document("<nexthostGroup>5</nexthostGroup>" + entry("hostGroup", 4, MAIL),
                          "<nextprotocolGroup>2</nextprotocolGroup>", entry("action", 2, PASS),
                          entry("policy", 3, policy(4, 0, 2))));
}

TEST_F(Editing, RemovesThePoliciesTooOnlyIfAskedTo)
{
    const std::string without1 =
        document("<nexthostGroup>5</nexthostGroup>" + entry("hostGroup", 4, MAIL), entry("protocolGroup", 1, HTTP),
                 entry("action", 2, PASS), entry("policy", 3, policy(4, 0, 2)));
    const std::string told = "policy 1 is removed with host group 1 'web', which it used\n";
    expectRefused(sample(), {"remove host-group web"},
                  "host group 1 'web' is used by policy 1 (--cascade removes what uses it too)");
    EXPECT_EQ(edit({"remove host-group web --cascade"}), printed(told));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(without1));

    hold(sample());
    EXPECT_EQ(edit({"remove host-group web"}, {"--cascade"}), printed(told));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(without1));

    hold(sample());
    EXPECT_EQ(edit({"remove action pass --cascade"}),
              printed("policy 1 is removed with action 2 'pass', which it used\n"
                      "policy 3 is removed with action 2 'pass', which it used\n"));
}

TEST_F(Editing, KnowsWhoUsesWhatAsItChanges)
{
    hold(sample());
    EXPECT_EQ(
        edit({"set policy 1 hostGroupID=mail", "remove host-group web", "replace policy 3 0 0 0", "add policy 0 http 0",
              "remove policy 4", "remove protocol-group http --cascade", "remove policy 3"}),
        printed("policy 1 is removed with protocol group 1 'http', which it used\n"));
    expectRefused(sample(), {"set policy 1 hostGroupID=mail", "remove host-group mail"},
                  "host group 4 'mail' is used by policies 1 and 3 (--cascade removes what uses it too)");
}

TEST_F(Editing, NamesTheFirstUsersOfAGreatMany)
{
    std::string policies;
    for (unsigned int id = 1; id <= 13; ++id)
        policies += entry("policy", id, policy(1, 0, 0));
    expectRefused(document(entry("hostGroup", 1, WEB), "", "", policies), {"remove host-group 1"},
                  "host group 1 'web' is used by policies 1, 2, 3, 4, 5, 6, 7, 8, 9, 10 and 3 more (--cascade removes "
                  "what uses it too)");
}

TEST_F(Editing, TakesCommandsFromAScript)
{
    hold(document());
    writeFile("s.edit", "# two groups\n\n \t\nadd host-group a # the first\r\nadd host-group \"b \\u{41}\"");
    const std::string after = document(entry("hostGroup", 1, group("hostGroup", "a", "", "")) +
                                       entry("hostGroup", 2, group("hostGroup", "b A", "", "")));
    EXPECT_EQ(run({"edit", "p.xml", "s.edit"}), printed(""));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(after));

    hold(document());
    EXPECT_EQ(run({"edit", "p.xml", "-"}, contentOf("s.edit")), printed(""));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(after));
}

TEST_F(Editing, NamesTheScriptAndTheLine)
{
    hold(document());
    const std::string script = "add host-group a\n# next\nset host-group b descr=x\n";
    writeFile("s\x1b.edit", script);
    EXPECT_EQ(run({"edit", "p.xml", "s\x1b.edit"}), troubled("s\\x1b.edit:3: no host group is named 'b'"));
    EXPECT_EQ(run({"edit", "p.xml", "-"}, script), troubled("standard input:3: no host group is named 'b'"));
    EXPECT_EQ(edit({"add host-group a\n", "set host-group b descr=x"}), troubled("-e:3: no host group is named 'b'"));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(document()));
}

TEST_F(Editing, RefusesAScriptThatIsNoText)
{
    hold(document());
    EXPECT_EQ(run({"edit", "p.xml", "-"}, std::string("add host-group a\nadd host-group x\0y", 35)),
              troubled("standard input:2: a NUL character stands here: a script is a text (in double quotes, \\x00 "
                       "stands for one)"));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(document()));
}

TEST_F(Editing, RefusesAByteOrderMarkInAScript)
{
    hold(document());
    writeFile("bom.edit", "\xef\xbb\xbf"
                          "add host-group a\n");
    EXPECT_EQ(
        run({"edit", "p.xml", "bom.edit"}),
        troubled("bom.edit:1: a byte order mark stands here, which cannot be seen: save the script as UTF-8 without "
                 "one"));
    for (const std::string mark : {"\xff\xfe", "\xfe\xff"})
        EXPECT_EQ(
            run({"edit", "p.xml", "-"}, mark + std::string("a\0d\0d\0", 6)),
            troubled("standard input:1: a byte order mark of UTF-16 stands here: save the script as UTF-8 without "
                     "one"));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(document()));
}

TEST_F(Editing, TakesSingleQuotesLikeDoubleOnes)
{
    hold(document());
    EXPECT_EQ(edit({"add host-group \"Head \\\"office\\\"\" descr=\"C:\\\\new\" selectors=\"any4, local6\"",
                    "add protocol-group \"Bob's\" selectors=\"tcp/80 named \\\"a, b\\\"\""}),
              printed(""));
    const std::string after = contentOf("p.xml");
    hold(document());
    EXPECT_EQ(edit({"add host-group 'Head \"office\"' descr='C:\\new' selectors='any4, local6'",
                    "add protocol-group Bob's selectors=\"tcp/80 named 'a, b'\""}),
              printed(""));
    EXPECT_EQ(contentOf("p.xml"), after);
}

TEST_F(Editing, DoesWhatTheManualShows)
{
    const std::string FENCE  = "```\n";
    const std::string manual = contentOf(EXAMPLES_DIR "/../docs/edit.md");
    const std::size_t begin  = manual.find(FENCE) + FENCE.size();
    writeFile("policy.edit", manual.substr(begin, manual.find(FENCE, begin) - begin));
    writeFile("berlin.key", "secret\n");

    hold(document(entry("hostGroup", 1, group("hostGroup", "Old branch", "", "")), "", "",
                  entry("policy", 1, policy(1, 0, 0))));
    EXPECT_EQ(run({"edit", "p.xml", "policy.edit"}),
              printed("policy 1 is removed with host group 1 'Old branch', which it used\n"));
    const std::string after = contentOf("p.xml");
    EXPECT_NE(after.find("<presharedKey>secret</presharedKey>"), std::string::npos);
    EXPECT_EQ(collectionIn(after, "policies"),
              collectionIn(writtenForm(document("", "", "", entry("policy", 2, policy(2, 1, 1)))), "policies"));
}

} // namespace
