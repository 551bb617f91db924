#include "host/tavrel-settings/StoreText.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <sstream>

namespace tavrel {
namespace settings {
namespace {

const char* const kBlanks = " \t\r\f";

/// What stands before the value: the key, the equals sign and the blanks around them.
std::string BeforeValue(const std::string& line) {
  return line.substr(0, line.find_first_not_of(kBlanks, line.find('=') + 1));
}

}  // namespace

StoreText::StoreText(const std::string& text) {
  std::istringstream lines(text);
  std::string group;
  for (std::string line; std::getline(lines, line); group = m_lines.back().group)
    m_lines.push_back(Read(line, group));
}

void StoreText::Apply(const core::IniFile& changes) {
  for (const std::string& group : changes.RemovedGroups())
    Remove([&](const Line& line) { return line.group == group; });
  for (const auto& removed : changes.RemovedKeys())
    Remove([&](const Line& line) {
      return line.group == removed.first && line.key == removed.second;
    });
  for (const auto& group : changes.AllGroups()) {
    AddGroup(group.first);
    for (const auto& key : group.second) SetValue(group.first, key.first, key.second);
  }
}

std::string StoreText::Text() const {
  std::string text;
  for (const Line& line : m_lines) text += line.text + "\n";
  return text;
}

std::ptrdiff_t StoreText::LineOf(const std::string& group, const std::string& key) const {
  const auto sets = [&](const Line& line) { return line.group == group && line.key == key; };
  return std::distance(std::find_if(m_lines.rbegin(), m_lines.rend(), sets), m_lines.rend());
}

StoreText::Line StoreText::Read(const std::string& text, const std::string& group) {
  const std::size_t start = text.find_first_not_of(kBlanks);
  if (start == std::string::npos || text[start] == '#') return {text, group, "", true};
  const std::string content = text.substr(start);
  if (content.front() == '[') return {text, content.substr(1, content.find(']') - 1), "", false};
  const std::string key = content.substr(0, content.find('='));
  return {text, group, key.substr(0, key.find_last_not_of(kBlanks) + 1), false};
}

/// Removes the settings that are meant. Comments stay: one at the end of a group may be about the
/// next group.
template <typename Condition>
void StoreText::Remove(const Condition& isMeant) {
  m_lines.erase(std::remove_if(m_lines.begin(), m_lines.end(),
                               [&](const Line& line) { return !line.isComment && isMeant(line); }),
                m_lines.end());
}

void StoreText::AddGroup(const std::string& group) {
  if (EndOf(group) != m_lines.begin()) return;
  const bool needsBlank = !m_lines.empty() && !m_lines.back().text.empty();
  if (needsBlank) m_lines.push_back({"", m_lines.back().group, "", true});
  m_lines.push_back({"[" + group + "]", group, "", false});
}

void StoreText::SetValue(const std::string& group, const std::string& key,
                         const std::string& value) {
  if (ReplaceValue(group, key, value)) return;
  m_lines.insert(EndOf(group), {key + "=" + value, group, key, false});
}

/// Sets the key wherever it stands; the last one counts.
bool StoreText::ReplaceValue(const std::string& group, const std::string& key,
                             const std::string& value) {
  bool isFound = false;
  for (Line& line : m_lines) {
    if (line.group != group || line.key != key) continue;
    line.text = BeforeValue(line.text) + value;
    isFound = true;
  }
  return isFound;
}

/// Behind the last setting of a group, or of its header; the start if there is no such group.
StoreText::Lines::iterator StoreText::EndOf(const std::string& group) {
  return std::find_if(m_lines.rbegin(), m_lines.rend(),
                      [&](const Line& line) { return !line.isComment && line.group == group; })
      .base();
}

}  // namespace settings
}  // namespace tavrel
