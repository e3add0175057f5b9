// Says where and why a document does not load:
//
//     report_error CONFIG
//
// The parser takes its characters from the stream's buffer, one after the other, and looks no further than it must. So a
// buffer that counts them knows the place of an error. Exit status: 0 if it loads, 1 if not, 2 for wrong usage or a file
// that cannot be read.

#include <ipsecimpl/ipsecimpl.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>

using namespace ipsecimpl;

namespace {

// Hands out the characters of another buffer and counts lines and columns. It has no get area: then every character is
// asked for, and one can be put back, which is all that the parser needs.
class CountingBuffer : public std::streambuf {
  public:
    explicit CountingBuffer(std::streambuf& source)
        : source_(source)
    {
    }

    int line() const { return line_; }
    int column() const { return column_; }

  protected:
    int_type underflow() override { return source_.sgetc(); }

    int_type uflow() override
    {
        const int_type c = source_.sbumpc();
        before_          = column_;
        if (c == '\n') {
            ++line_;
            column_ = 0;
        } else if (c != traits_type::eof()) {
            ++column_;
        }
        return c;
    }

    int_type pbackfail(int_type c) override
    {
        const int_type back = c == traits_type::eof() ? source_.sungetc() : source_.sputbackc(static_cast<char>(c));
        if (back == '\n')
            --line_;
        column_ = before_;
        return back;
    }

  private:
    std::streambuf& source_;
    int             line_   = 1;
    int             column_ = 0; // of the last character that was handed out
    int             before_ = 0; // of the one before it
};

// Texts of the document are quoted as they are, the end of the input as the byte 0xFF: nothing that a terminal would obey.
std::string printable(const std::string& text)
{
    const char* const digits = "0123456789abcdef";
    std::string       result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n' || (byte >= ' ' && byte <= '~'))
            result += c;
        else
            result += {'\\', 'x', digits[byte / 16], digits[byte % 16]};
    }
    return result;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::cerr << "usage: report_error CONFIG\n";
        return 2;
    }
    std::filebuf file;
    if (file.open(argv[1], std::ios::in) == nullptr) {
        std::cerr << argv[1] << ": " << std::strerror(errno) << '\n';
        return 2;
    }

    CountingBuffer counting(file);
    std::istream   in(&counting);
    try {
        XMLParser parser(in);
        IPsecConfig::importXML(parser);
        std::cout << argv[1] << ": loads\n";
        return 0;
    } catch (const ParseError& error) {
        // To the parser a read error is the end of the document; the stream knows better.
        if (in.bad()) {
            std::cerr << argv[1] << ": cannot be read\n";
            return 2;
        }
        // The text says what is wrong, and in which elements, the innermost first. It quotes the document, keys in
        // wrong places too: this program is for those who may see them.
        std::cerr << argv[1] << ':' << counting.line() << ':' << counting.column() << ": " << printable(error.what())
                  << '\n';
        return 1;
    }
}
