#include "tests/support/Figures.h"

#include <cstdlib>
#include <cstring>
#include <iostream>

#include <gtest/gtest.h>
#include <sys/mman.h>

namespace tests {
namespace {

struct Figure {
  const char* name;  // null in the places that are still free
  long value;
};

constexpr int kPlaces = 32;

/// Memory that this process shares with the fresh ones that it starts; all zero at first.
Figure* SharedFigures() {
  void* const memory = mmap(nullptr, kPlaces * sizeof(Figure), PROT_READ | PROT_WRITE,
                            MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) std::abort();
  return static_cast<Figure*>(memory);
}

class FigurePrinter : public testing::Environment {
 public:
  void Add(const char* name, long amount) {
    Figure* figure = m_figures;
    while (figure->name && std::strcmp(figure->name, name) != 0) ++figure;
    if (figure == m_figures + kPlaces - 1) std::abort();  // the last place stays free
    figure->name = name;
    figure->value += amount;
  }

  void TearDown() override {
    if (!m_figures->name) return;
    std::cout << "figures:";
    for (const Figure* figure = m_figures; figure->name; ++figure) {
      std::cout << " " << figure->name << "=" << figure->value;
    }
    std::cout << std::endl;
  }

 private:
  Figure* const m_figures = SharedFigures();
};

// Registered before the tests run; gtest owns it from then on.
FigurePrinter* const kPrinter = [] {
  auto* const printer = new FigurePrinter;
  testing::AddGlobalTestEnvironment(printer);
  return printer;
}();

}  // namespace

void Count(const char* name, long amount) { kPrinter->Add(name, amount); }

}  // namespace tests
