#include "output/Messages.h"

#include <iostream>

#include "output/TextWidth.h"

namespace settingsctl {

void PrintMessage(const std::string& message) {
  std::cout.flush();
  std::cerr << "analytics-settingsctl: " << Printable(message) << "\n";
}

}  // namespace settingsctl
