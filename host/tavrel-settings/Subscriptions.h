#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include <tavrel/core/IniFile.h>

namespace tavrel {
namespace settings {

class IChangeCallback;
class TavrelSettingsClient;

/// Who wants to be told of changes of which groups, and what each of them knows.
///
/// Threads: any, but only one delivers. No lock is held while a callback is called.
class Subscriptions {
  struct Subscription;

 public:
  using List = std::vector<std::shared_ptr<Subscription>>;

  /// @param source  what callbacks are told as the source of changes
  explicit Subscriptions(TavrelSettingsClient* source) : m_source(source) {}

  /// @param known  what the callback knows of the groups that match `pattern`
  void Add(IChangeCallback* callback, const std::string& pattern,
           const core::IniFile::Groups& known);

  /// Ends all subscriptions of a callback: no delivery to it is begun any more.
  void Remove(const IChangeCallback* callback);

  /// Ends all subscriptions.
  void Clear();

  /// The subscriptions that there are now.
  List Current() const;

  /// Tells each callback how the settings differ from what it knows. To be called after each `Add`.
  ///
  /// A subscription may end during a delivery to it, and one of the same callback be made that
  /// knows newer settings. The delivery then possibly puts older settings over these; the new
  /// subscription corrects that the next time.
  ///
  /// @param subscriptions  those that there were before the settings were read
  ///
  /// Errors: what a callback throws is swallowed.
  void DeliverChanges(const List& subscriptions, const core::IniFile& settings) const;

 private:
  IChangeCallback* CallbackOf(const Subscription& subscription) const;
  static core::IniFile TakeChanges(Subscription& subscription, const core::IniFile::Groups& groups);
  void Deliver(Subscription& subscription, const core::IniFile::Groups& groups) const;
  void NoteLateDelivery(const IChangeCallback* callback, const core::IniFile& changes) const;
  template <typename Condition>
  void End(const Condition& isMeant);

  TavrelSettingsClient* const m_source;
  mutable std::mutex m_mutex;
  List m_list;  // under m_mutex
};

}  // namespace settings
}  // namespace tavrel
