// Loads a configuration and stores it so that there is the old file or the new one at any time, never half of one:
//
//     store_safely CONFIG OUTPUT
//
// Where a program edits, its edits stand between the two. Exit status: 0, 1 if CONFIG does not load, or would not if it were
// stored, 2 for wrong usage or a file that cannot be read or written; then OUTPUT is as it was.

#include <ipsecimpl/ipsecimpl.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

using namespace ipsecimpl;

namespace {

[[noreturn]] void fail(const std::string& fileName)
{
    throw std::system_error(errno, std::generic_category(), fileName);
}

IPsecConfig load(std::istream& in)
{
    XMLParser parser(in);
    return IPsecConfig::importXML(parser);
}

// The document, ready in memory: each line of a store is a flush, which would be a system call in a file. Throws ParseError
// if it could not be loaded again, as with a '<' in a name: then the file must not be replaced by it.
std::string documentOf(IPsecConfig& config)
{
    std::stringstream document;
    document.imbue(std::locale::classic()); // digits without separators, whatever the program's locale
    if (!config.exportXML(document))
        throw std::bad_alloc(); // a string in memory fails for nothing else
    load(document);
    return document.str();
}

void writeAll(int fd, const std::string& text, const std::string& fileName)
{
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t count = ::write(fd, text.data() + done, text.size() - done);
        if (count < 0 && errno != EINTR)
            fail(fileName);
        done += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
}

// A new file in the same folder, for its owner alone as it holds keys, which takes the old one's place once it is on disk.
void replaceFile(const std::string& fileName, const std::string& text)
{
    std::string temporary = fileName + ".XXXXXX";
    const int   fd        = ::mkstemp(temporary.data()); // mode 0600
    if (fd < 0)
        fail(fileName);
    try {
        writeAll(fd, text, temporary);
        if (::fsync(fd) != 0 || ::close(fd) != 0 || std::rename(temporary.c_str(), fileName.c_str()) != 0)
            fail(fileName);
    } catch (...) {
        ::unlink(temporary.c_str());
        throw;
    }

    // The folder's entry has to be on disk, too.
    const auto        slash  = fileName.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : fileName.substr(0, slash + 1);
    const int         dirFd  = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (dirFd < 0 || ::fsync(dirFd) != 0 || ::close(dirFd) != 0)
        fail(folder);
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::cerr << "usage: store_safely CONFIG OUTPUT\n";
        return 2;
    }
    try {
        std::ifstream in(argv[1]);
        if (!in)
            fail(argv[1]);
        IPsecConfig config = load(in);
        replaceFile(argv[2], documentOf(config));
        return 0;
    } catch (const ParseError&) {
        std::cerr << argv[1] << ": does not load, or would not once it is stored\n";
        return 1;
    } catch (const std::system_error& error) {
        std::cerr << error.what() << '\n';
        return 2;
    }
}
