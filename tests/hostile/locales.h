#ifndef IPSECIMPL_TESTS_HOSTILE_LOCALES_H
#define IPSECIMPL_TESTS_HOSTILE_LOCALES_H

/// \file
/// Locales that would read and write a document otherwise, if they were asked.

#include <algorithm>
#include <array>
#include <cstddef>
#include <locale>
#include <string>

namespace ipsecimpl {

/// Groups digits by threes, and has other words for truth.
class Thousands : public std::numpunct<char> {
  protected:
    char        do_thousands_sep() const override { return '.'; }
    char        do_decimal_point() const override { return ','; }
    std::string do_grouping() const override { return "\3"; }
    std::string do_truename() const override { return "wahr"; }
    std::string do_falsename() const override { return "falsch"; }
};

/// Takes 0x85 and 0xA0 for white space, 0xC0 and above for letters, and digits for neither digits nor letters.
class Latin1 : public std::ctype<char> {
  public:
    Latin1()
        : std::ctype<char>(table().data())
    {
    }

  private:
    static const std::array<mask, table_size>& table()
    {
        static const std::array<mask, table_size> all = [] {
            std::array<mask, table_size> classes{};
            std::copy_n(classic_table(), table_size, classes.begin());
            for (std::size_t c = '0'; c <= '9'; ++c)
                classes[c] = punct;
            for (std::size_t c = 0xC0; c <= 0xFF; ++c)
                classes[c] = alpha;
            classes[0x85] = classes[0xA0] = space;
            return classes;
        }();
        return all;
    }
};

inline std::locale latin1WithThousands()
{
    return std::locale(std::locale(std::locale::classic(), new Thousands), new Latin1);
}

} // namespace ipsecimpl

#endif
