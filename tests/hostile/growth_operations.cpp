#include "hostile/growth_operations.h"

#include "hostile/large_config.h"

#include <ipsecimpl/ipsecimpl.h>

#include <ostream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <utility>

namespace ipsecimpl {
namespace {

void require(bool done)
{
    if (!done)
        throw std::logic_error("the operation did not do what it is called after");
}

// In which order `count` things have their turn: which one is number `i`?

using Order = std::size_t (*)(std::size_t i, std::size_t count);

std::size_t forwards(std::size_t i, std::size_t /*count*/)
{
    return i;
}

std::size_t backwards(std::size_t i, std::size_t count)
{
    return count - 1 - i;
}

/// Each one once, unless `count` is a multiple of the prime.
std::size_t scattered(std::size_t i, std::size_t count)
{
    return i * 7919 % count;
}

/// Counts what is written, and keeps nothing of it.
class CountingSink : public std::streambuf {
  public:
    std::size_t size() const { return size_; }

  protected:
    int_type overflow(int_type c) override
    {
        ++size_;
        return traits_type::not_eof(c);
    }

    std::streamsize xsputn(const char* /*text*/, std::streamsize size) override
    {
        size_ += static_cast<std::size_t>(size);
        return size;
    }

  private:
    std::size_t size_ = 0;
};

/// Stores `element`, which has `size` bytes or more.
template <class Element>
std::function<void()> store(Element element, std::size_t size)
{
    return [element = std::move(element), size]() mutable {
        CountingSink sink;
        std::ostream out(&sink);
        element.exportXML(out);
        require(out.good() && sink.size() >= size);
    };
}

template <auto collection>
std::function<void()> storeEntries(std::size_t size)
{
    IPsecConfig config;
    addTo(config.*collection, size / 100);
    return store(std::move(config), size);
}

std::function<void()> add(std::size_t size)
{
    return [config = IPsecConfig(), count = size / 100]() mutable {
        useEach(config, [count](auto& entries) {
            addTo(entries, count);
            require(entries.size() == count);
        });
    };
}

template <Order order>
std::function<void()> remove(std::size_t size)
{
    return [config = configOf(size / 100), count = size / 100]() mutable {
        useEach(config, [count](auto& entries) {
            for (std::size_t i = 0; i < count; ++i)
                require(entries.remove(static_cast<unsigned int>(1 + order(i, count))));
            require(entries.empty());
        });
    };
}

template <Order order>
std::function<void()> replace(std::size_t size)
{
    return [config = configOf(size / 100), count = size / 100]() mutable {
        useEach(config, [count](auto& entries) {
            const auto entry = entryOf(entries);
            for (std::size_t i = 0; i < count; ++i)
                entries.replace(static_cast<unsigned int>(1 + order(i, count)), entry);
        });
    };
}

std::function<void()> iterate(std::size_t size)
{
    return [config = configOf(size / 100), count = size / 100]() mutable {
        useEach(config, [count](const auto& entries) {
            std::size_t sum = 0;
            for (const auto& [id, entry] : entries)
                sum += id;
            require(sum == count * (count + 1) / 2);
        });
    };
}

std::function<void()> copy(std::size_t size)
{
    return [config = configOf(size / 100), count = size / 100] {
        const IPsecConfig copied(config);
        require(copied.policies.size() == count);
    };
}

std::function<void()> assign(std::size_t size)
{
    return [target = configOf(size / 200), config = configOf(size / 100), count = size / 100]() mutable {
        target = config;
        require(target.policies.size() == count);
    };
}

std::function<void()> assignByMoving(std::size_t size)
{
    return [target = configOf(size / 200), config = configOf(size / 100), count = size / 100]() mutable {
        target = std::move(config);
        require(target.policies.size() == count);
    };
}

template <class Group, Order order>
std::function<void()> insert(std::size_t size)
{
    return [group = Group(), count = size / 100]() mutable {
        for (std::size_t i = 0; i < count; ++i)
            require(group.selectors.insert(selectorOf(group, order(i, count))).second);
    };
}

template <class Element>
std::function<void()> assignElement(Element element)
{
    return [target = element, element]() mutable { target = element; };
}

const std::vector<GrowthOperation> operations{
    // clang-format off
    {"storing host groups",     storeEntries<&IPsecConfig::hostGroups>},
    {"storing protocol groups", storeEntries<&IPsecConfig::protocolGroups>},
    {"storing actions",         storeEntries<&IPsecConfig::actions>},
    {"storing policies",        storeEntries<&IPsecConfig::policies>},
    {"storing a host group of many selectors",
     [](std::size_t size) { return store(groupOf<HostGroup>(size / 100), size); }},
    {"storing a protocol group of many selectors",
     [](std::size_t size) { return store(groupOf<ProtocolGroup>(size / 100), size); }},
    {"storing an action of many proposals",
     [](std::size_t size) { return store(actionOf(size / 100), size); }},
    {"storing one text",
     [](std::size_t size) { return store(HostGroup(std::string(size, 'x'), 0, "", 0), size); }},
    {"adding entries",                     add},
    {"removing entries from the front",    remove<forwards>},
    {"removing entries from the back",     remove<backwards>},
    {"removing entries in no order",       remove<scattered>},
    {"replacing entries from the front",   replace<forwards>},
    {"replacing entries in no order",      replace<scattered>},
    {"iterating",                          iterate},
    {"copying a configuration",            copy},
    {"assigning a configuration",          assign},
    {"assigning a configuration by moving", assignByMoving},
    {"assigning a host group of many selectors",
     [](std::size_t size) { return assignElement(groupOf<HostGroup>(size / 100)); }},
    {"assigning a protocol group of many selectors",
     [](std::size_t size) { return assignElement(groupOf<ProtocolGroup>(size / 100)); }},
    {"assigning an action of many proposals",
     [](std::size_t size) { return assignElement(actionOf(size / 100)); }},
    {"inserting host selectors in their order",       insert<HostGroup, forwards>},
    {"inserting host selectors in reverse order",     insert<HostGroup, backwards>},
    {"inserting host selectors in no order",          insert<HostGroup, scattered>},
    {"inserting protocol selectors in their order",   insert<ProtocolGroup, forwards>},
    {"inserting protocol selectors in reverse order", insert<ProtocolGroup, backwards>},
    {"inserting protocol selectors in no order",      insert<ProtocolGroup, scattered>},
    // clang-format on
};

} // namespace

const std::vector<GrowthOperation>& growthOperations()
{
    return operations;
}

} // namespace ipsecimpl
