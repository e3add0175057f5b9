#ifndef IPSECIMPL_BENCH_PEERS_PEER_H
#define IPSECIMPL_BENCH_PEERS_PEER_H

#include <ipsecimpl/config.h>

#include <istream>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace bench {

/// Another XML parser, with the code that an application would write around it to load its configuration.
///
/// The configuration is built through the library's public interface, which costs such an application what it costs any
/// program: an action takes its keying objects by copy, and counts each of them as a change. The generator makes its
/// actions in the same way. So the counters in its documents are those that a peer arrives at, and all load the same
/// configuration, down to the stored bytes. (`type` and `state` have setters, which count nothing; IDs come from
/// add(), which hands out those of the document, as it has no gaps.)
struct Peer {
    const char* name;

    /// Parses alone and builds nothing. The result is what the parser keeps: its tree, or nothing.
    std::shared_ptr<void> (*parse)(std::istream& in);

    /// Parses and builds the configuration.
    ipsecimpl::IPsecConfig (*load)(std::istream& in);
};

/// The peers that this program was built with.
std::vector<Peer>& peers();

/// A peer enters itself with an object of this type.
struct Registration {
    explicit Registration(const Peer& peer) { peers().push_back(peer); }
};

/// Adds an entry that has the ID `id` in its document. Throws std::runtime_error if it gets another.
template <class Collection, class Element>
void addEntry(Collection& collection, unsigned int id, Element&& element)
{
    if (collection.add(std::forward<Element>(element)) != id)
        throw std::runtime_error("the document's IDs have gaps");
}

/// The whole stream as one text, for parsers that cannot read from a stream.
std::string readAll(std::istream& in);

} // namespace bench

#endif
