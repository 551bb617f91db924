#include "tests/settings/ServedFile.h"

#include <map>
#include <memory>
#include <sstream>

#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/xmlIO.h>

namespace tests {
namespace {

std::map<std::string, std::string>& Served() {
  static std::map<std::string, std::string> served;
  return served;
}

int IsServed(const char* path) { return Served().count(path) > 0 ? 1 : 0; }

void* Open(const char* path) { return new std::istringstream(Served().at(path)); }

int Read(void* file, char* buffer, int length) {
  std::istream& text = *static_cast<std::istringstream*>(file);
  text.read(buffer, length);
  return static_cast<int>(text.gcount());
}

int Close(void* file) {
  delete static_cast<std::istringstream*>(file);
  return 0;
}

}  // namespace

void ServeFile(const std::string& path, const std::string& text) {
  const bool isFirst = Served().empty();
  Served()[path] = text;
  // Callbacks registered last are asked first, so the machine's own file is never looked at.
  xmlInitParser();
  if (!isFirst) return;
  ASSERT_LE(0, xmlRegisterInputCallbacks(IsServed, Open, Read, Close));
}

}  // namespace tests
