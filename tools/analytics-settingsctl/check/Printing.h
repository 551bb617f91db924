#pragma once

#include <vector>

#include "check/Findings.h"

namespace settingsctl {

/// How findings and checks are shown.
struct PrintOptions {
  bool asJson = false;
  bool withHints = false;
};

/// Prints one line a finding, "file:line: severity: message [check-name]", as compilers do.
void PrintFindings(const std::vector<Finding>& findings, const PrintOptions& options);

/// Prints all checks.
void PrintChecks(const PrintOptions& options);

/// Prints one check with its hint and example.
void PrintCheck(const Check& check);

}  // namespace settingsctl
