// The memory that a load takes is in proportion to its document, whatever that is made of. SECURITY.md says so.

#include "faults/failing_new.h"
#include "faults/targets.h"
#include "support/streams.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <iostream>
#include <string>

namespace ipsecimpl {
namespace {

const int COUNT = 2000;

/// Parts, each with its number in the place of `#`.
std::string many(const std::string& part)
{
    const std::size_t place = part.find('#');
    std::string       text;
    for (int i = 1; i <= COUNT; ++i)
        text += place == std::string::npos ? part : std::string(part).replace(place, 1, std::to_string(i));
    return text;
}

std::string document(const std::string& hosts, const std::string& protocols, const std::string& actions,
                     const std::string& policies)
{
    return "<ipsec><hostGroups>" + hosts + "</hostGroups><protocolGroups>" + protocols + "</protocolGroups><actions>" +
           actions + "</actions><policies>" + policies + "</policies></ipsec>";
}

std::string group(const std::string& name, const std::string& selectors)
{
    return "<" + name + "Entry><id>#</id><" + name + "><name/><builtinName/><descr/><builtinDescr/><selectors>" +
           selectors + "</selectors></" + name + "></" + name + "Entry>";
}

std::string action(const std::string& name, const std::string& mode)
{
    return "<actionEntry><id>#</id><action><changeCount/><name>" + name +
           "</name><builtinName/><descr/><builtinDescr/>" + "<type/><state/>" + mode + "</action></actionEntry>";
}

std::string one(std::string part)
{
    return part.replace(part.find('#'), 1, "1");
}

const std::string KEYS = "<dhGroup>G1</dhGroup><keyLifetime/><keyLifetimeUnits>KB</keyLifetimeUnits>";

std::string ike(const std::string& transforms, const std::string& proposals)
{
    return "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>PSK</authType><presharedKey/>"
           "<proposal>" +
           KEYS + transforms + "</proposal></ikePhase1><ikePhase2>" + KEYS + proposals + "</ikePhase2>";
}

struct Document {
    const char* of;
    std::string text;
    std::size_t mostAtHand = 130; ///< hundredths of a byte for each byte of the text, out of a buffer that holds it all
    std::size_t most       = 130; ///< the same, out of others
};

// Each as small as it can be for what it makes the library keep.
const Document documents[] = {
    {"actions", document("", "", many(action("", "<spdAction>NONE</spdAction>")), ""), 380, 380},
    {"policies", document("", "", "",
                          many("<policyEntry><id>#</id><policy><hostGroupID/><protocolGroupID/><actionID/></policy>"
                               "</policyEntry>"))},
    {"host groups", document(many(group("hostGroup", "")), "", "", "")},
    {"protocol groups", document("", many(group("protocolGroup", "")), "", "")},
    {"host selectors",
     document(one(group("hostGroup", many("<hostSelector><family>AF_INET</family><selectorType>SINGLE</selectorType>"
                                          "<addr1>#</addr1></hostSelector>"))),
              "", "", "")},
    {"protocol selectors",
     document("",
              one(group("protocolGroup", many("<protocolSelector><protocol>#</protocol><direction>IN</direction>"
                                              "<mirrored>MIRRORED</mirrored></protocolSelector>"))),
              "", "")},
    {"transforms", document("", "", one(action("", ike(many("<transform>IKE_NONE</transform>"), ""))), "")},
    {"SA proposals",
     document("", "",
              one(action("", ike("", many("<saProposal><protocol>AH</protocol><encryption/><hash/></saProposal>")))),
              "")},
    {"a text", document("", "", one(action(std::string(200000, 'x'), "<spdAction>NONE</spdAction>")), ""), 130, 300},
};

/// The most bytes of memory at once for each byte of the document, in hundredths.
template <class Buffer>
std::size_t hundredthsOf(const std::string& text)
{
    SourceOn<Buffer>  source(text);
    const std::size_t before = memoryInUse().bytes;
    takePeakBytes();
    IPsecConfig::importXML(source.parser);
    return (takePeakBytes() - before) * 100 / text.size();
}

/// Has some of the text ready, as a file's buffer.
class PieceBuffer : public ChunkBuffer {
  public:
    explicit PieceBuffer(const std::string& text)
        : ChunkBuffer(text, 1024)
    {
    }
};

// The standard library's debug mode makes its objects larger. In hundredths, too.
#ifdef _GLIBCXX_DEBUG
constexpr std::size_t MORE = 20;
#else
constexpr std::size_t MORE = 0;
#endif

TEST(Memory, IsInProportionToTheDocument)
{
    for (const Document& document : documents) {
        const std::size_t atHand   = hundredthsOf<std::stringbuf>(document.text);
        const std::size_t inPieces = hundredthsOf<PieceBuffer>(document.text);
        const std::size_t bytewise = hundredthsOf<ByteBuffer>(document.text);
        std::cout << "bytes for each 100 bytes of " << document.of << ": " << atHand << ", in pieces " << inPieces
                  << ", byte by byte " << bytewise << '\n';
        EXPECT_LE(atHand, document.mostAtHand + MORE) << document.of;
        EXPECT_LE(inPieces, document.most + MORE) << document.of;
        EXPECT_LE(bytewise, document.most + MORE) << document.of;
    }
}

} // namespace
} // namespace ipsecimpl
