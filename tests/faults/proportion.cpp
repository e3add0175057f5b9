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
    return "<" + name + "Entry><id>#</id><" + name + "><name/><builtinName/><descr/><builtinDescr/>" + selectors +
           "</" + name + "></" + name + "Entry>";
}

/// A group with the number 1 that has many of the selectors.
std::string groupOf(const std::string& name, const std::string& selector)
{
    std::string text = group(name, "<selectors>*</selectors>");
    text.replace(text.find('#'), 1, "1");
    return text.replace(text.find('*'), 1, many(selector));
}

std::string action(const std::string& name, const std::string& mode)
{
    return "<actionEntry><id>#</id><action><changeCount/>" + name +
           "<builtinName/><descr/><builtinDescr/><type/><state/>" + mode + "</action></actionEntry>";
}

std::string one(std::string part)
{
    return part.replace(part.find('#'), 1, "1");
}

const std::string NONE = "<spdAction value=NONE />";

const std::string KEYS = "<dhGroup value=G1 /><keyLifetime/><keyLifetimeUnits value=KB />";

std::string ike(const std::string& transforms, const std::string& proposals)
{
    return "<spdAction value=TRANSPORT /><keyMgr>IKE</keyMgr><ikePhase1><authType value=PSK "
           "/><presharedKey/><proposal>" +
           KEYS + transforms + "</proposal></ikePhase1><ikePhase2>" + KEYS + proposals + "</ikePhase2>";
}

struct Document {
    const char* of;
    std::string text;
    std::size_t mostAtHand = 140; ///< hundredths of a byte for each byte of the text, out of a buffer that holds it all
    std::size_t most       = 140; ///< the same, out of others
};

// Each as small as it can be for what it makes the library keep: values are attributes where that is shorter. A text of
// 25 bytes takes most for each of them, as it is the shortest of those that the heap gives 40 to.
const Document documents[] = {
    {"actions", document("", "", many(action("<name/>", NONE)), ""), 395, 395},
    {"IKE actions", document("", "", many(action("<name/>", ike("", ""))), ""), 150, 150},
    {"policies", document("", "", "",
                          many("<policyEntry><id>#</id><policy><hostGroupID/><protocolGroupID/><actionID/></policy>"
                               "</policyEntry>"))},
    {"host groups", document(many(group("hostGroup", "<selectors/>")), "", "", "")},
    {"protocol groups", document("", many(group("protocolGroup", "<selectors/>")), "", "")},
    {"host selectors",
     document(groupOf("hostGroup", "<hostSelector><family>AF_INET6</family><selectorType value=SUBNET_LENGTH />"
                                   "<addr1>#890123456789012345678</addr1><length>99</length></hostSelector>"),
              "", "", "")},
    {"protocol selectors",
     document("",
              groupOf("protocolGroup", "<protocolSelector><protocol>#</protocol><direction>IN</direction>"
                                       "<mirrored>MIRRORED</mirrored></protocolSelector>"),
              "", "")},
    {"transforms", document("", "", one(action("<name/>", ike(many("<transform value=IKE_NONE />"), ""))), "")},
    {"SA proposals",
     document(
         "", "",
         one(action("<name/>", ike("", many("<saProposal><protocol value=AH /><encryption/><hash/></saProposal>")))),
         "")},
    // One byte more than what a string holds that has doubled its room from 15 bytes on.
    {"a text", document("", "", one(action("<name>" + std::string(15 * 8192 + 1, 'x') + "</name>", NONE)), ""), 130,
     305},
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
constexpr std::size_t MORE = 30;
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
