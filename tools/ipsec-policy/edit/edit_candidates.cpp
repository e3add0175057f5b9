#include "edit_candidates.h"

#include "builtins.h"
#include "edit_objects.h"
#include "edit_words.h"
#include "enum_text.h"
#include "references.h"
#include "typed_command.h"

#include <algorithm>
#include <optional>

using namespace ipsecimpl;

namespace {

/// What may follow in the last word, from its byte `from` on.
struct Choices {
    std::size_t            from = 0;
    std::vector<Candidate> words; ///< as they are spelt
    std::vector<Candidate> names; ///< which may need quotes
};

std::vector<Candidate> wordsOnly(const std::vector<std::string>& words)
{
    std::vector<Candidate> candidates;
    candidates.reserve(words.size());
    for (const std::string& word : words)
        candidates.push_back({word, ""});
    return candidates;
}

std::vector<std::string> kindWords(std::initializer_list<const char*> others)
{
    std::vector<std::string> words;
    words.reserve(ALL_KINDS.size() + others.size());
    for (const Kind kind : ALL_KINDS)
        words.emplace_back(wordsOf(kind).singular);
    words.insert(words.end(), others.begin(), others.end());
    return words;
}

std::optional<Kind> kindOf(std::string_view word, const char* KindWords::*form)
{
    const auto kind = std::find_if(ALL_KINDS.begin(), ALL_KINDS.end(),
                                   [&](Kind candidate) { return word == wordsOf(candidate).*form; });
    return kind == ALL_KINDS.end() ? std::nullopt : std::optional(*kind);
}

KnownFields knownFieldsOf(Kind kind, bool isNew)
{
    switch (kind) {
    case Kind::HOST_GROUP:
        return fieldsOf<HostGroup>(isNew);
    case Kind::PROTOCOL_GROUP:
        return fieldsOf<ProtocolGroup>(isNew);
    case Kind::ACTION:
        return fieldsOf<IPsecAction>(isNew);
    default:
        return fieldsOf<Policy>(isNew);
    }
}

/// The fields that hold a word, or a list of words, by the last of their tags.
const struct {
    std::string_view tag;
    std::vector<std::string> (*words)();
} ENUMERATIONS[] = {
    {"spdAction", wordsOf<SPDAction>},
    {"keyMgr", wordsOf<IPsecKeyMgr>},
    {"protocol", wordsOf<IPsecProtocol>},
    {"authType", wordsOf<IKEAuthType>},
    {"dhGroup", wordsOf<DHGroup>},
    {"keyLifetimeUnits", wordsOf<KeyLifetimeUnits>},
    {"transform", wordsOf<IKEPhase1Transform>},
};

std::vector<std::string> wordsOfField(std::string_view path)
{
    const std::string_view tag = path.substr(path.rfind('/') + 1); // all of the path if there is no slash
    for (const auto& enumeration : ENUMERATIONS)
        if (tag == enumeration.tag)
            return enumeration.words();
    return {};
}

/// Finds the choices for one command.
class Grammar {
  public:
    Grammar(const TypedCommand& typed, const std::string& fileName)
        : typed_(typed)
        , fileName_(fileName)
    {
    }

    Choices choices() const;

  private:
    std::size_t count() const { return typed_.before.size(); }
    std::string word(std::size_t i) const { return unquoted(typed_.before[i]); }

    Choices kinds() const;
    Choices ofSelector() const;
    Choices ofBuiltIn() const;
    Choices ofObject(Kind kind) const;
    Choices references(std::size_t i) const;
    Choices objects(Kind kind) const { return {0, {}, objectCandidates(fileName_, kind)}; }
    Choices fields(const KnownFields& known) const;
    Choices values(std::string_view path, std::size_t from) const;
    bool    isGiven(std::string_view path) const;

