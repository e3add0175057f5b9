// A line is put together before it is inserted, up to a length: what comes out is the same for every length, and where
// the stream does not let lines be put together.

#include <ipsecimpl/ipsecimpl.h>

#include <support/xml.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <sstream>
#include <string>

namespace ipsecimpl {
namespace {

std::string groupWith(const std::string& name, const std::string& descr)
{
    return "<protocolGroup>\n<name>" + name + "</name>\n<builtinName>0</builtinName>\n<descr>" + descr +
           "</descr>\n<builtinDescr>0</builtinDescr>\n<selectors>\n</selectors>\n</protocolGroup>\n";
}

TEST(WritingLengths, AreAllTheSame)
{
    for (std::size_t length = 0; length <= 600; ++length) {
        std::string text;
        for (std::size_t i = 0; i < length; ++i)
            text += static_cast<char>('a' + i % 26);
        EXPECT_EQ(written(ProtocolGroup(text, 0, "between", 0)), groupWith(text, "between")) << length;
        EXPECT_EQ(written(ProtocolGroup("between", 0, text, 0)), groupWith("between", text)) << length;
    }
}

TEST(WritingLengths, AreTheSameInALeafOfALongName)
{
    for (std::size_t length = 440; length <= 520; ++length) {
        const std::string text(length, 'x');
        MKM               key;
        key.saProposal      = IPsecProposal(IPSEC_NONE, 2, 2);
        key.outboundEncrKey = text;
        EXPECT_NE(written(key).find("\n<outboundEncrKey>" + text + "</outboundEncrKey>\n<outboundEncrIV></outboundEncrIV>\n"),
                  std::string::npos)
            << length;
    }
}

TEST(WritingLengths, AreTheSameForAStreamThatFlushesAfterEachInsertion)
{
    IPsecConfig config;
    config.hostGroups.add(HostGroupAny());
    config.protocolGroups.add(ProtocolGroupSystem());
    config.actions.add(ActionDiscard());
    config.policies.add(Policy(1, 2, 4294967295U));
    std::ostringstream out;
    out << std::unitbuf;
    config.exportXML(out);
    EXPECT_EQ(out.str(), written(config));
}

} // namespace
} // namespace ipsecimpl
