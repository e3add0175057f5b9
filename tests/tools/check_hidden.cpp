#include "hidden.h"

#include "generator.h"
#include "loaded_document.h"
#include "program.h"

#include <gmock/gmock.h>

#include <ostream>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> textsAt(const std::vector<Span>& spans, const std::string& document)
{
    std::vector<std::string> texts;
    for (const Span& span : spans)
        texts.emplace_back(span.in(document));
    return texts;
}

/// The texts with their places.
std::vector<std::string> placesOf(const std::vector<Span>& spans, const std::string& document)
{
    std::vector<std::string> texts = textsAt(spans, document);
    for (std::size_t i = 0; i < spans.size(); ++i)
        texts[i] += " at " + std::to_string(spans[i].offset);
    return texts;
}

TEST(CheckHidden, SecretsAreTheSameAtOnceAsPieceByPiece)
{
    std::vector<std::string> documents = {bench::makeDocument(50), bench::makeDocument(50, 2)};
    for (const std::string name : {"home-router.xml", "branch-office.xml", "server-farm.xml"})
        documents.push_back(contentOf(EXAMPLES_DIR "/configs/" + name));

    for (const std::string& text : documents) {
        const LoadedDocument    loaded(text);
        const std::vector<Span> secrets = secretsOf(loaded.source);
        EXPECT_GT(secrets.size(), 1U);
        EXPECT_EQ(placesOf(secrets, text), placesOf(loaded.source.secretsIn({0, text.size()}), text));
    }
}

TEST(CheckHidden, WhatStandsInPlaceOfANumberIsASecret)
{
    const std::string text = document(
        entry("hostGroup", 1, group("hostGroup", "g", "", "")), "<nextprotocolGroup>9z</nextprotocolGroup>",
        entry("action", 1, action("a", "k3y", "<spdAction>DISCARD</spdAction>")) + "<nextaction>31 years</nextaction>",
        entry("policy", 1,
              "<policy><hostGroupID>k1</hostGroupID><protocolGroupID value='k2'/><actionID>010</actionID></policy>"));
    const LoadedDocument loaded(text);
    EXPECT_THAT(textsAt(secretsOf(loaded.source), text), ElementsAre("9z", "31 years", "k1", "k2"));
    EXPECT_EQ(placesOf(secretsOf(loaded.source), text), placesOf(loaded.source.secretsIn({0, text.size()}), text));
}

struct Broken {
    const char* document;
    const char* shown; ///< with a star for each hidden piece
};

std::ostream& operator<<(std::ostream& out, const Broken& broken)
{
    return out << broken.document;
}

class BrokenDocumentPiece : public testing::TestWithParam<Broken> {};

TEST_P(BrokenDocumentPiece, ShowsTagsOfTheFormatAlone)
{
    std::string text   = GetParam().document;
    const auto  hidden = hiddenInBroken(text, {0, text.size()});
    for (auto piece = hidden.rbegin(); piece != hidden.rend(); ++piece)
        text.replace(piece->offset, piece->length, "*");
    EXPECT_EQ(text, GetParam().shown);
}

// clang-format off
const Broken PIECES[] = {
    {"",                                        ""},
    {" \t\n",                                   " \t\n"},
    {"<name>x</name>",                          "<name>*</name>"},
    {"<name> x y </name>",                      "<name> * </name>"},
    {"<name/><descr />",                        "<name/><descr />"},
    {"<name value='x'/>",                       "<name *>"},
    {"<name value='>x'>",                       "<name *>*"},
    {"<name\n>",                                "<name\n>"},
    {"<names>x</names>",                        "*"},
    {"<name><x>y</x></name>",                   "<name>*</name>"},
    {"<namex</name>",                           "*</name>"},
    {"<name",                                   "<name"},
    {"<name x<descr>y",                         "<name *<descr>*"},
    {"name>descr</",                            "*"},
    {"< name>",                                 "*"},
    {"</ name>",                                "*"},
    {"<!-- name --><?name?>",                   "*"},
    {"<presharedKey>a<name>b</presharedKey>",   "<presharedKey>*<name>*</presharedKey>"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(CheckHidden, BrokenDocumentPiece, testing::ValuesIn(PIECES));

TEST(CheckHidden, PiecesOfABrokenDocumentHaveTheirPlacesInIt)
{
    const std::string text = "<name>x</name>y";
    EXPECT_EQ(placesOf(hiddenInBroken(text, {14, 1}), text), std::vector<std::string>{"y at 14"});
    // What is before the piece is not looked at: it begins with a text. Nor is what is behind it: no tag is known by
    // its '<'.
    EXPECT_EQ(placesOf(hiddenInBroken(text, {3, 5}), text), std::vector<std::string>{"me>x< at 3"});
}

TEST(CheckHidden, KeysAreToldFromEmptyElements)
{
    for (const std::string text :
         {"<presharedKey>x", "<presharedKey>\n x", "<inboundAuthKey value='x'/>", "<outboundEncrIV value = \"x\"/>",
          "<presharedKey>value</presharedKey>", "<ipsec><name/><outboundEncrKey value=x />"})
        EXPECT_TRUE(holdsKeys(text)) << text;
    for (const std::string text :
         {"", "<", "<presharedKey", "<presharedKey/>", "<presharedKey></presharedKey>",
          "<presharedKey> </presharedKey>", "<inboundAuthKey value=''/><name>x</name>", "<outboundEncrIV value/>",
          "<presharedKeys>x</presharedKeys>", "<name>presharedKey</name>"})
        EXPECT_FALSE(holdsKeys(text)) << text;
}

} // namespace
