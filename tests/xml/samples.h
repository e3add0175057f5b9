#ifndef IPSECIMPL_TESTS_XML_SAMPLES_H
#define IPSECIMPL_TESTS_XML_SAMPLES_H

/// \file
/// Two documents, each with its reader, to be cut short or disturbed at every byte.

#include <ipsecimpl/xml.h>

#include <gtest/gtest.h>

#include <string>

namespace ipsecimpl {

struct Sample {
    std::string text;
    void (*load)(XMLParser&); ///< reads the text to its end and checks what it gets
};

inline void readPlain(XMLParser& parser)
{
    std::string name;
    std::string value;
    parser.parse_simple_tag("a");
    parser.parse_tag(name);
    while (parser.parse_attr(name, value)) {
    }
    parser.parse_tag_end();
    parser.parse_end_tag();
    EXPECT_EQ(parser.parse_tagged_value("c"), "text &amp; more");
    EXPECT_EQ(parser.parse_tagged_value("c"), "v");
    EXPECT_EQ(parser.parse_tagged_value("c"), "");
    parser.parse_end_tag();
}

inline void readLooked(XMLParser& parser)
{
    std::string data;
    std::string all;
    parser.parse_simple_tag("a");
    for (int token = parser.parse_body(); token != PARSE_END; token = parser.parse_body()) {
        if (token == PARSE_CHILD)
            data = parser.parse_tagged_value("b");
        else
            parser.parse_data(data);
        all += data + ".";
    }
    parser.parse_end_tag();
    EXPECT_EQ(all, "1.2.text..");
}

/// Read without need of put-back; every kind of token occurs.
inline const Sample plain = {" <a ><b v='x' w=y z ></b><c>text &amp; more</c><c value=\"v\"/><c/></a>", readPlain};

/// Read with a look at each token first, which needs put-back.
inline const Sample looked = {"<a> <b>1</b> <b>2</b> text <b/> </a>", readLooked};

} // namespace ipsecimpl

#endif
