#include "elements.h"

#include <ipsecimpl/ipsecimpl.h>

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace ipsecimpl {
namespace {

std::set<std::string> dictionary()
{
    std::ifstream         in(DICTIONARY);
    std::set<std::string> entries;
    for (std::string line; std::getline(in, line);)
        if (line.size() >= 2 && line.front() == '"' && line.back() == '"')
            entries.insert(line.substr(1, line.size() - 2));
    return entries;
}

std::set<std::string> missing(const std::set<std::string>& words)
{
    const std::set<std::string> entries = dictionary();
    std::set<std::string>       result;
    for (const std::string& word : words)
        if (entries.count(word) == 0)
            result.insert(word);
    return result;
}

template <std::size_t Num>
void append(std::set<std::string>& words, const char* const (&names)[Num])
{
    words.insert(std::begin(names), std::end(names));
}

TEST(Dictionary, HasEveryTagOfACollection)
{
    std::set<std::string> tags = {__hostGroupsTag, __protocolGroupsTag, __actionsTag, __policiesTag};
    for (const std::string tag : {__hostGroupTag, __protocolGroupTag, __actionTag, __policyTag})
        tags.insert({tag, tag + "Entry", "next" + tag});
    EXPECT_THAT(missing(tags), testing::IsEmpty());
}

// The three together have every element that there is.
TEST(Dictionary, HasEveryTagOfTheExamples)
{
    std::set<std::string> tags;
    for (const char* name : {"branch-office.xml", "home-router.xml", "server-farm.xml"}) {
        std::ifstream     in(std::string(EXAMPLES_DIR "/configs/") + name);
        const std::string document{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
        for (const std::size_t at : startTags(document))
            tags.emplace(elementAt(document, at).nameIn(document));
    }
    EXPECT_EQ(tags.size(), 69U);
    EXPECT_THAT(missing(tags), testing::IsEmpty());
}

TEST(Dictionary, HasEveryWordOfTheEnumerations)
{
    std::set<std::string> words = {"MIRRORED", "NOTMIRRORED"};
    append(words, __SPDActionNames__);
    append(words, __IPsecKeyMgrNames__);
    append(words, __IPsecProtocolNames__);
    append(words, __AHTransformNames__);
    append(words, __ESPTransformNames__);
    append(words, __IKEAuthTypeNames__);
    append(words, __IKEPhase1TransformNames__);
    append(words, __DHGroupNames__);
    append(words, __KeyLifetimeUnitsNames__);
    append(words, __AddressFamilyNames__);
    append(words, __AddressTypeNames__);
    append(words, __DirectionNames__);
    EXPECT_THAT(missing(words), testing::IsEmpty());
}

} // namespace
} // namespace ipsecimpl
