// Catches both of the library's exceptions by their types, across the library's boundary, and prints its version.

#include <ipsecimpl/ipsecimpl.h>

#include <iostream>
#include <sstream>

int main()
{
    using namespace ipsecimpl;
    try {
        std::istringstream in("<ipsec></ipsec>");
        XMLParser          parser(in);
        IPsecConfig::importXML(parser);
        return 1;
    } catch (const ParseError& error) {
        std::cout << error.what() << '\n';
    }
    try {
        ActionDiscard().nameSet("x");
        return 1;
    } catch (const invalid_operation& error) {
        std::cout << error.what() << '\n';
    }
    std::cout << VERSION << '\n';
    return std::cout.flush() ? 0 : 1;
}
