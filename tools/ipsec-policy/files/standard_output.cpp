#include "standard_output.h"

#include "files.h"

#include <cstddef>

#include <unistd.h>

namespace {

const std::size_t BLOCK = 64 * 1024;

} // namespace

void StandardOutput::write(std::string_view text)
{
    pending_ += text;
    if (pending_.size() >= BLOCK) {
        writeAll(STDOUT_FILENO, pending_, "standard output");
        pending_.clear();
    }
}

void StandardOutput::close()
{
    writeStandardOutput(pending_);
    pending_.clear();
}
