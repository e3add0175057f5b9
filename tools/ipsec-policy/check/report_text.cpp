#include "check_report.h"
#include "finding_text.h"
#include "huge_pages.h"
#include "started.h"
#include "terminal.h"
#include "text.h"

#include <cstddef>
#include <string>

#include <unistd.h>

namespace {

// So much is put together before it is written.
const std::size_t BLOCK = std::size_t{64} * 1024;

// As much as most findings take.
const std::size_t USUAL_SIZE = 320;

// So many findings are laid out about as fast as a thread is started and ended.
const std::size_t WORTH_A_THREAD = 500;

class TextReport : public Report {
  public:
    TextReport(StandardOutput& out, bool showKeys)
        : out_(out)
        , layout_({showKeys, outputWidth(), isatty(STDOUT_FILENO) == 1})
    {
    }

    void add(const CheckedFile& file) override;
    void addUnread(const std::string&, const std::string&) override {} // standard error has told
    void finish(const Totals& totals) override;

  private:
    StandardOutput& out_;
    FindingLayout   layout_;
};

/// Lays out the findings from `first` to `last`, which is not one of them, and gives `take` their text in pieces.
template <class Take>
void layOut(const CheckedFile& file, const FindingLayout& layout, std::size_t first, std::size_t last, Take take)
{
    FindingText texts(file, layout);
    std::string text;
    for (std::size_t i = first; i < last; ++i) {
        texts.append(text, file.findings[i]);
        if (text.size() >= BLOCK) {
            take(text);
            text.clear();
        }
    }
    take(text);
}

void TextReport::add(const CheckedFile& file)
{
    const std::size_t count = file.findings.size();
    const std::size_t half  = count >= WORTH_A_THREAD ? count / 2 : count;

    Started second(
        [&] {
            std::string all;
            all.reserve((count - half) * USUAL_SIZE);
            useHugePages(all);
            layOut(file, layout_, half, count, [&all](const std::string& text) { all += text; });
            return all;
        },
        half < count);
    layOut(file, layout_, 0, half, [this](const std::string& text) { out_.write(text); });
    out_.write(second.get());
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
