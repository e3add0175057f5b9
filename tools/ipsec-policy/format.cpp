#include "commands.h"
#include "document.h"
#include "files.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace {

struct Options {
    std::string file;
    std::string output = "-";
};

ExitStatus format(const Options& options)
{
    ipsecimpl::IPsecConfig config = loadDocument(options.file);
    const std::string      text   = storeDocument(config, options.file);
    if (isStandardStream(options.output))
        writeStandardOutput(text);
    else
        replaceFile(options.output, text);
    return ExitStatus::CLEAN;
}

std::function<ExitStatus()> declare(CLI::App& arguments)
{
    const auto options = std::make_shared<Options>();
    arguments.add_option("FILE", options->file, DOCUMENT_HELP)->required()->type_name("");
    arguments.add_option("-o,--output", options->output, "Where to store it; standard output if not given")
        ->type_name("OUT");
    return [options] { return format(*options); };
}

} // namespace

const Command FORMAT_COMMAND = {
    "format",
    "Load a configuration and store it in the written form",
    "The written form is the one in which the library stores: a tag or a whole leaf\n"
    "on each line, no attributes, no indentation, plain decimal numbers. Formatting\n"
    "once more changes nothing.\n\n"
    "Nothing can be escaped in this format: a text cannot hold '<', or have white\n"
    "space at an end. A configuration that would not load as the same once written\n"
    "is refused with exit status 1, just like one that does not load at all.\n\n"
    "OUT may be FILE. It is replaced in one step, or left as it was. Its mode, owner\n"
    "and group are kept, and symbolic links are followed; other hard links keep the\n"
    "old content, and a read-only file is replaced too if its folder can be written.\n"
    "A new OUT is for its owner alone (mode 0600), because it may hold keys.",
    "ipsec-policy format policy.xml\n"
    "ipsec-policy format policy.xml -o policy.xml",
    declare,
};
