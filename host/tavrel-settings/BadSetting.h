#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace tavrel {
namespace settings {

/// A value that cannot be what it is asked for. The store, which knows the line, reports it.
struct BadSetting : std::runtime_error {
  BadSetting(const std::string& problem, std::string itsGroup, std::string itsKey)
      : std::runtime_error(problem), group(std::move(itsGroup)), key(std::move(itsKey)) {}

  const std::string group;
  const std::string key;
};

}  // namespace settings
}  // namespace tavrel
