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

void format(const Options& options)
{
    ipsecimpl::IPsecConfig config = loadDocument(options.file);
    const std::string      text   = storeDocument(config, options.file);
    if (isStandardStream(options.output))
        writeStandardOutput(text);
    else
        replaceFile(options.output, text);
}

std::function<void()> declare(CLI::App& arguments)
{
    const auto options = std::make_shared<Options>();
    arguments.add_option("FILE", options->file, DOCUMENT_HELP)->required()->type_name("");
    arguments.add_option("-o,--output", options->output, "Where to store it; standard output if not given")
        ->type_name("OUT");
    return [options] { format(*options); };
}

} // namespace

const Command FORMAT_COMMAND = {
    "format",
    "Load a configuration and store it in the written form",
    "ipsec-policy format policy.xml\n"
    "ipsec-policy format policy.xml -o policy.xml",
    declare,
};
