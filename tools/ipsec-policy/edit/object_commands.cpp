#include "object_commands.h"

#include "builtins.h"
#include "edit_words.h"
#include "enum_text.h"

#include <algorithm>
#include <cstring>

using namespace ipsecimpl;

namespace {

struct Spelling {
    std::string operator()(std::string_view text) const { return quotedWord(text); }
    std::string operator()(const Word& word) const { return word.text; }
    std::string operator()(long long number) const { return std::to_string(number); }

    std::string operator()(const std::list<IKEPhase1Transform>* transforms) const
    {
        std::string list;
        for (const IKEPhase1Transform& transform : *transforms)
            list += (list.empty() ? "" : ",") + std::string(wordOf(transform));
        return list;
    }

    std::string operator()(const std::list<IPsecProposal>* proposals) const
    {
        std::string list;
        for (const IPsecProposal& proposal : *proposals)
            list += (list.empty() ? "" : ",") + std::string(wordOf(proposal.protocol)) + ':' +
                    std::to_string(proposal.encryption) + ':' + std::to_string(proposal.hash);
        return list;
    }

    /// None: each has a command of its own.
    template <class Selector>
    std::string operator()(const std::set<Selector>*) const
    {
        return "";
    }
};

bool isAt(const Field& field, std::initializer_list<const char*> paths)
{
    return std::any_of(paths.begin(), paths.end(),
                       [&](const char* path) { return std::strcmp(field.path, path) == 0; });
}

bool isAtTop(const Field& field)
{
    return std::strchr(field.path, '/') == nullptr;
}

std::string nameIn(const std::vector<Field>& fields)
{
    const auto name =
        std::find_if(fields.begin(), fields.end(), [](const Field& field) { return isAt(field, {"name"}); });
    return std::visit(Spelling(), name->value);
}

/// What a new object has unless told otherwise.
bool isAsNew(const Field& field)
{
    return isSame(field.value, std::string_view()) || isSame(field.value, 0LL);
}

/// The lines that begin with `start` and go on with a selector.
std::string eachSelector(const std::string& start, const std::vector<std::string>& selectors)
{
    std::string lines;
    for (const std::string& selector : selectors)
        lines += start + selector + '\n';
    return lines;
}

/// What is removed goes first: a selector that differs from another in its name alone cannot stand beside it.
std::string selectorChanges(const std::string& reference, const FieldDifference& selectors)
{
    return eachSelector("remove selector " + reference + ' ', selectorsOnlyIn(*selectors.before, selectors.after)) +
           eachSelector("add selector " + reference + ' ', selectorsOnlyIn(*selectors.after, selectors.before));
}

} // namespace

std::string referenceTo(Kind kind, unsigned int id)
{
    return wordsOf(kind).singular + (' ' + std::to_string(id));
}

std::string ObjectCommands::adding(Kind kind, unsigned int id, const std::vector<Field>& fields)
{
    if (const char* const word = wordOfBuiltIn(kind, fields); word != nullptr)
        return addingBuiltIn(kind, id, word, fields);
    return "add " + (wordsOf(kind).singular + (' ' + nameIn(fields))) + " id=" + std::to_string(id) +
           topAssignments(fields, {}) + '\n' + settingTheRest(referenceTo(kind, id), fields);
}

std::string ObjectCommands::addingBuiltIn(Kind kind, unsigned int id, const char* word,
                                          const std::vector<Field>& fields)
{
    std::string lines =
        "add built-in " + (wordsOf(kind).singular + (' ' + std::string(word))) + " id=" + std::to_string(id) + '\n';
    for (const Field& field : fields)
        if (isAt(field, {"type", "state"}) && !isAsNew(field))
            lines += "set " + referenceTo(kind, id) + assignment(field) + '\n';
    return lines;
}

std::string ObjectCommands::replacing(unsigned int id, const std::vector<Field>& fields)
{
    const std::string reference = referenceTo(Kind::ACTION, id);
    // These two stay unless they are given.
    return "replace " + reference + ' ' + nameIn(fields) + topAssignments(fields, {"type", "state"}) + '\n' +
           settingTheRest(reference, fields);
}

std::string ObjectCommands::changing(const ObjectDifference& object)
{
    const std::string reference = referenceTo(object.kind, object.id);
    std::string       lines;
    for (const FieldDifference& field : object.fields)
        if (field.before && holdsSelectors(*field.before))
            lines += selectorChanges(reference, field);
        else if (field.after)
            lines += "set " + reference + assignment({field.path, *field.after, field.isSecret}) + '\n';
    return lines;
}

/// With a blank before it.
std::string ObjectCommands::assignment(const Field& field)
{
    const bool isHidden = field.isSecret && !showKeys_ && !isAsNew(field);
    if (isHidden)
        ++asked_;
    return std::string(" ") + field.path + '=' + (isHidden ? "?" : std::visit(Spelling(), field.value));
}

/// What an object is made with, so far as it is not as in any new one, and `always`.
std::string ObjectCommands::topAssignments(const std::vector<Field>& fields, std::initializer_list<const char*> always)
{
    std::string result;
    for (const Field& field : fields)
        if (isAtTop(field) && !isAt(field, {"changeCount", "name"}) && !holdsSelectors(field.value) &&
            (!isAsNew(field) || isAt(field, always)))
            result += assignment(field);
    return result;
}

std::string ObjectCommands::settingTheRest(const std::string& reference, const std::vector<Field>& fields)
{
    std::string lines;
    for (const Field& field : fields)
        if (holdsSelectors(field.value))
            lines += eachSelector("add selector " + reference + ' ', selectorsOnlyIn(field.value, {}));
        else if (!isAtTop(field))
            lines += "set " + reference + assignment(field) + '\n';
    return lines;
}
