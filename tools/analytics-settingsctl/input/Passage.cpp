#include "input/Passage.h"

#include <algorithm>
#include <utility>

namespace settingsctl {
namespace {

// The library searches from the beginning after each replacement, so both count.
constexpr std::size_t kLongestText = std::size_t{1} << 20U;
constexpr std::size_t kMostReferences = 10000;

}  // namespace

bool Passage::Next() {
  if (m_isTooLong || !PassToReference() || !TakeName()) return false;
  ++m_references;
  ForgetTouchedValues();
  return !FindCycle();
}

void Passage::PutInValue(const std::string& value) {
  m_open.push_back({m_name, Key(), m_done.size(), m_left.size()});
  m_openKeys.insert(m_open.back().key);
  Append(value);
}

void Passage::PutInResult(const std::string& text, std::size_t length, std::size_t references) {
  m_hidden += length - text.size();
  m_references += references - 1;  // that of the variable itself was counted when it was reached
  Append(text);
}

Expansion Passage::Result() {
  Expansion expansion;
  expansion.text = std::move(m_done);
  expansion.text.append(m_left.rbegin(), m_left.rend());
  expansion.length = expansion.text.size() + m_hidden;
  expansion.references = m_references;
  expansion.cycle = std::move(m_cycle);
  expansion.isTooLong = m_isTooLong;
  return expansion;
}

/// Moves what stands before the next reference to what is done; false if there is none.
bool Passage::PassToReference() {
  while (!m_left.empty()) {
    const std::size_t size = m_left.size();
    if (size >= 2 && m_left[size - 1] == '$' && m_left[size - 2] == '{') return true;
    m_done += m_left.back();
    m_left.pop_back();
  }
  return false;
}

/// Takes the reference away and keeps its name; false where the substitution stops at it.
bool Passage::TakeName() {
  const std::size_t end = m_left.rfind('}');
  if (end == std::string::npos) return false;
  m_name.assign(m_left.rbegin() + 2, m_left.rend() - static_cast<std::ptrdiff_t>(end) - 1);
  if (m_name.empty()) return false;
  m_left.resize(end);
  return true;
}

void Passage::Append(const std::string& text) {
  m_left.append(text.rbegin(), text.rend());
  // A "$" that was passed before becomes the start of a reference by a text that starts with "{".
  if (FollowsDollar() && !m_left.empty() && m_left.back() == '{') {
    m_done.pop_back();
    m_left += '$';
  }
  const std::size_t length = m_done.size() + m_left.size() + m_hidden;
  m_isTooLong = m_isTooLong || length > kLongestText || m_references > kMostReferences;
}

void Passage::ForgetTouchedValues() {
  while (!m_open.empty() &&
         (m_left.size() < m_open.back().behind || m_done.size() < m_open.back().before)) {
    m_openKeys.erase(m_open.back().key);
    m_open.pop_back();
  }
}

bool Passage::FindCycle() {
  const std::string key = Key();
  if (m_openKeys.count(key) == 0) return false;
  const auto first = std::find_if(m_open.begin(), m_open.end(),
                                  [&key](const OpenValue& open) { return open.key == key; });
  for (auto open = first; open != m_open.end(); ++open) m_cycle.push_back(open->name);
  m_cycle.push_back(m_name);
  return true;
}

}  // namespace settingsctl
