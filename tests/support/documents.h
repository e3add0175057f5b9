#ifndef IPSECIMPL_TESTS_SUPPORT_DOCUMENTS_H
#define IPSECIMPL_TESTS_SUPPORT_DOCUMENTS_H

/// \file
/// Changes to a document in the written form, and what every element's reader must make of them.

#include "support/streams.h"
#include "support/xml.h"

#include <cstddef>
#include <iterator>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace ipsecimpl {

/// `document` with its one `from` replaced. The test fails if `from` does not stand in it exactly once.
inline std::string changed(std::string document, const std::string& from, const std::string& to)
{
    const std::size_t at = document.find(from);
    if (at == std::string::npos || document.find(from, at + 1) != std::string::npos) {
        ADD_FAILURE() << "not exactly one '" << from << "' in:\n" << document;
        return document;
    }
    return document.replace(at, from.size(), to);
}

/// The line of the leaf `tag` in `document`, without its line end.
inline std::string leafIn(const std::string& document, const std::string& tag)
{
    const std::size_t begin = document.find("<" + tag + ">");
    const std::size_t end   = document.find("</" + tag + ">");
    if (begin == std::string::npos || end == std::string::npos) {
        ADD_FAILURE() << "no <" << tag << "> in:\n" << document;
        return {};
    }
    return document.substr(begin, end + tag.size() + 3 - begin);
}

inline std::string leaf(const std::string& tag, const std::string& text)
{
    return "<" + tag + ">" + text + "</" + tag + ">";
}

/// `document` with another text in its leaf `tag`.
inline std::string withText(const std::string& document, const std::string& tag, const std::string& text)
{
    return changed(document, leafIn(document, tag), leaf(tag, text));
}

/// The text in the leaf `tag` of `document`.
inline std::string textIn(const std::string& document, const std::string& tag)
{
    const std::string line = leafIn(document, tag);
    return line.substr(tag.size() + 2, line.size() - 2 * tag.size() - 5);
}

struct Refused {
    std::string text;
    std::string message;
};

struct RefusedChange {
    std::string from;
    std::string to;
    std::string message;
};

template <class T>
void expectRefused(const std::vector<Refused>& rows)
{
    for (const Refused& row : rows)
        EXPECT_EQ(refusalOf<T>(row.text), row.message) << "for:\n" << row.text;
}

template <class T>
void expectRefused(const std::string& document, const std::vector<RefusedChange>& rows)
{
    for (const RefusedChange& row : rows)
        EXPECT_EQ(refusalOf<T>(changed(document, row.from, row.to)), row.message)
            << "for '" << row.to << "' in place of '" << row.from << "'";
}

/// `document`, the element `name`, is read in its written form and refused with another frame, or cut anywhere.
template <class T>
void expectFrameChecked(const std::string& document, const std::string& name)
{
    const std::string open = "<" + name + ">", close = "</" + name + ">\n", from = "\nfrom " + open;
    EXPECT_EQ(rewritten<T>(document), document);

    // clang-format off
    expectRefused<T>({
        {"",                                  "parse_tag: expected '<', found '\xFF'"},
        {"x" + document,                      "parse_tag: expected '<', found 'x'"},
        {"<?xml version=\"1.0\"?>" + document, "parse_tag: unnamed tag"},
        {"<!-- note -->" + document,          "parse_tag: unnamed tag"},
        {"< " + document.substr(1),           "parse_tag: unnamed tag"},
        {close,                               "parse_simple_tag: missing tag; expected " + open},
        {open + "x",                          "parse_tag: expected '<', found 'x'" + from},
        {open,                                "parse_tag: expected '<', found '\xFF'" + from},
    });
    expectRefused<T>(document, {
        {open,  "<" + name,                   "parse_tag_end: invalid attribute or missing '>'" + from},
        {open,  "<" + name + " value=\"1\">", "parse_tag_end: invalid attribute or missing '>'" + from},
        {open,  "<" + name + "/ >",           "parse_tag_end: invalid attribute or missing '>'"},
        {open,  "<" + name + "/>",            "parse_end_tag: begin/end tags don't match"},
        {open,  "<" + name + "x>",
         "parse_simple_tag: wrong tag; expected " + open + ", found <" + name + "x>\nfrom <" + name + "x>"},
        {close, "x" + close,                  "parse_end_tag: expected '<', got 'x'" + from},
        {close, "</" + name + "x>",           "parse_end_tag: begin/end tags don't match" + from},
        {close, "</" + name + " >",           "parse_end_tag: malformed end tag" + from},
        {close, "</" + name,                  "parse_end_tag: malformed end tag" + from},
        {close, "</" + name + "/>",           "parse_end_tag: malformed end tag" + from},
        {close, "</>",                        "parse_end_tag: missing tag name" + from},
        {close, "</ " + name + ">",           "parse_end_tag: missing tag name" + from},
    });
    // clang-format on

    for (std::size_t length = 0; length + 1 < document.size(); ++length)
        EXPECT_THROW(read<T>(document.substr(0, length)), ParseError) << "for:\n" << document.substr(0, length);
}

