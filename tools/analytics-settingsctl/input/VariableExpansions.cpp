#include "input/VariableExpansions.h"

#include <utility>

namespace settingsctl {
namespace {

// Passing through letters takes time too.
constexpr std::size_t kLettersOfAStep = 64;

bool StartsWithBrace(const std::string& text) { return !text.empty() && text.front() == '{'; }

bool HoldsReference(const std::string& text) { return text.find("${") != std::string::npos; }

/// A text that joins what stands around it as `text`, which holds no start of a reference, does:
/// only its first and its last letter count.
std::string Shortened(const std::string& text) {
  if (text.size() <= 3) return text;
  return std::string{text.front(), '-', text.back()};
}

}  // namespace

const VariableExpansion& VariableExpansions::Of(const std::string& name) {
  if (m_expanded.count(name) == 0) Begin(name);
  while (!m_frames.empty()) Step();
  return m_expanded.at(name);
}

void VariableExpansions::Begin(const std::string& name) {
  m_begun.insert(name);
  m_frames.push_back({name, Passage("${" + name + "}"), false, {}});
}

void VariableExpansions::Step() {
  Frame& frame = m_frames.back();
  if (!frame.isWaiting && !frame.passage.Next()) return Finish();
  frame.isWaiting = !PutIn(frame);
  if (frame.isWaiting) Begin(std::string(frame.passage.Name()));
}

void VariableExpansions::Finish() {
  Frame frame = std::move(m_frames.back());
  m_frames.pop_back();
  m_begun.erase(frame.name);
  VariableExpansion expanded = {frame.passage.Result(), std::move(frame.brokenBy)};
  // In place of a text without end stands one that starts as it does and joins nothing behind it.
  if (expanded.IsBrokenItself()) {
    expanded.expansion.text = StartsWithBrace(expanded.expansion.text) ? "{-" : "-";
  }
  m_expanded[frame.name] = std::move(expanded);
}

/// Puts in what the frame's passage has come to; false if that must be expanded first.
bool VariableExpansions::PutIn(Frame& frame) {
  const std::string& name = frame.passage.Name();
  const std::string* const value = m_variables.Find(name);
  // A variable that is being expanded has led here: only its value can show whether for ever.
  if (!value || m_begun.count(name) != 0) {
    PutInValue(frame, value);
    return true;
  }
  const auto expanded = m_expanded.find(name);
  if (expanded == m_expanded.end()) return false;
  const bool joins =
      frame.passage.FollowsDollar() && StartsWithBrace(expanded->second.expansion.text);
  // What joins the text before it is not what it would be alone.
  joins ? PutInValue(frame, value) : PutInResult(frame, expanded->second);
  return true;
}

void VariableExpansions::PutInValue(Frame& frame, const std::string* value) {
  frame.passage.PutInValue(value ? *value : std::string());
  const std::size_t cost = 1 + (value ? value->size() / kLettersOfAStep : 0);
  if (cost > m_stepsLeft) return frame.passage.GiveUp();
  m_stepsLeft -= cost;
}

void VariableExpansions::PutInResult(Frame& frame, const VariableExpansion& result) {
  const Expansion& expansion = result.expansion;
  if (frame.brokenBy.empty()) {
    const bool isBlamed = result.IsBrokenItself() && result.brokenBy.empty();
    frame.brokenBy = isBlamed ? frame.passage.Name() : result.brokenBy;
  }
  if (result.IsBrokenItself()) {
    return frame.passage.PutInResult(expansion.text, expansion.text.size(), 1);
  }
  const bool isAffordable = Spend(expansion.text.size());
  // The end of a broken reference cannot be shortened: what follows may complete it.
  if (!isAffordable && HoldsReference(expansion.text)) return frame.passage.GiveUp();
  frame.passage.PutInResult(isAffordable ? expansion.text : Shortened(expansion.text),
                            expansion.length, expansion.references);
}

bool VariableExpansions::Spend(std::size_t length) {
  const bool isAffordable = length <= m_textLeft;
  if (isAffordable) m_textLeft -= length;
  return isAffordable;
}

}  // namespace settingsctl
