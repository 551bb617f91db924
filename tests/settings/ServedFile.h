#pragma once

#include <string>

namespace tests {

constexpr char kBuiltInPath[] = "/usr/local/kestal/analytics/conf/analytics.ini";

/// Has libxml2 find `text` under exactly this path, which need not exist on the machine.
///
/// It stays so for the rest of the process: for use in a fresh process only.
void ServeFile(const std::string& path, const std::string& text);

}  // namespace tests
