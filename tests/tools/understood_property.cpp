#include "understood.h"

#include "document_tree.h"
#include "loaded_document.h"

#include <ipsecimpl/ipsecimpl.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <vector>

using namespace ipsecimpl;

namespace {

Findings findingsOf(const LoadedDocument& loaded)
{
    Findings findings;
    checkUnderstood(loaded.source, findings);
    return findings;
}

/// The fields of an entry and their texts, from what is stored.
void addFields(const Element& element, const std::string& path, std::map<std::string, std::string>& fields)
{
    std::map<std::string, unsigned int> counts;
    for (const Element& child : element.children) {
        const bool isMember = element.name == "selectors" || child.name == "transform" ||
                              (child.name == "saProposal" && element.name == "ikePhase2");
        std::string step = element.name == "selectors" ? "" : child.name;
        if (isMember)
            step += (step.empty() ? "" : "/") + std::to_string(++counts[child.name]);
        const std::string childPath = path.empty() ? step : path + '/' + step;
        if (child.isLeaf)
            fields[childPath] = child.text;
        else
            addFields(child, childPath, fields);
    }
}

void expectAllFound(const LoadedDocument& loaded, const Element& stored)
{
    for (std::size_t kind = 0; kind < ALL_KINDS.size(); ++kind) {
        for (const Element& entry : stored.children[kind].children) {
            if (entry.isLeaf)
                continue;
            std::map<std::string, std::string> fields;
            addFields(entry.children[1], "", fields);
            const auto id = static_cast<unsigned int>(std::stoul(entry.children[0].text));
            for (const auto& [field, text] : fields)
                ASSERT_TRUE(text.empty() || loaded.find(ALL_KINDS[kind], id, field) == text) << field << '\n'
                                                                                             << loaded.text;
        }
    }
}

TEST(UnderstoodProperty, NothingIsFoundInTheWrittenForm)
{
    for (unsigned int seed = 1; seed <= 50; ++seed) {
        const LoadedDocument loaded(bench::makeDocument(8, seed));
        EXPECT_THAT(findingsOf(loaded), testing::IsEmpty()) << loaded.text;
        expectAllFound(loaded, treeOf(loaded.text));
    }
}

TEST(UnderstoodProperty, NothingIsFoundWhateverTheOrderAndTheLayout)
{
    for (unsigned int seed = 1; seed <= 100; ++seed) {
        bench::Random     random(seed);
        const std::string written = bench::makeDocument(8, seed);
        Element           tree    = treeOf(written);
        if (random.percent(70))
            shuffle(tree, random);
        const LoadedDocument loaded(rendered(tree, random));
        ASSERT_TRUE(storedText(loaded.config) == written) << loaded.text;
        EXPECT_THAT(findingsOf(loaded), testing::IsEmpty()) << loaded.text;
        expectAllFound(loaded, treeOf(written));
    }
}

void misspell(std::string& text, bench::Random& random)
{
    const char* const numbers[]  = {"", "abc", "99999999999", "65536", "-1", "-99999999999", "08", "0x", "0x7fffffff"};
    const char* const prefixes[] = {"0", "+", "-", "0x", "00", " "};
    const char* const suffixes[] = {"x", " 1", ".", " ", "0000000000"};
    const bool        isNumber   = text.find_first_not_of("0123456789") == std::string::npos;
    if (isNumber && random.percent(40))
        text = random.oneOf(numbers);
    else if (isNumber && random.percent(50))
        text = random.oneOf(prefixes) + text;
    else if (isNumber)
        text += random.oneOf(suffixes);
    else
        text = random.percent(50) ? text + ' ' : '\t' + text;
}

/// Makes a few slips of the pen, and tells whether one of them wrote a selector twice.
bool makeSlips(Element& tree, bench::Random& random)
{
    std::vector<Element*> leaves;
    std::vector<Element*> lists;
    visitElements(tree, [&](Element& element, const std::string&) {
        if (element.isLeaf)
            leaves.push_back(&element);
        else if (element.name == "selectors" && !element.children.empty())
            lists.push_back(&element);
    });
    for (unsigned int slips = random.below(4); slips > 0; --slips)
        misspell(leaves[random.below(static_cast<unsigned int>(leaves.size()))]->text, random);

    const bool repeats = !lists.empty() && random.percent(30);
    if (repeats) {
        std::vector<Element>& selectors = lists[random.below(static_cast<unsigned int>(lists.size()))]->children;
        const Element         selector  = selectors[random.below(static_cast<unsigned int>(selectors.size()))];
        selectors.push_back(selector);
    }
    if (random.percent(20)) {
        std::vector<Element>& policies = tree.children[3].children;
        policies.push_back({"nextpolicy", true, std::to_string(random.from(1, 20)), {}});
    }
    return repeats;
}

/// Null if it does not load.
std::unique_ptr<LoadedDocument> loadedOrNot(const std::string& text)
{
    try {
        return std::make_unique<LoadedDocument>(text);
    } catch (const ParseError&) {
        return nullptr;
    }
}

TEST(UnderstoodProperty, WhatIsNotStoredAsItStandsIsFoundAndNothingElse)
{
    unsigned int loads      = 0;
    unsigned int misread    = 0;
    unsigned int understood = 0;
    for (unsigned int seed = 1; seed <= 600; ++seed) {
        bench::Random random(seed);
        Element       tree    = treeOf(bench::makeDocument(4, seed % 50));
        const bool    repeats = makeSlips(tree, random);
        if (random.percent(50))
            shuffle(tree, random);
        const auto loaded = loadedOrNot(rendered(tree, random));
        if (!loaded)
            continue;
        ++loads;

        const auto written = leavesOf(tree);
        const auto stored  = leavesOf(treeOf(storedText(loaded->config)));
        ++(written == stored ? understood : misread);

        std::vector<std::pair<std::string, std::string>> lost;
        std::set_difference(written.begin(), written.end(), stored.begin(), stored.end(), std::back_inserter(lost));
        const Findings findings = findingsOf(*loaded);
        ASSERT_EQ(findings.empty(), written == stored) << loaded->text;
        ASSERT_TRUE(repeats || findings.size() >= lost.size()) << loaded->text;
    }
    EXPECT_GT(loads, 400U);
    EXPECT_GT(misread, 200U);
    EXPECT_GT(understood, 50U);
}

bool isDuplicate(const Finding& finding)
{
    return finding.rule->code == std::string("duplicate-selector");
}

TEST(UnderstoodProperty, AFindingsPathLeadsToItsPlace)
{
    unsigned int checked = 0;
    for (unsigned int seed = 1; seed <= 300; ++seed) {
        bench::Random random(seed);
        Element       tree = treeOf(bench::makeDocument(4, seed % 50));
        makeSlips(tree, random);
        shuffle(tree, random);
        const auto loaded = loadedOrNot(rendered(tree, random));
        if (!loaded)
            continue;
        const Findings findings = findingsOf(*loaded);
        if (std::any_of(findings.begin(), findings.end(), isDuplicate)) // whose path leads to the one that stays
            continue;
        for (const Finding& finding : findings) {
            const Span span = loaded->place(finding.path);
            ASSERT_TRUE(finding.path.id == 0 || (span.offset == finding.offset && span.length == finding.length))
                << textOf(finding.path) << '\n'
                << loaded->text;
            ++checked;
        }
    }
    EXPECT_GT(checked, 200U);
}

} // namespace
