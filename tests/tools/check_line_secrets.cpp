#include "line_secrets.h"

#include "check_model.h"
#include "excerpt.h"
#include "generator.h"
#include "hidden.h"
#include "loaded_document.h"
#include "program.h"
#include "random_document.h"
#include "source_documents.h"
#include "understood.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::size_t WIDTH = 60;

/// The places of all findings, and of every leaf of actions.
std::vector<Span> placesIn(const LoadedDocument& loaded)
{
    Findings findings;
    checkUnderstood(loaded.source, findings);
    checkModel(loaded.config, nullptr, findings);

    std::vector<Span> places;
    for (const Finding& finding : findings)
        if (!finding.isAboutFile)
            places.push_back(finding.isLocated ? Span{finding.offset, finding.length} : loaded.place(finding.path));
    for (const auto& action : loaded.config.actions)
        for (const char* const field :
             {"id", "name", "descr", "state", "tunnelEndpoint", "ikePhase1", "ikePhase1/presharedKey",
              "ikePhase1/localCert", "ikePhase2", "manualKey", "manualKey/inboundESPSPI", "manualKey/inboundDecrKey",
              "manualKey/outboundEncrKey", "manualKey/outboundEncrIV", "manualKey/inboundAuthKey"})
            places.push_back(loaded.place({Kind::ACTION, action.first, field}));
    for (Span& place : places)
        place = firstLineOf(loaded.text, place);
    return places;
}

std::string shownWith(const std::vector<Span>& hidden, const std::string& text, Span line, Span what)
{
    Excerpt excerpt;
    takeExcerpt(excerpt, text, line, what, hidden, WIDTH);
    return excerpt.line + '\n' + excerpt.marks;
}

/// The lines that a document's own secrets change, as they are shown with those that a line tells by itself where that
/// differs. `lines` counts all.
std::vector<std::string> differencesIn(const std::string& text, std::size_t& lines)
{
    const LoadedDocument     loaded(text);
    const std::vector<Span>  secrets = secretsOf(loaded.source);
    std::vector<std::string> differences;
    for (const Span what : placesIn(loaded)) {
        const Span        line = excerptSpan(text, what, WIDTH);
        LineSecrets       own(loaded.source); // a new one, which has looked up nothing yet
        const std::string shown = shownWith(own.in(line, what), text, line, what);
        if (shown != shownWith(secrets, text, line, what))
            differences.push_back(shown);
        ++lines;
    }
    return differences;
}

/// The document with a tag or a leaf to a line, as the library stores it but indented and ended in some other way.
std::string laidOut(const std::string& text, const std::string& before, const std::string& after)
{
    std::string result;
    for (std::size_t begin = 0, end = 0; begin < text.size(); begin = end + 1) {
        end = text.find('\n', begin);
        result += before + text.substr(begin, end - begin) + after;
    }
    return result;
}

TEST(CheckLineSecrets, AreThoseOfTheWholeDocument)
{
    std::vector<std::string> documents = {bench::makeDocument(15)};
    for (const std::string name : {"home-router.xml", "branch-office.xml", "server-farm.xml"})
        documents.push_back(contentOf(EXAMPLES_DIR "/configs/" + name));
    RandomDocuments random(7);
    for (int i = 0; i < 5; ++i)
        documents.push_back(random.next());

    std::size_t lines = 0;
    for (const std::string& text : documents) {
        EXPECT_THAT(differencesIn(text, lines), IsEmpty());
        const std::string stored = storedText(loadedFrom(text));
        for (const std::string before : {"", "  ", "\t"})
            for (const std::string after : {"\n", "\r\n", " \n", ""})
                EXPECT_THAT(differencesIn(laidOut(stored, before, after), lines), IsEmpty());
    }
    EXPECT_GT(lines, 1000U);
}

