#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

#include <sys/types.h>

namespace analytics {

/// Has the end of an object wait for the deliveries to it that are in progress, and turns away
/// those that come later.
///
/// It is no lock. Deliveries pass side by side, so that one that waits behind the gate for a lock
/// does not keep back another, which may be made by the thread that holds that lock.
class DeliveryGate {
 public:
  /// A delivery, for a scope.
  class Passage {
   public:
    explicit Passage(DeliveryGate& gate);
    ~Passage();

    Passage(const Passage&) = delete;
    Passage& operator=(const Passage&) = delete;

    /// Whether the object is still whole, and remains so to the end of the scope.
    bool IsOpen() const { return !m_gate.m_isClosed; }

   private:
    friend class DeliveryGate;

    DeliveryGate& m_gate;
    const std::thread::id m_thread;
    Passage* m_next = nullptr;  // under m_gate.m_mutex
  };

  /// Turns away deliveries from now on and waits until those that passed before have left. Does not
  /// wait within a delivery, where a subscriber has called `exit()`, nor for the deliveries of a
  /// parent process, whose threads a child of `fork()` does not have.
  void Close();

 private:
  bool IsWithin(std::thread::id thread) const;

  std::atomic<bool> m_isClosed{false};
  std::atomic<pid_t> m_process{0};  // the last one in which a delivery came
  std::mutex m_mutex;
  std::condition_variable m_left;
  Passage* m_last = nullptr;  // the head of a list, the last to come first; under m_mutex
};

}  // namespace analytics
