#ifndef IPSEC_POLICY_FILES_H
#define IPSEC_POLICY_FILES_H

/// \file
/// Reading and writing whole files. Everything here throws a Failure that names the file.

#include "blocks.h"

#include <cstddef>
#include <string>
#include <string_view>

/// What is read of a file at most, unless the operator wants more: 64 MiB.
inline constexpr std::size_t USUAL_MAX_SIZE = std::size_t{64} * 1024 * 1024;

/// What is at the other end of `-`.
bool isStandardStream(const std::string& fileName);

/// Everything in the file, or on standard input for "-". A pipe cannot take back a character as the parser wants it,
/// memory can. More than `maxSize` bytes are a Failure, for which no more memory than that is taken; it says that
/// --max-size allows more, as it does for documents.
std::string readFile(const std::string& fileName, std::size_t maxSize);

/// The same of what is no document, such as a "script": USUAL_MAX_SIZE is the limit whatever is asked for.
std::string readFileBeside(const std::string& fileName, const char* what);

/// The same of a file whose name is not to be told: messages call it `shown`.
std::string readFileBeside(const std::string& fileName, const char* what, const std::string& shown);

/// The rest of the open file `descriptor`, a document that the messages call `fileName`.
std::string readAll(int descriptor, const std::string& fileName, std::size_t maxSize);

/// Whether the open file `descriptor` holds `text` and nothing else.
bool holds(int descriptor, std::string_view text, const std::string& fileName);

/// Writes all of `text` to the open file `descriptor`, which the messages call `fileName`.
void writeAll(int descriptor, std::string_view text, const std::string& fileName);

/// Writes all of `text` to standard output and closes it: some file systems report only then that they failed.
void writeStandardOutput(std::string_view text);
void writeStandardOutput(const Blocks& text);

/// Puts `text` into a new file for its owner alone, whole or not at all. What exists by that name is left alone. Where
/// the file system can do that in no other way, the file grows in its place.
void createFile(const std::string& fileName, std::string_view text);

/// Puts `text` into the file, whole or not at all: it is written to a temporary file beside it that then takes its
/// place, with the mode, owner and attributes that the file had, or for its owner alone if it is new. Nor is a file
/// replaced that is being edited. Symbolic links are
/// followed, but not to nowhere. What is no regular file, such as a device, is written to as it stands.
void replaceFile(const std::string& fileName, std::string_view text);

#endif
