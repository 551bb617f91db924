#include <clocale>
#include <cstdlib>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
  // No test depends on what the machine happens to have: tests that need a settings file name it.
  setenv("ANALYTICS_INI", "/nonexistent/analytics.ini", 1);
  setenv("ANALYTICS_TRACE", "0", 1);
  // As a runtime may do: nothing here depends on how its user writes numbers. Tests read messages.
  std::setlocale(LC_ALL, "");
  std::setlocale(LC_MESSAGES, "C");
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
