#pragma once

#include <iostream>

#include <nlohmann/json.hpp>

namespace settingsctl {

/// Keeps the order in which members were added.
using Json = nlohmann::ordered_json;

/// Writes a document to standard output, indented; bytes that are not UTF-8 are replaced.
inline void PrintJson(const Json& json) {
  std::cout << json.dump(2, ' ', false, Json::error_handler_t::replace) << "\n";
}

/// Writes one line, for output that arrives piece by piece.
inline void PrintJsonLine(const Json& json) {
  std::cout << json.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
}

}  // namespace settingsctl
