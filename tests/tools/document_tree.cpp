#include "document_tree.h"

#include <sstream>

namespace {

bool endsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

bool isCollection(const Element& element)
{
    return !element.children.empty() && endsWith(element.children.back().name, "Entry");
}

void readChildren(std::istream& lines, Element& parent)
{
    for (std::string line; std::getline(lines, line) && line[1] != '/';) {
        const std::size_t end = line.find('>');
        Element           element{line.substr(1, end - 1), end + 1 != line.size(), "", {}};
        if (element.isLeaf)
            element.text = line.substr(end + 1, line.rfind("</") - end - 1);
        else
            readChildren(lines, element);
        parent.children.push_back(element);
    }
}

/// Writes elements with white space wherever it may stand.
class Renderer {
  public:
    explicit Renderer(bench::Random& random)
        : random_(random)
        , isIndented_(random.percent(50))
    {
    }

    void render(const Element& element, const std::string& parent, std::size_t depth)
    {
        text += between(depth);
        if (element.isLeaf) {
            renderLeaf(element, parent);
            return;
        }
        if (element.children.empty() && parent != "ipsec" && element.name == "selectors" && random_.percent(50)) {
            text += '<' + element.name + blank() + "/>";
            return;
        }
        text += '<' + element.name + blank() + '>';
        for (const Element& child : element.children)
            render(child, element.name, depth + 1);
        text += between(depth) + "</" + element.name + '>';
    }

    std::string text;

  private:
    std::string blank() { return random_.percent(3) ? random_.percent(50) ? " " : "\n\t" : ""; }

    std::string between(std::size_t depth)
    {
        if (isIndented_)
            return '\n' + std::string(2 * depth, ' ');
        return random_.percent(90) ? "\n" : random_.percent(50) ? "" : "\r\n  ";
    }

    void renderLeaf(const Element& element, const std::string& parent)
    {
        const bool mayHaveAttribute = parent != "protocolSelector" && element.name.compare(0, 4, "next") != 0;
        text += '<' + element.name;
        if (mayHaveAttribute && element.text.empty() && random_.percent(30)) {
            text += blank() + "/>";
        } else if (mayHaveAttribute && random_.percent(5)) {
            const std::string quote = element.text.find('"') == std::string::npos ? "\"" : "'";
            text += " value" + blank() + '=' + blank() + quote + element.text + quote + blank();
            text += random_.percent(50) ? "/>" : ">" + blank() + "</" + element.name + '>';
        } else {
            text += blank() + '>' + element.text + "</" + element.name + '>';
        }
    }

    bench::Random& random_;
    const bool     isIndented_;
};

void visitBelow(Element& element, const std::string& parents,
                const std::function<void(Element&, const std::string& parents)>& visit)
{
    for (Element& child : element.children) {
        visit(child, parents);
        visitBelow(child, parents + '/' + child.name, visit);
    }
}

} // namespace

Element treeOf(const std::string& written)
{
    std::istringstream lines(written);
    Element            document;
    readChildren(lines, document);
    return document.children.at(0);
}

void shuffle(Element& root, bench::Random& random)
{
    std::vector<Element>& children = root.children;
    if (isCollection(root) || root.name == "selectors" || root.name == "protocolSelector")
        for (std::size_t i = children.size(); i > 1; --i)
            std::swap(children[i - 1], children[random.below(static_cast<unsigned int>(i))]);
    for (Element& child : children)
        shuffle(child, random);
}

std::string rendered(const Element& root, bench::Random& random)
{
    Renderer renderer(random);
    renderer.render(root, "", 0);
    return renderer.text + '\n';
}

std::multiset<std::pair<std::string, std::string>> leavesOf(const Element& root)
{
    std::multiset<std::pair<std::string, std::string>> leaves;
    for (const Element& child : root.children)
        leaves.merge(leavesOf(child));
    const bool isNoPort = (root.name == "srcPort" || root.name == "dstPort") && root.text == "0";
    if (root.isLeaf && !isNoPort)
        leaves.emplace(root.name, root.text);
    return leaves;
}

void visitElements(Element& root, const std::function<void(Element&, const std::string& parents)>& visit)
{
    visitBelow(root, root.name, visit);
}
