#pragma once

#include <string>

#include <tavrel/core/IniFile.h>

namespace tavrel {
namespace settings {

/// Reads the text of a store.
///
/// Errors: a malformed line gives a `std::runtime_error` whose message starts with "FILE:LINE: ".
///
/// @param path  names the file in messages
core::IniFile ParsedStore(const std::string& text, const std::string& path);

/// Whether a group, and a key with its value in it, come back from a file as they are.
bool IsHoldable(const std::string& group);
bool IsHoldable(const std::string& group, const std::string& key, const std::string& value);

}  // namespace settings
}  // namespace tavrel
