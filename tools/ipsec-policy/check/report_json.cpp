#include "check_report.h"
#include "json_list.h"
#include "load_finding.h"
#include "load_json.h"
#include "position.h"

namespace {

class JsonReport : public Report {
  public:
    explicit JsonReport(StandardOutput& out)
        : out_(out)
        , findings_(out, 1)
    {
        out_.write("{\n  \"findings\": ");
    }

    void add(const CheckedFile& file) override;

    void addUnread(const std::string& fileName, const std::string& message) override
    {
        unread_.push_back({{"file", fileName}, {"message", message}});
    }

    void finish(const Totals& totals) override;

  private:
    StandardOutput& out_;
    JsonList        findings_;
    Json            unread_ = Json::array();
};

void JsonReport::add(const CheckedFile& file)
{
    PositionCounter counter(file.text);
    for (const Finding& finding : file.findings) {
        Json member = {{"file", file.name}};
        if (finding.isLocated) {
            const Position position = counter.at(finding.offset);
            member["line"]          = position.line;
            member["column"]        = position.column;
            member["endColumn"]     = position.column + charactersIn(textMeantBy(finding, file));
        }
        member["level"] = wordOf(finding.rule->level);
        member["code"]  = finding.rule->code;
        if (!finding.isAboutFile)
            member["path"] = textOf(finding.path);
        member["message"] = finding.message;
        if (finding.rule == &DOES_NOT_LOAD)
            addFault(member, *file.fault);
        if (*finding.rule->reference != '\0')
            member["reference"] = finding.rule->reference;
        findings_.add(member);
    }
}

void JsonReport::finish(const Totals& totals)
{
    findings_.finish();
    const auto write = [this](const char* name, const Json& value) {
        out_.write(std::string(",\n  \"") + name + "\": " + nestedText(value, 1));
    };
    write("errors", countOf(totals, Level::ERROR));
    write("warnings", countOf(totals, Level::WARNING));
    write("notes", countOf(totals, Level::NOTE));
    write("leftOut", totals.leftOut);
    write("files", totals.files);
    write("unread", unread_);
    out_.write("\n}\n");
}

} // namespace

std::unique_ptr<Report> makeJsonReport(StandardOutput& out)
{
    return std::make_unique<JsonReport>(out);
}
