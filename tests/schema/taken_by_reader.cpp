#include "schema/documents.h"
#include "schema/rules.h"

namespace ipsecimpl {

// clang-format off

const std::vector<TakenByReader>& takenByReader()
{
    static const std::vector<TakenByReader> rules{
        // The forms of a leaf
        {"a leaf has no attributes", "<length>24</length>", "<length value=\"24\"/>", "<length>24</length>"},
        {"a leaf has no attributes, nor apostrophes for them",
         "<length>24</length>", "<length value='24'></length>", "<length>24</length>"},
        {"an attribute has quotes", "<length>24</length>", "<length value=24 />", "<length>24</length>"},
        {"an attribute has a value", "<addr2>192.0.2.9</addr2>", "<addr2 value/>", "<addr2></addr2>"},
        {"a text has no white space at its ends, nor has an attribute",
         "<localCert>own.pem</localCert>", "<localCert value=\" own.pem \"/>", "<localCert> own.pem </localCert>"},
        {"a text has no markup, nor has an attribute",
         "<localCert>own.pem</localCert>", "<localCert value=\"<b>\"/>", "<localCert><b></localCert>"},
        {"a text has no white space at its ends", "own.pem", " own.pem ", "own.pem"},
        {"a word has no white space around it", ">INOUT<", "> INOUT <", ">INOUT<"},
        {"a number has no white space around it", ">24<", "> 24 <", ">24<", XSD::Takes},
        {"behind the document is nothing", "</ipsec>\n", "</ipsec>\n<ipsec>", "</ipsec>\n"},

        // Numbers
        {"a number is there", "<length>24</length>", "<length/>", "<length>0</length>"},
        {"a number is decimal, not hexadecimal", ">24<", ">0x18<", ">24<"},
        {"a number does not begin with 0, nor is it octal", ">24<", ">030<", ">24<"},
        {"8 and 9 are digits, also behind a 0", ">24<", ">08<", ">0<"},
        {"a number has no plus", ">24<", ">+24<", ">24<"},
        {"behind a number is nothing", ">24<", ">24 bits<", ">24<"},
        {"a number has digits", ">24<", ">long<", ">0<"},
        {"a signed number is 2147483647 at most", ">24<", ">2147483648<", ">2147483647<"},
        {"a signed number is -2147483648 at least", ">24<", ">-2147483649<", ">-2147483648<"},
        {"an unsigned number is not negative", "<hostGroupID>1<", "<hostGroupID>-1<", "<hostGroupID>4294967295<"},
        {"an unsigned number is 4294967295 at most",
         "<hostGroupID>1<", "<hostGroupID>4294967296<", "<hostGroupID>4294967295<"},
        {"an ID does not begin with 0", "<id>5<", "<id>05<", "<id>5<"},
        {"behind an ID is nothing", "<id>5<", "<id>5th<", "<id>5<"},
        {"a next ID is 2147483648 at most", "<nextaction>9<", "<nextaction>2147483649<", "<nextaction>2147483647<"},
        {"a port is 65535 at most", "<dstPort>80<", "<dstPort>65616<", "<dstPort>80<"},
        {"a port is not negative", "<dstPort>80<", "<dstPort>-1<", "<dstPort>65535<"},
        {"a port does not begin with 0", "<dstPort>80<", "<dstPort>080<", "<dstPort>80<"},
        {"a port is not hexadecimal", "<dstPort>80<", "<dstPort>0x50<", "<dstPort>0<"},
        {"a protocol is 65535 at most", "<protocol>17<", "<protocol>65553<", "<protocol>17<"},
        {"behind a protocol is nothing", "<protocol>17<", "<protocol>17 UDP<", "<protocol>17<"},

        // Collections and selectors
        {"an empty collection is not closed at once",
         "<policies>\n<nextpolicy>9</nextpolicy>\n" + FIRST_POLICY + THIRD_POLICY + "</policies>\n", "<policies/>\n",
         "<policies>\n<nextpolicy>1</nextpolicy>\n</policies>\n"},
        {"a next ID comes first",
         "<nextpolicy>9</nextpolicy>\n" + FIRST_POLICY, FIRST_POLICY + "<nextpolicy>9</nextpolicy>\n",
         "<nextpolicy>9</nextpolicy>\n" + FIRST_POLICY},
        {"a collection has its next ID", "<nextpolicy>9</nextpolicy>\n", "", "<nextpolicy>4</nextpolicy>\n"},
        {"a collection has its next ID once",
         "<nextpolicy>9</nextpolicy>\n", "<nextpolicy>9</nextpolicy>\n<nextpolicy>5</nextpolicy>\n",
         "<nextpolicy>9</nextpolicy>\n"},
        {"a protocol selector has its order",
         "<dstPort>80</dstPort>\n<srcPort>1024</srcPort>\n", "<srcPort>1024</srcPort>\n<dstPort>80</dstPort>\n",
         "<dstPort>80</dstPort>\n<srcPort>1024</srcPort>\n"},
        {"a protocol selector has both ports",
         "<dstPort>80</dstPort>\n<srcPort>1024</srcPort>\n", "<dstPort>80</dstPort>\n",
         "<dstPort>80</dstPort>\n<srcPort>0</srcPort>\n"},
        {"ports are not there if both are 0",
         "<dstPort>80</dstPort>\n<srcPort>1024</srcPort>\n", "<dstPort>0</dstPort>\n<srcPort>0</srcPort>\n", "",
         XSD::Takes},
        {"a protocol selector has a name",
         "<protocol>17</protocol>\n<name>a text</name>\n", "<protocol>17</protocol>\n",
         "<protocol>17</protocol>\n<name></name>\n"},
    };
    return rules;
}

// clang-format on

} // namespace ipsecimpl
