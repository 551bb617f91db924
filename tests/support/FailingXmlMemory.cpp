#include "tests/support/FailingXmlMemory.h"

#include <cstddef>
#include <cstring>

#include <libxml/xmlmemory.h>

#include "tests/support/XmlBlocks.h"
#include "tests/support/XmlEntry.h"

// libxml2 scatters its names with this; without chance the n-th allocation is the same every time.
extern "C" int rand_r(unsigned int* /*seed*/) noexcept { return 0; }

namespace tests {
namespace {

thread_local FailureCount s_count;

bool NextFails() {
  if (!s_count.NextFails()) return false;
  NoteXmlEntry();
  return true;
}

void* Allocate(std::size_t size) { return NextFails() ? nullptr : XmlBlocks::Allocate(size); }

void* Resize(void* memory, std::size_t size) {
  return NextFails() ? nullptr : XmlBlocks::Resize(memory, size);
}

char* Copy(const char* text) {
  const std::size_t size = std::strlen(text) + 1;
  void* const copy = Allocate(size);
  return copy ? static_cast<char*>(std::memcpy(copy, text, size)) : nullptr;
}

// Before the main function, because libxml2 must not release what others have allocated.
const int kInstalled = xmlMemSetup(XmlBlocks::Release, Allocate, Resize, Copy);

void DropText(void* /*context*/, const char* /*format*/, ...) {}

}  // namespace

QuietXml::QuietXml()
    : m_handler(xmlStructuredError),
      m_context(xmlStructuredErrorContext),
      m_printer(xmlGenericError),
      m_printerContext(xmlGenericErrorContext) {
  // Constant from libxml2 2.12 on.
  xmlSetStructuredErrorFunc(nullptr, [](void* /*context*/, auto* /*error*/) {});
  xmlSetGenericErrorFunc(nullptr, DropText);
}

QuietXml::~QuietXml() {
  xmlSetGenericErrorFunc(m_printerContext, m_printer);
  xmlSetStructuredErrorFunc(m_context, m_handler);
}

FailingXmlMemory::FailingXmlMemory(int number, Shortage shortage) {
  SharedXmlEntries().count = 0;
  s_count.Begin(number, shortage);
}

FailingXmlMemory::~FailingXmlMemory() { s_count.End(); }

int FailingXmlMemory::Failures() const { return s_count.Failures(); }

std::vector<const char*> FailingXmlMemory::Calls() {
  const XmlEntries& entries = SharedXmlEntries();
  return {entries.names.begin(), entries.names.begin() + entries.count};
}

long FailingXmlMemory::Live() {
  xmlResetLastError();
  return XmlBlocks::Count();
}

long FailingXmlMemory::Now() { return XmlBlocks::Newest(); }

void FailingXmlMemory::ReleaseLost(long moment) { XmlBlocks::ReleaseNewerThan(moment); }

}  // namespace tests
