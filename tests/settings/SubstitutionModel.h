#pragma once

#include <functional>
#include <string>

namespace tests {

/// The value of a variable; empty if there is none.
using Lookup = std::function<std::string(const std::string& name)>;

/// Substitution a second time, as a reader would do it who goes from character to character, never
/// back, and puts each value before what is still to be read.
///
/// The library searches the whole text anew for each reference; the two have no step in common.
inline std::string ModelOfSubstitution(std::string unread, const Lookup& valueOf) {
  std::string written;
  for (std::string::size_type next = 0; next < unread.size();) {
    const char character = unread[next++];
    if (character != '{' || written.empty() || written.back() != '$') {
      written += character;
      continue;
    }
    std::string name;
    while (next < unread.size() && unread[next] != '}') name += unread[next++];
    const bool isClosed = next < unread.size();
    if (!isClosed || name.empty()) return written.append("{").append(name).append(unread, next);
    written.pop_back();
    unread = valueOf(name) + unread.substr(next + 1);
    next = 0;
  }
  return written;
}

}  // namespace tests
