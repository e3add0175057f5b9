#include "show_json.h"

#include "field_visitor.h"
#include "json.h"
#include "references.h"

#include <string>
#include <string_view>
#include <utility>

using namespace ipsecimpl;

namespace {

/// Puts the fields into a JSON object.
class FieldObject : public FieldVisitor {
  public:
    FieldObject(const Names& names, bool showKeys)
        : names_(names)
        , showKeys_(showKeys)
    {
    }

    Json& object() { return object_; }

    void number(const char* tag, long long value) override { add(tag, value); }
    void text(const char* tag, const std::string& value) override { add(tag, value); }
    void word(const char* tag, const char* value) override { add(tag, value); }

    void secret(const char* tag, const std::string& value) override
    {
        const bool hidden = !showKeys_ && !value.empty();
        add(tag, hidden ? Json(nullptr) : Json(value));
        if (hidden)
            (*open_.back())["hidden"] = true;
    }

    void reference(const char* tag, Kind kind, unsigned int id) override
    {
        add(tag, id);
        std::string nameTag = tag;
        const auto  name    = names_.find(kind, id);
        nameTag.replace(nameTag.size() - 2, 2, "Name"); // in place of "ID"
        add(nameTag.c_str(), name ? Json(*name) : Json(nullptr));
    }

    void begin(const char* tag) override { open_.push_back(&add(tag, Json::object())); }
    void begin(const HostSelector& /*selector*/) override { begin(""); }
    void begin(const ProtocolSelector& /*selector*/) override { begin(""); }
    void end() override { open_.pop_back(); }
    void beginList(const char* tag) override { open_.push_back(&add(tag, Json::array())); }
    void endList() override { open_.pop_back(); }

  private:
    Json& add(const char* tag, Json value)
    {
        Json& in = *open_.back();
        if (!in.is_array())
            return in[tag] = std::move(value);
        in.push_back(std::move(value));
        return in.back();
    }

    const Names&       names_;
    const bool         showKeys_;
    Json               object_ = Json::object();
    std::vector<Json*> open_   = {&object_}; // what the next field goes into is the last
};

/// Makes JSON of objects. One at a time: all of them would take ten times the memory of the document.
class ObjectWriter {
  public:
    ObjectWriter(const IPsecConfig& config, bool showKeys)
        : names_(config)
        , users_(config.policies)
        , showKeys_(showKeys)
    {
    }

    template <class Object>
    std::string text(Kind kind, unsigned int id, const Object& object) const
    {
        FieldObject fields(names_, showKeys_);
        fields.object()["id"] = id;
        visitFields(object, fields);
        if (kind != Kind::POLICY)
            fields.object()["usedBy"] = users_.of(kind, id);
        return textOf(fields.object());
    }

  private:
    const Names names_;
    const Users users_;
    const bool  showKeys_;
};

/// Appends a text of lines, each indented, but for the final newline.
void appendIndented(Blocks& out, std::string_view text)
{
    const std::size_t INDENT = 4; // of what is in a list in an object
    for (std::size_t end = 0; !text.empty(); text.remove_prefix(end)) {
        end = text.find('\n') + 1;
        out.append(INDENT, text.substr(0, end == text.size() ? end - 1 : end));
    }
}

} // namespace

void appendJson(Blocks& out, const IPsecConfig& config, const std::vector<Kind>& kinds, bool showKeys)
{
    const ObjectWriter writer(config, showKeys);
    std::string        nextIDs;
    out.append("{\n");
    for (const Kind kind : kinds)
        withCollection(config, kind, [&](const auto& collection) {
            const std::string tag = wordsOf(kind).collection;
            out.append("  \"" + tag + "\": [");
            const char* before = "\n";
            for (const auto& [id, object] : collection) {
                out.append(std::exchange(before, ",\n"));
                appendIndented(out, writer.text(kind, id, object));
            }
            out.append(collection.empty() ? "],\n" : "\n  ],\n");
            nextIDs +=
                (nextIDs.empty() ? "\n    \"" : ",\n    \"") + tag + "\": " + std::to_string(collection.nextIDGet());
        });
    out.append("  \"nextID\": {" + nextIDs + "\n  }\n}\n");
}

void appendJson(Blocks& out, const IPsecConfig& config, Kind kind, unsigned int id, bool showKeys)
{
    withCollection(config, kind, [&](const auto& collection) {
        out.append(ObjectWriter(config, showKeys).text(kind, id, collection.at(id)));
    });
}
