// The parser's operations, on the texts that documents have most. Each text stands in the stream a thousand times; the
// times are those of one.

#include <ipsecimpl/xml.h>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <sstream>
#include <string>

namespace {

using ipsecimpl::ParseError;
using ipsecimpl::XMLParser;

constexpr int repeats = 1000;

std::string repeated(const std::string& text)
{
    std::string all;
    for (int i = 0; i < repeats; ++i)
        all += text;
    return all;
}

/// Runs `operation(parser)` on each of the texts, as children of one element.
template <class Operation>
void run(benchmark::State& state, const std::string& text, Operation operation)
{
    const std::string  document = "<root>" + repeated(text) + "</root>";
    std::istringstream in(document);
    for (auto _ : state) {
        in.clear();
        in.seekg(0);
        XMLParser parser(in);
        parser.parse_simple_tag("root");
        for (int i = 0; i < repeats; ++i)
            operation(parser);
        parser.parse_end_tag();
    }
    state.SetItemsProcessed(repeats * state.iterations());
    state.SetBytesProcessed(static_cast<std::int64_t>(document.size()) * state.iterations());
}

void TaggedValue(benchmark::State& state)
{
    run(state, "<builtinName>0</builtinName>\n",
        [](XMLParser& parser) { benchmark::DoNotOptimize(parser.parse_tagged_value("builtinName")); });
}
BENCHMARK(TaggedValue);

void TaggedValueOfLongText(benchmark::State& state)
{
    const std::string text(static_cast<std::size_t>(state.range(0)), 'x');
    run(state, "<descr>" + text + "</descr>\n",
        [](XMLParser& parser) { benchmark::DoNotOptimize(parser.parse_tagged_value("descr")); });
}
BENCHMARK(TaggedValueOfLongText)->Arg(16)->Arg(256)->Arg(4096);

void TaggedValueInAttribute(benchmark::State& state)
{
    run(state, "<builtinName value=\"0\"/>\n",
        [](XMLParser& parser) { benchmark::DoNotOptimize(parser.parse_tagged_value("builtinName")); });
}
BENCHMARK(TaggedValueInAttribute);

void SimpleTagAndEndTag(benchmark::State& state)
{
    run(state, "<hostSelector>\n</hostSelector>\n", [](XMLParser& parser) {
        parser.parse_simple_tag("hostSelector");
        parser.parse_end_tag();
    });
}
BENCHMARK(SimpleTagAndEndTag);

void TagAndTagEnd(benchmark::State& state)
{
    std::string name;
    run(state, "<hostSelector/>\n", [&name](XMLParser& parser) {
        parser.parse_tag(name);
        parser.parse_tag_end();
    });
}
BENCHMARK(TagAndTagEnd);

void Attributes(benchmark::State& state)
{
    std::string name;
    std::string value;
    run(state, "<a one=\"first\" two=\"second\" three=\"third\"/>\n", [&name, &value](XMLParser& parser) {
        parser.parse_tag(name);
        while (parser.parse_attr(name, value))
            benchmark::DoNotOptimize(value);
        parser.parse_tag_end();
    });
}
BENCHMARK(Attributes);

void Body(benchmark::State& state)
{
    run(state, "<selectors>\n</selectors>\n", [](XMLParser& parser) {
        benchmark::DoNotOptimize(parser.parse_body());
        parser.parse_simple_tag("selectors");
        benchmark::DoNotOptimize(parser.parse_body());
        parser.parse_end_tag();
    });
}
BENCHMARK(Body);

void Data(benchmark::State& state)
{
    std::string text;
    run(state, "<name>Remote desktop</name>\n", [&text](XMLParser& parser) {
        parser.parse_simple_tag("name");
        parser.parse_data(text);
        parser.parse_end_tag();
    });
}
BENCHMARK(Data);

void Entity(benchmark::State& state)
{
    run(state, "&amp;", [](XMLParser& parser) { benchmark::DoNotOptimize(parser.parse_entity()); });
}
BENCHMARK(Entity);

void Trim(benchmark::State& state)
{
    for (auto _ : state) {
        std::string text = "DNS over TCP \t\n";
        XMLParser::trim(text);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(Trim);

/// A refusal three elements deep, with its context and the exception.
void Refusal(benchmark::State& state)
{
    const std::string document = "<a><b><c></d></c></b></a>";
    for (auto _ : state) {
        std::istringstream in(document);
        XMLParser          parser(in);
        for (const char* const name : {"a", "b", "c"})
            parser.parse_simple_tag(name);
        try {
            parser.parse_end_tag();
            state.SkipWithError("the document was not refused");
        } catch (const ParseError& error) {
            benchmark::DoNotOptimize(error.what());
        }
    }
}
BENCHMARK(Refusal);

} // namespace
