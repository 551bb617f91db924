#include "host/tavrel-settings/StoreReading.h"

#include <cstddef>
#include <sstream>

#include "host/tavrel-settings/GlibPtr.h"

namespace tavrel {
namespace settings {
namespace {

using core::IniFile;

/// Loads a text into `file`.
///
/// @return why that failed; empty if it did not
std::string Load(GKeyFile* file, const std::string& text) {
  // GLib takes a text for ended there and would lose the rest of the line.
  if (text.find('\0') != std::string::npos) return "The line contains a null byte";
  GError* error = nullptr;
  // Without this flag keys such as "Name[de]" are left out, according to the user's language.
  g_key_file_load_from_data(file, text.data(), text.size(), G_KEY_FILE_KEEP_TRANSLATIONS, &error);
  const GlibPtr<GError> owned(error);
  return owned ? owned->message : "";
}

std::string LoadProblem(const std::string& text) {
  return Load(GlibPtr<GKeyFile>(g_key_file_new()).get(), text);
}

/// The name of the group that a well-formed line starts; empty if it starts none.
std::string GroupStartedBy(const std::string& line) {
  const std::size_t start = line.find_first_not_of(" \t\r\f");
  if (start == std::string::npos || line[start] != '[') return "";
  return line.substr(start + 1, line.find(']', start) - start - 1);
}

/// What of the lines before a line decides whether it is well-formed: whether it is in a group, and
/// whether that is the first one, where GLib takes the key "Encoding" for the text's own.
class LinesBefore {
 public:
  void Add(const std::string& line) {
    const std::string group = GroupStartedBy(line);
    if (group.empty()) return;
    if (m_first.empty()) m_first = group;
    m_headers = group == m_first ? "[A]\n" : "[A]\n[B]\n";
  }

  /// The shortest lines that decide the same.
  const std::string& Headers() const { return m_headers; }

 private:
  std::string m_first;
  std::string m_headers;
};

/// Finds the first line of a text that does not load, which GLib does not tell. Each line is loaded
/// once: to load all lines before it, too, would take minutes where there are many.
[[noreturn]] void ThrowMalformed(const std::string& text, const std::string& path) {
  std::istringstream lines(text);
  std::size_t number = 0;
  LinesBefore before;
  std::string problem;
  for (std::string line; problem.empty() && std::getline(lines, line); before.Add(line)) {
    // The last one as it ends: before a line break GLib takes off a carriage return, else not.
    problem = LoadProblem(before.Headers() + line + (lines.eof() ? "" : "\n"));
    ++number;
  }
  throw MalformedStore(path + ":" + std::to_string(number) + ": " + problem);
}

void CopyKeys(GKeyFile* file, const char* group, IniFile& to) {
  const GlibPtr<char*> keys(g_key_file_get_keys(file, group, nullptr, nullptr));
  for (char** key = keys.get(); *key; ++key) {
    const GlibPtr<char> value(g_key_file_get_value(file, group, *key, nullptr));
    to.SetValue(group, *key, value.get());
  }
}

IniFile Copied(GKeyFile* file) {
  IniFile settings;
  const GlibPtr<char*> groups(g_key_file_get_groups(file, nullptr));
  for (char** group = groups.get(); *group; ++group) {
    settings.AddGroup(*group);
    CopyKeys(file, *group, settings);
  }
  return settings;
}

/// Whether a text is read as nothing but `expected`.
bool IsReadAs(const IniFile& expected, const std::string& text) {
  const GlibPtr<GKeyFile> file(g_key_file_new());
  return Load(file.get(), text).empty() && Copied(file.get()).AllGroups() == expected.AllGroups();
}

}  // namespace

IniFile ParsedStore(const std::string& text, const std::string& path) {
  const GlibPtr<GKeyFile> file(g_key_file_new());
  if (!Load(file.get(), text).empty()) ThrowMalformed(text, path);
  return Copied(file.get());
}

bool IsHoldable(const std::string& group) {
  IniFile expected;
  expected.AddGroup(group);
  return IsReadAs(expected, "[" + group + "]\n");
}

bool IsHoldable(const std::string& group, const std::string& key, const std::string& value) {
  IniFile expected;
  expected.SetValue(group, key, value);
  return IsReadAs(expected, "[" + group + "]\n" + key + "=" + value + "\n");
}

}  // namespace settings
}  // namespace tavrel