/// `tags` are leaves that stand directly in `name`, one behind the other. Each is refused where it is missing, doubled,
/// in another order or badly formed.
template <class T>
void expectLeavesChecked(const std::string& document, const std::string& name, const std::vector<std::string>& tags)
{
    const std::string from = "\nfrom <" + name + ">";
    for (std::size_t i = 0; i < tags.size(); ++i) {
        const std::string& tag  = tags[i];
        const std::string  line = leafIn(document, tag), open = "<" + tag + ">", inside = "\nfrom " + open + from;
        const std::string  before  = document.substr(0, document.find(line));
        const std::string  wanted  = "parse_tagged_value: wrong tag; expected ";
        const std::string  missing = "parse_tagged_value: missing tag; expected " + open + from;

        // clang-format off
        expectRefused<T>({
            {before,                        "parse_tag: expected '<', found '\xFF'" + from},
            {before + "</" + name + ">",    missing},
            {before + "x" + line,           "parse_tag: expected '<', found 'x'" + from},
            {before + "<!-- note -->",      "parse_tag: unnamed tag" + from},
            {before + "<x>1</x>",           wanted + open + ", found <x>\nfrom <x>" + from},
            {before + open + "1",           "parse_data: unmatched tag '" + tag + "'" + inside},
            {before + open + "1</" + name + ">", "parse_end_tag: begin/end tags don't match" + inside},
            {before + open + "<b/></" + tag + ">", "parse_end_tag: expected '/', got 'b'" + inside},
            {before + open + "1<b/>",       "parse_end_tag: expected '/', got 'b'" + inside},
            {before + "<" + tag + " x='1'/>",
             "parse_tagged_value: invalid attribute; found 'x', expected 'value'" + inside},
            {before + "<" + tag + " value='1' x='1'/>", "parse_tag_end: invalid attribute or missing '>'" + inside},
            {before + "<" + tag + " value=1/>", "parse_value: unterminated attribute value" + inside},
            {before + "<" + tag + " value='1'>2</" + tag + ">", "parse_end_tag: expected '<', got '2'" + inside},
        });
        // clang-format on

        if (i + 1 == tags.size())
            continue;
        const std::string& next = tags[i + 1];
        expectRefused<T>(document, {
                                       {line, "", wanted + open + ", found <" + next + ">\nfrom <" + next + ">" + from},
                                       {line, leafIn(document, next),
                                        wanted + open + ", found <" + next + ">\nfrom <" + next + ">" + from},
                                       {line, line + line, wanted + "<" + next + ">, found " + open + inside},
                                   });
    }
}

