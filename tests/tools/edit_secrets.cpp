// Where keys come from, and that nothing tells them.

#include "editing.h"

#include "support/documents.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

using ipsecimpl::changed;
using testing::HasSubstr;
using testing::Not;

namespace {

const char KEY[] = "kEy-7Zq!";

std::string withKey(const std::string& key)
{
    return document("", "",
                    entry("action", 1,
                          action("a", "",
                                 "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>PSK"
                                 "</authType><presharedKey>" +
                                     key +
                                     "</presharedKey><proposal><dhGroup>G14</dhGroup><keyLifetime>1</keyLifetime>"
                                     "<keyLifetimeUnits>HRS</keyLifetimeUnits></proposal></ikePhase1><ikePhase2>"
                                     "<dhGroup>G14</dhGroup><keyLifetime>1</keyLifetime><keyLifetimeUnits>HRS"
                                     "</keyLifetimeUnits></ikePhase2>")));
}

std::string setTo(const std::string& key)
{
    return changed(withKey(key), "<changeCount>0", "<changeCount>1");
}

const std::string FIELD = "set action 1 ikePhase1/presharedKey=";

class EditSecrets : public Editing {
  protected:
    EditSecrets() { hold(withKey("old")); }

    static void expectKey(const std::string& key) { EXPECT_EQ(contentOf("p.xml"), writtenForm(setTo(key))); }
    static void expectOldKey() { EXPECT_EQ(contentOf("p.xml"), writtenForm(withKey("old"))); }
};

TEST_F(EditSecrets, ComeFromAFileWithoutItsLastLineEnd)
{
    const struct {
        std::string content;
        std::string key;
    } rows[] = {{"k", "k"}, {"k\n", "k"}, {"k\r\n", "k"}, {"a b", "a b"}};
    for (const auto& row : rows) {
        hold(withKey("old"));
        writeFile("my key", row.content);
        EXPECT_EQ(edit({FIELD + "@\"my key\""}), printed(""));
        expectKey(row.key);
    }
}

TEST_F(EditSecrets, ComeFromStandardInput)
{
    EXPECT_EQ(run({"edit", "p.xml", "-e", FIELD + "@-"}, "k\n"), printed(""));
    expectKey("k");
}

TEST_F(EditSecrets, ComeFromStandardInputOnceAndIfNothingElseDoes)
{
    const std::string taken = "standard input cannot be read for a key: it is the script, or was read before";
    EXPECT_EQ(run({"edit", "p.xml", "-"}, FIELD + "@-\n" + KEY), troubled("standard input:1: " + taken));
    EXPECT_EQ(run({"edit", "p.xml", "-e", FIELD + "@-", "-e", FIELD + "@-"}, KEY), troubled("-e:2: " + taken));
    expectOldKey();
}

TEST_F(EditSecrets, AreLiteralElse)
{
    for (const std::string value : {"k", "\"@x\"", "\"?\"", "\"\"", "?x", "\"\"?", "k@x", "k=l"}) {
        hold(withKey("old"));
        EXPECT_EQ(edit({FIELD + value}), printed("")) << value;
        std::string key;
        for (const char c : value)
            if (c != '"')
                key += c;
        expectKey(key);
    }
}

TEST_F(EditSecrets, AreRefusedWhereThereIsNone)
{
    const std::string named = "-e:1: the file for ikePhase1/presharedKey: ";
    const std::string without =
        " (a key itself stands there without '@', or in quotes if it begins with one: =\"@...\")";
    writeFile("empty", "");
    writeFile("line end", "\n");
    EXPECT_EQ(edit({FIELD + "@empty"}), troubled(named + "there is no key in it"));
    EXPECT_EQ(edit({FIELD + "@\"line end\""}), troubled(named + "there is no key in it"));
    EXPECT_EQ(run({"edit", "p.xml", "-e", FIELD + "@-"}, "\n"),
              troubled("-e:1: standard input: there is no key in it"));
    writeFile("lines", "a\nb\n");
    EXPECT_EQ(edit({FIELD + "@lines"}), troubled(named + "a key has one line, this has more"));
    writeFile("binary", std::string("a\0b", 3));
    EXPECT_EQ(edit({FIELD + "@binary"}), troubled(named + "a key is a text, this has NUL characters"));
    EXPECT_EQ(edit({FIELD + "@none"}), troubled(named + "No such file or directory" + without));
    for (const std::string nothing : {"@", "@\"\"", "@''"})
        EXPECT_EQ(edit({FIELD + nothing}),
                  troubled("-e:1: ikePhase1/presharedKey: a file's name is missing behind '@'"))
            << nothing;
    EXPECT_EQ(edit({FIELD + "@~/none"}),
              troubled(named + "No such file or directory ('~' is not replaced by the home folder: write that folder's "
                               "name)"));
    EXPECT_EQ(edit({FIELD + "@."}), troubled(named + "Is a directory"));
    EXPECT_EQ(run({"edit", "p.xml", "-e", FIELD + "@-"}, "", [] { close(STDIN_FILENO); }),
              troubled("-e:1: standard input: Bad file descriptor"));
    expectOldKey();
}

TEST_F(EditSecrets, AreToldApartByTheirFields)
{
    writeFile("key", "k");
    EXPECT_EQ(edit({"set action 1 keyMgr=MKM manualKey/saProposal/protocol=ESP manualKey/saProposal/encryption=2 "
                    "manualKey/inboundDecrKey=@key manualKey/outboundEncrKey=@none"}),
              troubled("-e:1: the file for manualKey/outboundEncrKey: No such file or directory (a key itself stands "
                       "there without '@', or in quotes if it begins with one: =\"@...\")"));
    expectOldKey();
}

TEST_F(EditSecrets, BeginWithAnAtSignAsTheHintSays)
{
    for (const std::string value : {"\"@kEy\"", "'@kEy'"}) {
        hold(withKey("old"));
        EXPECT_EQ(edit({FIELD + value}), printed("")) << value;
        expectKey("@kEy");
    }
}

TEST_F(EditSecrets, AreRefusedIfADocumentCannotHoldThem)
{
    writeFile("key", " x<y");
    EXPECT_EQ(edit({FIELD + "@key"}),
              troubled("-e:1: ikePhase1/presharedKey: a document cannot hold a text with '<' in it"));
    EXPECT_EQ(edit({FIELD + "\"x \""}),
              troubled("-e:1: ikePhase1/presharedKey: a document cannot hold a text with white space at an end"));
    expectOldKey();
}

TEST_F(EditSecrets, AreNotToldWhateverIsWrong)
{
    const std::string key = KEY;
    writeFile("key", key);
    const std::vector<std::string> commands = {
        FIELD + key + " x",
        FIELD + "my " + key,
        FIELD + "my " + key + "=x",
        FIELD + key + "<",
        FIELD + "\"" + key + " \"",
        FIELD + "\"" + key,
        FIELD + "\"" + key + "\\q\"",
        FIELD + " " + key,
        FIELD + key + " type=x",
        FIELD + key + " " + FIELD + key,
        FIELD + "@key type=x",
        FIELD + "@" + key,
        FIELD + "@/" + key,
        FIELD + "'" + key,
        FIELD + "'@" + key + " x",
        "set action 1 'ikePhase1/presharedKey=" + key + "'",
        "set action 'ikePhase1/presharedKey=" + key + "'",
        "set action \"presharedKey=" + key + "\" type=1",
        "add policy 0 0 'manualKey/inboundAuthKey=" + key + "'",
        "set action 1 ikePhase1/authType=" + key,
        "set action 1 ikePhase1/proposal/keyLifetime=" + key,
        "set action 1 ikePhase1/proposal/transform=IKE_AES_SHA," + key,
        "set action 1 ikePhase2/saProposal=" + key,
        "set action 1 ikePhase2/saProposal=" + key + ":1:1",
        "set action 1 keyMgr=MKM manualKey/inboundESPSPI=" + key,
        "set action 1 keyMgr=MKM manualKey/saProposal/encryption=" + key,
        "set action 1 ikePhase1/presharedkey=" + key,
        "set action 1 presharedKey=" + key,
        "set action ikePhase1/presharedKey=" + key,
        "set action 2 ikePhase1/presharedKey=" + key,
        "set action 1 ikePhase1/authType=RSA ikePhase1/presharedKey=" + key,
        "set action 1 keyMgr=MKM manualKey/inboundAuthKey=" + key,
        "set ikePhase1/presharedKey=" + key,
        "add action ikePhase1/presharedKey=" + key,
        "add action b ikePhase1/presharedKey=" + key,
        "replace action 1 ikePhase1/presharedKey=" + key,
        "remove action 1 " + key,
        "add policy 0 0 0 " + key,
        key,
        key + "=x",
    };
    for (const std::string& command : commands) {
        const Outcome outcome = edit({command});
        EXPECT_EQ(outcome.status, 2) << command;
        EXPECT_THAT(outcome.out + outcome.err, Not(HasSubstr(key.substr(0, 4)))) << command;
        EXPECT_THAT(outcome.out + outcome.err, Not(HasSubstr(key.substr(4)))) << command;
    }
    expectOldKey();
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"edit", "p.xml", FIELD + key}, {"edit", FIELD + key}, {FIELD + key}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments.front();
        EXPECT_THAT(outcome.err, Not(HasSubstr(key.substr(0, 4)))) << arguments.front();
    }
    EXPECT_THAT(run({"edit", "p.xml", "key"}).err, Not(HasSubstr(key.substr(0, 4)))) << "the key file as script";
    for (const std::vector<std::string>& options :
         std::vector<std::vector<std::string>>{{"--dry-run"}, {"--dry-run", "--json"}}) {
        const Outcome dryRun = edit({FIELD + key}, options);
        EXPECT_EQ(dryRun.status, 0);
        EXPECT_THAT(dryRun.out, HasSubstr("ikePhase1/presharedKey"));
        EXPECT_THAT(dryRun.out, Not(HasSubstr(key)));
    }
}

