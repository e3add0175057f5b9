// The commands within the words of edit.

#include "completed.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

class CompleteEdit : public Complete {
  protected:
    /// What a command in single quotes could become.
    static std::vector<std::string> commandsFor(const std::string& typed)
    {
        return wordsFor({"edit", "policy.xml", "-e", '\'' + typed});
    }

    static Outcome edit(const std::string& command)
    {
        return runCopy({"edit", "policy.xml", "--dry-run", "-e", command});
    }
};

TEST_F(CompleteEdit, TheFirstWordsAreCommandsAndKinds)
{
    EXPECT_THAT(commandsFor(""), ElementsAre("add", "replace", "set", "remove"));
    EXPECT_THAT(commandsFor("re"), ElementsAre("replace", "remove"));
    EXPECT_THAT(commandsFor("add "), ElementsAre("add host-group", "add protocol-group", "add action", "add policy",
                                                 "add selector", "add built-in"));
    EXPECT_THAT(commandsFor("set a"), ElementsAre("set action", "set actions"));
    EXPECT_THAT(commandsFor("remove s"), ElementsAre("remove selector"));
    EXPECT_THAT(commandsFor("replace  p"), ElementsAre("replace  protocol-group", "replace  policy"));
    EXPECT_THAT(commandsFor("add built-in "),
                ElementsAre("add built-in host-group", "add built-in protocol-group", "add built-in action"));
    EXPECT_THAT(commandsFor("add built-in action "),
                ElementsAre("add built-in action discard", "add built-in action bypass"));
    EXPECT_THAT(commandsFor("remove selector p"), ElementsAre("remove selector protocol-group"));
}

TEST_F(CompleteEdit, ObjectsAreThoseOfTheFile)
{
    EXPECT_THAT(completed({"edit", "policy.xml", "-e", "'remove action "}),
                ElementsAre("remove action 3\tPass", "remove action Pass\tID 3"));
    EXPECT_THAT(commandsFor("set host-group 1"),
                ElementsAre("set host-group 1", "set host-group 12", "set host-group 13"));
    EXPECT_THAT(commandsFor("replace policy "), ElementsAre("replace policy 1", "replace policy 11"));
    EXPECT_THAT(commandsFor("add selector protocol-group W"), ElementsAre("add selector protocol-group Web"));
    EXPECT_THAT(commandsFor("add policy Web W"), ElementsAre("add policy Web Web"));
    EXPECT_THAT(commandsFor("replace policy 1 2 4 P"), ElementsAre("replace policy 1 2 4 Pass"));
    EXPECT_THAT(commandsFor("set policy 1 actionID=P"), ElementsAre("set policy 1 actionID=Pass"));
}

TEST_F(CompleteEdit, NamesGoOnAsTheyAreSpelt)
{
    EXPECT_THAT(commandsFor("set host-group H"), ElementsAre("set host-group H\"ead office\""));
    EXPECT_THAT(commandsFor("set host-group \"H"), ElementsAre("set host-group \"Head office\""));
    EXPECT_THAT(commandsFor("set host-group \"Head "), ElementsAre("set host-group \"Head office\""));
    EXPECT_THAT(commandsFor("set host-group \"plain"), ElementsAre("set host-group \"plain\""));
    EXPECT_THAT(wordsFor({"edit", "policy.xml", "-e", "\"set host-group 'H"}),
                ElementsAre("set host-group 'Head office'"));
    EXPECT_THAT(wordsFor({"edit", "policy.xml", "-e", "\"set host-group Bob's h"}), IsEmpty());
    EXPECT_THAT(wordsFor({"edit", "policy.xml", "-e", "set\\ host-group\\ H"}),
                ElementsAre("set\\ host-group\\ H\\\"ead\\ office\\\""));
    EXPECT_THAT(wordsFor({"edit", "policy.xml", "--command='set host-group pl"}),
                ElementsAre("--command=set host-group plain"));
}

