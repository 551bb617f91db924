#include <analytics/WindowBlankingChanges.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <analytics/Mutex.h>
#include <tavrel/core/IniFile.h>
#include <tavrel/settings/IChangeCallback.h>
#include <tavrel/settings/TavrelSettingsClient.h>

#include "platform/DeliveryGate.h"
#include "platform/ScopedLock.h"
#include "platform/WindowBlankingRegions.h"

namespace analytics {
namespace {

using tavrel::core::IniFile;
using tavrel::settings::TavrelSettingsClient;

constexpr int kRegionsKind = 4;
constexpr int kRegionsSize = static_cast<int>(sizeof(tagWindowBlankingRegions));

static_assert(sizeof(tagWindowBlankingRegion) == 12, "subscribers know the entry's size");
static_assert(sizeof(tagWindowBlankingRegions) == 388, "subscribers know the record's size");
static_assert(offsetof(tagWindowBlankingRegions, count) == 0, "the count comes first");
static_assert(offsetof(tagWindowBlankingRegions, regions) == 4, "the entries follow the count");
static_assert(offsetof(tagWindowBlankingRegion, y) == 0, "luma comes first");
static_assert(offsetof(tagWindowBlankingRegion, u) == 4, "Cb follows luma");
static_assert(offsetof(tagWindowBlankingRegion, v) == 8, "Cr follows Cb");

struct SubscriberEntry {
  WindowBlankingCallback callback;  // may be null
  void* context;

  bool operator==(const SubscriberEntry& other) const {
    return callback == other.callback && context == other.context;
  }

  void Call(const tagWindowBlankingRegions& regions) const {
    if (callback)
      callback(context, kRegionsKind, const_cast<tagWindowBlankingRegions*>(&regions),
               kRegionsSize);
  }
};

/// The state behind the facade, and what the platform calls back.
///
/// Destroying it does not end a subscription to the platform: that is what `Stop` is for. A change
/// may be in delivery then, which would find the settings gone while the client still lives.
class WindowBlankingChangesImpl : public tavrel::settings::IChangeCallback {
 public:
  WindowBlankingChangesImpl();
  ~WindowBlankingChangesImpl() override { m_gate.Close(); }

  WindowBlankingChangesImpl(const WindowBlankingChangesImpl&) = delete;
  WindowBlankingChangesImpl& operator=(const WindowBlankingChangesImpl&) = delete;

  void OnSettingsChanged(TavrelSettingsClient* source, const IniFile& changes) override;

  void Subscribe(const SubscriberEntry& subscriber);
  void Unsubscribe(const SubscriberEntry& subscriber);
  void Start();
  void Stop();
  void SetConfiguration(const tagWindowBlankingRegions& regions);

 private:
  void TryRefresh();
  void Notify(const tagWindowBlankingRegions& regions) const;

