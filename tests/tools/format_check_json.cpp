#include "json.h"
#include "program.h"

#include <string>

namespace {

class FormatCheckJson : public InFolder {
  protected:
    FormatCheckJson()
    {
        writeFile("in.xml", document());
        writeFile("written.xml", run({"format", "in.xml"}).out);
    }
};

TEST_F(FormatCheckJson, TellsOfEachFileWhetherItIsWritten)
{
    EXPECT_EQ(run({"format", "--check", "--json", "written.xml"}), printed(R"({
  "files": [
    {
      "file": "written.xml",
      "written": true
    }
  ],
  "unread": []
}
)"));
}

TEST_F(FormatCheckJson, TellsTheFirstDifferenceOrWhyThereIsNone)
{
    std::string changed = contentOf("written.xml");
    changed.insert(changed.find("<nextpolicy>"), "\xc3\xa4"); // does not load
    writeFile("bad.xml", changed);
    changed = contentOf("written.xml");
    changed.insert(changed.find("</nextpolicy>"), " ");
    writeFile("blank.xml", changed);
    EXPECT_EQ(run({"format", "--check", "--json", "in.xml", "blank.xml", "bad.xml", "none.xml", "written.xml"}),
              (Outcome{2,
                       R"({
  "files": [
    {
      "file": "in.xml",
      "written": false,
      "line": 1,
      "column": 8,
      "message": "in.xml:1: would change from this line on"
    },
    {
      "file": "blank.xml",
      "written": false,
      "line": 12,
      "column": 14,
      "message": "blank.xml:12: would change from this line on"
    },
    {
      "file": "bad.xml",
      "written": false,
      "message": "bad.xml:12:1: parse_tag: expected '<', found (not shown)\nOnly elements can stand here: remove this text.\nOpen elements: <ipsec> <policies>",
      "line": 12,
      "column": 1,
      "elements": [
        "ipsec",
        "policies"
      ]
    },
    {
      "file": "written.xml",
      "written": true
    }
  ],
  "unread": [
    {
      "file": "none.xml",
      "message": "none.xml: No such file or directory"
    }
  ]
}
)",
                       "ipsec-policy: none.xml: No such file or directory\n"}));
}

TEST_F(FormatCheckJson, TellsWhereTheFirstEntryIsWithAnIDThatIsThereTwice)
{
    const std::string one = entry("policy", 7, policy(1, 1, 1));
    writeFile("twice.xml", document("", "", "", "\n" + one + "\n" + one));
    const Json file = Json::parse(run({"format", "--check", "--json", "twice.xml"}).out)["files"][0];
    EXPECT_EQ(file["line"], 3);
    EXPECT_EQ(file["first"].dump(), R"({"line":2,"column":14})");
}

TEST_F(FormatCheckJson, HasTheExitStatusAndTheMessagesOfTheLines)
{
    for (const std::string& text : {document(), contentOf("written.xml"), std::string("x")}) {
        const Outcome lines  = run({"format", "--check", "-"}, text);
        const Outcome json   = run({"format", "--check", "--json", "-"}, text);
        const auto    result = nlohmann::json::parse(json.out);
        EXPECT_EQ(json.status, lines.status);
        EXPECT_EQ(json.err, "");
        EXPECT_EQ(result["unread"].size(), 0U);
        ASSERT_EQ(result["files"].size(), 1U);
        const auto& file = result["files"].front();
        EXPECT_EQ(file["file"], "-");
        EXPECT_EQ(file["written"], lines.status == 0);
        if (file["written"])
            continue;
        EXPECT_EQ(lines.out + lines.err,
                  (lines.err.empty() ? "" : "ipsec-policy: ") + file["message"].get<std::string>() + '\n');
    }
}

} // namespace
