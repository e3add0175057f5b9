#include "faults/objects.h"
#include "faults/operations.h"
#include "support/xml.h"

#include <string>
#include <utility>

namespace ipsecimpl {
namespace {

const auto ike     = [] { return ikeAction(LONG); };
const auto manual  = [] { return manualAction(LONG); };
const auto builtIn = [] { return builtInAction(LONG); };

std::vector<Operation> valueOperations()
{
    using Pair           = Two<IPsecAction>;
    const auto ikeFirst  = [] { return Pair{ikeAction(LONG), manualAction(OTHER)}; };
    const auto ikeSecond = [] { return Pair{manualAction(LONG), ikeAction(OTHER)}; };

    const std::string text = written(ike());

    Operations action("IPsecAction::");
    action.cannotFail("IPsecAction()", nothing, [](Nothing&) { return IPsecAction(); })
        .fails("IPsecAction(const SPDAction& spdAction, const std::string& name, int builtinName, const std::string& "
               "descr,"
               " int builtinDescr, const IPsecKeyMgr& keyMgr)",
               nothing, [](Nothing&) { return builtInAction(LONG); })
        .fails("IPsecAction(const IPsecAction& other)", ike, [](auto& a) { return IPsecAction(a); })
        .cannotFail("IPsecAction(IPsecAction&& other)", ike, [](auto& a) { return IPsecAction(std::move(a)); })
        .fails(
            "operator=(const IPsecAction& other)", ikeFirst, [](Pair & a) -> auto& { return a.first = a.second; })
        .fails(
            "operator=(const IPsecAction& other)", ikeSecond, [](Pair & a) -> auto& { return a.first = a.second; })
        .cannotFail(
            "operator=(IPsecAction&& other)", ikeFirst, [](Pair & a) -> auto& { return a.first = std::move(a.second); })
        .reads<IPsecAction>("importXML(XMLParser& parser)", text)
        .reads<IPsecAction>("importXML(XMLParser& parser)", written(manual()))
        .reads<IPsecAction>("importXML(XMLParser& parser) [refused]", text.substr(0, text.rfind("</ikePhase2>")))
        .stores("exportXML(std::ostream& out) const", ike, [](const auto& a, std::ostream& out) { a.exportXML(out); })
        .stores("exportXML(std::ostream& out) const", manual,
                [](const auto& a, std::ostream& out) { a.exportXML(out); });
    return action.all();
}

std::vector<Operation> getters()
{
    Operations action("IPsecAction::");
    action
        .cannotFail(
            "spdActionGet() const", ike, [](auto& a) -> auto& { return a.spdActionGet(); })
        .cannotFail("changeCountGet() const", ike, [](auto& a) { return a.changeCountGet(); })
        .cannotFail(
            "nameGet() const", ike, [](auto& a) -> auto& { return a.nameGet(); })
        .cannotFail(
            "descrGet() const", ike, [](auto& a) -> auto& { return a.descrGet(); })
        .cannotFail("builtinNameGet() const", ike, [](auto& a) { return a.builtinNameGet(); })
        .cannotFail("builtinDescrGet() const", ike, [](auto& a) { return a.builtinDescrGet(); })
        .cannotFail("typeGet() const", ike, [](auto& a) { return a.typeGet(); })
        .cannotFail("typeSet(int type)", ike, [](auto& a) { return a.typeSet(7); })
        .cannotFail("stateGet() const", ike, [](auto& a) { return a.stateGet(); })
        .cannotFail("stateSet(int state)", ike, [](auto& a) { return a.stateSet(7); })
        .cannotFail("isBuiltIn() const", ike, [](auto& a) { return a.isBuiltIn(); })
        .cannotFail(
            "keyMgrGet() const", ike, [](auto& a) -> auto& { return a.keyMgrGet(); })
        .fails(
            "keyMgrGet() const [refused]", builtIn, [](auto& a) -> auto& { return a.keyMgrGet(); })
        .cannotFail(
            "tunnelEndpointGet() const", ike, [](auto& a) -> auto& { return a.tunnelEndpointGet(); })
        .fails(
            "tunnelEndpointGet() const [refused]", manual, [](auto& a) -> auto& { return a.tunnelEndpointGet(); })
        .cannotFail(
            "manualKeyGet() const", manual, [](auto& a) -> auto& { return a.manualKeyGet(); })
        .fails(
            "manualKeyGet() const [refused]", ike, [](auto& a) -> auto& { return a.manualKeyGet(); })
        .cannotFail(
            "ikePhase1Get() const", ike, [](auto& a) -> auto& { return a.ikePhase1Get(); })
        .fails(
            "ikePhase1Get() const [refused]", manual, [](auto& a) -> auto& { return a.ikePhase1Get(); })
        .cannotFail(
            "ikePhase2Get() const", ike, [](auto& a) -> auto& { return a.ikePhase2Get(); })
        .fails(
            "ikePhase2Get() const [refused]", manual, [](auto& a) -> auto& { return a.ikePhase2Get(); });
    return action.all();
}

/// Each allowed, and refused by a mode that forbids it.
std::vector<Operation> setters()
{
    Operations action("IPsecAction::");

    const auto spdAction = [](auto& a) -> auto&
    {
        return a.spdActionSet(SPD_BYPASS);
    };
    action.cannotFail("spdActionSet(const SPDAction& spdAction)", ike, spdAction)
        .fails("spdActionSet(const SPDAction& spdAction) [refused]", builtIn, spdAction);

    const auto keyMgr = [](auto& a) -> auto&
    {
        return a.keyMgrSet(KEYMGR_MKM);
    };
    action.cannotFail("keyMgrSet(const IPsecKeyMgr& keyMgr)", ike, keyMgr)
        .fails("keyMgrSet(const IPsecKeyMgr& keyMgr) [refused]", builtIn, keyMgr);

    const auto name = [](auto& a) -> auto&
    {
        return a.nameSet(OTHER);
    };
    action.fails("nameSet(const std::string& name)", ike, name)
        .fails("nameSet(const std::string& name) [refused]", builtIn, name);

    const auto descr = [](auto& a) -> auto&
    {
        return a.descrSet(OTHER);
    };
    action.fails("descrSet(const std::string& descr)", ike, descr)
        .fails("descrSet(const std::string& descr) [refused]", builtIn, descr);

    const auto tunnelEndpoint = [](auto& a) -> auto&
    {
        return a.tunnelEndpointSet(OTHER);
    };
    action.fails("tunnelEndpointSet(const std::string& tunnelEndpoint)", ike, tunnelEndpoint)
        .fails("tunnelEndpointSet(const std::string& tunnelEndpoint) [refused]", manual, tunnelEndpoint);

    const auto manualKeySet = [key = manualKey(OTHER)](auto& a) -> auto&
    {
        return a.manualKeySet(key);
    };
    action.fails("manualKeySet(const MKM& manualKey)", manual, manualKeySet)
        .fails("manualKeySet(const MKM& manualKey) [refused]", ike, manualKeySet);

    const auto ikePhase1 = [phase = sharedKey(OTHER)](auto& a) -> auto&
    {
        return a.ikePhase1Set(phase);
    };
    action.fails("ikePhase1Set(const IKEPhase1& ikePhase1)", ike, ikePhase1)
        .fails("ikePhase1Set(const IKEPhase1& ikePhase1) [refused]", manual, ikePhase1);

    const auto ikePhase2 = [phase = phase2()](auto& a) -> auto&
    {
        return a.ikePhase2Set(phase);
    };
    action.fails("ikePhase2Set(const IKEPhase2& ikePhase2)", ike, ikePhase2)
        .fails("ikePhase2Set(const IKEPhase2& ikePhase2) [refused]", manual, ikePhase2);
    return action.all();
}

/// The exception of refusals.
std::vector<Operation> refusalOperations()
{
    const auto two = [] { return Two<invalid_operation>{invalid_operation(LONG), invalid_operation(OTHER)}; };

    Operations refusal("invalid_operation::");
    refusal
        .fails("invalid_operation(const std::string& msg)", nothing, [](Nothing&) { return invalid_operation(LONG); })
        .cannotFail("invalid_operation(const invalid_operation&)", two,
                    [](auto& errors) { return invalid_operation(errors.first); })
        .cannotFail(
            "operator=(const invalid_operation&)", two,
            [](auto& errors) -> auto& { return errors.first = errors.second; });
    return refusal.all();
}

} // namespace

std::vector<Operation> actionOperations()
{
    return joined({valueOperations(), getters(), setters(), refusalOperations()});
}

} // namespace ipsecimpl
