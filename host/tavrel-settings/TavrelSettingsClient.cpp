#include <tavrel/settings/TavrelSettingsClient.h>

#include <map>
#include <mutex>

#include "host/tavrel-settings/ChangeWatcher.h"
#include "host/tavrel-settings/Comparison.h"
#include "host/tavrel-settings/Store.h"
#include "host/tavrel-settings/StorePath.h"

namespace tavrel {
namespace settings {

using core::IniFile;

class TavrelSettingsClient::Impl {
 public:
  /// What the store holds of the groups that match a pattern, kept as what was given for it.
  IniFile::Groups Give(const std::string& pattern);

  void Subscribe(TavrelSettingsClient* client, IChangeCallback* callback,
                 const std::string& pattern);
  void UnSubscribe(const IChangeCallback* callback);

 private:
  IniFile::Groups Stored(const std::string& pattern) const;
  IniFile::Groups Known(const std::string& pattern) const;
  ChangeWatcher& StartedWatcher(TavrelSettingsClient* client);

  const std::string m_store = NamedStore();  // may lead elsewhere each time it is read
  mutable std::mutex m_mutex;
  std::map<std::string, IniFile::Groups> m_given;  // by pattern; under m_mutex
  std::unique_ptr<ChangeWatcher> m_watcher;        // made once, under m_mutex
};

IniFile::Groups TavrelSettingsClient::Impl::Give(const std::string& pattern) {
  // Held while reading, so that what was read later is also kept later.
  const std::lock_guard<std::mutex> lock(m_mutex);
  IniFile::Groups stored = Stored(pattern);
  m_given[pattern] = stored;
  return stored;
}

void TavrelSettingsClient::Impl::Subscribe(TavrelSettingsClient* client, IChangeCallback* callback,
                                           const std::string& pattern) {
  ChangeWatcher& watcher = StartedWatcher(client);  // first, so that no change falls in between
  watcher.Subscribe(callback, pattern, Known(pattern));
}

void TavrelSettingsClient::Impl::UnSubscribe(const IChangeCallback* callback) {
  const std::lock_guard<std::mutex> lock(m_mutex);
  if (m_watcher) m_watcher->UnSubscribe(callback);
}

IniFile::Groups TavrelSettingsClient::Impl::Stored(const std::string& pattern) const {
  return Matching(pattern, Store(m_store).Read().AllGroups());
}

IniFile::Groups TavrelSettingsClient::Impl::Known(const std::string& pattern) const {
  {
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto given = m_given.find(pattern);
    if (given != m_given.end()) return given->second;
  }
  return Stored(pattern);
}

ChangeWatcher& TavrelSettingsClient::Impl::StartedWatcher(TavrelSettingsClient* client) {
  const std::lock_guard<std::mutex> lock(m_mutex);
  if (!m_watcher) m_watcher = std::make_unique<ChangeWatcher>(client, m_store);
  return *m_watcher;
}

TavrelSettingsClient::TavrelSettingsClient(OperationMode /*mode*/)
    : m_impl(std::make_unique<Impl>()) {}

TavrelSettingsClient::~TavrelSettingsClient() = default;

void TavrelSettingsClient::GetSettings(const std::string& pattern, IniFile& out) const {
  out = Changes(IniFile::Groups(), m_impl->Give(pattern));
}

void TavrelSettingsClient::Subscribe(IChangeCallback* callback, const std::string& pattern) {
  m_impl->Subscribe(this, callback, pattern);
}

void TavrelSettingsClient::UnSubscribe(IChangeCallback* callback) { m_impl->UnSubscribe(callback); }

}  // namespace settings
}  // namespace tavrel
