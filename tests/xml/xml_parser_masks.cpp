// The exception that the stream's mask demands comes out of the parser; no other does but ParseError.

#include "document.h"
#include "samples.h"

#include <ios>

namespace ipsecimpl {
namespace {

enum class Thrown { Nothing, ParseError, StreamFailure, BufferFault };

/// What loading from `in` throws. A ParseError must not hide a state for which the mask demands another exception.
Thrown loadUnderMask(std::istream& in, std::ios_base::iostate mask, void (*load)(XMLParser&))
{
    in.exceptions(mask);
    XMLParser parser(in);
    try {
        load(parser);
        return Thrown::Nothing;
    } catch (const ParseError&) {
        EXPECT_EQ(in.rdstate() & mask, std::ios_base::goodbit);
        return Thrown::ParseError;
    } catch (const std::ios_base::failure&) {
        EXPECT_NE(in.rdstate() & mask, std::ios_base::goodbit);
        return Thrown::StreamFailure;
    } catch (const BufferFault&) {
        EXPECT_NE(mask & std::ios_base::badbit, std::ios_base::goodbit);
        EXPECT_TRUE(in.bad());
        return Thrown::BufferFault;
    }
}

TEST(ExceptionMask, DecidesWhatIsThrownWhereTheInputEnds)
{
    for (std::size_t size = 0; size < plain.text.size(); ++size) {
        SCOPED_TRACE("size " + std::to_string(size));
        const auto thrown = [size](std::ios_base::iostate mask) {
            std::istringstream in(plain.text.substr(0, size));
            return loadUnderMask(in, mask, plain.load);
        };
        EXPECT_EQ(thrown(std::ios_base::goodbit), Thrown::ParseError);
        EXPECT_EQ(thrown(std::ios_base::badbit), Thrown::ParseError);
        EXPECT_EQ(thrown(std::ios_base::eofbit), Thrown::StreamFailure);
        EXPECT_EQ(thrown(std::ios_base::eofbit | std::ios_base::failbit), Thrown::StreamFailure);
        const Thrown atFailure = thrown(std::ios_base::failbit);
        EXPECT_TRUE(atFailure == Thrown::ParseError || atFailure == Thrown::StreamFailure);
    }
}

TEST(ExceptionMask, DecidesWhatIsThrownWhereTheBufferThrows)
{
    for (const Sample& sample : {plain, looked}) {
        for (std::size_t fault = 0; fault < sample.text.size(); ++fault) {
            SCOPED_TRACE("fault at " + std::to_string(fault) + " of " + sample.text);
            const auto thrown = [&](std::ios_base::iostate mask) {
                ThrowingBuffer buffer(sample.text, fault);
                std::istream   in(&buffer);
                return loadUnderMask(in, mask, sample.load);
            };
            EXPECT_EQ(thrown(std::ios_base::goodbit), Thrown::ParseError);
            EXPECT_EQ(thrown(std::ios_base::badbit), Thrown::BufferFault);
            EXPECT_EQ(thrown(std::ios_base::badbit | std::ios_base::failbit), Thrown::BufferFault);
            const Thrown atFailure = thrown(std::ios_base::failbit);
            EXPECT_TRUE(atFailure == Thrown::ParseError || atFailure == Thrown::StreamFailure);
        }
    }
}

TEST(ExceptionMask, OfBadbitDemandsTheStreamsFailureWhereNothingCanBePutBack)
{
    OneWayBuffer buffer(looked.text);
    std::istream in(&buffer);
    EXPECT_EQ(loadUnderMask(in, std::ios_base::badbit, looked.load), Thrown::StreamFailure);
}

TEST(ExceptionMask, ChangesNothingForADocumentThatLoads)
{
    for (const Sample& sample : {plain, looked}) {
        ByteBuffer   buffer(sample.text + "<");
        std::istream in(&buffer);
        EXPECT_EQ(
            loadUnderMask(in, std::ios_base::failbit | std::ios_base::badbit | std::ios_base::eofbit, sample.load),
            Thrown::Nothing);
        EXPECT_EQ(buffer.rest(), "<");
    }
}

} // namespace
} // namespace ipsecimpl
