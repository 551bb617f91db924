// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
#pragma once

#include <stdint.h>  // NOLINT(modernize-deprecated-headers): C programs read this header too

/// Colour of one active window-blanking region, BT.601 limited range where the library gives it.
struct tagWindowBlankingRegion {
  int32_t y;  ///< luma, 16 to 235
  int32_t u;  ///< blue-difference chroma Cb, 16 to 240
  int32_t v;  ///< red-difference chroma Cr, 16 to 240
};

/// The active window-blanking regions (privacy masks), 388 bytes in native byte order.
///
/// Entries are packed: entry i is the (i + 1)th active region, whatever its number.
struct tagWindowBlankingRegions {
  uint32_t count;  ///< number of valid entries; 0 to 31 when the library fills the record
  /// Only the first `count` entries mean anything; those after them keep what they held before.
  struct tagWindowBlankingRegion regions[32];
};

/// Receives window-blanking regions.
///
/// @param context  what was given when subscribing
/// @param kind     always 4
/// @param data     a `tagWindowBlankingRegions`, valid only during the call
/// @param size     always 388, the size of the record in bytes
/// @return ignored
/// @relates analytics::WindowBlankingChanges
// NOLINTNEXTLINE(modernize-use-using): C programs read this header too.
typedef int (*WindowBlankingCallback)(void* context, int kind, void* data, int size);

#ifdef __cplusplus

#include <memory>

#include <analytics/Export.h>

namespace analytics {

/// Reports changes of the camera's window-blanking regions (privacy masks) to subscribers.
///
/// One set of subscribers for the process. `Instance()` must have been called before any other
/// operation, also by a caller that makes an object of its own; the objects themselves hold
/// nothing.
///
/// A record can be an old one: it never proves what the camera blanks now. Regions have numbers
/// from 1, and the first missing number ends them; one is active if it has a name other than
/// "Empty".
///
/// | The camera's settings                                | Record after a change or `Start` |
/// |------------------------------------------------------|----------------------------------|
/// | switched on, region 1 exists, 0 to 31 regions active | the active regions               |
/// | switched on, all 32 regions active                   | as before: old count and colours |
/// | switched on, region 1 does not exist                 | as before: old count and colours |
/// | off, region 1 existed when last seen switched on     | count 0                          |
/// | off, region 1 did not exist then, or never on        | as before: old count and colours |
///
/// At first the count is 0. From `Stop()` to the next `Start()` the record stays.
///
/// Ownership: the library owns the instance until it is unloaded or the process exits. Contexts are
/// never freed.
///
/// Leaving: `exit()` and unloading wait for a change in delivery, which still calls subscribers,
/// also after `Stop()`. So before a context dies call `Unsubscribe`, which waits for a running
/// round and after which the subscriber is not called, then `Stop()`. During a change a subscriber
/// may call `exit()`; a child forked then may as well, but no operation here. Forbidden, as they
/// hang or crash: `exit()` in a subscriber that `Subscribe` or `SetConfiguration` calls, unloading
/// from a subscriber, waiting in one for the thread that exits or unloads, any call from then on.
///
/// Errors: what the platform throws reaches the caller of `Instance`, `Start` and `Stop`, what a
/// subscriber throws that of `Subscribe` and `SetConfiguration`; `std::bad_alloc` too. Within a
/// change nothing gets out: one that cannot be merged reaches nobody, unreadable regions leave the
/// record as far as it got, perhaps also when switched off next, and a subscriber that throws ends
/// the round. An exception out of the platform's mutex ends the process through the
/// unexpected-exception handler.
///
/// Threads: any, once `Instance()` has returned for the first time, which must happen before
/// several threads can reach it. Subscribers are called under the lock of all other operations, on
/// the caller's thread or one of the platform's: they return promptly and never wait for another
/// thread that uses this object. Where the platform's mutex is recursive they may call this object
/// on their own thread; where it cannot be taken, all goes on without it.
class ANALYTICS_API WindowBlankingChanges {
 public:
  WindowBlankingChanges();
  ~WindowBlankingChanges();

  /// The one instance; the first call that does not throw makes it and connects to the platform.
  static WindowBlankingChanges* Instance();

  /// Appends a subscriber, again if it is one already, and calls it at once unless the record's
  /// count is 0. A null callback is kept and never called.
  void Subscribe(WindowBlankingCallback callback, void* context) const;

  /// Removes the first subscriber with this callback and context; without one nothing changes.
  void Unsubscribe(WindowBlankingCallback callback, void* context) const;

  /// Reads the regions and subscribes to their changes; nothing if already started. Calls no
  /// subscriber. May be tried again if it throws.
  void Start() const;

  /// Ends the subscription to the platform; nothing if not started. Subscribers are kept.
  void Stop() const;

  /// Hands a record to all subscribers: the caller's own, not a copy, whatever its count. It is
  /// neither stored nor written to the platform. A record with count 0 is handed to nobody.
  void SetConfiguration(const tagWindowBlankingRegions& regions) const;

 private:
  // Deleted when the library is unloaded. Where clang's libc++ has no std::auto_ptr another pointer
  // stands for it: the type is no part of the symbol.
#if defined(_LIBCPP_VERSION) && __cplusplus >= 201703L && \
    !defined(_LIBCPP_ENABLE_CXX17_REMOVED_AUTO_PTR)
  static std::unique_ptr<WindowBlankingChanges> m_sInstance;
#else
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
  static std::auto_ptr<WindowBlankingChanges> m_sInstance;
#pragma GCC diagnostic pop
#endif
};

}  // namespace analytics

#endif
