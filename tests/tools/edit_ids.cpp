// IDs that operators choose, which the library's collections alone do not allow.

#include "editing.h"

#include "support/documents.h"

#include <string>

using ipsecimpl::changed;

namespace {

std::string hostGroup(unsigned int id, const std::string& name)
{
    return entry("hostGroup", id, group("hostGroup", name, "", ""));
}

std::string nextHostGroup(unsigned int id)
{
    return "<nexthostGroup>" + std::to_string(id) + "</nexthostGroup>";
}

class EditIDs : public Editing {};

TEST_F(EditIDs, FillAGapAndLeaveTheNextOneAlone)
{
    expectEdited(document(nextHostGroup(9) + hostGroup(2, "b")), {"add host-group c id=3", "add host-group a id=1"},
                 document(nextHostGroup(9) + hostGroup(1, "a") + hostGroup(2, "b") + hostGroup(3, "c")));
}

TEST_F(EditIDs, BeyondTheNextOneRaiseIt)
{
    expectEdited(document(hostGroup(2, "b")), {"add host-group x id=100", "add host-group y"},
                 document(hostGroup(2, "b") + hostGroup(100, "x") + hostGroup(101, "y")));
}

TEST_F(EditIDs, GoFromTheFirstToTheLast)
{
    expectEdited(document(), {"add host-group a id=1", "add host-group z id=2147483647"},
                 document(hostGroup(1, "a") + hostGroup(2147483647, "z")));
}

TEST_F(EditIDs, CanBeChosenForAllKinds)
{
    expectEdited(
        document(),
        {"add host-group h id=7", "add built-in protocol-group all id=6", "add action a id=5 type=3",
         "add policy 7 6 5 id=4"},
        document(hostGroup(7, "h"), entry("protocolGroup", 6, ipsecimpl::written(ipsecimpl::ProtocolGroupAll())),
                 entry("action", 5, changed(action("a", "", "<spdAction>NONE</spdAction>"), "<type>0", "<type>3")),
                 entry("policy", 4, policy(7, 6, 5))));
}

TEST_F(EditIDs, MayBeThatOfARemovedObject)
{
    expectEdited(document(hostGroup(1, "a") + hostGroup(2, "b")), {"remove host-group 1", "add host-group c id=1"},
                 document(hostGroup(1, "c") + hostGroup(2, "b")));
}

TEST_F(EditIDs, AreNeverGivenTwice)
{
    expectRefused(document(hostGroup(2, "b\\")), {"add host-group x id=2"},
                  "ID 2 is in use: it is host group 2 'b\\\\'");
    expectRefused(document(), {"add policy 0 0 0 id=5", "add policy 0 0 0 id=5"}, "ID 5 is in use: it is policy 5");
}

TEST_F(EditIDs, RunOut)
{
    expectRefused(document(hostGroup(2147483647, "z")), {"add host-group x"}, "no ID left for hostGroup");
    expectEdited(document(hostGroup(2147483647, "z")), {"remove host-group z", "add host-group y"},
                 document(hostGroup(2147483647, "y")));
}

TEST_F(EditIDs, AreRefusedOutOfRange)
{
    for (const std::string id : {"0", "-1", "2147483648", "99999999999", "x", "", "01", "1 "})
        expectRefused(document(), {"add host-group x id=\"" + id + "\""}, "'" + id + "' is no ID (1 to 2147483647)");
}

TEST_F(EditIDs, TheNextOneCanBeSet)
{
    expectEdited(document(nextHostGroup(9) + hostGroup(2, "b")), {"set host-groups nextID=3"},
                 document(nextHostGroup(3) + hostGroup(2, "b")));
    expectEdited(document(),
                 {"set protocol-groups nextID=2147483647", "set actions nextID=8", "set policies nextID=9",
                  "set policies nextID=1"},
                 document("", "<nextprotocolGroup>2147483647</nextprotocolGroup>", "<nextaction>8</nextaction>", ""));
}

TEST_F(EditIDs, TheNextOneIsGreaterThanAllInUse)
{
    expectRefused(document(hostGroup(2, "b")), {"set host-groups nextID=2"},
                  "the next ID must be greater than the IDs in use, such as that of host group 2 'b'");
    expectRefused(document(hostGroup(2147483647, "z")), {"set host-groups nextID=2147483647"},
                  "the next ID must be greater than the IDs in use, such as that of host group 2147483647 'z'");
    expectRefused(document(), {"set actions nextID=2147483648"}, "the next ID can be 2147483647 at most");
    for (const std::string id : {"0", "-1", "2147483649", "x", ""})
        expectRefused(document(), {"set policies nextID=" + id}, "'" + id + "' is no next ID (1 to 2147483647)");
}

TEST_F(EditIDs, ThereIsNoneLeftBehindTheLast)
{
    hold(document(hostGroup(2147483647, "z")));
    EXPECT_EQ(edit({"set host-groups nextID=2147483648"}), printed("nothing changed\n"));
}

} // namespace
