#pragma once

#include <string>

namespace tavrel {
namespace settings {

/// All of a file; one that does not exist has no text.
///
/// Errors: a `std::runtime_error` that names the file and the reason. What is not a regular file,
/// such as a pipe or a device, is not even opened: that could wait for ever or have an effect.
std::string TextOfRegularFile(const std::string& path);

}  // namespace settings
}  // namespace tavrel
