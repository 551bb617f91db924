#include <tavrel/core/IniFile.h>

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdlib>
#include <iterator>

namespace tavrel {
namespace core {
namespace {

std::string LowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return text;
}

struct TruthWord {
  const char* word;
  bool truth;
};

// Without a destructor: clients deliver changes until the very end of a process.
constexpr TruthWord kTruthWords[] = {{"true", true},   {"yes", true}, {"on", true},   {"1", true},
                                     {"false", false}, {"no", false}, {"off", false}, {"0", false}};

bool ToBool(const std::string& text, bool otherwise) {
  const auto* const found =
      std::find_if(std::begin(kTruthWords), std::end(kTruthWords),
                   [&](const TruthWord& entry) { return text == entry.word; });
  return found != std::end(kTruthWords) ? found->truth : otherwise;
}

int ToInt(const std::string& text, int otherwise) {
  // The conversion would skip leading blanks, and takes an empty text for 0.
  if (text.empty() || std::isspace(static_cast<unsigned char>(text.front()))) return otherwise;
  char* end = nullptr;
  // What is out of range here becomes the limit, which no int reaches.
  const long long number = std::strtoll(text.c_str(), &end, 10);
  const bool isWhole = end == text.c_str() + text.size();
  if (!isWhole || number < INT_MIN || number > INT_MAX) return otherwise;
  return static_cast<int>(number);
}

}  // namespace

IniFile::IniFile() = default;

IniFile::IniFile(const IniFile& other) = default;

IniFile& IniFile::operator=(const IniFile& other) = default;

IniFile::~IniFile() = default;

bool IniFile::HasGroup(const std::string& group) const { return m_groups.count(group) > 0; }

bool IniFile::TryGetValue(std::string& out, const std::string& group,
                          const std::string& key) const {
  const auto keys = m_groups.find(group);
  if (keys == m_groups.end()) return false;
  const auto found = keys->second.find(key);
  if (found == keys->second.end()) return false;
  out = found->second;
  return true;
}

bool IniFile::GetBoolOrDefault(const std::string& group, const std::string& key,
                               bool defaultValue) const {
  std::string text;
  return TryGetValue(text, group, key) ? ToBool(LowerCase(text), defaultValue) : defaultValue;
}

int IniFile::GetIntOrDefault(const std::string& group, const std::string& key,
                             int defaultValue) const {
  std::string text;
  return TryGetValue(text, group, key) ? ToInt(text, defaultValue) : defaultValue;
}

void IniFile::MergeSettings(const IniFile& other) {
  for (const auto& group : other.m_removedGroups) RemoveGroup(group);
  for (const auto& key : other.m_removedKeys) RemoveKey(key.first, key.second);
  for (const auto& group : other.m_groups) {
    AddGroup(group.first);
    for (const auto& key : group.second) SetValue(group.first, key.first, key.second);
  }
}

const IniFile::Groups& IniFile::AllGroups() const { return m_groups; }

void IniFile::AddGroup(const std::string& group) {
  m_groups[group];
  m_removedGroups.erase(group);
}

void IniFile::SetValue(const std::string& group, const std::string& key, const std::string& value) {
  m_groups[group][key] = value;
  m_removedKeys.erase({group, key});
  m_removedGroups.erase(group);
}

void IniFile::RemoveGroup(const std::string& group) {
  m_removedGroups.insert(group);
  m_groups.erase(group);
}

void IniFile::RemoveKey(const std::string& group, const std::string& key) {
  m_removedKeys.insert({group, key});
  const auto keys = m_groups.find(group);
  if (keys != m_groups.end()) keys->second.erase(key);
}

const std::set<std::string>& IniFile::RemovedGroups() const { return m_removedGroups; }

const std::set<std::pair<std::string, std::string>>& IniFile::RemovedKeys() const {
  return m_removedKeys;
}

}  // namespace core
}  // namespace tavrel
