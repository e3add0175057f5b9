#include "file_modes.h"

#include "files.h"
#include "hidden.h"
#include "text.h"

#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include <sys/stat.h>

namespace {

const Rule KEYS_READABLE_BY_OTHERS = {
    "keys-readable-by-others",
    Level::ERROR,
    "Everybody can read a file with keys",
    "Whoever reads a pre-shared key can take the place of either end, and whoever\n"
    "reads a manual key can read and forge the traffic. Let the file be for its owner\n"
    "alone (chmod 600), and replace keys that others may have read. The program\n"
    "itself makes files like that, and opens none to more people than before.",
    "",
};

const Rule KEYS_READABLE_BY_GROUP = {
    "keys-readable-by-group",
    Level::NOTE,
    "The group can read a file with keys",
    "This is right where the key manager runs as a member of the group and nobody\n"
    "else is one. Where that is not so, let the file be for its owner alone (chmod\n"
    "600).",
    "",
};

const Rule WRITABLE_BY_OTHERS = {
    "writable-by-others",
    Level::ERROR,
    "Everybody can change the file",
    "Whoever changes the file decides which traffic is protected, and how. Let it be\n"
    "changed by its owner alone (chmod go-w).",
    "",
};

const Rule FOLDER_WRITABLE_BY_OTHERS = {
    "folder-writable-by-others",
    Level::WARNING,
    "Everybody can change a folder on the way to the file",
    "Whoever can write to a folder can put another file, or another folder, in the\n"
    "place of one in it, whomever that belongs to. This is about every folder on the\n"
    "way to the file. Take the permission away (chmod o-w), or let only owners remove\n"
    "what is in the folder (chmod +t).",
    "",
};

std::string shownMode(mode_t mode)
{
    char text[16];
    static_cast<void>(std::snprintf(text, sizeof text, "%04o", mode & 07777U));
    return text;
}

void add(Findings& findings, const Rule& rule, std::string message)
{
    Finding finding;
    finding.rule        = &rule;
    finding.message     = std::move(message);
    finding.isAboutFile = true;
    findings.push_back(std::move(finding));
}

void checkFile(mode_t mode, std::string_view document, Findings& findings)
{
    const std::string shown = " (mode " + shownMode(mode) + ")";
    if ((mode & S_IWOTH) != 0)
        add(findings, WRITABLE_BY_OTHERS,
            "Everybody can change this file" + shown + ": take that away with chmod go-w.");
    if ((mode & (S_IROTH | S_IRGRP)) == 0 || !holdsKeys(document))
        return;
    if ((mode & S_IROTH) != 0)
        add(findings, KEYS_READABLE_BY_OTHERS,
            "The file holds keys, and everybody can read it" + shown + ": take that away with chmod 600.");
    else
        add(findings, KEYS_READABLE_BY_GROUP,
            "The file holds keys, and its group can read it" + shown +
                ": see that only the key manager is in the group, or take that away with chmod 600.");
}

/// Looks at all folders up to the root, and tells of the first that is open.
bool checkFolders(std::filesystem::path folder, Findings& findings)
{
    for (;; folder = folder.parent_path()) {
        struct stat status = {};
        if (stat(folder.c_str(), &status) == 0 && (status.st_mode & S_IWOTH) != 0 && (status.st_mode & S_ISVTX) == 0) {
            add(findings, FOLDER_WRITABLE_BY_OTHERS,
                "Everybody can put another file in the place of this one, because the folder '" +
                    printable(folder.string()) + "' is open to all (mode " + shownMode(status.st_mode) +
                    "): take that away with chmod o-w.");
            return true;
        }
        if (folder == folder.parent_path())
            return false;
    }
}

} // namespace

void checkFileModes(const std::string& fileName, std::string_view document, Findings& findings)
{
    struct stat status = {};
    if (isStandardStream(fileName) || stat(fileName.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return;
    checkFile(status.st_mode, document, findings);

    // A link's own folder matters as much as that of the file.
    const std::filesystem::path name = fileName;
    std::error_code             error;
    const auto                  file = std::filesystem::canonical(name, error);
    if (error || checkFolders(file.parent_path(), findings))
        return;
    const auto folder = std::filesystem::canonical(std::filesystem::absolute(name, error).parent_path(), error);
    if (!error && folder != file.parent_path())
        checkFolders(folder, findings);
}

std::vector<const Rule*> fileModeRules()
{
    return {&KEYS_READABLE_BY_OTHERS, &KEYS_READABLE_BY_GROUP, &WRITABLE_BY_OTHERS, &FOLDER_WRITABLE_BY_OTHERS};
}
