#include "object_view.h"

#include "describe.h"
#include "field_visitor.h"
#include "overview.h"
#include "references.h"
#include "selector_text.h"
#include "table.h"
#include "terminal.h"

#include <type_traits>
#include <vector>

using namespace ipsecimpl;

namespace {

const std::size_t INDENT = 2; // of an element's fields

/// Puts the fields into a table of tags and values.
class FieldTable : public FieldVisitor {
  public:
    FieldTable(const IPsecConfig& config, bool showKeys)
        : names_(config)
        , showKeys_(showKeys)
        , table_({{"FIELD", Table::Kind::TEXT}, {"VALUE", Table::Kind::PROSE}})
    {
    }

    const Table& table() const { return table_; }

    void number(const char* tag, long long value) override { add(tag, std::to_string(value)); }
    void text(const char* tag, const std::string& value) override { add(tag, value.empty() ? EMPTY : value); }
    void word(const char* tag, const char* value) override { add(tag, value); }

    void secret(const char* tag, const std::string& value) override
    {
        addTag(tag);
        describeKey(value, showKeys_, table_.lines());
        endValue();
    }

    void reference(const char* tag, Kind kind, unsigned int id) override
    {
        addTag(tag);
        describeReference(names_, kind, id, table_.lines());
        table_.endCell();
    }

    void begin(const char* tag) override
    {
        add(tag, "");
        open_.push_back({});
        ++depth_;
    }

    void begin(const HostSelector& selector) override { beginSelector(selector); }
    void begin(const ProtocolSelector& selector) override { beginSelector(selector); }

    void end() override
    {
        open_.pop_back();
        --depth_;
    }

    void beginList(const char* tag) override { open_.push_back({tag, 0}); }

    void endList() override
    {
        const Open list = open_.back();
        open_.pop_back();
        if (list.members == 0)
            add(list.tag, "(none)");
    }

  private:
    /// What the next field is in: a list if there is a tag, else an element.
    struct Open {
        const char*  tag     = nullptr;
        unsigned int members = 0;
    };

    void addTag(const char* tag)
    {
        table_.lines() << std::string(INDENT * depth_, ' ');
        Open& in = open_.back();
        if (in.tag == nullptr)
            table_.lines() << tag;
        else
            table_.lines() << in.tag << '/' << ++in.members;
        endValue();
    }

    void endValue()
    {
        table_.lines().end();
        table_.endCell();
    }

    void add(const char* tag, std::string_view value)
    {
        addTag(tag);
        table_.cell(value);
    }

    template <class Selector>
    void beginSelector(const Selector& selector)
    {
        addTag("");
        table_.lines() << textOf(selector);
        table_.lines().endPrintable();
        table_.endCell();
        open_.push_back({});
        ++depth_;
    }

    const Names       names_;
    const bool        showKeys_;
    Table             table_;
    std::vector<Open> open_  = {{}};
    std::size_t       depth_ = 0; // of elements
};

/// "Used by: policies 1, 7", or that nobody does.
void appendUsers(Blocks& out, const std::vector<unsigned int>& policies)
{
    std::string text = "Used by: ";
    text += policies.empty() ? "nobody" : policies.size() == 1 ? "policy " : "policies ";
    for (const unsigned int id : policies)
        text += (id == policies.front() ? "" : ", ") + std::to_string(id);
    appendWrapped(out, text, outputWidth());
}

} // namespace

void appendObject(Blocks& out, const IPsecConfig& config, Kind kind, unsigned int id, bool showKeys)
{
    FieldTable fields(config, showKeys);
    bool       builtIn = false;
    withCollection(config, kind, [&](const auto& collection) {
        const auto& object = collection.at(id);
        if constexpr (!std::is_same_v<std::decay_t<decltype(object)>, Policy>)
            builtIn = isBuiltIn(object);
        visitFields(object, fields);
    });

    const std::string title = sentenceStart(wordsOf(kind).sentence) + ' ' + std::to_string(id);
    appendWrapped(out, title + (builtIn ? std::string(" ") + BUILT_IN : ""), outputWidth());
    out.append("\n");
    fields.table().appendTo(out, outputWidth());
    if (kind != Kind::POLICY) {
        out.append("\n");
        appendUsers(out, Users(config.policies).of(kind, id));
    }
}
