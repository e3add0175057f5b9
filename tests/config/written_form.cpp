// What a stream's buffer holds ready may be taken in one step. Nobody can tell from what buffer a document was read.

#include "support/outcomes.h"
#include "support/samples.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <ios>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace ipsecimpl {
namespace {

/// Every `element` in the samples.
std::vector<std::string> textsOf(const Element& element)
{
    const std::string        open = "<" + std::string(element.tag) + ">", close = "</" + open.substr(1) + "\n";
    std::vector<std::string> texts;
    for (const std::string& sample : sampleNames()) {
        const std::string text = sampleText(sample);
        for (std::size_t begin = 0; (begin = text.find(open, begin)) != std::string::npos; begin += open.size())
            texts.push_back(text.substr(begin, text.find(close, begin) + close.size() - begin));
    }
    EXPECT_FALSE(texts.empty()) << element.tag;
    return texts;
}

/// Damages documents, in the same way on every machine.
class Damage {
  public:
    std::size_t below(std::size_t limit) { return random_() % limit; }

    std::string to(std::string text)
    {
        for (std::size_t n = 1 + below(3); n != 0 && !text.empty(); --n)
            once(text);
        return text;
    }

  private:
    void once(std::string& text)
    {
        using namespace std::string_view_literals;
        static constexpr auto                   bytes = "<>/&='\"x1 \t\n\v\f\r\0\x80\xA0\xFF"sv;
        static const std::array<std::string, 6> spaces{" ", "\n", "\t", "\r\n", "\v\f", " \n \n "};

        const std::size_t at   = below(text.size());
        const std::size_t line = text.rfind('\n', at) + 1; // 0 in the first line
        const std::size_t next = std::min(text.find('\n', at), text.size() - 1) + 1;
        const std::string whole(text, line, next - line);
        const std::size_t tagEnd   = whole.find('>');
        const std::size_t valueEnd = whole.find("</", 1);
        switch (below(12)) {
        case 0:
            text[at] = bytes[below(bytes.size())];
            break;
        case 1:
            text.insert(at, 1, bytes[below(bytes.size())]);
            break;
        case 2:
            text.erase(at, 1 + below(3));
            break;
        case 3:
            if (below(4) == 0)
                text.resize(at);
            break;
        case 4: // the same line twice
            text.insert(line, whole);
            break;
        case 5: // a line less
            text.erase(line, whole.size());
            break;
        case 6: // two lines in another order
            text.erase(line, whole.size());
            text.insert(text.find('\n', line) + 1, whole);
            break;
        case 7: // `<a>1</a>` becomes `<a/>1</a>`
            if (tagEnd != std::string::npos)
                text.insert(line + tagEnd, "/");
            break;
        case 8: // `<a value='1'/>`
            if (tagEnd < valueEnd && valueEnd != std::string::npos)
                text.replace(line, whole.size(),
                             whole.substr(0, tagEnd) + " value='" + whole.substr(tagEnd + 1, valueEnd - tagEnd - 1) +
                                 "'/>");
            break;
        case 9: // `<a></a>`
            if (tagEnd < valueEnd && valueEnd != std::string::npos)
                text.erase(line + tagEnd + 1, valueEnd - tagEnd - 1);
            break;
        default: { // space before or behind a tag or its name
            const std::size_t place = text.find_first_of("<>", at);
            if (place != std::string::npos)
                text.insert(place + below(2), spaces[below(spaces.size())]);
        }
        }
    }

    std::mt19937 random_{20}; // NOLINT: always the same
};

TEST(WrittenForm, IsReadAlikeFromEveryBuffer)
{
    for (const Element& element : elements) {
        const std::vector<std::string> texts = textsOf(element);
        for (std::size_t i = 0; i < texts.size(); ++i)
            EXPECT_TRUE(expectAlike(element, texts[i] + texts[0], 1 + i % 40)) << texts[i];
    }
}

TEST(WrittenForm, IsReadAlikeWhereverTheBufferEnds)
{
    for (const Element& element : elements) {
        const std::string text = textsOf(element)[0];
        for (std::size_t chunk = 1; chunk <= std::min(text.size(), std::size_t(60)); ++chunk)
            EXPECT_TRUE(expectAlike(element, text, chunk)) << element.tag;
    }
}

TEST(WrittenForm, IsReadAlikeWhereverItIsCut)
{
    for (const Element& element : elements) {
        const std::string text = textsOf(element)[0];
        for (std::size_t size = 0; size + 1 < std::min(text.size(), std::size_t(500)); ++size)
            EXPECT_FALSE(expectAlike(element, text.substr(0, size), 1 + size % 40)) << element.tag;
    }
}

TEST(WrittenForm, IsLeftInAStreamThatIsNotGood)
{
    for (const Element& element : elements) {
        const std::string text = textsOf(element)[0];
        for (const std::ios_base::iostate state :
             {std::ios_base::failbit, std::ios_base::eofbit, std::ios_base::badbit})
            EXPECT_FALSE(expectAlike(element, text, 20, {std::ios_base::goodbit, state})) << element.tag;
    }
}

/// Damages every element again and again; some of it is still read, and some refused.
void expectDamageReadAlike(const std::vector<std::ios_base::iostate>& masks, std::size_t times)
{
    Damage damage;
    for (const Element& element : elements) {
        const std::vector<std::string> texts = textsOf(element);
        std::array<int, 2>             count{};
        for (std::size_t i = 0; i < times; ++i) {
            const std::string text = damage.to(texts[damage.below(texts.size())]) + texts[damage.below(texts.size())];
            if (text.size() > 8000) // now and then is enough
                i += 10;
            ++count[expectAlike(element, text, 1 + damage.below(40), {masks[i % masks.size()]})];
        }
        EXPECT_GT(count[false], 0) << element.tag;
        EXPECT_GT(count[true], 0) << element.tag;
    }
}

TEST(WrittenForm, IsReadAlikeWhenDamaged)
{
    expectDamageReadAlike({std::ios_base::goodbit}, 170);
}

TEST(WrittenForm, IsReadAlikeWhenDamagedUnderEveryExceptionMask)
{
    using std::ios_base;
    expectDamageReadAlike({ios_base::failbit, ios_base::eofbit, ios_base::badbit,
                           ios_base::failbit | ios_base::eofbit | ios_base::badbit},
                          170);
}

} // namespace
} // namespace ipsecimpl
