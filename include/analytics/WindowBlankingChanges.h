#pragma once

#include <stdint.h>  // NOLINT(modernize-deprecated-headers): C programs read this header too

/// Colour of one active window-blanking region, BT.601 limited range.
struct tagWindowBlankingRegion {
  int32_t y;  ///< luma, 16 to 235
  int32_t u;  ///< blue-difference chroma Cb, 16 to 240
  int32_t v;  ///< red-difference chroma Cr, 16 to 240
};

/// The window-blanking regions (privacy masks) that are active, 388 bytes in native byte order.
///
/// Entries are packed: entry i is the (i + 1)th active region, whatever the platform's number of
/// it.
struct tagWindowBlankingRegions {
  uint32_t count;  ///< number of valid entries; 0 to 31 when the library fills the record
  /// Only the first `count` entries mean anything; those behind keep what they held before.
  struct tagWindowBlankingRegion regions[32];
};

/// Is told of window-blanking regions.
///
/// @param context  what was given when subscribing
/// @param kind     always 4
/// @param data     a `tagWindowBlankingRegions`, valid only during the call
/// @param size     always 388, the size of the record in bytes
/// @return ignored
// NOLINTNEXTLINE(modernize-use-using): C programs read this header too.
typedef int (*WindowBlankingCallback)(void* context, int kind, void* data, int size);

#ifdef __cplusplus

#include <memory>

#include <analytics/Export.h>

namespace analytics {

/// Keeps subscribers informed about the camera's window-blanking regions (privacy masks).
///
/// One set of subscribers for the process. `Instance()` must have been called before any other
/// operation, also by a caller that makes an object of its own; the objects themselves hold
/// nothing.
///
/// Ownership: the library owns the instance until it is unloaded; a subscription still in force
/// then is not ended first, so call `Stop()` before unloading. A change that is being delivered can
/// outlast `Stop()`; unload the library only once none is. Subscribers' contexts are never freed.
///
/// Errors: what the platform throws reaches the caller of `Start` and `Stop`, what a subscriber
/// throws the caller of `Subscribe` and `SetConfiguration`. Within a change that the platform
/// reports nothing gets out: the first subscriber that throws ends that round of calls. An
/// exception out of the platform's mutex ends the process through the unexpected-exception handler.
///
/// Threads: any, once `Instance()` has returned for the first time, which must happen before
/// several threads can reach it. Subscribers are called with the lock held that all operations
/// take, on the caller's thread or on one of the platform's: they return promptly, and never wait
/// for another thread that uses this object. Where the platform's mutex is recursive they may call
/// this object on their own thread.
class ANALYTICS_API WindowBlankingChanges {
 public:
  WindowBlankingChanges();
  ~WindowBlankingChanges();

  /// The one instance; the first call makes it and connects to the platform.
  static WindowBlankingChanges* Instance();

  /// Appends a subscriber and, if regions are known, calls it at once.
  ///
  /// @param callback  may be null: the entry is kept and never called. A pair subscribed twice is
  ///                  called twice.
  /// @param context   passed to the callback as it is
  void Subscribe(WindowBlankingCallback callback, void* context) const;

  /// Removes the first subscriber with this callback and context; without one nothing changes.
  void Unsubscribe(WindowBlankingCallback callback, void* context) const;

  /// Reads the regions and subscribes to their changes; nothing if already started. Calls no
  /// subscriber. May be tried again if it throws.
  void Start() const;

  /// Ends the subscription to the platform; nothing if not started. Regions and subscribers are
  /// kept.
  void Stop() const;

  /// Hands a record to all subscribers: the caller's own, not a copy. It is neither stored nor
  /// written to the platform. A record with count 0 is handed to nobody.
  void SetConfiguration(const tagWindowBlankingRegions& regions) const;

 private:
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
  static std::auto_ptr<WindowBlankingChanges> m_sInstance;  // deleted when the library is unloaded
#pragma GCC diagnostic pop
};

}  // namespace analytics

#endif
