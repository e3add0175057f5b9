// Documents, good and bad, come to the same stores and messages on every target: those that are kept here.
//
// The program target_outcomes shows whole what a line here stands for.

#include "targets/outcome.h"
#include "targets/samples.h"

#include "support/golden.h"

#include <gtest/gtest.h>

#include <string>

namespace ipsecimpl {
namespace {

std::string outcomesIn(const std::string& folder)
{
    std::string lines;
    for (const NamedDocument& document : documentsIn(folder))
        lines += document.name + ": " + outcomeOf(document.text).line() + '\n';
    return lines;
}

TEST(Outcomes, OfTheCorpusAreTheSameOnEveryTarget)
{
    expectGolden("corpus.txt", outcomesIn(CORPUS_DIR));
}

TEST(Outcomes, OfTheExamplesAreTheSameOnEveryTarget)
{
    expectGolden("examples.txt", outcomesIn(EXAMPLES_DIR "/configs"));
}

TEST(Outcomes, OfDamagedDocumentsAreTheSameOnEveryTarget)
{
    const unsigned int AT_A_TIME = 100;

    std::string lines;
    for (const DamagedSample& sample : damagedSamples()) {
        unsigned int loaded = 0;
        std::string  outcomes;
        forEachDamaged(sample, [&](unsigned int number, const std::string& document) {
            const DocumentOutcome outcome = outcomeOf(document);
            loaded += outcome.store.empty() ? 0U : 1U;
            outcomes += outcome.line() + '\n';
            if ((number + 1) % AT_A_TIME == 0) {
                lines += sample.document.name + " up to " + std::to_string(number) + ": " + std::to_string(loaded) +
                         " load, " + digestText(outcomes) + '\n';
                loaded = 0;
                outcomes.clear();
            }
        });
    }
    expectGolden("damaged.txt", lines);
}

TEST(Outcomes, WithDigestsDifferIfTheirTextsDo)
{
    EXPECT_EQ(digestText(""), "CBF29CE484222325");
    EXPECT_EQ(digestText("a"), "AF63DC4C8601EC8C");
    EXPECT_EQ(digestText("foobar"), "85944171F73967E8");
    EXPECT_EQ(digestText("\xFF"), "AF64724C8602EB6E");
}

TEST(Outcomes, AreTextsOnOneLine)
{
    EXPECT_EQ(printableLine("a\nb\\c\xE4\x7F"), "a\\nb\\\\c\\xE4\\x7F");
    EXPECT_EQ(printableLine(std::string(401, 'x')),
              std::string(400, 'x') + "... 401 bytes, " + digestText(std::string(401, 'x')));
}

} // namespace
} // namespace ipsecimpl
