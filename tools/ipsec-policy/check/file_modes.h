#ifndef IPSEC_POLICY_FILE_MODES_H
#define IPSEC_POLICY_FILE_MODES_H

#include "findings.h"

#include <string>
#include <string_view>
#include <vector>

/// Looks who else can read, change or replace the file, which holds keys if `document` does. Standard input, devices
/// and pipes are left alone.
void checkFileModes(const std::string& fileName, std::string_view document, Findings& findings);

std::vector<const Rule*> fileModeRules();

#endif
