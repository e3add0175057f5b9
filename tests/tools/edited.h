#ifndef IPSECIMPL_TESTS_TOOLS_EDITED_H
#define IPSECIMPL_TESTS_TOOLS_EDITED_H

/// \file
/// EditedFile in the tests' own process.

#include "edited_file.h"
#include "failure.h"
#include "files.h"

#include <string>

/// What `action` failed with; empty if it did not.
template <class Action>
std::string failureOf(const Action& action)
{
    try {
        action();
        return {};
    } catch (const Failure& failure) {
        return failure.status == ExitStatus::TROUBLE ? failure.what() : std::string("of status 1: ") + failure.what();
    }
}

/// What comes of replacing the file's content; empty if all goes well.
inline std::string edit(const std::string& fileName, const std::string& text)
{
    return failureOf([&] { EditedFile(fileName, USUAL_MAX_SIZE).replace(text); });
}

inline std::string editKeeping(const BackupName& backup, const std::string& fileName, const std::string& text)
{
    return failureOf([&] { EditedFile(fileName, USUAL_MAX_SIZE).replace(text, backup); });
}

/// With a backup of that name, which is the usual one if it is what that would be called.
inline std::string edit(const std::string& fileName, const std::string& text, const std::string& backup)
{
    return editKeeping({backup, backup == usualBackup(fileName).text}, fileName, text);
}

/// What comes of opening the file for that.
inline std::string openForEditing(const std::string& fileName, std::size_t maxSize = USUAL_MAX_SIZE)
{
    return failureOf([&] { const EditedFile file(fileName, maxSize); });
}

#endif
