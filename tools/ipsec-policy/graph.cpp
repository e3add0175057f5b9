#include "commands.h"
#include "describe.h"
#include "document.h"
#include "dot.h"
#include "files.h"
#include "lines.h"
#include "objects.h"
#include "options.h"
#include "references.h"
#include "selector_text.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <set>
#include <string>

using namespace ipsecimpl;

namespace {

struct Options {
    std::string file;
    std::size_t maxSize  = USUAL_MAX_SIZE;
    bool        usedOnly = false;
};

// How objects look: by kind, and where they are not as they should be.
const char GRAPH_LOOKS[] =
    "  graph [rankdir=LR, nodesep=0.15, ranksep=0.8]\n"
    "  node [shape=box, style=filled, fontname=\"sans-serif\", fontsize=10, margin=\"0.1,0.05\"]\n"
    "  edge [color=\"#555555\", arrowsize=0.6]\n";
const char* const KIND_LOOKS[]    = {"fillcolor=\"#dbe9f6\"", "fillcolor=\"#fff3cd\"", "fillcolor=\"#dff0d8\"",
                                     "shape=circle, fillcolor=\"#ffffff\""};
const char        UNUSED_LOOKS[]  = "color=grey, fontcolor=grey, fillcolor=\"#ffffff\"";
const char        MISSING_LOOKS[] = "color=red, fontcolor=red, fillcolor=\"#ffffff\", style=dashed";
const char        MISSING_EDGE[]  = " [color=red]\n";

/// As many selectors as a label can tell of and stay readable.
const std::size_t MOST_SELECTORS = 4;

template <class Group>
void describeLabel(const Group& group, Lines& lines)
{
    std::size_t left = group.selectors.size();
    for (const auto& selector : group.selectors) {
        if (group.selectors.size() - left == MOST_SELECTORS) {
            lines << "and " << static_cast<unsigned long>(left) << " more";
            lines.end();
            return;
        }
        lines << textOf(selector);
        lines.endPrintable();
        --left;
    }
}

void describeLabel(const IPsecAction& action, Lines& lines)
{
    describeMode(action, lines);
    lines.end();
}

/// Draws a configuration: each policy ties the nodes that it names.
class Graph {
  public:
    Graph(const IPsecConfig& config, bool usedOnly)
        : config_(config)
        , names_(config)
        , users_(config.policies)
        , usedOnly_(usedOnly)
    {
    }

    void draw();

    const Blocks& text() const { return out_; }

  private:
    template <class Collection>
    void addObjects(Kind kind, const Collection& collection);
    void addMissing();
    void addPolicy(unsigned int id, const Policy& policy);

    void addNode(Kind kind, unsigned int id, const std::string& label, const char* looks)
    {
        out_.append("  " + nodeName(kind, id) + " [label=" + label + ", " + looks + "]\n");
    }

    static std::string nodeName(Kind kind, unsigned int id)
    {
        return dotText(wordsOf(kind).collection + ('/' + std::to_string(id)));
    }

    const IPsecConfig& config_;
    const Names        names_;
    const Users        users_;
    const bool         usedOnly_;
    Blocks             out_;
};

void Graph::draw()
{
    out_.append("digraph \"IPsec policies\" {\n");
    out_.append(GRAPH_LOOKS);
    addObjects(Kind::HOST_GROUP, config_.hostGroups);
    addObjects(Kind::PROTOCOL_GROUP, config_.protocolGroups);
    addObjects(Kind::ACTION, config_.actions);
    addMissing();
    for (const auto& [id, policy] : config_.policies)
        addPolicy(id, policy);
    out_.append("}\n");
}

template <class Collection>
void Graph::addObjects(Kind kind, const Collection& collection)
{
    for (const auto& [id, object] : collection) {
        const bool used = users_.has(kind, id);
        if (!used && usedOnly_)
            continue;
        Lines label;
        label << id << ' ' << nameOf(object);
        label.end();
        describeLabel(object, label);
        addNode(kind, id, dotLabel(label), used ? KIND_LOOKS[static_cast<std::size_t>(kind)] : UNUSED_LOOKS);
    }
}

void Graph::addMissing()
{
    for (const Kind kind : REFERENCED_KINDS) {
        std::set<unsigned int> missing;
        for (const auto& [id, policy] : config_.policies)
            if (const unsigned int reference = referenceTo(kind, policy); !names_.find(kind, reference))
                missing.insert(reference);
        for (const unsigned int id : missing) {
            Lines label;
            label << "no " << std::string_view(wordsOf(kind).sentence) << ' ' << id;
            label.end();
            addNode(kind, id, dotLabel(label), MISSING_LOOKS);
        }
    }
}

void Graph::addPolicy(unsigned int id, const Policy& policy)
{
    addNode(Kind::POLICY, id, dotText(std::to_string(id)), KIND_LOOKS[static_cast<std::size_t>(Kind::POLICY)]);
    const std::string node = nodeName(Kind::POLICY, id);
    for (const Kind kind : REFERENCED_KINDS) {
        const unsigned int reference = referenceTo(kind, policy);
        const std::string  other     = nodeName(kind, reference);
        out_.append("  ");
        out_.append(kind == Kind::ACTION ? node : other);
        out_.append(" -> ");
        out_.append(kind == Kind::ACTION ? other : node);
        out_.append(names_.find(kind, reference) ? "\n" : MISSING_EDGE);
    }
}

ExitStatus graph(const Options& options)
{
    const IPsecConfig config = loadDocument(options.file, options.maxSize);
    Graph             graph(config, options.usedOnly);
    graph.draw();
    writeStandardOutput(graph.text());
    return ExitStatus::CLEAN;
}

std::function<ExitStatus()> declare(CLI::App& arguments)
{
    const auto options = std::make_shared<Options>();
    arguments.add_option("FILE", options->file, DOCUMENT_HELP)->required()->type_name("");
    addFlag(arguments, "--used-only", options->usedOnly, "Leave out what no policy names");
    addMaxSize(arguments, options->maxSize);
    return [options] { return graph(*options); };
}

} // namespace

const Command GRAPH_COMMAND = {
    "graph",
    "Draw which policies tie what, for Graphviz",
    "The result is a graph in the language of Graphviz, which is not needed before\n"
    "the graph is to be drawn. Each policy is a circle with its ID; arrows lead to it\n"
    "from its host group and its protocol group, and from it to its action. What a\n"
    "policy names but does not exist is red, what no policy names is grey. Labels\n"
    "hold four selectors at most ('show' tells them all), and no keys.",
    "ipsec-policy graph policy.xml | dot -Tsvg -o policy.svg\n"
    "ipsec-policy graph --used-only policy.xml | dot -Tpng -o policy.png",
    declare,
};
