// Edits of a loaded configuration, in any order, that are also made in a model of the rules: IDs, change counters, what
// is refused and why. After each step the two hold the same.
//
// The first byte is a number of bytes that choose the steps; the rest is the document. If it does not load, the second
// byte chooses one that does.

#include "action_edits.h"
#include "entry_edits.h"
#include "loading.h"
#include "model.h"
#include "some.h"
#include "texts.h"

#include <utility>

namespace ipsecimpl {
namespace {

IPsecConfig start(std::string_view document, unsigned int number)
{
    // clang-format off
    static constexpr std::string_view documents[] = {
        // nothing at all
        "<ipsec><hostGroups/><protocolGroups/><actions/><policies/></ipsec>\n",

        // a change counter that is nearly at its end
        "<ipsec><hostGroups/><protocolGroups/>"
        "<actions><actionEntry><id>1</id><action><changeCount>2147483646</changeCount><name/><builtinName/><descr/>"
        "<builtinDescr/><type/><state>7</state><spdAction>NONE</spdAction></action></actionEntry></actions>"
        "<policies/></ipsec>\n",

        // hardly an ID left
        "<ipsec><hostGroups><nexthostGroup>2147483647</nexthostGroup></hostGroups>"
        "<protocolGroups><nextprotocolGroup>2147483646</nextprotocolGroup></protocolGroups>"
        "<actions><nextaction>2147483646</nextaction></actions>"
        "<policies><policyEntry><id>2147483647</id>"
        "<policy><hostGroupID/><protocolGroupID/><actionID/></policy></policyEntry></policies></ipsec>\n"};
    // clang-format on

    Loaded first = loaded(document);
    if (!first.config)
        return reloaded(documents[number % 3]);
    if (hasMarkup(*first.config))
        removeMarkup(*first.config);
    trimTexts(*first.config);
    nameSelectors(*first.config);
    return *std::move(first.config);
}

class Edits {
  public:
    explicit Edits(IPsecConfig config)
        : config_(std::move(config))
        , expected_(model::loaded(config_))
    {
    }

    void take(Program& program)
    {
        switch (program.below(8)) {
        case 0: {
            HostGroup group = someHostGroup(program);
            editEntries(program, config_.hostGroups, expected_.hostGroups, group, model::entryOf(group));
            check(config_.hostGroups, expected_.hostGroups);
            break;
        }
        case 1: {
            ProtocolGroup group = someProtocolGroup(program);
            editEntries(program, config_.protocolGroups, expected_.protocolGroups, group, model::entryOf(group));
            check(config_.protocolGroups, expected_.protocolGroups);
            break;
        }
        case 2: {
            Policy policy = somePolicy(program);
            editEntries(program, config_.policies, expected_.policies, policy, model::entryOf(policy));
            check(config_.policies, expected_.policies);
            break;
        }
        case 3: {
            NewAction action(program);
            editEntries(program, config_.actions, expected_.actions, action.action, action.holds);
            check(config_.actions, expected_.actions);
            break;
        }
        case 4:
            takeWhole(program);
            break;
        default:
            takeAction(program);
        }
    }

    void check() { require("document", expected_.written(), stored(config_)); }

  private:
    void takeAction(Program& program)
    {
        const unsigned int id     = someID(program, expected_.actions);
        IPsecAction* const action = config_.actions.find(id);
        if (action == nullptr)
            return;
        model::Action& expected = expected_.actions.entries.at(id);
        editAction(program, *action, expected);
        require("action", expected.written(), stored(*action));
    }

    /// Something that concerns the whole configuration.
    void takeWhole(Program& program)
    {
        switch (program.below(3)) {
        case 0: {
            IPsecConfig copy(config_);
            config_ = copy;
            for (auto& [id, action] : expected_.actions.entries)
                action.type = action.state = 0;
            break;
        }
        case 1: {
            IPsecConfig moved(std::move(config_));
            require("what was moved from", model::Config().written(), stored(config_));
            config_ = std::move(moved);
            break;
        }
        default: {
            const std::string document = stored(config_);
            config_                    = reloaded(document);
            expected_                  = model::loaded(config_);
            require("document that was loaded", document, expected_.written());
        }
        }
        check();
    }

    template <class Entries, class Entry>
    static void check(const Entries& entries, const model::Collection<Entry>& expected)
    {
        require("collection", expected.written(), stored(entries));
        require("size", std::to_string(expected.entries.size()), std::to_string(entries.size()));
    }

    IPsecConfig   config_;
    model::Config expected_;
};

void run(Program program)
{
    Program            steps  = program.part(program.take());
    const unsigned int number = steps.take();
    Edits              edits(start(program.rest(), number));
    while (!steps.empty())
        edits.take(steps);
    edits.check();
}

} // namespace
} // namespace ipsecimpl

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ipsecimpl::run({data, size});
    return 0;
}
