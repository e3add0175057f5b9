// What a load costs, counted and not timed: heap blocks, and calls into the stream's buffer.

#include "cost/counting_new.h"
#include "cost/sample.h"

#include <support/xml.h>

#include <ipsecimpl/ipsecimpl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace ipsecimpl {
namespace {

/// Blocks that a load of `text` allocates, less those that a copy of what was loaded takes.
std::size_t blocksBesidesTheModel(const std::string& text)
{
    std::istringstream         in(text);
    std::optional<IPsecConfig> config;
    const std::size_t          load = blocksOf([&] {
        XMLParser parser(in);
        config = IPsecConfig::importXML(parser);
    });
    const std::size_t copy = blocksOf([&] { IPsecConfig copied(*config); });
    EXPECT_GE(load, copy);
    return load - copy;
}

/// Hands out a text in pieces and counts how often it is called.
class CountingBuffer : public std::streambuf {
  public:
    explicit CountingBuffer(std::string text, std::size_t piece)
        : text_(std::move(text))
        , piece_(piece)
    {
    }

    std::size_t calls = 0;

  protected:
    int_type underflow() override
    {
        ++calls;
        if (next_ == text_.size())
            return traits_type::eof();
        const std::size_t size = std::min(piece_, text_.size() - next_);
        char* const       from = text_.data() + next_;
        // One character before the piece can be put back.
        setg(from - (next_ == 0 ? 0 : 1), from, from + size);
        next_ += size;
        return traits_type::to_int_type(*from);
    }

    int_type uflow() override
    {
        ++calls;
        return std::streambuf::uflow();
    }

    int_type pbackfail(int_type c) override
    {
        ++calls;
        return std::streambuf::pbackfail(c);
    }

    std::streamsize showmanyc() override { return ++calls, 0; }

    std::streamsize xsgetn(char* to, std::streamsize size) override
    {
        ++calls;
        return std::streambuf::xsgetn(to, size);
    }

  private:
    std::string text_;
    std::size_t piece_;
    std::size_t next_ = 0;
};

TEST(Load, AllocatesTheModelAndAConstantNumberOfBlocksBesides)
{
    const std::size_t ten      = blocksBesidesTheModel(written(sample(10)));
    const std::size_t thousand = blocksBesidesTheModel(written(sample(1000)));
    EXPECT_EQ(thousand, ten);
    EXPECT_LE(ten, 20U);
}

TEST(Load, AllocatesNothingForAnElementThatFitsItsObject)
{
    // Texts of up to 15 characters need no block of their own; names of elements are longer than that, but never
    // allocated for each.
    const std::pair<const char*, std::size_t> rows[] = {
        {"<policy><hostGroupID>1</hostGroupID><protocolGroupID>2</protocolGroupID><actionID>3</actionID></policy>", 0},
        {"<hostSelector><family>AF_INET6</family><selectorType>SUBNET_LENGTH</selectorType><addr1>2001:db8::</addr1>"
         "<length>32</length></hostSelector>",
         0},
        {"<protocolSelector><protocol>6</protocol><name>web</name><dstPort>80</dstPort><srcPort>0</srcPort>"
         "<direction>IN</direction><mirrored>MIRRORED</mirrored></protocolSelector>",
         0},
        {"<saProposal><protocol>ESP</protocol><encryption>12</encryption><hash>3</hash></saProposal>", 0},
        {"<ikePhase2><dhGroup>G14</dhGroup><keyLifetime>3600</keyLifetime><keyLifetimeUnits>SECS</keyLifetimeUnits>"
         "<saProposal><protocol>ESP</protocol><encryption>12</encryption><hash>3</hash></saProposal></ikePhase2>",
         1}, // the list's node
    };
    // Some standard libraries' containers allocate when they are made, others at the first element.
    std::stack<std::string> tags;
    const std::size_t       firstTag = blocksOf([&] { tags.push(""); });
    for (const auto& [text, blocks] : rows) {
        std::istringstream in(text);
        XMLParser          parser(in);
        std::string        tag(text + 1, std::find(text, text + 30, '>'));
        const std::size_t  allocated = blocksOf([&] {
            if (tag == "policy")
                Policy::importXML(parser);
            else if (tag == "hostSelector")
                HostSelector::importXML(parser);
            else if (tag == "protocolSelector")
                ProtocolSelector::importXML(parser);
            else if (tag == "saProposal")
                IPsecProposal::importXML(parser);
            else
                IKEPhase2::importXML(parser);
        });
        EXPECT_GE(allocated, blocks) << text;
        EXPECT_LE(allocated, blocks + firstTag) << text; // not every element comes onto the stack
    }
}

TEST(Load, CallsTheStreamsBufferOnceForEachPieceItHandsOut)
{
    const std::string text = written(sample(200));
    for (const std::size_t piece : {text.size(), std::size_t(4096), std::size_t(512)}) {
        CountingBuffer buffer(text, piece);
        std::istream   in(&buffer);
        XMLParser      parser(in);
        IPsecConfig    config = IPsecConfig::importXML(parser);
        EXPECT_EQ(written(config), text);
        const std::size_t pieces = (text.size() + piece - 1) / piece;
        EXPECT_LE(buffer.calls, pieces + 1) << piece;
    }
}

} // namespace
} // namespace ipsecimpl
