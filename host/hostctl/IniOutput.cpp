#include "host/hostctl/IniOutput.h"

#include <map>
#include <string>

namespace hostctl {
namespace {

using tavrel::core::IniFile;

/// What to write below each group's header.
std::map<std::string, std::string> TextsByGroup(const IniFile& changes) {
  std::map<std::string, std::string> texts;
  for (const auto& [group, keys] : changes.AllGroups()) {
    std::string& text = texts[group];
    for (const auto& [key, value] : keys) text.append(key).append("=").append(value).append("\n");
  }
  for (const auto& [group, key] : changes.RemovedKeys())
    texts[group].append("- ").append(key).append("\n");
  return texts;
}

}  // namespace

void WriteSettings(std::ostream& out, const IniFile& settings) {
  const char* separator = "";
  for (const auto& [group, text] : TextsByGroup(settings)) {
    out << separator << "[" << group << "]\n" << text;
    separator = "\n";
  }
}

void WriteChanges(std::ostream& out, const IniFile& changes) {
  for (const std::string& group : changes.RemovedGroups()) out << "-[" << group << "]\n";
  WriteSettings(out, changes);
}

}  // namespace hostctl
