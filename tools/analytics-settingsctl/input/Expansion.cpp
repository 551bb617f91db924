#include "input/Expansion.h"

#include <algorithm>

namespace settingsctl {
namespace {

// The library searches from the beginning after each replacement, so both count.
constexpr std::size_t kLongestText = std::size_t{256} << 10U;
constexpr std::size_t kMostReferences = 10000;

/// A value that has been put in and is not yet wholly passed.
///
/// As long as what stood before and behind it is untouched, all that happens comes from the value
/// alone: if the same name is looked up again, all of it will happen again, for ever. Text around
/// it that is used up on the way comes to an end, and the substitution with it.
struct OpenValue {
  std::string name;
  std::size_t before;  // length of the text before it
  std::size_t behind;  // length of the text behind it
};

/// Passes through a text from its beginning as the substitution does, which searches all of its
/// result again after each replacement: nothing before the first reference ever changes.
class Passage {
 public:
  Passage(const std::string& text, const VariableLookup& lookup)
      : m_left(text.rbegin(), text.rend()), m_lookup(lookup) {}

  Expansion Run() {
    while (PassTo("${") && TakeName() && PutIn()) {
    }
    m_expansion.text.append(m_left.rbegin(), m_left.rend());
    return std::move(m_expansion);
  }

 private:
  /// Moves what stands before the next reference to the result; false if there is none.
  bool PassTo(const std::string& start) {
    std::string& done = m_expansion.text;
    while (!m_left.empty() && !StartsHere(start)) {
      done += m_left.back();
      m_left.pop_back();
    }
    return !m_left.empty();
  }

  bool StartsHere(const std::string& start) const {
    return m_left.size() >= 2 && m_left.back() == start[0] && m_left[m_left.size() - 2] == start[1];
  }

  /// Takes the reference away and keeps its name; false where the substitution stops at it.
  bool TakeName() {
    // The text is kept back to front, so that its beginning can be taken off cheaply.
    const std::size_t end = m_left.rfind('}');
    if (end == std::string::npos) return false;
    m_name.assign(m_left.rbegin() + 2, m_left.rend() - static_cast<std::ptrdiff_t>(end) - 1);
    if (m_name.empty()) return false;
    m_left.resize(end);
    return true;
  }

  /// Puts in the value of the name just taken; false if that must not go on.
  bool PutIn() {
    m_expansion.names.push_back(m_name);
    ForgetTouchedValues();
    if (FindCycle()) return false;
    m_open.push_back({m_name, m_expansion.text.size(), m_left.size()});
    const std::string value = m_lookup(m_name);
    m_left.append(value.rbegin(), value.rend());
    RejoinDollar();
    m_expansion.isTooLong = m_left.size() + m_expansion.text.size() > kLongestText ||
                            m_expansion.names.size() >= kMostReferences;
    return !m_expansion.isTooLong;
  }

  /// A "$" that was passed before becomes the start of a reference by a value that starts with "{".
  void RejoinDollar() {
    std::string& done = m_expansion.text;
    if (done.empty() || done.back() != '$' || m_left.empty() || m_left.back() != '{') return;
    done.pop_back();
    m_left += '$';
  }

  void ForgetTouchedValues() {
    while (!m_open.empty() && (m_left.size() < m_open.back().behind ||
                               m_expansion.text.size() < m_open.back().before)) {
      m_open.pop_back();
    }
  }

  bool FindCycle() {
    const auto first = std::find_if(m_open.begin(), m_open.end(),
                                    [&](const OpenValue& open) { return open.name == m_name; });
    if (first == m_open.end()) return false;
    for (auto open = first; open != m_open.end(); ++open) m_expansion.cycle.push_back(open->name);
    m_expansion.cycle.push_back(m_name);
    return true;
  }

  std::string m_left;  // back to front
  std::string m_name;
  std::vector<OpenValue> m_open;
  const VariableLookup& m_lookup;
  Expansion m_expansion;
};

}  // namespace

Expansion TryExpansion(const std::string& text, const VariableLookup& lookup) {
  return Passage(text, lookup).Run();
}

std::string CycleText(const std::vector<std::string>& cycle) {
  std::string text;
  for (const std::string& name : cycle) text += (text.empty() ? "" : " -> ") + name;
  return text;
}

}  // namespace settingsctl