TEST_F(CompleteEdit, FieldsAreThoseThatAreNotGivenYet)
{
    EXPECT_THAT(commandsFor("add host-group x "),
                ElementsAre("add host-group x builtinName=", "add host-group x descr=",
                            "add host-group x builtinDescr=", "add host-group x selectors=", "add host-group x id="));
    EXPECT_THAT(commandsFor("set protocol-group 4 name=x "),
                ElementsAre("set protocol-group 4 name=x builtinName=", "set protocol-group 4 name=x descr=",
                            "set protocol-group 4 name=x builtinDescr=", "set protocol-group 4 name=x selectors="));
    EXPECT_THAT(commandsFor("replace host-group 1 x d"), ElementsAre("replace host-group 1 x descr="));
    EXPECT_THAT(commandsFor("set policy 1 p"), ElementsAre("set policy 1 protocolGroupID="));
    EXPECT_THAT(commandsFor("add policy 1 4 3 "), ElementsAre("add policy 1 4 3 id="));
    EXPECT_THAT(commandsFor("add built-in action discard "), ElementsAre("add built-in action discard id="));
    EXPECT_THAT(commandsFor("set actions "), ElementsAre("set actions nextID="));
    EXPECT_THAT(commandsFor("remove action 3 "), ElementsAre("remove action 3 --cascade"));
}

TEST_F(CompleteEdit, WordsOfAFieldAreOffered)
{
    EXPECT_THAT(commandsFor("set action 3 spdAction=T"),
                ElementsAre("set action 3 spdAction=TRANSPORT", "set action 3 spdAction=TUNNEL"));
    EXPECT_THAT(commandsFor("add action x ikePhase2/dhGroup="),
                ElementsAre("add action x ikePhase2/dhGroup=NONE", "add action x ikePhase2/dhGroup=G1",
                            "add action x ikePhase2/dhGroup=G2", "add action x ikePhase2/dhGroup=G14"));
    EXPECT_THAT(commandsFor("add action x ikePhase1/presharedKey="), IsEmpty());
}

TEST_F(CompleteEdit, WhatIsOfferedIsUnderstood)
{
    const std::string action = "add action x spdAction=TUNNEL keyMgr=";
    for (const std::string& start : {action + "MKM ", action + "IKE "})
        for (const std::string& field : commandsFor(start)) {
            EXPECT_THAT(edit(field + '1').err, Not(testing::HasSubstr("names no field"))) << field;
            // The words that follow have no place in every action, but are words of their field.
            for (const std::string& value : commandsFor(field))
                EXPECT_THAT(edit(value).err, Not(testing::HasSubstr("' is no "))) << value;
        }
    for (const std::string start : {"set host-group ", "set action ", "set policy "})
        for (const std::string& object : commandsFor(start))
            EXPECT_EQ(edit(object + (start == "set policy " ? " actionID=3" : " descr=x")).status, 0) << object;
}

TEST_F(CompleteEdit, GoesOnFromWhatIsTyped)
{
    for (const std::string typed : {"", "a", "set action P", "  add policy 1 ", "set host-group \"", "# x\nset "})
        for (const std::string& command : commandsFor(typed))
            EXPECT_THAT(command, StartsWith(typed));
    EXPECT_THAT(commandsFor("# x\nset ac"), IsEmpty()) << "which cannot be typed in one line";
}

TEST_F(CompleteEdit, IsSilentWhereNobodyCouldTell)
{
    for (const std::string typed :
         {"x", "x ", "add host-group ", "add x ", "replace action 3 ", "remove policy 1 ", "add selector action ",
          "add built-in policy x y z=", "set action \"\\", "add selector host-group 1 ",
          "set policies nextID=", "set policy 1 x=", "remove actions "})
        EXPECT_THAT(commandsFor(typed), IsEmpty()) << typed;
    EXPECT_THAT(wordsFor({"edit", "none.xml", "-e", "'set action "}), IsEmpty());
    EXPECT_THAT(wordsFor({"edit", "-e", "'set action "}), IsEmpty());
}

} // namespace
