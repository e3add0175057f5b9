#include "schema/validator.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <stdexcept>

namespace ipsecimpl {
namespace {

/// A new folder, which goes away with its content.
class Folder {
  public:
    Folder()
    {
        std::string name = testing::TempDir() + "schema-XXXXXX";
        if (mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no folder for documents");
        path_ = name;
    }
    Folder(const Folder&)            = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { std::filesystem::remove_all(path_); }

    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

/// The lines that the command prints.
std::vector<std::string> linesFrom(const std::string& command)
{
    FILE* const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
        throw std::runtime_error("cannot run " + command);
    std::string            output;
    std::array<char, 4096> some{};
    while (const std::size_t size = std::fread(some.data(), 1, some.size(), pipe))
        output.append(some.data(), size);
    pclose(pipe);

    std::vector<std::string> lines;
    for (std::size_t begin = 0, end = 0; (end = output.find('\n', begin)) != std::string::npos; begin = end + 1)
        lines.push_back(output.substr(begin, end - begin));
    return lines;
}

} // namespace

std::ostream& operator<<(std::ostream& out, Verdict verdict)
{
    return out << (verdict == Verdict::Valid ? "valid" : verdict == Verdict::Invalid ? "not valid" : "no XML");
}

std::vector<Verdict> verdictsOf(Schema schema, const std::vector<std::string>& documents)
{
    if (documents.empty())
        return {};
    const Folder folder;
    for (std::size_t i = 0; i < documents.size(); ++i)
        std::ofstream(folder.path() / std::to_string(i), std::ios::binary) << documents[i];

    const std::string option =
        schema == Schema::RelaxNG ? "--relaxng '" SCHEMA_DIR "/ipsec.rng'" : "--schema '" SCHEMA_DIR "/ipsec.xsd'";
    const auto lines = linesFrom("cd '" + folder.path().string() + "' && ls | xargs '" XMLLINT "' --nonet --noout " +
                                 option + " 2>&1");

    std::vector<Verdict> verdicts(documents.size(), Verdict::NotXML);
    std::vector<bool>    known(documents.size());
    for (const std::string& line : lines) {
        // "7 validates", "7 fails to validate", "7:12: parser error : ..."; the rest quotes and explains.
        char*             end    = nullptr;
        const std::size_t number = std::strtoul(line.c_str(), &end, 10);
        if (end == line.c_str() || number >= documents.size())
            continue;
        const std::string said = end;
        if (said == " validates")
            verdicts[number] = Verdict::Valid;
        else if (said == " fails to validate")
            verdicts[number] = Verdict::Invalid;
        else if (said.find(": parser error : ") == std::string::npos)
            continue;
        known[number] = true;
    }
    for (std::size_t i = 0; i < known.size(); ++i)
        EXPECT_TRUE(known[i]) << "nothing is said of:\n" << documents[i] << "\nbut:\n" << testing::PrintToString(lines);
    return verdicts;
}

Verdict verdictOf(Schema schema, const std::string& document)
{
    return verdictsOf(schema, {document}).front();
}

} // namespace ipsecimpl
