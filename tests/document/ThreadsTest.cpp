#include <thread>

#include <gtest/gtest.h>

#include "tests/document/TestDocuments.h"

namespace analytics {
namespace {

/// Opens, queries and edits documents of its own; gives the sum of what it read.
int Work() {
  int sum = 0;
  for (int round = 0; round < 100; ++round) {
    ParsedDocument document("<r><a>1</a><a>2</a></r>");
    const tests::NodePtr child(NodeAt(document, "/r").AddNewChild("b", round));
    sum += document.GetSingleValue("b", 0, nullptr) + document.DeleteNodes("a");
  }
  return sum;
}

TEST(DifferentDocuments, AreUsedByDifferentThreadsOnceOneHasParsed) {
  const ParsedDocument first("<a/>");  // libxml2 takes the thread it meets first for the main one
  int sums[] = {0, 0};
  std::thread one([&sums] { sums[0] = Work(); });
  std::thread other([&sums] { sums[1] = Work(); });
  one.join();
  other.join();
  EXPECT_EQ(4950 + 200, sums[0]);
  EXPECT_EQ(4950 + 200, sums[1]);
}

}  // namespace
}  // namespace analytics
