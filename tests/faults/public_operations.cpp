#include "faults/public_operations.h"

#include <cstddef>
#include <regex>

namespace ipsecimpl {
namespace {

std::string withoutCommentsAndMarks(const std::string& text)
{
    static const std::regex removed(R"(//[^\n]*|#[^\n]*|\bIPSECIMPL_API\b)");
    static const std::regex spaces(R"(\s+)");
    return std::regex_replace(std::regex_replace(text, removed, ""), spaces, " ");
}

/// Reads a header declaration by declaration: each goes up to a `;`, or to the `{` of its body.
class Scanner {
  public:
    explicit Scanner(std::string text)
        : text_(std::move(text))
    {
    }

    std::vector<std::string> scan()
    {
        scanScope("", true);
        return std::move(found_);
    }

  private:
    /// Up to the end of a namespace, a class or the text.
    void scanScope(const std::string& className, bool isPublic)
    {
        static const std::regex access(R"(\s*(public|protected|private)\s*)");
        static const std::regex classHead(R"((?:^|.* )(class|struct) (\w+)[^()]*)");

        std::string declaration;
        for (; at_ < text_.size(); ++at_) {
            const char  c = text_[at_];
            std::smatch match;
            if (c == '}') {
                return;
            } else if (c == ';') {
                record(className, isPublic, declaration);
                declaration.clear();
            } else if (c == ':' && std::regex_match(declaration, match, access)) {
                isPublic = match[1] == "public";
                declaration.clear();
            } else if (c != '{') {
                declaration += c;
            } else {
                ++at_;
                if (declaration.find("namespace") != std::string::npos)
                    scanScope(className, isPublic);
                else if (std::regex_match(declaration, match, classHead))
                    scanScope(match[2], isPublic && match[1] == "struct");
                else {
                    record(className, isPublic, declaration);
                    skipBody();
                }
                declaration.clear();
            }
        }
    }

    void skipBody()
    {
        for (int depth = 1; at_ < text_.size(); ++at_) {
            depth += text_[at_] == '{' ? 1 : text_[at_] == '}' ? -1 : 0;
            if (depth == 0)
                return;
        }
    }

    /// A definition outside its class repeats what the class says.
    void record(const std::string& className, bool isPublic, const std::string& declaration)
    {
        static const std::regex function(R"((~?\b\w+|\boperator[^\w\s(]+)\(([^()]*)\)( const\b)?(.*))");

        std::smatch match;
        if (!isPublic || !std::regex_search(declaration, match, function))
            return;
        const std::string before = match.prefix(), after = match[4];
        const bool        isElsewhere = before.size() >= 2 && before.substr(before.size() - 2) == "::";
        if (isElsewhere || before.find(" using ") != std::string::npos || after.find("= delete") != std::string::npos)
            return;
        found_.push_back((className.empty() ? "" : className + "::") + match.str(1) + "(" + match.str(2) + ")" +
                         match.str(3));
    }

    std::string              text_;
    std::size_t              at_ = 0;
    std::vector<std::string> found_;
};

} // namespace
} // namespace ipsecimpl

std::vector<std::string> ipsecimpl::publicOperations(const std::string& text)
{
    return Scanner(withoutCommentsAndMarks(text)).scan();
}
