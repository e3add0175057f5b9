// What show prints of a selector is a word of edit's language.

#include "editing.h"
#include "random_selectors.h"
#include "storable.h"

#include <cstdlib>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

using namespace ipsecimpl;

namespace {

bool isStorable(std::string_view text)
{
    return obstacleToStoring(text) == nullptr;
}

bool isStorable(const HostSelector& selector)
{
    return isStorable(selector.addr1) && isStorable(selector.addr2);
}

bool isStorable(const ProtocolSelector& selector)
{
    return !selector.name.empty() && isStorable(selector.name);
}

template <class Group, class Make>
Group randomGroup(std::mt19937& random, const Make& make)
{
    Group group;
    group.name = "g";
    while (group.selectors.size() < 300)
        if (const auto selector = make(random); isStorable(selector))
            group.selectors.insert(selector);
    return group;
}

std::string stored(const HostGroup& hosts, const ProtocolGroup& protocols)
{
    IPsecConfig config;
    config.hostGroups.add(hosts);
    config.protocolGroups.add(protocols);
    std::ostringstream out;
    config.exportXML(out);
    return out.str();
}

std::string shown(const std::string& document, const std::vector<std::string>& what)
{
    std::vector<std::string> arguments = {"show", "-"};
    arguments.insert(arguments.end(), what.begin(), what.end());
    return run(arguments, document, [] { setenv("COLUMNS", "10000", 1); }).out;
}

/// The texts below a heading of the only row of a table.
std::vector<std::string> cellOf(const std::string& table, const std::string& heading)
{
    std::vector<std::string> texts;
    std::istringstream       lines(table.substr(table.find("\nID ") + 1));
    std::string              line;
    std::getline(lines, line);
    const std::size_t column = line.find(heading);
    while (std::getline(lines, line))
        texts.push_back(line.substr(column));
    return texts;
}

/// The values of the fields that are selectors.
std::vector<std::string> selectorsIn(const std::string& object)
{
    std::vector<std::string> texts;
    std::istringstream       lines(object);
    for (std::string line; std::getline(lines, line);)
        if (line.rfind("selectors/", 0) == 0)
            texts.push_back(line.substr(line.find_first_not_of(' ', line.find(' '))));
    return texts;
}

class ShowSelectors : public Editing {
  protected:
    ShowSelectors()
    {
        std::mt19937 random(7);
        hosts_     = randomGroup<HostGroup>(random, randomHostSelector);
        protocols_ = randomGroup<ProtocolGroup>(random, randomProtocolSelector);
        document_  = stored(hosts_, protocols_);
    }

    /// The lines, as edit's selectors, make the same groups of empty ones.
    void expectPasted(const std::vector<std::string>& hosts, const std::vector<std::string>& protocols) const
    {
        EXPECT_EQ(hosts.size(), hosts_.selectors.size());
        EXPECT_EQ(protocols.size(), protocols_.selectors.size());
        std::string script;
        for (const std::string& text : hosts)
            script += "add selector host-group g " + text + '\n';
        for (const std::string& text : protocols)
            script += "add selector protocol-group g " + text + '\n';
        HostGroup     noHosts     = hosts_;
        ProtocolGroup noProtocols = protocols_;
        noHosts.selectors.clear();
        noProtocols.selectors.clear();
        writeFile("p.xml", stored(noHosts, noProtocols));
        const Outcome edited = run({"edit", "p.xml", "-"}, script); // which may remark on what makes little sense
        EXPECT_EQ(edited.status, 0) << edited;
        EXPECT_EQ(edited.out, "");
        EXPECT_EQ(contentOf("p.xml"), document_);
    }

    HostGroup     hosts_;
    ProtocolGroup protocols_;
    std::string   document_;
};

TEST_F(ShowSelectors, OfTheTablesCanBePastedIntoEdit)
{
    expectPasted(cellOf(shown(document_, {"host-groups"}), "HOSTS"),
                 cellOf(shown(document_, {"protocol-groups"}), "TRAFFIC"));
}

TEST_F(ShowSelectors, OfOneObjectCanBePastedIntoEdit)
{
    expectPasted(selectorsIn(shown(document_, {"host-groups", "g"})),
                 selectorsIn(shown(document_, {"protocol-groups", "g"})));
}

TEST_F(ShowSelectors, AreThoseOfDiffAndGraph)
{
    const std::string text =
        document(entry("hostGroup", 1,
                       group("hostGroup", "g", "",
                             "<hostSelector><family>AF_INET</family><selectorType>SINGLE</selectorType>"
                             "<addr1>\x1b\\\"</addr1></hostSelector>")));
    const std::string selector = R"(AF_INET SINGLE addr1="\x1b\\\"")";
    EXPECT_EQ(selectorsIn(shown(text, {"host-groups", "g"})), std::vector<std::string>{selector});
    EXPECT_EQ(cellOf(shown(text, {"host-groups"}), "HOSTS"), std::vector<std::string>{selector});

    writeFile("empty.xml", document());
    const std::string difference = run({"diff", "empty.xml", "-"}, text).out;
    EXPECT_NE(difference.find("  + selectors: " + selector + '\n'), std::string::npos) << difference;
    const std::string graph = run({"graph", "-"}, text).out;
    EXPECT_NE(graph.find(R"("1 g\nAF_INET SINGLE addr1=\"\\x1b\\\\\\\"\"")"), std::string::npos) << graph;
}

} // namespace
