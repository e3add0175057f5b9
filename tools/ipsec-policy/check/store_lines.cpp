#include "store_lines.h"

#include <algorithm>
#include <cstring>
#include <utility>

StoreLines::StoreLines()
    : line_(1024)
    , out_(this)
{
    out_.exceptions(std::ios_base::badbit | std::ios_base::failbit);
}

std::streamsize StoreLines::xsputn(const char* text, std::streamsize size)
{
    const auto count = static_cast<std::size_t>(size);
    if (size_ == 0 && matched_ == 0 && count <= expected_.size() && std::memcmp(expected_.data(), text, count) == 0) {
        matched_ = count;
        return size;
    }
    append(expected_.data(), std::exchange(matched_, 0));
    append(text, count);
    return size;
}

void StoreLines::append(const char* text, std::size_t size)
{
    if (size == 0)
        return;
    if (line_.size() - size_ < size)
        line_.resize(std::max(2 * line_.size(), size_ + size));
    std::memcpy(line_.data() + size_, text, size);
    size_ += size;
}

StoreLines::int_type StoreLines::overflow(int_type c)
{
    if (!traits_type::eq_int_type(c, traits_type::eof())) {
        const char single = traits_type::to_char_type(c);
        xsputn(&single, 1);
    }
    return traits_type::not_eof(c);
}

int StoreLines::sync()
{
    if (const std::size_t size = std::exchange(matched_, 0))
        line(expected_.substr(0, size));
    else if (const std::size_t copied = std::exchange(size_, 0))
        line({line_.data(), copied});
    return 0;
}

StoredLine::StoredLine(std::string_view line)
{
    line.remove_suffix(1); // the newline
    if (line[1] == '/') {
        type = Type::END_TAG;
        name = line.substr(2, line.size() - 3);
        return;
    }
    const std::size_t end = line.find('>');
    name                  = line.substr(1, end - 1);
    type                  = end + 1 == line.size() ? Type::START_TAG : Type::LEAF;
    if (type == Type::LEAF)
        text = line.substr(end + 1, line.size() - 2 * name.size() - 5);
}
