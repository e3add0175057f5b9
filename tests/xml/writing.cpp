// What holds for every element that is written, whichever class writes it.

#include <ipsecimpl/ipsecimpl.h>

#include <support/streams.h>
#include <support/xml.h>

#include <gmock/gmock.h>

#include <locale>
#include <ostream>
#include <regex>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

using testing::ElementsAre;

/// A configuration in which every element occurs that can be written.
IPsecConfig everyElement()
{
    IPsecAction manual(SPD_TRANSPORT, "by hand", 0, "", 0, KEYMGR_MKM);
    MKM         keys;
    keys.saProposal = IPsecProposal(IPSEC_ESP_AH, 2, 2); // with which it has every key
    manual.manualKeySet(keys);
    IPsecAction ike(SPD_TUNNEL, "to the branch", 0, "IKE with a key", 0, KEYMGR_IKE);
    ike.tunnelEndpointSet("192.0.2.1");
    ike.ikePhase1Set(IKEPhase1(IKE_AUTH_PSK, "", "", "secret", IKEPhase1ProposalDefault()));
    ike.ikePhase2Set(IKEPhase2({IPsecProposal(IPSEC_ESP, 2, 2)}, DH_GROUP_2, 3600, KEYLIFETIME_SECS));
    IPsecAction certified(SPD_TUNNEL, "to the center", 0, "IKE with certificates", 0, KEYMGR_IKE);
    certified.ikePhase1Set(IKEPhase1(IKE_AUTH_RSA, "own", "center", "", IKEPhase1ProposalDefault()));

    IPsecConfig config;
    config.hostGroups.add(HostGroupAny());
    HostGroup hosts("hosts", 0, "of three kinds", 0);
    hosts.selectors.insert(HostSelector(HOST_INET, HOST_SUBNET_LENGTH, "10.0.0.0", 8));
    hosts.selectors.insert(HostSelector(HOST_INET, HOST_SUBNET_MASK, "10.0.0.0", "255.0.0.0"));
    hosts.selectors.insert(HostSelector(HOST_INET6, HOST_RANGE, "2001:db8::1", "2001:db8::9"));
    config.hostGroups.add(hosts);
    config.protocolGroups.add(ProtocolGroupAll());
    config.protocolGroups.add(ProtocolGroupSystem());
    config.actions.add(ActionDiscard());
    config.actions.add(manual);
    config.actions.add(ike);
    config.actions.add(certified);
    config.policies.add(Policy(1, 2, 3));
    return config;
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::istringstream       in(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

TEST(Writing, PutsOneStartTagEndTagOrLeafOnALineAndNothingElse)
{
    const std::string text = written(everyElement());
    const std::regex  line("<([A-Za-z0-9]+)>([^<>]*</\\1>)?|</[A-Za-z0-9]+>");
    for (const std::string& each : linesOf(text))
        EXPECT_TRUE(std::regex_match(each, line)) << each;
    EXPECT_EQ(text.back(), '\n');
    EXPECT_GT(linesOf(text).size(), 100u);
}

TEST(Writing, FlushesOnceAtTheEndOfEachLine)
{
    FlushRecorder sink;
    std::ostream  out(&sink);
    IPsecConfig   config = everyElement();
    config.exportXML(out);
    EXPECT_EQ(sink.str(), "") << "not flushed";

    std::vector<std::string> lines = linesOf(written(config));
    for (std::string& line : lines)
        line += '\n';
    EXPECT_EQ(sink.pieces(), lines);
}

TEST(Writing, FlushesAfterEachPieceIntoAStreamThatFlushesByItself)
{
    FlushRecorder sink;
    std::ostream  out(&sink);
    out << std::unitbuf;
    Policy(7, 7, 7).exportXML(out);

    FlushRecorder     piecewise; // at the end of a line some standard libraries flush twice
    std::ostream      pieces(&piecewise);
    const std::string element = "policy";
    pieces << std::unitbuf << '<' << element << '>' << std::endl;
    for (const char* name : {"hostGroupID", "protocolGroupID", "actionID"})
        pieces << '<' << name << '>' << 7 << "</" << name << '>' << std::endl;
    pieces << "</" << element << '>' << std::endl;
    EXPECT_EQ(sink.pieces(), piecewise.pieces());
}

TEST(Writing, PutsAnEmptyTextBetweenItsTagsOnOneLine)
{
    EXPECT_THAT(linesOf(written(HostGroup("", 0, "", 0))),
                ElementsAre("<hostGroup>", "<name></name>", "<builtinName>0</builtinName>", "<descr></descr>",
                            "<builtinDescr>0</builtinDescr>", "<selectors>", "</selectors>", "</hostGroup>"));
}

TEST(Writing, EscapesNothing)
{
    EXPECT_THAT(linesOf(written(HostGroup("\"R&D\" 'x' &lt;", 0, "a<b", 0))),
                ElementsAre("<hostGroup>", "<name>\"R&D\" 'x' &lt;</name>", "<builtinName>0</builtinName>",
                            "<descr>a<b</descr>", "<builtinDescr>0</builtinDescr>", "<selectors>", "</selectors>",
                            "</hostGroup>"));
}

TEST(Writing, PutsEveryByteOfATextAsItIs)
{
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    EXPECT_NE(written(HostGroup(all, 0, "", 0)).find("<name>" + all + "</name>\n"), std::string::npos);
}

TEST(Writing, MakesATextThatTheReaderCutsShortAtABracket)
{
    EXPECT_EQ(refusalOf<HostGroup>(written(HostGroup("n", 0, "a<b", 0))),
              "parse_end_tag: expected '/', got 'b'\nfrom <descr>\nfrom <hostGroup>");
}

TEST(Writing, MakesATextThatComesBackWithoutOuterWhiteSpace)
{
    const HostGroup group = read<HostGroup>(written(HostGroup(" \tn m\n", 0, "  ", 0)));
    EXPECT_EQ(group.name, "n m");
    EXPECT_EQ(group.descr, "");
}

TEST(Writing, MakesADocumentThatComesBackTheSame)
{
    const std::string text = written(everyElement());
    EXPECT_EQ(rewritten<IPsecConfig>(text), text);
}

TEST(Writing, FormatsNumbersAsTheStreamIsSetAndChangesNoSetting)
{
    std::ostringstream out;
    out << std::hex << std::showbase << std::uppercase << std::left;
    out.fill('*');
    const std::ios_base::fmtflags before = out.flags();
    Policy(16, 255, 0).exportXML(out);
    EXPECT_THAT(linesOf(out.str()),
                ElementsAre("<policy>", "<hostGroupID>0X10</hostGroupID>", "<protocolGroupID>0XFF</protocolGroupID>",
                            "<actionID>0</actionID>", "</policy>"));
    EXPECT_EQ(out.flags(), before);
    EXPECT_EQ(out.fill(), '*');
    EXPECT_EQ(out.width(), 0);
}

/// Groups digits by threes, as many locales do.
struct Thousands : std::numpunct<char> {
    char        do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(Writing, FormatsNumbersByTheStreamsLocale)
{
    std::ostringstream out;
    out.imbue(std::locale(std::locale::classic(), new Thousands));
    Policy(1234567, 0, 0).exportXML(out);
    EXPECT_EQ(linesOf(out.str()).at(1), "<hostGroupID>1.234.567</hostGroupID>");
}

TEST(Writing, StopsAtAFullStreamAndLeavesItsStateToTheCaller)
{
    IPsecConfig       config = everyElement();
    const std::string whole  = written(config);
    for (const std::size_t capacity : {std::size_t(0), std::size_t(1), std::size_t(20), whole.size() - 1}) {
        FullSink     sink(capacity);
        std::ostream out(&sink);
        EXPECT_EQ(&config.exportXML(out), &out);
        EXPECT_FALSE(out.good()) << capacity;
        EXPECT_EQ(sink.taken(), whole.substr(0, capacity));
    }
    FullSink     sink(whole.size());
    std::ostream out(&sink);
    EXPECT_TRUE(config.exportXML(out).good());
    EXPECT_EQ(sink.taken(), whole);
}

TEST(Writing, PutsNothingToAStreamThatFailedBefore)
{
    std::ostringstream out;
    out.setstate(std::ios_base::failbit);
    EXPECT_EQ(&Policy(1, 2, 3).exportXML(out), &out);
    EXPECT_EQ(out.str(), "");
    EXPECT_TRUE(out.fail());
}

TEST(Writing, LetsTheStreamsExceptionMaskSpeak)
{
    FullSink     sink(20);
    std::ostream out(&sink);
    out.exceptions(std::ios_base::badbit);
    EXPECT_THROW(Policy(1, 2, 3).exportXML(out), std::ios_base::failure);
    EXPECT_EQ(sink.taken(), "<policy>\n<hostGroupI");
}

} // namespace
} // namespace ipsecimpl
