#include "program.h"

#include "files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include <sys/resource.h>

namespace {

const std::size_t MEBIBYTE = 1024 * 1024;

/// The small document, with blanks behind it up to `size` bytes.
std::string documentOf(std::size_t size)
{
    const std::string text = document();
    return text + std::string(size - text.size(), '\n');
}

Outcome tooLarge(const std::string& fileName, const std::string& limit)
{
    return troubled(fileName + ": larger than " + limit + " (--max-size allows more)");
}

class MaxSize : public InFolder {};

struct Limit {
    const char* text;
    std::size_t bytes;
    const char* shown;
};

const Limit LIMITS[] = {
    {"1000", 1000, "1000 bytes"},    {"1K", 1024, "1 KiB"},     {"0070000", 70000, "70000 bytes"},
    {"100K", 100 * 1024, "100 KiB"}, {"1M", MEBIBYTE, "1 MiB"}, {"1025K", 1025 * 1024, "1025 KiB"},
};

TEST_F(MaxSize, IsTheLargestThatIsRead)
{
    for (const Limit& limit : LIMITS) {
        writeFile("in.xml", documentOf(limit.bytes));
        EXPECT_EQ(run({"format", "in.xml", "--max-size", limit.text}).status, 0);
        EXPECT_EQ(run({"format", "-", "--max-size", limit.text}, documentOf(limit.bytes)).status, 0);
        writeFile("in.xml", documentOf(limit.bytes + 1));
        EXPECT_EQ(run({"format", "in.xml", "--max-size", limit.text}), tooLarge("in.xml", limit.shown));
        EXPECT_EQ(run({"format", "-", "--max-size", limit.text}, documentOf(limit.bytes + 1)),
                  tooLarge("standard input", limit.shown));
    }
}

TEST_F(MaxSize, HoldsForEveryWayToReadADocument)
{
    const std::vector<std::string> ways[] = {{}, {"--check"}, {"--in-place"}, {"-o", "out.xml"}, {"-o", "in.xml"}};
    writeFile("in.xml", document());
    for (const std::vector<std::string>& way : ways) {
        std::vector<std::string> arguments = {"format", "in.xml", "--max-size=1"};
        arguments.insert(arguments.end(), way.begin(), way.end());
        EXPECT_EQ(run(arguments), tooLarge("in.xml", "1 byte"));
    }
    EXPECT_EQ(contentOf("in.xml"), document());
}

TEST_F(MaxSize, MayBeMoreThanThereIs)
{
    EXPECT_EQ(run({"format", "-", "--max-size", "3G"}, document()), run({"format", "-"}, document()));
}

TEST_F(MaxSize, Is64MebibytesUnlessGiven)
{
    for (const std::string command : {"show", "format"})
        EXPECT_EQ(run({command, "/dev/zero"}), tooLarge("/dev/zero", "64 MiB"));
    EXPECT_EQ(run({"format", "-"}, documentOf(64 * MEBIBYTE)).status, 0);
    EXPECT_EQ(run({"format", "-"}, documentOf(64 * MEBIBYTE + 1)), tooLarge("standard input", "64 MiB"));
}

TEST_F(MaxSize, IsNotOfferedForOtherFiles)
{
    writeFile("in.xml", document());
    writeFile("large", "");
    std::filesystem::resize_file("large", 64 * MEBIBYTE + 1);
    const std::string tooLargeFor = "large: larger than 64 MiB (the limit for a ";
    EXPECT_EQ(run({"edit", "in.xml", "large"}), troubled(tooLargeFor + "script)"));
    EXPECT_EQ(run({"edit", "in.xml", "large", "--max-size=1G"}), troubled(tooLargeFor + "script)"));
    EXPECT_EQ(run({"edit", "in.xml", "-"}, std::string(64 * MEBIBYTE + 1, '\n')),
              troubled("standard input: larger than 64 MiB (the limit for a script)"));
    EXPECT_EQ(
        run({"edit", "in.xml", "-e", "add action x spdAction=TRANSPORT keyMgr=IKE ikePhase1/presharedKey=@large"}),
        troubled("-e:1: the file for ikePhase1/presharedKey: larger than 64 MiB (the limit for a key file)"));
    EXPECT_EQ(run({"check", "in.xml", "--algorithms=large"}), troubled(tooLargeFor + "list of algorithms)"));
}

// The sanitizers' run-time library reserves more memory than any limit that means something here.
#ifndef SANITIZED

bool startsWithin(rlim_t bytes)
{
    const rlimit limit = {bytes, bytes};
    return run({"--version"}, "", [&] { setrlimit(RLIMIT_AS, &limit); }).status == 0;
}

TEST_F(MaxSize, IsAllTheMemoryThatReadingTakes)
{
    rlim_t least = MEBIBYTE;
    while (!startsWithin(least))
        least += MEBIBYTE;
    for (const std::size_t size : {16 * MEBIBYTE, 50 * MEBIBYTE, 64 * MEBIBYTE}) {
        // While the last step copies, what is read stands twice, but the second time only in the half of it.
        const rlimit limit = {least + size + size / 2 + MEBIBYTE, least + size + size / 2 + MEBIBYTE};
        EXPECT_EQ(
            run({"format", "/dev/zero", "--max-size", std::to_string(size)}, "", [&] { setrlimit(RLIMIT_AS, &limit); }),
            tooLarge("/dev/zero", std::to_string(size / MEBIBYTE) + " MiB"));
    }
}

#endif

} // namespace
