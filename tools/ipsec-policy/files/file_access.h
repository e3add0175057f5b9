#ifndef IPSEC_POLICY_FILE_ACCESS_H
#define IPSEC_POLICY_FILE_ACCESS_H

/// \file
/// Who may do what with a file that takes another one's place. At no moment the new file lets anybody do what the
/// old one does not. Messages call the new file `fileName`.

#include <string>

/// Gives the empty file `to`, which is its owner's alone, all that the file `from` has beside its content and its
/// times: owner and group, mode, access control list, extended attributes.
void keepAccess(int from, int to, const std::string& fileName);

/// Gives the empty file `to`, which is its owner's alone, the owner and group of the file `from`, and the owner what he
/// may do there, but nobody else anything.
void keepOwnersAccess(int from, int to, const std::string& fileName);

#endif
