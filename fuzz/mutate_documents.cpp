// Tells libFuzzer how documents are mutated: mostly as documents, else as bytes.

#include "document_mutator.h"
#include "input.h"

#include <cstring>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

/// Puts `text` in the place of `data`; 0 if it is too long.
std::size_t put(const std::string& text, std::uint8_t* data, std::size_t maxSize)
{
    if (text.size() > maxSize)
        return 0;
    std::memcpy(data, text.data(), text.size());
    return text.size();
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed)
{
    ipsecimpl::DocumentMutator mutator(seed);
    if (mutator.below(4) == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    std::string text(ipsecimpl::textOf(data, size));
    for (std::size_t changes = 1 + mutator.below(3); changes > 0; --changes)
        text = mutator.changed(text);
    const std::size_t newSize = put(text, data, maxSize);
    return newSize != 0 ? newSize : LLVMFuzzerMutate(data, size, maxSize);
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* data1, std::size_t size1,
                                                 const std::uint8_t* data2, std::size_t size2, std::uint8_t* out,
                                                 std::size_t maxOutSize, unsigned int seed)
{
    ipsecimpl::DocumentMutator mutator(seed);
    return put(mutator.crossed(ipsecimpl::textOf(data1, size1), ipsecimpl::textOf(data2, size2)), out, maxOutSize);
}
