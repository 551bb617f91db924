#include "tests/support/XmlEntry.h"

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>

#include <dlfcn.h>
#include <execinfo.h>
#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

/// A sanitizer's, where there is one; it ends the process without a signal.
extern "C" void __sanitizer_set_death_callback(void (*callback)()) __attribute__((weak));

namespace tests {
namespace {

/// Where the code of libxml2 lies.
struct CodeRange {
  std::uintptr_t begin = 0;
  std::uintptr_t end = 0;
};

/// Takes the range of the library that holds a known function; gives whether it was this one.
int TakeRange(dl_phdr_info* library, std::size_t /*size*/, void* range) {
  const auto known = reinterpret_cast<std::uintptr_t>(dlsym(RTLD_DEFAULT, "xmlFreeDoc"));
  for (int index = 0; index < library->dlpi_phnum; ++index) {
    const ElfW(Phdr)& segment = library->dlpi_phdr[index];
    const std::uintptr_t begin = library->dlpi_addr + segment.p_vaddr;
    const CodeRange candidate{begin, begin + segment.p_memsz};
    if (segment.p_type != PT_LOAD || known < candidate.begin || known >= candidate.end) continue;
    *static_cast<CodeRange*>(range) = candidate;
    return 1;
  }
  return 0;
}

CodeRange RangeOfLibxml2() {
  CodeRange range;
  dl_iterate_phdr(TakeRange, &range);
  return range;
}

bool IsOfLibxml2(void* code) {
  static const CodeRange range = RangeOfLibxml2();
  const auto address = reinterpret_cast<std::uintptr_t>(code);
  return address >= range.begin && address < range.end;
}

/// Name of the exported function that holds this code.
const char* FunctionOf(void* code) {
  static void* s_lastCode = nullptr;
  static const char* s_lastName = nullptr;  // looking up a name takes its time
  if (code == s_lastCode) return s_lastName;
  Dl_info info{};
  const bool isFound = dladdr(code, &info) != 0 && info.dli_sname;
  s_lastCode = code;
  return s_lastName = isFound ? info.dli_sname : kUnnamedXmlFunction;
}

const char* Entry() {
  std::array<void*, 256> frames{};
  auto* const end = frames.begin() + backtrace(frames.data(), static_cast<int>(frames.size()));
  auto* const inner = std::find_if(frames.begin(), end, IsOfLibxml2);
  auto* const outside = std::find_if_not(inner, end, IsOfLibxml2);
  return inner == end ? kNoXmlFunction : FunctionOf(*std::prev(outside));
}

XmlEntries& MapEntries() {
  void* const shared =
      mmap(nullptr, sizeof(XmlEntries), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) std::abort();
  return *static_cast<XmlEntries*>(shared);
}

// Before the main function, so that every child process shares it.
XmlEntries& s_entries = MapEntries();

void NoteCrash() {
  alarm(10);  // where memory is spoilt, walking the stack may never end
  s_entries.crash = Entry();
}

}  // namespace

XmlEntries& SharedXmlEntries() { return s_entries; }

void NoteXmlEntryOfACrash() {
  const auto onSignal = [](int signal) {
    NoteCrash();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
  };
  for (const int signal : {SIGSEGV, SIGBUS, SIGABRT}) std::signal(signal, onSignal);
  if (__sanitizer_set_death_callback) __sanitizer_set_death_callback(NoteCrash);
}

void NoteXmlEntry() {
  XmlEntries& entries = SharedXmlEntries();
  const char* const name = Entry();
  auto* const end = entries.names.begin() + entries.count;
  const bool isNew = std::find(entries.names.begin(), end, name) == end;
  if (isNew && entries.count < XmlEntries::kMost) *(entries.names.begin() + entries.count++) = name;
}

}  // namespace tests
