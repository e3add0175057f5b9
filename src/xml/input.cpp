#include "xml/input.h"

#ifdef __GLIBCXX__
#include <cxxabi.h>
#endif

namespace ipsecimpl {

void GetArea::consumeMuch(std::streambuf& buffer, std::ptrdiff_t size)
{
    constexpr int most = std::numeric_limits<int>::max();
    for (; size > most; size -= most)
        (buffer.*&GetArea::gbump)(most);
    (buffer.*&GetArea::gbump)(static_cast<int>(size));
}

void Input::prepare()
{
    // The sentry is what the stream's own functions begin with: it flushes a tied stream, and a stream that is not good
    // gets its failbit.
    if (!std::istream::sentry(stream_, true))
        buffer_ = nullptr;
}

bool Input::putBack()
{
    // Like unget(): having looked as far as the end of input is undone.
    stream_.clear(stream_.rdstate() & ~std::ios_base::eofbit);
    if (!stream_.good())
        return false;
    buffer_ = stream_.rdbuf();
    if (guarded([this] { return buffer_->sungetc(); }) != end)
        return true;
    stream_.setstate(std::ios_base::badbit);
    return false;
}

int Input::underflow()
{
    if (buffer_ == nullptr) {
        stream_.setstate(std::ios_base::failbit);
        return end;
    }
    const int c = guarded([this] { return buffer_->sgetc(); });
    if (c == end) {
        buffer_ = nullptr;
        if (!stream_.bad())
            stream_.setstate(std::ios_base::eofbit);
    }
    return c;
}

int Input::uflow()
{
    if (underflow() == end) {
        stream_.setstate(std::ios_base::failbit);
        return end;
    }
    const int c = guarded([this] { return buffer_->sbumpc(); });
    if (c == end) { // though the buffer has just shown a character
        buffer_ = nullptr;
        stream_.setstate(stream_.bad() ? std::ios_base::failbit : std::ios_base::eofbit | std::ios_base::failbit);
    }
    return c;
}

void Input::setBad()
{
    try {
        stream_.setstate(std::ios_base::badbit);
    } catch (const std::ios_base::failure&) { // another exception is being handled, and is the one to throw
    }
}

template <class Operation>
int Input::guarded(Operation operation)
{
    try {
        return operation();
    }
#ifdef __GLIBCXX__
    catch (abi::__forced_unwind&) { // the thread is being cancelled
        setBad();
        throw;
    }
#endif
    catch (...) {
        setBad();
        if ((stream_.exceptions() & std::ios_base::badbit) != 0)
            throw;
        return end;
    }
}

} // namespace ipsecimpl
