#include "diff.h"

#include "diff_lines.h"
#include "enum_text.h"
#include "text.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <type_traits>

using namespace ipsecimpl;

namespace {

const std::size_t MANY_USERS = 6; // policies to name before the others are counted

std::string joined(const std::vector<std::string>& texts, const char* separator)
{
    if (texts.empty())
        return "(none)";
    std::string result = texts.front();
    std::for_each(texts.begin() + 1, texts.end(), [&](const std::string& text) { result += separator + text; });
    return result;
}

std::string inQuotes(std::string_view text)
{
    return "'" + printable(text) + "'";
}

/// A value in words. Selectors have lines of their own instead, unless there are none.
struct Wording {
    std::string operator()(std::string_view text) const { return inQuotes(text); }
    std::string operator()(const Word& word) const { return word.text; }
    std::string operator()(long long number) const { return std::to_string(number); }

    std::string operator()(const std::list<IKEPhase1Transform>* transforms) const
    {
        std::vector<std::string> words;
        for (const IKEPhase1Transform& transform : *transforms)
            words.emplace_back(wordOf(transform));
        return joined(words, ", ");
    }

    std::string operator()(const std::list<IPsecProposal>* proposals) const
    {
        std::vector<std::string> texts;
        for (const IPsecProposal& proposal : *proposals)
            texts.push_back(textOf(proposal));
        return joined(texts, "; ");
    }

    template <class Selector>
    std::string operator()(const std::set<Selector>*) const
    {
        return joined({}, "");
    }
};

/// The policies that refer to each object, whether it exists or not.
class Users {
  public:
    explicit Users(const Policies& policies)
    {
        for (const auto& [id, policy] : policies) {
            users_[{Kind::HOST_GROUP, policy.hostGroupID}].push_back(id);
            users_[{Kind::PROTOCOL_GROUP, policy.protocolGroupID}].push_back(id);
            users_[{Kind::ACTION, policy.actionID}].push_back(id);
        }
    }

    /// Such as "policies 3, 7"; empty if there is none.
    std::string of(Kind kind, unsigned int id) const
    {
        const auto entry = users_.find({kind, id});
        if (entry == users_.end())
            return "";
        const std::vector<unsigned int>& policies = entry->second;
        const std::size_t                named    = policies.size() > MANY_USERS + 1 ? MANY_USERS : policies.size();
        std::string                      text     = policies.size() == 1 ? "policy " : "policies ";
        for (std::size_t i = 0; i < named; ++i)
            text += (i == 0 ? "" : ", ") + std::to_string(policies[i]);
        return named == policies.size() ? text : text + " and " + std::to_string(policies.size() - named) + " more";
    }

  private:
    std::map<std::pair<Kind, unsigned int>, std::vector<unsigned int>> users_;
};

/// Whether the field tells nothing of an object that is there on one side alone: its name is in the heading, and most
/// numbers and descriptions are 0 and empty.
bool isObvious(const FieldDifference& field)
{
    const std::string_view numbersAndTexts[] = {"changeCount", "builtinName", "descr", "builtinDescr", "type", "state"};
    const FieldValue&      value             = field.before ? *field.before : *field.after;
    const std::string_view path              = field.path;
    return path == "name" ||
           (std::find(std::begin(numbersAndTexts), std::end(numbersAndTexts), path) != std::end(numbersAndTexts) &&
            (isSame(value, 0LL) || isSame(value, std::string_view())));
}

class Report {
  public:
    explicit Report(const Difference& difference)
        : difference_(difference)
        , before_(difference.before)
        , after_(difference.after)
        , users_(after_.policies)
    {
    }

    std::string text()
    {
        for (const Kind kind : ALL_KINDS) {
            const CollectionDifference& collection = difference_.collections[static_cast<std::size_t>(kind)];
            for (const ObjectDifference& object : collection.objects)
                add(object);
            if (collection.nextID)
                lines_.addHeading(Change::CHANGED, wordsOf(kind).collection +
                                                       ("/nextID: " + std::to_string(collection.nextID->first)) +
                                                       DiffLines::ARROW + std::to_string(collection.nextID->second));
        }
        return lines_.take();
    }

