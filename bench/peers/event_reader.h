#ifndef IPSECIMPL_BENCH_PEERS_EVENT_READER_H
#define IPSECIMPL_BENCH_PEERS_EVENT_READER_H

#include "tag.h"

#include <ipsecimpl/config.h>

#include <array>
#include <cstddef>
#include <exception>
#include <list>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

/// Builds the configuration from a parser's events.
///
/// The text of each leaf is kept under its tag; an element is built from those of its children when it ends. That
/// children come in their order, and only where they belong, is not checked: it would only cost the peer time.
///
/// The events come through C functions, which no exception may cross. So the first one is kept, and thrown by take().
class EventReader {
  public:
    void start(std::string_view name) noexcept;
    void text(const char* text, std::size_t size) noexcept;
    void end() noexcept;

    /// An event has thrown: the parser need not go on.
    bool failed() const noexcept { return error_ != nullptr; }

    /// The configuration, once the document has ended. Throws what an event has thrown.
    ipsecimpl::IPsecConfig take();

  private:
    static ipsecimpl::IKEPhase1 noPhase1();

    template <class Event>
    void guarded(Event event) noexcept;

    void startElement(Tag tag);
    void endElement(Tag tag);

    const std::string& textOf(Tag tag) const { return texts_[static_cast<std::size_t>(tag)]; }
    int                numberOf(Tag tag) const;
    unsigned int       unsignedOf(Tag tag) const;

    template <class E>
    E wordOf(Tag tag) const;

    /// The group whose header has been read.
    template <class Group>
    Group group() const;

    ipsecimpl::HostSelector     hostSelector() const;
    ipsecimpl::ProtocolSelector protocolSelector() const;
    ipsecimpl::MKM              manualKey();
    ipsecimpl::IKEPhase1        phase1();
    ipsecimpl::IKEPhase2        phase2();
    ipsecimpl::IPsecAction      action();

    std::array<std::string, tagCount> texts_;          // by tag; each keeps its memory
    std::string*                      text_ = nullptr; // that of the element that is open and has had no child yet
    std::vector<Tag>                  open_;

    unsigned int                             id_ = 0;
    ipsecimpl::HostGroup                     hostGroup_;
    ipsecimpl::ProtocolGroup                 protocolGroup_;
    ipsecimpl::IKEPhase1                     phase1_ = noPhase1();
    std::list<ipsecimpl::IKEPhase1Transform> transforms_;
    std::list<ipsecimpl::IPsecProposal>      saProposals_;
    ipsecimpl::IPsecConfig                   config_;
    std::exception_ptr                       error_;
};

} // namespace bench

#endif
