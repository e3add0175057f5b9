#include "check_report.h"
#include "excerpt.h"
#include "hidden.h"
#include "line_secrets.h"
#include "load_finding.h"
#include "position.h"
#include "terminal.h"
#include "text.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <unistd.h>

namespace {

const char        INDENT[]          = "    ";
const char        PATH_BELOW[]      = "\n    ";
const char        MARGIN[]          = " | ";
const std::size_t LINE_NUMBER_WIDTH = 6;

// So much is put together before it is written.
const std::size_t BLOCK = 64 * 1024;

// Nobody reads more of a line, however wide the terminal is.
const std::size_t GREATEST_EXCERPT = 200;
const std::size_t LEAST_EXCERPT    = 10;

Colour colourOf(Level level)
{
    return level == Level::ERROR ? Colour::RED : level == Level::WARNING ? Colour::YELLOW : Colour::CYAN;
}

std::string counted(std::size_t count, const char* what)
{
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

std::string aligned(std::size_t line)
{
    std::string number = std::to_string(line);
    number.insert(0, LINE_NUMBER_WIDTH - std::min(number.size(), LINE_NUMBER_WIDTH), ' ');
    return number;
}

class TextReport : public Report {
  public:
    TextReport(StandardOutput& out, bool showKeys)
        : out_(out)
        , showsKeys_(showKeys)
        , width_(outputWidth())
        , isTerminal_(isatty(STDOUT_FILENO) == 1)
    {
    }

    void add(const CheckedFile& file) override;
    void addUnread(const std::string&, const std::string&) override {} // standard error has told
    void finish(const Totals& totals) override;

  private:
    void addHeading(const Finding& finding, const std::string& fileName, const Position& position);
    bool fits(std::string_view level, std::string_view code) const;
    void addExcerpt(const std::string& document, const Finding& finding, std::size_t line, LineSecrets* secrets);
    void addMessage(const Finding& finding);
    void addLines(const Finding& finding);
    void flush();

    /// A message as it is laid out.
    struct Paragraph {
        std::string message;
        std::string lines;
    };

    StandardOutput& out_;
    bool            showsKeys_;
    std::size_t     width_;
    bool            isTerminal_;
    bool            hidesWord_ = false; // that the file does not load for
    std::string     text_;              // of some findings

    std::unordered_map<const Rule*, Paragraph> paragraphs_; // the last of each

    // Kept to use their memory again.
    std::string              place_;
    std::string              path_;
    Excerpt                  excerpt_;
    std::string              message_;
    std::vector<WrappedLine> lines_;
};

void TextReport::add(const CheckedFile& file)
{
    const std::string          name = shownName(file);
    PositionCounter            counter(file.text);
    std::optional<LineSecrets> secrets;
    if (file.source)
        secrets.emplace(*file.source);
    hidesWord_ = !showsKeys_ && file.fault && file.fault->hasWrongWord;
    for (const Finding& finding : file.findings) {
        const Position position = counter.at(finding.offset);
        addHeading(finding, name, position);
        if (finding.isLocated)
            addExcerpt(file.text, finding, position.line, secrets ? &*secrets : nullptr);
        addMessage(finding);
        if (text_.size() >= BLOCK)
            flush();
    }
    flush();
}

void TextReport::flush()
{
    out_.write(text_);
    text_.clear();
}

void TextReport::addHeading(const Finding& finding, const std::string& fileName, const Position& position)
{
    place_ = fileName;
    if (finding.isLocated)
        (((place_ += ':') += std::to_string(position.line)) += ':') += std::to_string(position.column);
    place_ += ':';
    appendColoured(text_, place_, Colour::BOLD);

    const Rule&      rule  = *finding.rule;
    std::string_view level = wordOf(rule.level);
    text_ += ' ';
    appendColoured(text_, level, colourOf(rule.level));
    (text_ += ": ") += rule.code;
    if (!finding.isAboutFile) {
        path_.clear();
        appendText(path_, finding.path);
        ((text_ += ':') += fits(level, rule.code) ? std::string_view(" ") : PATH_BELOW) += path_;
    }
    text_ += '\n';
}

/// Whether the heading, with the path, takes no more than a line of a terminal. Elsewhere lines are for programs.
bool TextReport::fits(std::string_view level, std::string_view code) const
{
    const std::size_t BETWEEN = 5; // blanks and colons
    return !isTerminal_ || columnsOf(place_) + level.size() + code.size() + path_.size() + BETWEEN <= width_;
}

/// `secrets` are those of a document that loads; else it is null.
void TextReport::addExcerpt(const std::string& document, const Finding& finding, std::size_t line, LineSecrets* secrets)
{
    const Span        what   = {finding.offset, finding.length};
    const std::string number = aligned(line);
    const std::size_t margin = number.size() + sizeof MARGIN - 1;
    const std::size_t width  = std::clamp(width_ - std::min(width_, margin), LEAST_EXCERPT, GREATEST_EXCERPT);
    const Span        shown  = excerptSpan(document, what, width);

    std::vector<Span>        hiddenHere;
    const std::vector<Span>* hidden = &hiddenHere;
    if (!showsKeys_ && secrets != nullptr)
        hidden = &secrets->in(shown, what);
    else if (!showsKeys_)
        hiddenHere = hiddenInBroken(document, shown);

    takeExcerpt(excerpt_, document, shown, what, *hidden, width);
    if (excerpt_.line.empty())
        return;
    (((text_ += number) += MARGIN) += excerpt_.line) += '\n';
    text_.append(number.size(), ' ') += MARGIN;
    appendColoured(text_, excerpt_.marks, colourOf(finding.rule->level));
    text_ += '\n';
}

/// Most rules have one message, and it always takes the same lines.
void TextReport::addMessage(const Finding& finding)
{
    Paragraph& last = paragraphs_[finding.rule];
    if (!last.lines.empty() && last.message == finding.message) {
        text_ += last.lines;
        return;
    }
    const std::size_t begin = text_.size();
    addLines(finding);
    last.message = finding.message;
    last.lines.assign(text_, begin);
}

void TextReport::addLines(const Finding& finding)
{
    message_ = INDENT;
    message_ += finding.message;
    if (hidesWord_ && finding.rule == &DOES_NOT_LOAD)
        message_ += " --show-keys shows what is written there.";
    if (*finding.rule->reference != '\0')
        ((message_ += " (") += finding.rule->reference) += ')';
    lines_.clear();
    wrap(message_, width_, 0, lines_);
    for (const WrappedLine& line : lines_)
        text_.append(line.indent, ' ').append(line.text) += '\n';
    text_ += '\n';
}

void TextReport::finish(const Totals& totals)
{
    std::string found;
    for (const Level level : {Level::ERROR, Level::WARNING, Level::NOTE})
        if (const std::size_t count = countOf(totals, level); count > 0)
            found += (found.empty() ? "" : ", ") + counted(count, wordOf(level));
    std::string text = (found.empty() ? "nothing found" : found) + " in " + counted(totals.files, "file");
    if (totals.leftOut > 0)
        text += "; " + counted(totals.leftOut, "finding") + " of lower levels left out";
    if (totals.unread > 0)
        text += "; " + counted(totals.unread, "file") + " could not be read";
    out_.write(text + '\n');
}

} // namespace

std::unique_ptr<Report> makeTextReport(StandardOutput& out, bool showKeys)
{
    return std::make_unique<TextReport>(out, showKeys);
}