  private:
    void add(const ObjectDifference& object)
    {
        lines_.addHeading(object.change, heading(object));
        if (object.kind == Kind::POLICY && object.change == Change::CHANGED)
            addPolicy(object);
        else
            for (const FieldDifference& field : object.fields)
                if (object.change == Change::CHANGED || !isObvious(field))
                    add(field);
    }

    std::string heading(const ObjectDifference& object) const
    {
        const bool        isGone = object.change == Change::REMOVED;
        const std::string name   = withCollection(isGone ? before_ : after_, object.kind, [&](const auto& collection) {
            if constexpr (std::is_same_v<std::decay_t<decltype(collection)>, Policies>)
                return std::string();
            else
                return ' ' + inQuotes(nameOf(collection.at(object.id)));
        });
        const std::string users  = users_.of(object.kind, object.id);
        const std::string note   = users.empty() ? "" : (isGone ? " (still in " : " (in ") + users + ')';
        return textOf(ObjectPath{object.kind, object.id, ""}) + name + note;
    }

    /// All three fields, as only these tell which policy it is.
    void addPolicy(const ObjectDifference& object)
    {
        for (const Field& field : fieldsOf(after_.policies.at(object.id))) {
            const auto isIt    = [&field](const FieldDifference& f) { return f.path == std::string_view(field.path); };
            const auto changed = std::find_if(object.fields.begin(), object.fields.end(), isIt);
            if (changed == object.fields.end())
                lines_.addContext(field.path, textOfValue(field.value, field, after_));
            else
                add(*changed);
        }
    }

    void add(const FieldDifference& field)
    {
        if (holdsSelectors(field.before ? *field.before : *field.after))
            addSelectors(field);
        else if (!field.before)
            lines_.addLone(Change::ADDED, field.path, textOfValue(*field.after, field, after_));
        else if (!field.after)
            lines_.addLone(Change::REMOVED, field.path, textOfValue(*field.before, field, before_));
        else
            addChanged(field);
    }

    void addChanged(const FieldDifference& field)
    {
        const std::string before = textOfValue(*field.before, field, before_);
        const std::string after  = textOfValue(*field.after, field, after_);
        if (before == HIDDEN && after == HIDDEN)
            lines_.addLone(Change::CHANGED, field.path, "changed (hidden)");
        else
            lines_.addChanged(field.path, before, after);
    }

    void addSelectors(const FieldDifference& field)
    {
        const auto addAll = [&](Change change, const std::optional<FieldValue>& these,
                                const std::optional<FieldValue>& others) {
            if (!these)
                return;
            const std::vector<std::string> selectors = selectorsOnlyIn(*these, others);
            for (const std::string& selector : selectors)
                lines_.addLone(change, field.path, selector);
            if (selectors.empty() && !others)
                lines_.addLone(change, field.path, std::visit(Wording(), *these));
        };
        addAll(Change::REMOVED, field.before, field.after);
        addAll(Change::ADDED, field.after, field.before);
    }

    template <class AnyField>
    std::string textOfValue(const FieldValue& value, const AnyField& field, const IPsecConfig& config) const
    {
        if (field.refersTo)
            return textOfReference(config, *field.refersTo, static_cast<unsigned int>(std::get<long long>(value)));
        if (field.isSecret && std::get<std::string_view>(value).empty())
            return "(empty)";
        if (field.isSecret && !difference_.showKeys)
            return HIDDEN;
        return std::visit(Wording(), value);
    }

    static constexpr char HIDDEN[] = "(hidden)";

    const Difference&  difference_;
    const IPsecConfig& before_;
    const IPsecConfig& after_;
    Users              users_;
    DiffLines          lines_;
};

} // namespace

std::string textOf(const Difference& difference)
{
    return difference.empty() ? "" : Report(difference).text();
}
