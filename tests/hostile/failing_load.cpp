// Loads from buffers that fail or throw, at every byte.
//
// Without badbit in the stream's exception mask a fault reads as the end of input: a load yields the whole document's
// object, or a ParseError with the message of the document that breaks off there, and the stream is bad. With badbit in
// the mask the buffer's own exception comes out, and nothing else. What the load was to replace is as it was.

#include "hostile/faulty_buffers.h"
#include "hostile/small_documents.h"
#include "hostile/sweep.h"

#include "support/samples.h"

#include <functional>
#include <ios>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

struct Fault {
    std::function<void()> raise;
    std::string           seen; ///< what comes out if the mask asks for it
};

const std::vector<Fault> faults{
    {[] { throw BufferFault(); }, "BufferFault"},
    {[] { throw 42; }, "42"},
    {[] { throw ParseError("of the buffer"); }, "ParseError: of the buffer"},
    {[] { throw std::ios_base::failure("of the buffer"); }, "failure"},
    {[] { throw std::bad_alloc(); }, "bad_alloc"},
};

/// What reading `element` yields or throws, and the stream's state then.
std::string readFrom(const Element& element, std::streambuf& buffer, std::ios_base::iostate mask,
                     std::ios_base::iostate& state)
{
    std::istream in(&buffer);
    in.exceptions(mask);
    XMLParser   parser(in);
    std::string result;
    try {
        result = element.read(parser);
    } catch (const BufferFault&) {
        result = "BufferFault";
    } catch (int number) {
        result = std::to_string(number);
    } catch (const std::bad_alloc&) {
        result = "bad_alloc";
    }
    state = in.rdstate();
    return result;
}

std::string readFrom(const Element& element, std::streambuf& buffer)
{
    std::ios_base::iostate state{};
    return readFrom(element, buffer, std::ios_base::goodbit, state);
}

/// The elements that were open, in a ParseError's message.
std::string contextOf(const std::string& result)
{
    EXPECT_EQ(result.find("ParseError: "), 0U) << result;
    return result.substr(std::min(result.find('\n'), result.size()));
}

/// Is it what a document that breaks off behind a bracket, and so with `message`, gives where not even that bracket can
/// be put back?
bool isCannotPutBack(const std::string& result, const std::string& message)
{
    return result == "ParseError: parse_tag: cannot put back '<'" + contextOf(message) ||
           result == "ParseError: parse_body: cannot put back '<'" + contextOf(message);
}

/// Reads from `makeBuffer()`, in which `fault` comes up behind `before`, which by itself reads as `broken`.
template <class MakeBuffer>
void expectFaultSeen(const SmallDocument& document, const std::string& before, const std::string& broken,
                     const Fault& fault, const MakeBuffer& makeBuffer)
{
    const bool             whole = broken[0] == '<';
    std::ios_base::iostate state{};

    auto              buffer = makeBuffer();
    const std::string result = readFrom(document.element, *buffer, std::ios_base::goodbit, state);
    EXPECT_TRUE(result == broken || (before.back() == '<' && isCannotPutBack(result, broken))) << result;
    EXPECT_EQ((state & std::ios_base::badbit) != 0, !whole);

    buffer = makeBuffer();
    EXPECT_EQ(readFrom(document.element, *buffer, std::ios_base::badbit, state), whole ? broken : fault.seen);
    EXPECT_EQ((state & std::ios_base::badbit) != 0, !whole);
}

/// Calls `check` for each small document with each fault at each place; if sweeps are not whole, for one pair in 13.
template <class Check>
void forEachFault(const Check& check)
{
    std::size_t cases = 0;
    for (const SmallDocument& document : smallDocuments()) {
        const std::size_t pairs = (document.text.size() + 1) * faults.size();
        for (const std::size_t pair : places(wholeSweeps() ? 0 : cases % 13, pairs - 1, 13)) {
            const std::size_t place = pair / faults.size();
            SCOPED_TRACE(document.name + ", fault at " + std::to_string(place));
            check(document, place, faults[pair % faults.size()]);
            ASSERT_FALSE(::testing::Test::HasFailure());
            ++cases;
        }
    }
    reportCases(cases);
}

TEST(FailingLoad, FromABufferThatThrowsWhenItIsToHoldMoreReadyIsWholeOrAsIfItEndedThere)
{
    forEachFault([](const SmallDocument& document, std::size_t place, const Fault& fault) {
        const std::string before = document.text.substr(0, place);
        ByteBuffer        ending(before);
        const std::string broken = readFrom(document.element, ending);
        expectFaultSeen(document, before, broken, fault,
                        [&] { return std::make_unique<FaultAtEnd<ByteBuffer>>(fault.raise, before); });
        expectFaultSeen(document, before, broken, fault,
                        [&] { return std::make_unique<FaultAtEnd<ChunkBuffer>>(fault.raise, before, 1 + place % 23); });
        expectFaultSeen(document, before, broken, fault,
                        [&] { return std::make_unique<FaultAtEnd<OneByteBuffer>>(fault.raise, before); });
    });
}

