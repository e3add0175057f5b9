#include "peer.h"
#include "tree_reader.h"

#include <pugixml.hpp>

#include <memory>
#include <stdexcept>

namespace {

class Node {
  public:
    explicit Node(pugi::xml_node node)
        : node_(node)
    {
    }

    explicit    operator bool() const { return static_cast<bool>(node_); }
    const char* name() const { return node_.name(); }
    const char* text() const { return node_.child_value(); }
    Node        firstChild() const { return Node(node_.first_child()); }
    Node        next() const { return Node(node_.next_sibling()); }

  private:
    pugi::xml_node node_;
};

void load(std::istream& in, pugi::xml_document& document)
{
    if (const pugi::xml_parse_result result = document.load(in); !result)
        throw std::runtime_error(result.description());
}

std::shared_ptr<void> parse(std::istream& in)
{
    auto document = std::make_shared<pugi::xml_document>();
    load(in, *document);
    return document;
}

ipsecimpl::IPsecConfig loadConfig(std::istream& in)
{
    pugi::xml_document document;
    load(in, document);
    return bench::TreeReader<Node>::config(Node(document.child("ipsec")));
}

const bench::Registration registration({"pugixml", parse, loadConfig});

} // namespace
