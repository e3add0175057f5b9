#include "build_facts.h"

#include "text.h"

#include <ipsecimpl/version.h>

#include <cstdlib>
#include <memory>
#include <string_view>

#include <link.h>

namespace {

std::string compiler()
{
#ifdef __clang__
    return "clang++ " + std::to_string(__clang_major__) + '.' + std::to_string(__clang_minor__) + '.' +
           std::to_string(__clang_patchlevel__);
#else
    return "g++ " __VERSION__;
#endif
}

/// Takes the name of the shared library's file, once it is come across.
int takeLibrary(dl_phdr_info* object, std::size_t /*size*/, void* name)
{
    const std::string_view file  = object->dlpi_name;
    const std::size_t      start = file.rfind('/') + 1;
    if (file.substr(start).rfind("libipsecimpl.so", 0) != 0)
        return 0;
    *static_cast<std::string*>(name) = file;
    return 1;
}

/// The file of the library that the program runs with, which tells its version; empty if it is linked in.
std::string libraryFile()
{
    std::string name;
    dl_iterate_phdr(takeLibrary, &name);
    const std::unique_ptr<char, decltype(&std::free)> file(realpath(name.c_str(), nullptr), std::free);
    return file == nullptr ? name : file.get();
}

std::string library()
{
    const std::string file = libraryFile();
    return file.empty() ? "static" : "shared, " + printable(file);
}

} // namespace

std::string buildFacts()
{
    const std::string version = ipsecimpl::VERSION;
    return "ipsec-policy " + version + "\nlibrary: ipsecimpl " + version + ", " + library() +
           "\ncompiler: " + compiler() + "\nbuild: " BUILD_TYPE ", " BUILD_TARGET ", " +
           std::to_string(8 * sizeof(void*)) + " bits";
}
