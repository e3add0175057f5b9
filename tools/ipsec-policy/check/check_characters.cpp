#include "checks.h"
#include "text.h"

using namespace ipsecimpl;

namespace {

const Rule HIDDEN = {"hidden-character", Level::WARNING, "A text holds a character that cannot be seen",
                     "Control characters, characters without width, and those that turn the direction\n"
                     "of writing make a text look like another, and terminals may obey them. Often\n"
                     "they came along with something that was copied; in a key they make it another\n"
                     "key. (Descriptions may have line ends and tabs.)\n"
                     "Write the text without them.",
                     ""};

const Rule NOT_UTF8 = {"not-utf-8", Level::NOTE, "A text is not UTF-8",
                       "The format says nothing of encodings: a text is the bytes that stand there. What\n"
                       "is not UTF-8 looks different on each system; this program shows such a byte as\n"
                       "\\x and two digits.\n"
                       "Write the text in UTF-8.",
                       ""};

/// What of a text is shown, and may stand in it.
enum class Nature { LINE, LINES, SECRET };

bool isLineSpace(std::string_view character)
{
    return character == "\n" || character == "\r" || character == "\t";
}

/// How the first character that cannot be seen is shown; empty if there is none.
std::string hiddenCharacterIn(std::string_view text, bool mayHaveLines)
{
    for (std::size_t size = 0; !text.empty(); text.remove_prefix(size)) {
        size                             = firstCharacterSize(text);
        const std::string_view character = text.substr(0, size);
        const bool             isLone    = size == 1 && static_cast<unsigned char>(character.front()) >= 0x80;
        if (isLone || character == "\\" || (mayHaveLines && isLineSpace(character)))
            continue;
        if (std::string shown = printable(character); shown != character)
            return shown;
    }
    return {};
}

/// The first byte that belongs to no character, as it is shown; empty if there is none.
std::string strayByteIn(std::string_view text)
{
    for (std::size_t size = 0; !text.empty(); text.remove_prefix(size)) {
        size = firstCharacterSize(text);
        if (size == 1 && static_cast<unsigned char>(text.front()) >= 0x80)
            return printable(text.substr(0, 1));
    }
    return {};
}

/// The texts of one object that people read or type. Manual keys and addresses are not among them: each character that
/// does not belong there is found anyhow.
class CharacterCheck {
  public:
    CharacterCheck(Kind kind, unsigned int id, Findings& findings)
        : kind_(kind)
        , id_(id)
        , findings_(findings)
    {
    }

    void check(const FieldPath& field, const std::string& text, Nature nature = Nature::LINE)
    {
        if (!isPlain(text)) // which most are
            checkForeign(field, text, nature);
    }

  private:
    void checkForeign(const FieldPath& field, std::string_view text, Nature nature)
    {
        const bool isSecret = nature == Nature::SECRET;
        if (const std::string hidden = hiddenCharacterIn(text, nature == Nature::LINES); !hidden.empty())
            report(findings_, HIDDEN, kind_, id_, field,
                   joined({"The text holds ", isSecret ? "a character" : hidden,
                           ", which cannot be seen. Write it without."}));
        if (const std::string stray = strayByteIn(text); !isSecret && !stray.empty())
            report(findings_, NOT_UTF8, kind_, id_, field,
                   joined({"The text holds the byte ", stray, ", which is not UTF-8. Write it in UTF-8."}));
    }

    Kind         kind_;
    unsigned int id_;
    Findings&    findings_;
};

} // namespace

Rules characterRules()
{
    return {&HIDDEN, &NOT_UTF8};
}

void checkCharacters(const Entry<HostGroup>& entry, Findings& findings)
{
    CharacterCheck characters(Kind::HOST_GROUP, entry.id, findings);
    characters.check({"name"}, entry.object->name);
    characters.check({"descr"}, entry.object->descr, Nature::LINES);
}

void checkCharacters(const Entry<ProtocolGroup>& entry, Findings& findings)
{
    CharacterCheck characters(Kind::PROTOCOL_GROUP, entry.id, findings);
    characters.check({"name"}, entry.object->name);
    characters.check({"descr"}, entry.object->descr, Nature::LINES);
    std::size_t number = 0;
    for (const ProtocolSelector& selector : entry.object->selectors)
        characters.check({"selectors", ++number, "name"}, selector.name);
}

void checkCharacters(const Entry<IPsecAction>& entry, Findings& findings)
{
    CharacterCheck characters(Kind::ACTION, entry.id, findings);
    characters.check({"name"}, entry.object->nameGet());
    characters.check({"descr"}, entry.object->descrGet(), Nature::LINES);
    const IKEPhase1* const phase1 = phase1Of(*entry.object);
    if (phase1 == nullptr)
        return;
    if (phase1->authTypeGet() == IKE_AUTH_PSK) {
        characters.check({"ikePhase1/presharedKey"}, phase1->presharedKeyGet(), Nature::SECRET);
    } else {
        characters.check({"ikePhase1/localCert"}, phase1->localCertGet());
        characters.check({"ikePhase1/peerTrust"}, phase1->peerTrustGet());
    }
}
