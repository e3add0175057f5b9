#include "standard_output.h"

#include "files.h"

#include <cstddef>

#include <unistd.h>

namespace {

const char STANDARD_OUTPUT[] = "standard output";

const std::size_t BLOCK = std::size_t{64} * 1024;

} // namespace

void StandardOutput::write(std::string_view text)
{
    if (pending_.size() + text.size() < BLOCK) {
        pending_ += text;
        return;
    }
    if (!pending_.empty())
        writeAll(STDOUT_FILENO, pending_, STANDARD_OUTPUT);
    pending_.clear();
    writeAll(STDOUT_FILENO, text, STANDARD_OUTPUT);
}

void StandardOutput::close()
{
    writeStandardOutput(pending_);
    pending_.clear();
}
