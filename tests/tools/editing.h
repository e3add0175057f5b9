#ifndef IPSECIMPL_TESTS_TOOLS_EDITING_H
#define IPSECIMPL_TESTS_TOOLS_EDITING_H

#include "program.h"

#include "support/xml.h"

#include <ipsecimpl/ipsecimpl.h>

#include <string>
#include <vector>

/// A document, given in any form, in the written one.
inline std::string writtenForm(const std::string& document)
{
    return ipsecimpl::rewritten<ipsecimpl::IPsecConfig>(document);
}

/// The collection of `document` that is called `tag`, in the written form.
inline std::string collectionIn(const std::string& document, const std::string& tag)
{
    const std::size_t begin = document.find("<" + tag + ">");
    const std::size_t end   = document.find("</" + tag + ">");
    return document.substr(begin, end - begin);
}

/// A file "p.xml" to edit.
class Editing : public InFolder {
  protected:
    /// In the written form.
    static void hold(const std::string& document) { writeFile("p.xml", writtenForm(document)); }

    static Outcome edit(const std::vector<std::string>& commands, const std::vector<std::string>& options = {})
    {
        std::vector<std::string> arguments = {"edit", "p.xml"};
        for (const std::string& command : commands)
            arguments.insert(arguments.end(), {"-e", command});
        arguments.insert(arguments.end(), options.begin(), options.end());
        return run(arguments);
    }

    /// The commands turn `before` into `after`, and print `report`; each of `remarks` is told of what they set.
    static void expectEdited(const std::string& before, const std::vector<std::string>& commands,
                             const std::string& after, const std::string& report = "",
                             const std::vector<std::string>& remarks = {})
    {
        std::string messages;
        for (const std::string& remark : remarks)
            messages += "ipsec-policy: -e:" + remark + "\n";
        hold(before);
        EXPECT_EQ(edit(commands), (Outcome{0, report, messages}));
        EXPECT_EQ(contentOf("p.xml"), writtenForm(after));
    }

    /// The last of the commands is refused, and the file stays as it is.
    static void expectRefused(const std::string& before, const std::vector<std::string>& commands,
                              const std::string& message)
    {
        hold(before);
        EXPECT_EQ(edit(commands), troubled("-e:" + std::to_string(commands.size()) + ": " + message));
        EXPECT_EQ(contentOf("p.xml"), writtenForm(before));
        EXPECT_EQ(fileNames(), std::vector<std::string>{"p.xml"});
    }
};

#endif