/// Each of `tags` may be written in all the forms that a leaf has, and stands for the same.
template <class T>
void expectLeafForms(const std::string& document, const std::vector<std::string>& tags)
{
    for (const std::string& tag : tags) {
        const std::string line = leafIn(document, tag), text = textIn(document, tag);
        for (const std::string& form : {
                 "<" + tag + " value=\"" + text + "\"/>",
                 "<" + tag + " value='" + text + "'></" + tag + ">",
                 "<" + tag + " value=" + text + " />",
                 "<" + tag + "\n value\t= '" + text + "' >\n</" + tag + ">",
                 "<" + tag + " >\v\f " + text + "\r\n</" + tag + ">",
             })
            EXPECT_EQ(rewritten<T>(changed(document, line, form)), document) << "for:\n" << form;
        EXPECT_EQ(rewritten<T>(changed(document, line, "\n \t" + line + "\r\n\n")), document);
    }
}

/// The leaf `tag` holds one of a set of words; every one of `words`, no word at all, and the present word with more
/// about it is refused with `before`, the bad text and `after`.
template <class T>
void expectWordsChecked(const std::string& document, const std::string& tag, const std::string& before,
                        const std::string& after, std::vector<std::string> words)
{
    const std::string line = leafIn(document, tag), word = textIn(document, tag);
    for (const std::string& more : {"x" + word, word + "x", word + " " + word, word + std::string(1, '\0'),
                                    word + "&amp;", word.substr(1), word.substr(0, word.size() - 1)})
        words.push_back(more);
    for (const std::string& bad : words)
        EXPECT_EQ(refusalOf<T>(withText(document, tag, bad)), (before + bad + after).c_str()); // cut at a NUL

    expectRefused<T>(document,
                     {
                         {line, "<" + tag + "/>", before + after},
                         {line, "<" + tag + "></" + tag + ">", before + after},
                         {line, "<" + tag + " value=''/>", before + after},
                         {line, "<" + tag + " value/>", before + after},
                         {line, "<" + tag + " value=' " + word + "'/>", before + " " + word + after},
                         {line, "<" + tag + " value='" + word + " '></" + tag + ">", before + word + " " + after},
                     });
}

/// `object` writes the same after it was assigned to itself.
template <class T>
void expectKeptByAssignmentToItself(T& object)
{
    const std::string before = written(object);
    const T&          same   = object;
    EXPECT_EQ(&(object = same), &object);
    EXPECT_EQ(written(object), before);
}

/// `object` writes the same after it was moved into itself.
template <class T>
void expectKeptByMoveIntoItself(T& object)
{
    const std::string before = written(object);
    T&                same   = object;
    EXPECT_EQ(&(object = std::move(same)), &object);
    EXPECT_EQ(written(object), before);
}

/// The document comes line by line, each line flushed; its writer sets no flags and gives the stream back as it is.
template <class T>
void expectWrittenByLines(const T& object)
{
    FlushRecorder recorder;
    std::ostream  out(&recorder);
    EXPECT_EQ(&object.exportXML(out), &out);

    std::string whole;
    for (const std::string& piece : recorder.pieces()) {
        EXPECT_EQ(piece.find('\n'), piece.size() - 1) << "one line, not: " << piece;
        whole += piece;
    }
    EXPECT_EQ(whole, written(object));
    EXPECT_EQ(recorder.str(), "");
    EXPECT_EQ(out.flags(), std::ostringstream().flags());

    FullSink     sink(10);
    std::ostream full(&sink);
    EXPECT_EQ(&object.exportXML(full), &full);
    EXPECT_FALSE(full.good());
    EXPECT_EQ(sink.taken(), whole.substr(0, 10));
}

/// Nothing is taken from the stream but the element: what follows it can be read next.
template <class T>
void expectReadNoFurther(const std::string& document)
{
    std::istringstream in(document + document + " the rest");
    XMLParser          parser(in);
    const T            first  = T::importXML(parser);
    const T            second = T::importXML(parser);
    EXPECT_EQ(written(first), document);
    EXPECT_EQ(written(second), document);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "\n the rest");
}

} // namespace ipsecimpl

#endif
