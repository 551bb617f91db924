#include "platform/DeliveryGate.h"

#include <unistd.h>

namespace analytics {

DeliveryGate::Passage::Passage(DeliveryGate& gate)
    : m_gate(gate), m_thread(std::this_thread::get_id()) {
  // Before the mutex, so that a child of fork() never waits for one that its parent held.
  m_gate.m_process = getpid();
  const std::lock_guard<std::mutex> lock(m_gate.m_mutex);
  m_next = m_gate.m_last;
  m_gate.m_last = this;
}

DeliveryGate::Passage::~Passage() {
  const std::lock_guard<std::mutex> lock(m_gate.m_mutex);
  Passage** link = &m_gate.m_last;
  while (*link != this) link = &(*link)->m_next;
  *link = m_next;
  m_gate.m_left.notify_all();
}

void DeliveryGate::Close() {
  // In this order: a delivery that has not come yet when its process is looked at finds it closed.
  m_isClosed = true;
  if (m_process != getpid()) return;
  std::unique_lock<std::mutex> lock(m_mutex);
  if (IsWithin(std::this_thread::get_id())) return;
  m_left.wait(lock, [this] { return !m_last; });
}

/// Whether a thread is within a delivery. m_mutex held.
bool DeliveryGate::IsWithin(std::thread::id thread) const {
  const Passage* passage = m_last;
  while (passage && passage->m_thread != thread) passage = passage->m_next;
  return passage != nullptr;
}

}  // namespace analytics