    const TypedCommand& typed_;
    const std::string&  fileName_;
};

Choices Grammar::choices() const
{
    if (count() < 2)
        return kinds();
    const std::string what = word(1);
    if (what == "selector")
        return ofSelector();
    if (what == "built-in")
        return ofBuiltIn();
    if (const auto kind = kindOf(what, &KindWords::singular))
        return ofObject(*kind);
    const bool isCollection = word(0) == "set" && kindOf(what, &KindWords::plural);
    return isCollection ? fields({{"nextID", false}}) : Choices();
}

/// The first word of a command, and the second.
Choices Grammar::kinds() const
{
    if (count() == 0)
        return {0, wordsOnly({"add", "replace", "set", "remove"}), {}};
    const std::string command = word(0);
    if (command == "add")
        return {0, wordsOnly(kindWords({"selector", "built-in"})), {}};
    if (command == "set")
        return {0, wordsOnly(kindWords({"host-groups", "protocol-groups", "actions", "policies"})), {}};
    if (command == "remove")
        return {0, wordsOnly(kindWords({"selector"})), {}};
    return command == "replace" ? Choices{0, wordsOnly(kindWords({})), {}} : Choices();
}

Choices Grammar::ofSelector() const
{
    if (count() == 2)
        return {0, wordsOnly({"host-group", "protocol-group"}), {}};
    const auto kind       = count() == 3 ? kindOf(word(2), &KindWords::singular) : std::nullopt;
    const bool hasMembers = kind == Kind::HOST_GROUP || kind == Kind::PROTOCOL_GROUP;
    return hasMembers ? objects(*kind) : Choices();
}

Choices Grammar::ofBuiltIn() const
{
    if (count() == 2)
        return {0, wordsOnly({"host-group", "protocol-group", "action"}), {}};
    const auto kind = kindOf(word(2), &KindWords::singular);
    if (count() == 3 && kind)
        return {0, wordsOnly(wordsOfBuiltIns(*kind)), {}};
    return fields({ID_FIELD});
}

Choices Grammar::ofObject(Kind kind) const
{
    const std::string command = word(0);
    const bool        isNew   = command == "add";
    if (!isNew && count() == 2)
        return objects(kind);
    if (command == "remove")
        return {0, kind == Kind::POLICY ? std::vector<Candidate>() : wordsOnly({"--cascade"}), {}};

    const std::size_t done  = count() - (isNew ? 2 : 3); // of what follows the object
    KnownFields       known = knownFieldsOf(kind, command != "set");
    if (isNew)
        known.push_back(ID_FIELD);
    if (command == "set")
        return fields(known);
    if (kind == Kind::POLICY && done < std::size(REFERENCED_KINDS))
        return references(done);
    return kind != Kind::POLICY && done == 0 ? Choices() : fields(known); // a new name is nobody's to guess
}

Choices Grammar::references(std::size_t i) const
{
    return objects(REFERENCED_KINDS[i]);
}

Choices Grammar::fields(const KnownFields& known) const
{
    if (const std::size_t equals = typed_.last.find('='); equals != std::string_view::npos)
        return values(typed_.last.substr(0, equals), equals + 1);
    Choices choices;
    for (const KnownField& field : known)
        if (!isGiven(field.path))
            choices.words.push_back({std::string(field.path) + '=', ""});
    return choices;
}

Choices Grammar::values(std::string_view path, std::size_t from) const
{
    const std::string_view references[] = {"hostGroupID", "protocolGroupID", "actionID"};
    for (std::size_t i = 0; i < std::size(references); ++i)
        if (path == references[i])
            return {from, {}, objectCandidates(fileName_, REFERENCED_KINDS[i])};
    return {from, wordsOnly(wordsOfField(path)), {}};
}

bool Grammar::isGiven(std::string_view path) const
{
    return std::any_of(typed_.before.begin(), typed_.before.end(), [path](std::string_view word) {
        const auto assignment = assignmentIn(word);
        return assignment && assignment->name == path;
    });
}

} // namespace

std::vector<Candidate> editCandidates(std::string_view typed, const std::string& fileName)
try {
    const std::size_t  line    = typed.rfind('\n') + 1; // 0 if there is none
    const TypedCommand command = readTypedCommand(typed.substr(line));
    const Choices      choices = Grammar(command, fileName).choices();

    const std::string_view last = command.last.substr(std::min(choices.from, command.last.size()));
    const std::string      start(typed.substr(0, typed.size() - last.size()));
    std::vector<Candidate> candidates;
    for (const Candidate& word : choices.words)
        if (word.text.compare(0, last.size(), last) == 0)
            candidates.push_back({start + word.text, word.description});
    for (const Candidate& name : choices.names)
        if (const auto whole = continuedWord(last, name.text))
            candidates.push_back({start + *whole, name.description});
    return candidates;
} catch (const Failure&) {
    return {}; // what is typed is no beginning of a command
}
