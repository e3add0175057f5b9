// Every byte value at every place of every small document: in place of the byte there, or before it.
//
// Whatever comes of it, an object or a message, it is the same as from a buffer that shows one byte at a time and so
// leaves nothing to the readers' fast ways. Which messages come of it, and how often, is kept in
// golden/every_byte*.txt.

#include "hostile/small_documents.h"
#include "hostile/sweep.h"

#include "support/golden.h"

#include <functional>
#include <map>
#include <string>

namespace ipsecimpl {
namespace {

/// How often what came out.
using Tally = std::map<std::string, std::size_t>;

/// The kind of result: "read", or the message up to what it names or quotes.
std::string kindOf(const std::string& result)
{
    if (result[0] == '<')
        return "read";
    if (result.find("ParseError: unknown tag:") == 0) // not quoted
        return "ParseError: unknown tag:";
    std::string kind = result.substr(0, result.find_first_of("<'\n"));
    XMLParser::trim(kind);
    return kind;
}

/// `document` with `byte` at `place`.
using Change = std::function<std::string(const std::string& document, std::size_t place, char byte)>;

void sweep(Tally& tally, const Change& change, std::size_t step)
{
    std::size_t cases = 0;
    for (const SmallDocument& document : smallDocuments()) {
        for (const std::size_t pair : places(wholeSweeps() ? 0 : cases % step, document.text.size() * 256 - 1, step)) {
            const std::size_t place = pair / 256;
            const char        byte  = static_cast<char>(pair % 256);
            const std::string text  = change(document.text, place, byte);
            ++tally[kindOf(resultAlike(document.element, text, 1 + place % 23))];
            ++cases;
            if (::testing::Test::HasFailure())
                FAIL() << document.name << " with byte " << pair % 256 << " at " << place;
        }
    }
    reportCases(cases);
}

std::string textOf(const Tally& tally)
{
    std::string text;
    for (const auto& [kind, count] : tally)
        text += std::to_string(count) + ": " + kind + '\n';
    return text;
}

std::string replaced(std::string document, std::size_t place, char byte)
{
    document[place] = byte;
    return document;
}

std::string inserted(std::string document, std::size_t place, char byte)
{
    return document.insert(place, 1, byte);
}

TEST(EveryByte, InPlaceOfAnotherIsReadAlikeFromEveryBuffer)
{
    Tally tally;
    sweep(tally, replaced, 509);
    expectGolden(wholeSweeps() ? "every_byte_replaced_whole.txt" : "every_byte_replaced.txt", textOf(tally));
}

TEST(EveryByte, BetweenOthersIsReadAlikeFromEveryBuffer)
{
    Tally tally;
    sweep(tally, inserted, 521);
    expectGolden(wholeSweeps() ? "every_byte_inserted_whole.txt" : "every_byte_inserted.txt", textOf(tally));
}

TEST(EveryByte, ThatMeansSomethingIsReadAlikeFromEveryBuffer)
{
    using namespace std::string_literals;
    const std::string bytes = "<>/=&;'\"x1-.:_ \t\n\v\f\r\0\x7F\x80\x85\xA0\xC3\xFE\xFF"s;
    std::size_t       cases = 0;
    for (const SmallDocument& document : smallDocuments()) {
        for (const std::size_t pair :
             places(wholeSweeps() ? 0 : cases % 89, document.text.size() * bytes.size() - 1, 89)) {
            const std::string text = replaced(document.text, pair / bytes.size(), bytes[pair % bytes.size()]);
            expectAlike(document.element, text, 1 + pair % 23);
            ++cases;
        }
    }
    reportCases(cases);
}

TEST(EveryByte, LessIsReadAlikeFromEveryBuffer)
{
    std::size_t cases = 0;
    for (const SmallDocument& document : smallDocuments()) {
        for (const std::size_t place : places(wholeSweeps() ? 0 : cases % 7, document.text.size() - 1, 7)) {
            std::string text = document.text;
            expectAlike(document.element, text.erase(place, 1), 1 + place % 23);
            ++cases;
        }
    }
    reportCases(cases);
}

} // namespace
} // namespace ipsecimpl
