#pragma once

#include <string>

namespace files {

/// The directory that a path's last part is in.
std::string DirectoryOf(const std::string& path);

/// The file that a path leads to through symbolic links, whether it exists yet or not.
///
/// Errors: links that lead to each other give a `std::system_error` with `ELOOP`.
std::string LinkTarget(const std::string& path);

}  // namespace files
