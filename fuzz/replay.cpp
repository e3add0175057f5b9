// Gives the fuzzer that this is linked with the files that are named, and those of the directories. A fault ends the
// program; the file is named before.

#include "input.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> filesOf(const fs::path& path)
{
    if (!fs::is_directory(path))
        return {path};
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(path))
        if (entry.path().filename() != ".gitkeep")
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

bool replay(const fs::path& file)
{
    std::ifstream     in(file, std::ios_base::binary);
    const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (!in) {
        std::cerr << "cannot read " << file << '\n';
        return false;
    }
    std::clog << file.string() << std::endl;
    // A copy of its own size, so that the address sanitizer sees a step beyond its end.
    std::vector<std::uint8_t> bytes(text.size());
    if (!text.empty())
        std::memcpy(bytes.data(), text.data(), text.size());
    return LLVMFuzzerTestOneInput(bytes.data(), bytes.size()) == 0;
}

} // namespace

int main(int count, char** arguments)
try {
    std::size_t replayed = 0;
    for (int i = 1; i < count; ++i)
        for (const fs::path& file : filesOf(arguments[i])) {
            if (!replay(file))
                return 1;
            ++replayed;
        }
    std::cout << replayed << " inputs\n";
    return replayed == 0 ? 1 : 0;
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
