// Whatever the library writes is valid, apart from what its texts can hold that XML cannot.

#include "properties/random_model.h"
#include "properties/runs.h"
#include "schema/validator.h"
#include "support/xml.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

/// The document with other characters for those that XML does not have, or gives a meaning that they do not have here.
/// Tags and numbers have none of them.
std::string asXML(std::string document)
{
    for (char& c : document) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '&' || byte > 0x7E || (byte < ' ' && c != '\t' && c != '\n' && c != '\r'))
            c = '?';
    }
    for (std::size_t at = 0; (at = document.find("]]>", at)) != std::string::npos;)
        document[at] = '[';
    return document;
}

TEST(Schemas, HoldForWhateverTheLibraryWrites)
{
    std::vector<std::string> documents;
    forEachSeed([&documents](std::uint64_t seed) { documents.push_back(asXML(written(RandomModel(seed).config()))); });
    for (const Schema schema : {Schema::RelaxNG, Schema::XMLSchema}) {
        const std::vector<Verdict> verdicts = verdictsOf(schema, documents);
        for (std::size_t i = 0; i < verdicts.size(); ++i)
            EXPECT_EQ(verdicts[i], Verdict::Valid) << documents[i];
    }
}

} // namespace
} // namespace ipsecimpl
