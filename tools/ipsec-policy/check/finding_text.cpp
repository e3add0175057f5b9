#include "finding_text.h"

#include "hidden.h"
#include "load_finding.h"
#include "terminal.h"

#include <algorithm>

namespace {

const char        INDENT[]          = "    ";
const char        PATH_BELOW[]      = "\n    ";
const char        MARGIN[]          = " | ";
const std::size_t LINE_NUMBER_WIDTH = 6;

// Nobody reads more of a line, however wide the terminal is.
const std::size_t GREATEST_EXCERPT = 200;
const std::size_t LEAST_EXCERPT    = 10;

Colour colourOf(Level level)
{
    return level == Level::ERROR ? Colour::RED : level == Level::WARNING ? Colour::YELLOW : Colour::CYAN;
}

std::string aligned(std::size_t line)
{
    std::string number = std::to_string(line);
    number.insert(0, LINE_NUMBER_WIDTH - std::min(number.size(), LINE_NUMBER_WIDTH), ' ');
    return number;
}

} // namespace

FindingText::FindingText(const CheckedFile& file, const FindingLayout& layout)
    : file_(file)
    , layout_(layout)
    , fileName_(shownName(file))
    , hidesWord_(!layout.showsKeys && file.fault && file.fault->hasWrongWord)
    , counter_(file.text)
{
    if (file.source)
        secrets_.emplace(*file.source);
}

void FindingText::append(std::string& text, const Finding& finding)
{
    const Position position = counter_.at(finding.offset);
    appendHeading(text, finding, position);
    if (finding.isLocated)
        appendExcerpt(text, finding, position.line);
    appendMessage(text, finding);
}

void FindingText::appendHeading(std::string& text, const Finding& finding, const Position& position)
{
    place_ = fileName_;
    if (finding.isLocated)
        (((place_ += ':') += std::to_string(position.line)) += ':') += std::to_string(position.column);
    place_ += ':';
    appendColoured(text, place_, Colour::BOLD);

    const Rule&      rule  = *finding.rule;
    std::string_view level = wordOf(rule.level);
    text += ' ';
    appendColoured(text, level, colourOf(rule.level));
    (text += ": ") += rule.code;
    if (!finding.isAboutFile) {
        path_.clear();
        appendText(path_, finding.path);
        ((text += ':') += fits(level, rule.code) ? std::string_view(" ") : PATH_BELOW) += path_;
    }
    text += '\n';
}

/// Whether the heading, with the path, takes no more than a line of a terminal. Elsewhere lines are for programs.
bool FindingText::fits(std::string_view level, std::string_view code) const
{
    const std::size_t BETWEEN = 5; // blanks and colons
    return !layout_.isTerminal ||
           columnsOf(place_) + level.size() + code.size() + path_.size() + BETWEEN <= layout_.width;
}

void FindingText::appendExcerpt(std::string& text, const Finding& finding, std::size_t line)
{
    const std::string& document = file_.text;
    const Span         what     = {finding.offset, finding.length};
    const std::string  number   = aligned(line);
    const std::size_t  margin   = number.size() + sizeof MARGIN - 1;
    const std::size_t  width =
        std::clamp(layout_.width - std::min(layout_.width, margin), LEAST_EXCERPT, GREATEST_EXCERPT);
    const Span shown = excerptSpan(document, what, width);

    std::vector<Span>        hiddenHere;
    const std::vector<Span>* hidden = &hiddenHere;
    if (!layout_.showsKeys && secrets_)
        hidden = &secrets_->in(shown, what);
    else if (!layout_.showsKeys)
        hiddenHere = hiddenInBroken(document, shown);

    takeExcerpt(excerpt_, document, shown, what, *hidden, width);
    if (excerpt_.line.empty())
        return;
    (((text += number) += MARGIN) += excerpt_.line) += '\n';
    text.append(number.size(), ' ') += MARGIN;
    appendColoured(text, excerpt_.marks, colourOf(finding.rule->level));
    text += '\n';
}

/// Most rules have one message, and it always takes the same lines.
void FindingText::appendMessage(std::string& text, const Finding& finding)
{
    Paragraph& last = paragraphs_[finding.rule];
    if (!last.lines.empty() && last.message == finding.message) {
        text += last.lines;
        return;
    }
    const std::size_t begin = text.size();
    appendLines(text, finding);
    last.message = finding.message;
    last.lines.assign(text, begin);
}

void FindingText::appendLines(std::string& text, const Finding& finding)
{
    message_ = INDENT;
    message_ += finding.message;
    if (hidesWord_ && finding.rule == &DOES_NOT_LOAD)
        message_ += " --show-keys shows what is written there.";
    if (*finding.rule->reference != '\0')
        ((message_ += " (") += finding.rule->reference) += ')';
    lines_.clear();
    wrap(message_, layout_.width, 0, lines_);
    for (const WrappedLine& line : lines_)
        text.append(line.indent, ' ').append(line.text) += '\n';
    text += '\n';
}
