#ifndef IPSECIMPL_FUZZ_PLAIN_PARSER_H
#define IPSECIMPL_FUZZ_PLAIN_PARSER_H

#include <ipsecimpl/xml.h>

#include <cstddef>
#include <stack>
#include <string>
#include <string_view>

namespace ipsecimpl {

/// What XMLParser promises, in the plainest way: on a text instead of a stream, byte by byte. The operations are those
/// of XMLParser, which the two are compared by.
class PlainParser {
  public:
    explicit PlainParser(std::string_view text)
        : text_(text)
    {
    }

    std::size_t position() const { return position_; }

    bool parse_name(std::string& name);
    bool parse_tag(std::string& name);
    bool parse_attr(std::string& name, std::string& value);
    bool parse_value(std::string& value);
    int  parse_tag_end();
    int  parse_body();
    bool parse_data(std::string& data);
    void parse_end_tag();
    int  parse_simple_tag(const std::string& name);

    std::string parse_tagged_value(const std::string& name);
    std::string parse_entity();
    std::string expand_entity(const std::string& entity);

    static bool isNameChar(int c);
    static void trim(std::string& s);

  private:
    static constexpr int end = -1;

    int  look(std::size_t ahead = 0) const; // a byte, or `end`
    int  next();
    void skipSpace();
    void openExpected(const std::string& operation, const std::string& name);

    std::string             innermost() const;
    [[noreturn]] void       fail(const std::string& message) const;
    static std::string      shown(int c) { return std::string(1, static_cast<char>(c)); }
    std::string_view        text_;
    std::size_t             position_ = 0;
    std::stack<std::string> tags_;
};

} // namespace ipsecimpl

#endif
