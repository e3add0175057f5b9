#include "document_mutator.h"

#include "loading.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace ipsecimpl {
namespace {

const std::string empty = "<ipsec><hostGroups/><protocolGroups/><actions/><policies/></ipsec>\n";

TEST(DocumentMutator, MakesATextOfAnyText)
{
    for (const std::string text : {"", "<", "<a", "<a>", "</a>", "<a><a>", "a", "<a/", "<>", "<a>\n<b>1</b>\n", "/>"})
        for (unsigned int seed = 0; seed < 100; ++seed) {
            DocumentMutator mutator(seed);
            mutator.changed(text);
            mutator.crossed(text, empty);
            mutator.crossed(empty, text);
        }
}

TEST(DocumentMutator, MakesTheSameOfTheSameSeed)
{
    for (unsigned int seed = 0; seed < 100; ++seed)
        EXPECT_EQ(DocumentMutator(seed).changed(empty), DocumentMutator(seed).changed(empty)) << seed;
}

// Of bytes that are changed at random hardly any load, and hardly any that do are new.
TEST(DocumentMutator, MakesManyDocumentsThatLoad)
{
    std::set<std::string> loading, other;
    std::string           document = empty;
    DocumentMutator       mutator(1);
    for (int i = 0; i < 2000; ++i) {
        const std::string changed = mutator.changed(document);
        const bool        loads   = loaded(changed).config.has_value();
        (loads ? loading : other).insert(changed);
        if (loads && changed.size() < 10000)
            document = changed;
    }
    EXPECT_GT(loading.size(), 100U);
    EXPECT_GT(other.size(), 100U);
}

} // namespace
} // namespace ipsecimpl
