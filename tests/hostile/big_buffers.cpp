#include "hostile/big_buffers.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <utility>

#include <sys/mman.h>
#include <unistd.h>

namespace ipsecimpl {
namespace {

constexpr std::size_t blockSize = std::size_t(2) << 20U; // whole pages, whatever the machine's page size

[[noreturn]] void fail(const std::string& what)
{
    throw std::runtime_error(what + ": " + std::strerror(errno));
}

/// A block of memory that can be shown in several places. The name is for whoever looks at the process.
class Block {
  public:
    Block()
        : file_(memfd_create("block", 0))
    {
        if (file_ < 0 || ftruncate(file_, static_cast<off_t>(blockSize)) != 0)
            fail("cannot make a block");
    }

    Block(const Block&)            = delete;
    Block& operator=(const Block&) = delete;

    ~Block() { close(file_); }

    void showAt(char* place) const
    {
        if (mmap(place, blockSize, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, file_, 0) == MAP_FAILED)
            fail("cannot show a block");
    }

  private:
    int file_;
};

} // namespace

GeneratedBuffer::GeneratedBuffer(std::vector<Repeated> parts)
    : parts_(std::move(parts))
    , held_(1, '\0')
{
    held_.reserve(std::size_t(64) << 10U);
}

std::streambuf::int_type GeneratedBuffer::underflow()
{
    held_.assign(1, held_.back());
    while (held_.size() < held_.capacity() && part_ < parts_.size()) {
        Repeated&         part = parts_[part_];
        const std::size_t size = std::min(part.text.size() - place_, held_.capacity() - held_.size());
        held_.append(part.text, place_, size);
        place_ += size;
        if (place_ == part.text.size()) {
            place_ = 0;
            if (--part.times == 0)
                ++part_;
        }
    }
    made_ += held_.size() - 1;
    setg(held_.data() + (made_ < held_.size() ? 1 : 0), held_.data() + 1, held_.data() + held_.size());
    return gptr() == egptr() ? traits_type::eof() : traits_type::to_int_type(*gptr());
}

AddressSpace::AddressSpace(std::uint64_t size)
    : size_(static_cast<std::size_t>(size))
{
    if (size > std::numeric_limits<std::size_t>::max() / 2)
        throw std::runtime_error("the address space is too small");
    void* const space = mmap(nullptr, size_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (space == MAP_FAILED)
        fail("no room in the address space");
    begin_ = static_cast<char*>(space);
}

AddressSpace::~AddressSpace()
{
    munmap(begin_, size_);
}

OnePieceBuffer::OnePieceBuffer(const std::string& begin, char filling, std::uint64_t size, const std::string& end)
    : space_((size / blockSize + 3) * blockSize)
{
    char* const afterBegin = space_.begin() + blockSize;
    char* const beforeEnd  = space_.end() - blockSize;
    const Block first;
    const Block middle;
    const Block last;
    first.showAt(space_.begin());
    for (char* at = afterBegin; at != beforeEnd; at += blockSize)
        middle.showAt(at);
    last.showAt(beforeEnd);

    char* const from = afterBegin - begin.size();
    begin.copy(from, begin.size());
    std::fill_n(afterBegin, blockSize, filling);
    end.copy(beforeEnd, end.size());
    setg(from, from, beforeEnd + end.size());
}

std::vector<Repeated> bigConfig(std::uint64_t bytes)
{
    const std::string host     = "<hostSelector>\n<family>AF_INET</family>\n<selectorType>SINGLE</selectorType>\n"
                                 "<addr1>192.0.2.1</addr1>\n</hostSelector>\n";
    const std::string loose    = "<hostSelector ><family value='AF_INET6'/><selectorType>\tANY\r\n</selectorType>"
                                 "</hostSelector>\n";
    const std::string protocol = "<protocolSelector>\n<mirrored>MIRRORED</mirrored>\n<name>a name of some length that "
                                 "is not kept but once</name>\n<protocol>6</protocol>\n<direction>IN</direction>\n"
                                 "</protocolSelector>\n";
    const std::string next     = "<nextpolicy>9</nextpolicy>\n";
    const std::string space    = std::string(1000, ' ') + "\t\n\v\f\r";
    const auto        share    = [bytes](const std::string& text) { return bytes / 5 / text.size() + 1; };
    return {
        {"<ipsec>\n<hostGroups>\n<hostGroupEntry>\n<id>1</id>\n<hostGroup>\n<name/><builtinName/><descr/>"
         "<builtinDescr/><selectors>\n",
         1},
        {host, share(host)},
        {loose, share(loose)},
        {"</selectors>\n</hostGroup>\n</hostGroupEntry>\n</hostGroups>\n<protocolGroups>\n<protocolGroupEntry>\n"
         "<id>1</id>\n<protocolGroup>\n<name/><builtinName/><descr/><builtinDescr/><selectors>\n",
         1},
        {protocol, share(protocol)},
        {"</selectors>\n</protocolGroup>\n</protocolGroupEntry>\n</protocolGroups>\n<actions/>\n", 1},
        {space, share(space)},
        {"<policies>\n", 1},
        {next, share(next)},
        {"</policies>\n</ipsec>\n", 1},
    };
}

std::string bigConfigWritten()
{
    const auto group = [](const std::string& tag, const std::string& selectors) {
        return "<" + tag + "s>\n<next" + tag + ">2</next" + tag + ">\n<" + tag + "Entry>\n<id>1</id>\n<" + tag +
               ">\n<name></name>\n<builtinName>0</builtinName>\n<descr></descr>\n<builtinDescr>0</builtinDescr>\n"
               "<selectors>\n" +
               selectors + "</selectors>\n</" + tag + ">\n</" + tag + "Entry>\n</" + tag + "s>\n";
    };
    return "<ipsec>\n" +
           group("hostGroup", "<hostSelector>\n<family>AF_INET</family>\n<selectorType>SINGLE</selectorType>\n"
                              "<addr1>192.0.2.1</addr1>\n</hostSelector>\n<hostSelector>\n<family>AF_INET6</family>\n"
                              "<selectorType>ANY</selectorType>\n</hostSelector>\n") +
           group("protocolGroup", "<protocolSelector>\n<protocol>6</protocol>\n<name>a name of some length that is not "
                                  "kept but once</name>\n<direction>IN</direction>\n<mirrored>MIRRORED</mirrored>\n"
                                  "</protocolSelector>\n") +
           "<actions>\n<nextaction>1</nextaction>\n</actions>\n<policies>\n<nextpolicy>9</nextpolicy>\n</policies>\n"
           "</ipsec>\n";
}

std::vector<Repeated> bigElements(std::uint64_t bytes)
{
    const std::string unit = "<b one='1' two=\"2\" three = 3 four><c/>some text &amp; <d>more of it</d>\n<e\t/></b>\n";
    return {{"<a>\n", 1}, {unit, bytes / unit.size() + 1}, {"</a>\n", 1}};
}

} // namespace ipsecimpl