TEST(FailingLoad, FromABufferThatThrowsWhenItIsToHandAByteOutIsWholeOrAsIfItEndedThere)
{
    forEachFault([](const SmallDocument& document, std::size_t place, const Fault& fault) {
        ByteBuffer             ending(document.text.substr(0, place));
        const std::string      broken = readFrom(document.element, ending);
        FaultAtStep            buffer(fault.raise, document.text, place);
        std::ios_base::iostate state{};
        const std::string      result = readFrom(document.element, buffer, std::ios_base::goodbit, state);
        // Where such a byte is next, the look at it ends something: what comes behind it is missed, and not itself.
        const bool looked = std::string("</='\" ").find(document.text[place]) != std::string::npos;
        EXPECT_TRUE(result == broken || (looked && contextOf(result) == contextOf(broken))) << result;
        EXPECT_EQ(result[0] == '<', (state & std::ios_base::badbit) == 0);

        FaultAtStep again(fault.raise, document.text, place);
        EXPECT_EQ(readFrom(document.element, again, std::ios_base::badbit, state),
                  result[0] == '<' ? result : fault.seen);
    });
}

TEST(FailingLoad, FromABufferThatThrowsWhenItIsToTakeAByteBackIsWholeOrSaysSo)
{
    std::size_t refused = 0;
    forEachFault([&refused](const SmallDocument& document, std::size_t place, const Fault& fault) {
        ByteBuffer             good(document.text);
        const std::string      whole = readFrom(document.element, good);
        FaultAtPutBack         buffer(fault.raise, document.text, place);
        std::ios_base::iostate state{};
        const std::string      result = readFrom(document.element, buffer, std::ios_base::goodbit, state);
        FaultAtPutBack         again(fault.raise, document.text, place);
        const std::string      masked = readFrom(document.element, again, std::ios_base::badbit, state);
        if (result == whole) {
            EXPECT_EQ(masked, whole);
            return;
        }
        EXPECT_EQ(document.text[place - 1], '<');
        EXPECT_TRUE(isCannotPutBack(result, result)) << result;
        EXPECT_EQ(masked, fault.seen);
        ++refused;
    });
    EXPECT_GT(refused, 5U);
    if (wholeSweeps()) {
        EXPECT_EQ(refused, 33 * faults.size());
    }
}

TEST(FailingLoad, FromABufferThatPausesIsWholeOrAsIfItEndedThere)
{
    std::size_t whole = 0;
    for (const SmallDocument& document : smallDocuments()) {
        ByteBuffer        good(document.text);
        const std::string result = readFrom(document.element, good);
        for (const std::size_t place : places(0, document.text.size() - 1, 3)) {
            ByteBuffer        ending(document.text.substr(0, place));
            PausingBuffer     pausing(document.text, place);
            const std::string paused = readFrom(document.element, pausing);
            whole += paused == result ? 1U : 0U;
            const bool takenForChild = document.text.compare(place - std::min<std::size_t>(place, 1), 2, "</") == 0;
            EXPECT_TRUE(paused == result || paused == readFrom(document.element, ending) ||
                        (takenForChild && paused.find(": missing tag; expected <") != std::string::npos))
                << document.name << " with a pause at " << place << ": " << paused;
        }
    }
    EXPECT_GT(whole, 20U); // the pause behind a bracket that goes back is forgotten
}

TEST(FailingLoad, NeedsNothingOfABufferButLookingSteppingAndPuttingBack)
{
    for (const SmallDocument& document : smallDocuments()) {
        ByteBuffer             bytes(document.text);
        LookAndStepBuffer      buffer(document.text);
        std::ios_base::iostate state{};
        EXPECT_EQ(readFrom(document.element, buffer, std::ios_base::badbit, state), readFrom(document.element, bytes))
            << document.name;
        EXPECT_EQ(state, std::ios_base::goodbit) << document.name;
    }
}

class FailingSampleLoad : public ::testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Configs, FailingSampleLoad, ::testing::ValuesIn(sampleNames()),
                         [](const auto& sample) { return testName(sample.param); });

TEST_P(FailingSampleLoad, ReplacesNothing)
{
    const std::string text   = sampleText(GetParam());
    const std::string before = smallDocument("ipsec").text;
    IPsecConfig       config = read<IPsecConfig>(before);
    std::size_t       cases  = 0;
    for (const std::size_t place : places(0, text.rfind('>'), 401)) {
        ++cases;
        const auto load = [&](std::ios_base::iostate mask) {
            FaultAtEnd<ChunkBuffer> buffer(faults[0].raise, text.substr(0, place), 1 + place % 509);
            std::istream            in(&buffer);
            in.exceptions(mask);
            XMLParser parser(in);
            config = IPsecConfig::importXML(parser);
        };
        EXPECT_THROW(load(std::ios_base::goodbit), ParseError) << place;
        EXPECT_THROW(load(std::ios_base::badbit), BufferFault) << place;
        ASSERT_EQ(written(config), before) << place;
    }
    reportCases(2 * cases);
}

} // namespace
} // namespace ipsecimpl
