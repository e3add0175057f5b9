#ifndef IPSECIMPL_TESTS_SUPPORT_OUTCOMES_H
#define IPSECIMPL_TESTS_SUPPORT_OUTCOMES_H

/// \file
/// Every element, and all that reading one leaves behind.

#include "support/streams.h"
#include "support/xml.h"

#include <ipsecimpl/ipsecimpl.h>

#include <cstddef>
#include <functional>
#include <ios>
#include <istream>
#include <iterator>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <vector>

namespace ipsecimpl {

/// All that a reader leaves behind.
struct Outcome {
    std::string            result; ///< the object, written again, or what was thrown
    std::string            open;   ///< the elements that are open then, as a message shows them
    std::ios_base::iostate state;
    std::string            rest; ///< what stays in the stream

    bool operator==(const Outcome& other) const
    {
        return result == other.result && open == other.open && state == other.state && rest == other.rest;
    }
};

inline void PrintTo(const Outcome& outcome, std::ostream* out)
{
    *out << testing::PrintToString(outcome.result) << ", open: " << testing::PrintToString(outcome.open) << ", state "
         << outcome.state << ", rest: " << testing::PrintToString(outcome.rest);
}

template <class T>
std::string readFrom(XMLParser& parser)
{
    try {
        return written(T::importXML(parser));
    } catch (const ParseError& error) {
        return std::string("ParseError: ") + error.what();
    } catch (const std::invalid_argument& error) {
        return std::string("invalid_argument: ") + error.what();
    } catch (const std::ios_base::failure&) {
        return "failure";
    }
}

struct Element {
    const char*                            tag;
    std::function<std::string(XMLParser&)> read;
};

inline const std::vector<Element> elements{
    {"ipsec", readFrom<IPsecConfig>},
    {"hostGroups", readFrom<HostGroups>},
    {"protocolGroups", readFrom<ProtocolGroups>},
    {"actions", readFrom<Actions>},
    {"policies", readFrom<Policies>},
    {"hostGroup", readFrom<HostGroup>},
    {"hostSelector", readFrom<HostSelector>},
    {"protocolGroup", readFrom<ProtocolGroup>},
    {"protocolSelector", readFrom<ProtocolSelector>},
    {"action", readFrom<IPsecAction>},
    {"manualKey", readFrom<MKM>},
    {"ikePhase1", readFrom<IKEPhase1>},
    {"proposal", readFrom<IKEPhase1Proposal>},
    {"ikePhase2", readFrom<IKEPhase2>},
    {"saProposal", readFrom<IPsecProposal>},
    {"policy", readFrom<Policy>},
};

/// How the stream is set up.
struct Setting {
    std::ios_base::iostate mask  = std::ios_base::goodbit; ///< asks for exceptions
    std::ios_base::iostate state = std::ios_base::goodbit; ///< before anything is read
};

/// Reads `element`, and once more from where that stopped, with the same parser.
inline std::vector<Outcome> outcomes(const Element& element, std::streambuf& buffer, const Setting& setting)
{
    std::istream in(&buffer);
    in.setstate(setting.state);
    in.exceptions(setting.mask);
    XMLParser            parser(in);
    std::vector<Outcome> all(2);
    for (Outcome& outcome : all) {
        outcome.result = element.read(parser);
        outcome.open   = errorOf([&] { parser.expand_entity(""); }); // throws in any case, and reads nothing
        outcome.state  = in.rdstate();
    }
    all.back().rest.assign(std::istreambuf_iterator<char>(&buffer), {});
    return all;
}

/// Reads `element` from a buffer without a get area, from one that holds all, and from one that holds `chunk` bytes, and
/// expects the same from each. Returns the first reading's result.
inline std::string resultAlike(const Element& element, const std::string& text, std::size_t chunk,
                               const Setting& setting = {})
{
    ByteBuffer     bytes(text);
    std::stringbuf whole(text, std::ios_base::in);
    ChunkBuffer    chunks(text, chunk);

    const std::vector<Outcome> expected = outcomes(element, bytes, setting);
    EXPECT_EQ(outcomes(element, whole, setting), expected)
        << "mask " << setting.mask << ": " << testing::PrintToString(text);
    EXPECT_EQ(outcomes(element, chunks, setting), expected)
        << "chunks of " << chunk << ", mask " << setting.mask << ": " << testing::PrintToString(text);
    return expected.front().result;
}

/// The same; returns whether the element was read.
inline bool expectAlike(const Element& element, const std::string& text, std::size_t chunk, const Setting& setting = {})
{
    return resultAlike(element, text, chunk, setting).front() == '<';
}

} // namespace ipsecimpl

#endif
