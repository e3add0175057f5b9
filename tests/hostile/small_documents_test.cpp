// What the sweeps start from: each small document is read, and covers what it is there for.

#include "hostile/small_documents.h"

#include "support/samples.h"

#include <gmock/gmock.h>

#include <set>
#include <string>

namespace ipsecimpl {
namespace {

/// The names of the elements in `text`.
std::set<std::string> tagsIn(const std::string& text)
{
    std::set<std::string> tags;
    for (std::size_t at = 0; (at = text.find('<', at)) != std::string::npos; ++at)
        if (text.at(at + 1) != '/')
            tags.insert(text.substr(at + 1, text.find_first_of(" />", at) - at - 1));
    return tags;
}

TEST(SmallDocuments, AreReadAndThoseInTheWrittenFormComeBackTheSame)
{
    for (const SmallDocument& document : smallDocuments()) {
        std::istringstream in(document.text);
        XMLParser          parser(in);
        const std::string  result = document.element.read(parser);
        EXPECT_EQ(result.substr(0, result.find('>')), std::string("<") + document.element.tag) << document.name;
        if (document.written) {
            EXPECT_EQ(result, document.text) << document.name;
        }
    }
}

TEST(SmallDocuments, HaveEveryElementThatTheSamplesHave)
{
    std::set<std::string> small;
    std::set<std::string> samples;
    for (const SmallDocument& document : smallDocuments())
        small.merge(tagsIn(document.text));
    for (const std::string& name : sampleNames())
        samples.merge(tagsIn(sampleText(name)));
    EXPECT_THAT(small, ::testing::IsSupersetOf(samples));
    EXPECT_EQ(samples.size(), 69U);
}

TEST(SmallDocuments, StandForEveryReader)
{
    std::set<std::string> read;
    for (const SmallDocument& document : smallDocuments())
        read.insert(document.element.tag);
    EXPECT_EQ(read.size(), elements.size());
}

} // namespace
} // namespace ipsecimpl