/// Values that look like something else, on lines of their own.
const char* const DISGUISES[] = {
    "presharedKey>Kq7Zm</presharedKey",
    "presharedKey>\nKq7Zm</presharedKey",
    "presharedKey>Kq\n7Zm</presharedKey",
    "presharedKey\n>Kq7Zm</presharedKey",
    "presharedKey >Kq7Zm</presharedKey",
    "presharedKey>Kq>7Zm</presharedKey",
    "presharedKey>&amp;Kq7Zm</presharedKey",
    "presharedKey>\n&amp;\n</presharedKey",
    "presharedKey value='\n<name>&amp;</name>\n'/",
    "presharedKey value='\n<name>Kq7Zm</name>\n'/",
    "presharedKey value='>\n<name>\n'/",
    "presharedKey value='<name>\n'/",
    "presharedKey value='\n  <name></name>'/",
    "presharedKey value=\n<name\n/",
    "presharedKey value=Kq7Zm /",
    "presharedKey value/",
};

TEST(CheckLineSecrets, AreThoseOfTheWholeDocumentHoweverTheyLook)
{
    const std::string usual = "<presharedKey>Kq7Zm</presharedKey>";
    std::size_t       lines = 0;
    for (const std::string disguise : DISGUISES)
        for (const std::string before : {"", "\n"})
            for (const std::string after : {"", "\n"}) {
                std::string text = ikeAction(PHASES);
                ASSERT_NE(text.find(usual), std::string::npos);
                text.replace(text.find(usual), usual.size(), before + '<' + disguise + '>' + after);
                EXPECT_THAT(differencesIn(text, lines), IsEmpty()) << disguise;
            }
    EXPECT_GT(lines, 1000U);
}

TEST(CheckLineSecrets, AreThoseOfTheWholeDocumentInLongLines)
{
    std::string text = storedText(loadedFrom(ikeAction(PHASES)));
    text.replace(text.find("Kq7Zm"), 5, std::string(5 * WIDTH, 'K'));
    text.insert(text.find("<descr>") + 7, std::string(5 * WIDTH, 'd'));
    std::size_t lines = 0;
    EXPECT_THAT(differencesIn(text, lines), IsEmpty());
}

TEST(CheckLineSecrets, OfALeafAloneAreFoundWithoutTheDocument)
{
    const LoadedDocument loaded(laidOut(storedText(loadedFrom(ikeAction(PHASES))), " ", "\n"));
    const Span           key  = loaded.place({Kind::ACTION, 3, "ikePhase1/presharedKey"});
    const Span           name = loaded.place({Kind::ACTION, 3, "name"});
    LineSecrets          secrets(loaded.source);
    EXPECT_THAT(secrets.in(excerptSpan(loaded.text, name, WIDTH), name), IsEmpty());
    ASSERT_EQ(secrets.in(excerptSpan(loaded.text, key, WIDTH), key).size(), 1U);
    EXPECT_EQ(loaded.textAt(secrets.in(excerptSpan(loaded.text, key, WIDTH), key).front()), "Kq7Zm");
}

TEST(CheckLineSecrets, OfALeafThatCanHoldANumberAreWhatIsNone)
{
    std::string text = laidOut(storedText(loadedFrom(ikeAction(PHASES))), " ", "\n");
    text.replace(text.find("<keyLifetime>5<") + 13, 1, "Kq7Zn");
    const LoadedDocument loaded(text);
    LineSecrets          secrets(loaded.source);
    const auto           shown = [&](const std::string& what) {
        const Span               place = {text.find(what + "</"), what.size()};
        std::vector<std::string> texts;
        for (const Span secret : secrets.in(excerptSpan(text, place, WIDTH), place))
            texts.push_back(loaded.textAt(secret));
        return texts;
    };
    EXPECT_THAT(shown("Kq7Zn"), ElementsAre("Kq7Zn"));
    EXPECT_THAT(shown("12"), IsEmpty());
    EXPECT_THAT(shown("ESP"), IsEmpty()) << "a number in a selector's <protocol>";
}

} // namespace
