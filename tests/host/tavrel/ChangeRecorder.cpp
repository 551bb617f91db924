#include "tests/host/tavrel/ChangeRecorder.h"

#include <chrono>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace tests {

using tavrel::core::IniFile;
using tavrel::settings::TavrelSettingsClient;

ChangeRecorder::ChangeRecorder(std::function<void()> duringDelivery)
    : m_duringDelivery(std::move(duringDelivery)) {}

void ChangeRecorder::OnSettingsChanged(TavrelSettingsClient* source, const IniFile& changes) {
  m_duringDelivery();
  const std::lock_guard<std::mutex> lock(m_mutex);
  m_source = source;
  m_changes.push_back(changes);
  m_arrival.notify_all();
}

IniFile ChangeRecorder::Next() {
  std::unique_lock<std::mutex> lock(m_mutex);
  const bool hasCome =
      m_arrival.wait_for(lock, std::chrono::seconds(30), [this] { return !m_changes.empty(); });
  EXPECT_TRUE(hasCome) << "no change was delivered";
  if (!hasCome) return {};
  const IniFile change = m_changes.front();
  m_changes.pop_front();
  return change;
}

void ChangeRecorder::WaitForValue(const std::string& group, const std::string& key,
                                  const std::string& value) {
  IniFile seen;
  for (std::string now; now != value && !testing::Test::HasFailure();) {
    seen.MergeSettings(Next());
    now.clear();
    seen.TryGetValue(now, group, key);
  }
}

bool ChangeRecorder::StaysSilentFor(std::chrono::milliseconds time) {
  std::unique_lock<std::mutex> lock(m_mutex);
  return !m_arrival.wait_for(lock, time, [this] { return !m_changes.empty(); });
}

bool ChangeRecorder::HasNext() const {
  const std::lock_guard<std::mutex> lock(m_mutex);
  return !m_changes.empty();
}

TavrelSettingsClient* ChangeRecorder::Source() const {
  const std::lock_guard<std::mutex> lock(m_mutex);
  return m_source;
}

}  // namespace tests
