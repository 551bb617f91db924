#pragma once

#include <stdexcept>
#include <string>

#include <tavrel/core/IniFile.h>

namespace tavrel {
namespace settings {

/// A store that has a malformed line; the message starts with "FILE:LINE: ".
class MalformedStore : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Reads the text of a store, in time that its length sets, also when it is malformed.
///
/// Errors: a malformed line gives a `MalformedStore`.
///
/// @param path  names the file in messages
core::IniFile ParsedStore(const std::string& text, const std::string& path);

/// Whether a group, and a key with its value in it, come back from a file as they are.
bool IsHoldable(const std::string& group);
bool IsHoldable(const std::string& group, const std::string& key, const std::string& value);

}  // namespace settings
}  // namespace tavrel
