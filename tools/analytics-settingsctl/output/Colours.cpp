#include "output/Colours.h"

#include <cstdlib>
#include <cstring>

#include <unistd.h>

namespace settingsctl {
namespace {

const char* CodeOf(Style style) {
  switch (style) {
    case Style::kBold:
      return "1";
    case Style::kDim:
      return "2";
    case Style::kGood:
      return "32";
    case Style::kWarning:
      return "33";
    case Style::kBad:
      return "31";
  }
  return "0";
}

/// A variable that is set to something; an empty one counts as not set.
bool IsSet(const char* name) {
  const char* const value = std::getenv(name);
  return value && *value != '\0';
}

}  // namespace

bool HasColours() {
  const char* const terminal = std::getenv("TERM");
  return isatty(STDOUT_FILENO) != 0 && !IsSet("NO_COLOR") && terminal && *terminal != '\0' &&
         std::strcmp(terminal, "dumb") != 0;
}

std::string Styled(Style style, const std::string& text) {
  if (!HasColours() || text.empty()) return text;
  return std::string("\033[") + CodeOf(style) + "m" + text + "\033[0m";
}

}  // namespace settingsctl
