#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

#include <tavrel/core/IniFile.h>
#include <tavrel/settings/IChangeCallback.h>

namespace tests {

/// Keeps the changes that it is told of.
class ChangeRecorder : public tavrel::settings::IChangeCallback {
 public:
  /// @param duringDelivery  called in each delivery, before the change is kept
  explicit ChangeRecorder(std::function<void()> duringDelivery = [] {});

  void OnSettingsChanged(tavrel::settings::TavrelSettingsClient* source,
                         const tavrel::core::IniFile& changes) override;

  /// Waits for the next change; if none comes in half a minute the test fails.
  tavrel::core::IniFile Next();

  /// Waits until the changes from here on give a key a value.
  void WaitForValue(const std::string& group, const std::string& key, const std::string& value);

  /// Whether there is no change for a while, nor one that nobody has waited for.
  bool StaysSilentFor(std::chrono::milliseconds time);

  /// Whether there is a change that nobody has waited for.
  bool HasNext() const;

  /// Who told of the last change.
  tavrel::settings::TavrelSettingsClient* Source() const;

 private:
  const std::function<void()> m_duringDelivery;
  mutable std::mutex m_mutex;
  std::condition_variable m_arrival;
  std::deque<tavrel::core::IniFile> m_changes;                // under m_mutex
  tavrel::settings::TavrelSettingsClient* m_source{nullptr};  // under m_mutex
};

}  // namespace tests
