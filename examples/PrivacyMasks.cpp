#include "PrivacyMasks.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <string>

#include <poll.h>
#include <unistd.h>

#include <analytics/WindowBlankingChanges.h>

#include "Printing.h"

namespace examples {
namespace {

using analytics::WindowBlankingChanges;

std::string Text(const tagWindowBlankingRegion& region) {
  return "Y " + std::to_string(region.y) + "  U " + std::to_string(region.u) + "  V " +
         std::to_string(region.v);
}

// The library calls this on the platform's thread with its lock held, so it prints and returns.
int ShowRecord(void* /*context*/, int /*kind*/, void* data, int /*size*/) {
  const auto& record = *static_cast<const tagWindowBlankingRegions*>(data);
  Line(1) << "masks: " << record.count << "\n";
  std::for_each(record.regions, record.regions + record.count,
                [](const tagWindowBlankingRegion& region) { Line(2) << Text(region) << "\n"; });
  std::cout.flush();
  return 0;
}

volatile std::sig_atomic_t s_stopped = 0;

void StopWatching(int /*signal*/) { s_stopped = 1; }

// Ctrl-C and a polite kill end the wait; they are let through only while it waits, so that none is
// missed.
sigset_t CatchSignals() {
  sigset_t caught;
  sigemptyset(&caught);
  sigset_t former;
  for (const int signal : {SIGINT, SIGTERM}) {
    sigaddset(&caught, signal);
    std::signal(signal, StopWatching);
  }
  pthread_sigmask(SIG_BLOCK, &caught, &former);
  return former;
}

// Whether there is something left to wait for on standard input.
bool InputGoesOn(const sigset_t& waiting) {
  pollfd input{STDIN_FILENO, POLLIN, 0};
  if (ppoll(&input, 1, nullptr, &waiting) < 0) return errno == EINTR;
  char ignored[256];
  return read(STDIN_FILENO, ignored, sizeof ignored) > 0;
}

}  // namespace

void WatchPrivacyMasks() {
  // Before the subscription, so that the platform's thread inherits the blocked signals.
  const sigset_t waiting = CatchSignals();
  WindowBlankingChanges* changes = WindowBlankingChanges::Instance();
  changes->Start();
  Heading("Privacy masks, until the end of input or Ctrl-C");
  std::cout.flush();
  changes->Subscribe(ShowRecord, nullptr);
  while (s_stopped == 0 && InputGoesOn(waiting)) {
  }
  changes->Stop();
  changes->Unsubscribe(ShowRecord, nullptr);
  Line(1) << "subscription ended\n";
}

}  // namespace examples