  // First, so that it outlives the client: changes come until that is destroyed.
  DeliveryGate m_gate;
  const WindowBlankingRegions m_reader;
  std::vector<SubscriberEntry> m_subscribers;  // under m_mutex
  Mutex m_mutex;
  tagWindowBlankingRegions m_regions;  // under m_mutex
  TavrelSettingsClient m_client;       // under m_mutex
  IniFile m_settings;                  // under m_mutex
  std::uint32_t m_groupCount = 0;      // under m_mutex
  bool m_started = false;              // under m_mutex
};

// Deliberate: the mode by its number. SDKs name the modes as they like; the platform that is
// installed sees 0 here, and 1 from the resource server.
WindowBlankingChangesImpl::WindowBlankingChangesImpl()
    : m_mutex(true), m_regions(), m_client(static_cast<TavrelSettingsClient::OperationMode>(0)) {}

void WindowBlankingChangesImpl::OnSettingsChanged(TavrelSettingsClient* /*source*/,
                                                  const IniFile& changes) {
  const DeliveryGate::Passage passage(m_gate);
  if (!passage.IsOpen()) return;
  const ScopedLock lock(m_mutex);
  try {
    m_settings.MergeSettings(changes);
    TryRefresh();
    Notify(m_regions);
  } catch (...) {  // protects the platform's thread from the platform and from subscribers
  }
}

void WindowBlankingChangesImpl::Subscribe(const SubscriberEntry& subscriber) {
  const ScopedLock lock(m_mutex);
  m_subscribers.push_back(subscriber);
  if (m_regions.count != 0) subscriber.Call(m_regions);
}

void WindowBlankingChangesImpl::Unsubscribe(const SubscriberEntry& subscriber) {
  const ScopedLock lock(m_mutex);
  const auto found = std::find(m_subscribers.begin(), m_subscribers.end(), subscriber);
  if (found != m_subscribers.end()) m_subscribers.erase(found);
}

void WindowBlankingChangesImpl::Start() {
  const ScopedLock lock(m_mutex);
  if (m_started) return;
  const std::string pattern = std::string(kWindowBlankingGroup) + "*";
  m_client.GetSettings(pattern, m_settings);
  m_client.Subscribe(this, pattern);
  TryRefresh();
  m_started = true;
}

void WindowBlankingChangesImpl::Stop() {
  const ScopedLock lock(m_mutex);
  if (!m_started) return;
  m_client.UnSubscribe(this);
  m_started = false;
}

void WindowBlankingChangesImpl::SetConfiguration(const tagWindowBlankingRegions& regions) {
  const ScopedLock lock(m_mutex);
  Notify(regions);
}

/// Brings the record up to date, or leaves it as far as it got. m_mutex held.
void WindowBlankingChangesImpl::TryRefresh() {
  try {
    m_reader.Refresh(m_settings, m_groupCount, m_regions);
  } catch (...) {  // protects subscribers: those of a started subscription are called in any case
  }
}

/// Calls all subscribers in their order. m_mutex held.
void WindowBlankingChangesImpl::Notify(const tagWindowBlankingRegions& regions) const {
  // By index and with a copy: a callback may subscribe or unsubscribe where the mutex allows it.
  // NOLINTNEXTLINE(modernize-loop-convert): a range would not see the list change.
  for (std::size_t index = 0; index < m_subscribers.size(); ++index) {
    const SubscriberEntry subscriber = m_subscribers[index];
    subscriber.Call(regions);
  }
}

// When the library is unloaded the facade is deleted first, then the implementation.
std::unique_ptr<WindowBlankingChangesImpl> s_pImpl;

}  // namespace

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
std::auto_ptr<WindowBlankingChanges> WindowBlankingChanges::m_sInstance;
#pragma GCC diagnostic pop

WindowBlankingChanges::WindowBlankingChanges() = default;

WindowBlankingChanges::~WindowBlankingChanges() = default;

WindowBlankingChanges* WindowBlankingChanges::Instance() {
  // Deliberate: no lock, so the first call has to be made before several threads can reach this.
  // Kept for compatibility: installed platforms see no call of a mutex here.
  if (!m_sInstance.get()) {
    s_pImpl = std::make_unique<WindowBlankingChangesImpl>();
    m_sInstance.reset(new WindowBlankingChanges);
  }
  return m_sInstance.get();
}

void WindowBlankingChanges::Subscribe(WindowBlankingCallback callback, void* context) const {
  s_pImpl->Subscribe({callback, context});
}

void WindowBlankingChanges::Unsubscribe(WindowBlankingCallback callback, void* context) const {
  s_pImpl->Unsubscribe({callback, context});
}

void WindowBlankingChanges::Start() const { s_pImpl->Start(); }

void WindowBlankingChanges::Stop() const { s_pImpl->Stop(); }

void WindowBlankingChanges::SetConfiguration(const tagWindowBlankingRegions& regions) const {
  if (regions.count != 0) s_pImpl->SetConfiguration(regions);
}

}  // namespace analytics
