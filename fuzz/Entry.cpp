#include "fuzz/Entry.h"

#include <cstdio>
#include <cstdlib>

#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include "fuzz/Call.h"
#include "fuzz/Target.h"

namespace {

/// Keeps the traces, libxml2's reports and the library's messages off the terminal: hardly any
/// input is without one, and writing them would take most of the time.
void SilenceMessages() {
  setenv("ANALYTICS_TRACE", "0", 1);
  xmlSetStructuredErrorFunc(nullptr, [](void* /*context*/, auto* /*error*/) {});
  if (!std::freopen("/dev/null", "w", stdout)) std::abort();
}

}  // namespace

int LLVMFuzzerInitialize(int* /*argumentCount*/, char*** /*arguments*/) {
  fuzz::SetUpMemory();
  xmlInitParser();
  SilenceMessages();
  fuzz::SetUp();
  return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::RunInput(data, size);
  xmlResetLastError();  // else its texts look like a leak of this input
  return 0;
}
