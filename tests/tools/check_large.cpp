// Large documents are checked by two threads, where there can be two.

#include "generator.h"
#include "program.h"

#include <limits>

#include <sys/resource.h>
#include <sys/stat.h>

namespace {

/// Gives every further thread a stack for which there is no room, so that none can be started.
void forbidThreads()
{
    rlimit limit = {};
    getrlimit(RLIMIT_STACK, &limit);
    limit.rlim_cur = std::numeric_limits<std::size_t>::max() / 4 * 3;
    setrlimit(RLIMIT_STACK, &limit);
}

using CheckLarge = InFolder;

TEST_F(CheckLarge, ALargeDocumentIsCheckedAlsoWhereThereCanBeOneThreadOnly)
{
    const std::string text = bench::makeDocument(500);
    ASSERT_GT(text.size(), 512U * 1024);
    writeFile("large.xml", text);
    ASSERT_EQ(chmod("large.xml", 0600), 0);
    for (const char* const option : {"--strict", "--json"}) {
        const Outcome usual = run({"check", option, "large.xml"});
        EXPECT_EQ(usual.status, 1);
        EXPECT_EQ(usual.err, "");
        EXPECT_EQ(run({"check", option, "large.xml"}, "", forbidThreads), usual);
    }
}

} // namespace
