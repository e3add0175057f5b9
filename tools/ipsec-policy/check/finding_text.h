#ifndef IPSEC_POLICY_FINDING_TEXT_H
#define IPSEC_POLICY_FINDING_TEXT_H

#include "check_report.h"
#include "excerpt.h"
#include "line_secrets.h"
#include "position.h"
#include "text.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// For whom findings are laid out.
struct FindingLayout {
    bool        showsKeys;
    std::size_t width; ///< in columns
    bool        isTerminal;
};

/// Lays out findings of a file for people.
class FindingText {
  public:
    /// The file must outlive the object.
    FindingText(const CheckedFile& file, const FindingLayout& layout);

    /// Appends what is to be read of a finding, which does not come before the one that was asked for last.
    void append(std::string& text, const Finding& finding);

  private:
    void appendHeading(std::string& text, const Finding& finding, const Position& position);
    bool fits(std::string_view level, std::string_view code) const;
    void appendExcerpt(std::string& text, const Finding& finding, std::size_t line);
    void appendMessage(std::string& text, const Finding& finding);
    void appendLines(std::string& text, const Finding& finding);

    /// A message as it is laid out.
    struct Paragraph {
        std::string message;
        std::string lines;
    };

    const CheckedFile&         file_;
    FindingLayout              layout_;
    std::string                fileName_;
    bool                       hidesWord_; ///< that the file does not load for
    PositionCounter            counter_;
    std::optional<LineSecrets> secrets_; ///< of a document that loads

    std::unordered_map<const Rule*, Paragraph> paragraphs_; ///< the last of each

    // Kept to use their memory again.
    std::string              place_;
    std::string              path_;
    Excerpt                  excerpt_;
    std::string              message_;
    std::vector<WrappedLine> lines_;
};

#endif