/// A terminal at which nobody sits but the test.
class Terminal {
  public:
    Terminal()
        : keyboard_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        if (keyboard_ < 0 || grantpt(keyboard_) != 0 || unlockpt(keyboard_) != 0)
            throw std::runtime_error("no terminal");
        name_   = ptsname(keyboard_);
        screen_ = open(name_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC); // or its settings would go with the program
    }

    Terminal(const Terminal&)            = delete;
    Terminal& operator=(const Terminal&) = delete;

    ~Terminal()
    {
        close(screen_);
        close(keyboard_);
    }

    /// To be called in a new process: it becomes the terminal's.
    void control() const
    {
        setsid();
        const int terminal = open(name_.c_str(), O_RDWR | O_CLOEXEC);
        if (terminal < 0 || ioctl(terminal, TIOCSCTTY, 0) != 0)
            _exit(126);
    }

    /// Waits until `text` stands on the screen, behind what was waited for before.
    void await(const std::string& text)
    {
        while (shown_.find(text, seen_) == std::string::npos && !ended_) {
            char          block[256];
            const ssize_t count = read(keyboard_, block, sizeof block);
            shown_.append(block, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
            if (const std::size_t end = shown_.find(END); end != std::string::npos || count <= 0) {
                shown_.erase(std::min(end, shown_.size()));
                ended_ = true;
            }
        }
        const std::size_t found = shown_.find(text, seen_);
        if (found == std::string::npos)
            ADD_FAILURE() << "the terminal did not show '" << text << "' but:\n" << shown_;
        else
            seen_ = found + text.size();
    }

    /// Nothing more is to be waited for.
    void end() const { EXPECT_EQ(write(screen_, END, sizeof END - 1), static_cast<ssize_t>(sizeof END - 1)); }

    void type(const std::string& text) const
    {
        EXPECT_EQ(write(keyboard_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }

    const std::string& shown() const { return shown_; }

    bool showsWhatIsTyped() const
    {
        termios settings = {};
        tcgetattr(screen_, &settings);
        return (settings.c_lflag & ECHO) != 0;
    }

  private:
    static constexpr char END[] = "(the program has ended)";

    int         keyboard_;
    int         screen_ = -1;
    std::string name_;
    std::string shown_;
    std::size_t seen_  = 0;
    bool        ended_ = false;
};

const char PROMPT[] = "ikePhase1/presharedKey of action 1 'a': ";
const char AGAIN[]  = "\r\nOnce more: ";

class EditPrompt : public EditSecrets {
  protected:
    /// Runs a command that asks for a key, while `sit` sits at the terminal.
    template <class Sit>
    Outcome editWith(const Sit& sit, const std::string& command = FIELD + "?")
    {
        std::thread   person([&] { sit(); });
        const Outcome outcome = run({"edit", "p.xml", "-e", command}, "", [this] { terminal_.control(); });
        terminal_.end();
        person.join();
        EXPECT_TRUE(terminal_.showsWhatIsTyped());
        return outcome;
    }

    Terminal terminal_;
};

TEST_F(EditPrompt, TakesWhatIsTypedTwiceAndDoesNotShowIt)
{
    EXPECT_EQ(editWith([&] {
                  terminal_.await(PROMPT);
                  EXPECT_FALSE(terminal_.showsWhatIsTyped());
                  terminal_.type(std::string(KEY) + "\n");
                  terminal_.await(AGAIN);
                  terminal_.type(std::string(KEY) + "\n");
                  terminal_.await("\r\n");
              }),
              printed(""));
    expectKey(KEY);
    EXPECT_EQ(terminal_.shown(), std::string(PROMPT) + AGAIN + "\r\n");
}

TEST_F(EditPrompt, RefusesWhatIsNotTheSameTwice)
{
    EXPECT_EQ(editWith([&] {
                  terminal_.await(PROMPT);
                  terminal_.type("a\n");
                  terminal_.await(AGAIN);
                  terminal_.type("b\n");
                  terminal_.await("\r\n");
              }),
              troubled("-e:1: what was typed is not the same twice"));
    expectOldKey();
}

TEST_F(EditPrompt, RefusesAnEndOfInput)
{
    EXPECT_EQ(editWith([&] {
                  terminal_.await(PROMPT);
                  terminal_.type("\x04");
                  terminal_.await("\r\n");
              }),
              troubled("-e:1: nothing was typed"));
    expectOldKey();
}

TEST_F(EditPrompt, EndsWithTheSignalOfTheKeyboardAndATerminalThatShowsWhatIsTyped)
{
    EXPECT_EQ(editWith([&] {
                  terminal_.await(PROMPT);
                  terminal_.type("half a k\x03");
                  terminal_.await("\r\n");
              }),
              (Outcome{-SIGINT, "", ""}));
    expectOldKey();
    EXPECT_EQ(fileNames(), std::vector<std::string>{"p.xml"});
}

TEST_F(EditPrompt, AsksAgainAfterTheProgramWasStopped)
{
    EXPECT_EQ(editWith([&] {
                  terminal_.await(PROMPT);
                  terminal_.type("half a k\x1a");
                  terminal_.await(PROMPT);
                  terminal_.type("k\n");
                  terminal_.await(AGAIN);
                  terminal_.type("k\n");
              }),
              printed(""));
    expectKey("k");
}

TEST_F(EditPrompt, MakesANamePrintable)
{
    const std::string command = "add action \"\\x1b[2J\" spdAction=TRANSPORT keyMgr=IKE ikePhase1/presharedKey=?";
    EXPECT_EQ(editWith(
                  [&] {
                      terminal_.await("ikePhase1/presharedKey of action '\\x1b[2J': ");
                      terminal_.type("k\n");
                      terminal_.await(AGAIN);
                      terminal_.type("k\n");
                      terminal_.await("\r\n");
                  },
                  command),
              (Outcome{0, "",
                       "ipsec-policy: -e:1: taken as it is: The text holds \\x1b, which cannot be seen. Write it "
                       "without. [hidden-character]\n"}));
}

TEST_F(EditPrompt, TakesNoEmptyAnswer)
{
    EXPECT_EQ(editWith([&] {
                  terminal_.await(": ");
                  terminal_.type("\n");
                  terminal_.await(AGAIN);
                  terminal_.type("\n");
              }),
              troubled("-e:1: nothing was typed (an empty key is given by = alone)"));
    expectOldKey();
}

TEST_F(EditPrompt, NeedsATerminal)
{
    EXPECT_EQ(run({"edit", "p.xml", "-e", FIELD + "?"}, "", [] { setsid(); }),
              troubled("-e:1: /dev/tty: No such device or address"));
    expectOldKey();
}

} // namespace
