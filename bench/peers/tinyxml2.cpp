#include "peer.h"
#include "tree_reader.h"

#include <tinyxml2.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace {

class Node {
  public:
    explicit Node(const tinyxml2::XMLElement* element)
        : element_(element)
    {
    }

    explicit    operator bool() const { return element_ != nullptr; }
    const char* name() const { return element_->Name(); }
    const char* text() const { return element_->GetText() == nullptr ? "" : element_->GetText(); }
    Node        firstChild() const { return Node(element_->FirstChildElement()); }
    Node        next() const { return Node(element_->NextSiblingElement()); }

  private:
    const tinyxml2::XMLElement* element_;
};

void load(std::istream& in, tinyxml2::XMLDocument& document)
{
    const std::string text = bench::readAll(in);
    if (document.Parse(text.data(), text.size()) != tinyxml2::XML_SUCCESS)
        throw std::runtime_error(document.ErrorStr());
}

std::shared_ptr<void> parse(std::istream& in)
{
    auto document = std::make_shared<tinyxml2::XMLDocument>();
    load(in, *document);
    return document;
}

ipsecimpl::IPsecConfig loadConfig(std::istream& in)
{
    tinyxml2::XMLDocument document;
    load(in, document);
    if (document.RootElement() == nullptr)
        throw std::runtime_error("there is no root");
    return bench::TreeReader<Node>::config(Node(document.RootElement()));
}

const bench::Registration registration({"tinyxml2", parse, loadConfig});

} // namespace
