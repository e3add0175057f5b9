#include "source.h"

#include "loaded_document.h"
#include "source_documents.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The texts that are secret in a document, by the place of one of its pieces.
std::vector<std::string> secretsAt(const LoadedDocument& loaded, const std::string& piece)
{
    std::vector<std::string> texts;
    for (const Span& span : loaded.source.secretsIn({loaded.text.find(piece), piece.size()}))
        texts.push_back(loaded.textAt(span));
    return texts;
}

TEST(Secrets, AreKeysAndTheIv)
{
    const LoadedDocument loaded(ikeAction(PHASES));
    EXPECT_THAT(secretsAt(loaded, loaded.text), ElementsAre("Kq7Zm"));

    const LoadedDocument manual(document(
        "", "",
        entry("action", 1,
              action("m", "",
                     "<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal><protocol>ESP+AH"
                     "</protocol><encryption>2</encryption><hash>2</hash></saProposal><inboundESPSPI>1</inboundESPSPI>"
                     "<outboundESPSPI>2</outboundESPSPI><inboundAHSPI>3</inboundAHSPI><outboundAHSPI>4</outboundAHSPI>"
                     "<inboundDecrKey>Sa</inboundDecrKey><outboundEncrKey>Sb</outboundEncrKey><outboundEncrIV>Sc"
                     "</outboundEncrIV><inboundAuthKey>Sd</inboundAuthKey><outboundAuthKey value='Se '/>"
                     "</manualKey>"))));
    EXPECT_THAT(secretsAt(manual, manual.text), ElementsAre("Sa", "Sb", "Sc", "Sd", "Se "));
}

TEST(Secrets, AreThoseThatAPieceTouches)
{
    const LoadedDocument loaded(ikeAction(PHASES));
    EXPECT_THAT(secretsAt(loaded, "q7Z"), ElementsAre("Kq7Zm"));
    EXPECT_THAT(secretsAt(loaded, "<presharedKey>K"), ElementsAre("Kq7Zm"));
    EXPECT_THAT(secretsAt(loaded, "m</presharedKey>"), ElementsAre("Kq7Zm"));
    EXPECT_THAT(secretsAt(loaded, "<presharedKey>"), IsEmpty());
    EXPECT_THAT(secretsAt(loaded, "</presharedKey>"), IsEmpty());
}

TEST(Secrets, AreTextsThatShouldBeNumbersAndAreNone)
{
    const LoadedDocument loaded(document(
        "", "",
        "<nextaction>7Kq7Zm</nextaction>" + entry("action", 3, action("12ab", "", "<spdAction>BYPASS</spdAction>")),
        entry("policy", 1,
              "<policy><hostGroupID>0x10</hostGroupID><protocolGroupID>v9Wx"
              "</protocolGroupID><actionID>12345678901234567890</actionID></policy>")));
    EXPECT_THAT(secretsAt(loaded, loaded.text), ElementsAre("7Kq7Zm", "v9Wx", "12345678901234567890"));
}

TEST(Secrets, AreFoundInALongEntryToo)
{
    std::string phases = PHASES;
    for (unsigned int i = 0; i < 1000; ++i)
        phases.insert(phases.find("<transform>"), "<transform>IKE_AES_SHA</transform>");
    phases.replace(phases.find("<hash>4"), 7, "<hash>4Lt2j");
    const LoadedDocument loaded(ikeAction(phases));
    EXPECT_THAT(secretsAt(loaded, loaded.text), ElementsAre("Kq7Zm", "4Lt2j"));
    EXPECT_THAT(secretsAt(loaded, "Lt2j"), ElementsAre("4Lt2j"));
    EXPECT_THAT(secretsAt(loaded, "IKE_3DES_SHA"), IsEmpty());
}

TEST(Secrets, AreOfAllEntriesInAnyOrder)
{
    std::string other = ikeAction(PHASES);
    other.replace(other.find("Kq7Zm"), 5, "v9Wxk");
    const std::string second =
        other.substr(other.find("<actionEntry>"), other.find("</actions>") - other.find("<actionEntry>"));
    std::string both = ikeAction(PHASES);
    both.insert(both.find("</actions>"), std::string(second).replace(second.find("<id>3"), 5, "<id>2"));
    const LoadedDocument loaded(both);
    EXPECT_THAT(secretsAt(loaded, loaded.text), ElementsAre("Kq7Zm", "v9Wxk"));
    EXPECT_THAT(secretsAt(loaded, "<id>2</id>"), IsEmpty());
}

} // namespace
