#include <string>

#include <gtest/gtest.h>

#include "tests/document/GlobalLocale.h"
#include "tests/document/TestDocuments.h"
#include "tests/support/FailingAllocation.h"

namespace analytics {
namespace {

using tests::WithEachAllocationFailing;

/// Texts here are too long for the buffer within a string object.
class ANodeOutOfMemory : public testing::Test {
 protected:
  ParsedDocument m_document{
      "<r><a t='a text that is long enough' n='                    12.5 m'>"
      "                    12 px</a></r>"};
  DocumentNode m_node = NodeAt(m_document, "a");
  const std::string m_before = RootDump(m_document);
  const std::string m_text = "t";
  const std::string m_number = "n";
};

TEST_F(ANodeOutOfMemory, GivesNoText) {
  std::string text;
  WithEachAllocationFailing([&] { text = m_node.GetValue(); });
  EXPECT_EQ("                    12 px", text);
}

TEST_F(ANodeOutOfMemory, GivesNoInteger) {
  int number = 0;
  WithEachAllocationFailing([&] { number = m_node.GetValue(7); });
  EXPECT_EQ(12, number);
}

TEST_F(ANodeOutOfMemory, GivesNoAttribute) {
  std::string text;
  WithEachAllocationFailing([&] { text = m_node.GetProperty(m_text); });
  EXPECT_EQ("a text that is long enough", text);
}

TEST_F(ANodeOutOfMemory, GivesNoIntegerOfAnAttribute) {
  int number = 0;
  WithEachAllocationFailing([&] { number = m_node.GetProperty(m_number, 7); });
  EXPECT_EQ(12, number);
}

TEST_F(ANodeOutOfMemory, GivesNoFloatingNumberOfAnAttribute) {
  double number = 0;
  WithEachAllocationFailing([&] { number = m_node.GetNumericProperty(m_number, 7); });
  EXPECT_EQ(12.5, number);
}

TEST_F(ANodeOutOfMemory, GivesNoFloatingNumberOfAShortAttribute) {
  m_node.SetProperty("n", "12.5");
  double number = 0;
  WithEachAllocationFailing([&] { number = m_node.GetNumericProperty(m_number, 7); });
  EXPECT_EQ(12.5, number);
}

TEST_F(ANodeOutOfMemory, GivesNoDump) {
  std::string text;
  WithEachAllocationFailing([&] { text = m_node.DumpToString(); });
  EXPECT_EQ(m_before, "<r>" + text + "</r>");
}

TEST_F(ANodeOutOfMemory, AddsNoChildWhoseHandleCannotBeMade) {
  const std::string name = "b";
  const std::string value = "a text that is long enough";
  tests::NodePtr child;
  WithEachAllocationFailing([&] { child.reset(m_node.AddNewChild(name, value)); });
  ASSERT_TRUE(child);
  EXPECT_EQ(1U, tests::All(m_document, "a/*").size());
}

TEST_F(ANodeOutOfMemory, AddsNoChildOfAnIntegerWhoseHandleCannotBeMade) {
  const std::string name = "b";
  tests::NodePtr child;
  WithEachAllocationFailing([&] { child.reset(m_node.AddNewChild(name, 5)); });
  ASSERT_TRUE(child);
  EXPECT_EQ(1U, tests::All(m_document, "a/*").size());
}

/// A stream prepares a locale at its first number and keeps what it prepared.
class ANodeOutOfMemoryInANewLocale : public ANodeOutOfMemory {
 protected:
  /// Runs an operation, with a locale that no number has been written or read in yet.
  template <typename Operation>
  static void InANewLocale(Operation operation) {
    const GlobalLocale grouping(new GroupedNumbers);
    WithEachAllocationFailing(operation);
  }
};

TEST_F(ANodeOutOfMemoryInANewLocale, WritesNoWrongText) {
  InANewLocale([this] { m_node.SetValue(1234); });
  EXPECT_EQ("1,234", m_node.GetValue());
}

TEST_F(ANodeOutOfMemoryInANewLocale, WritesNoWrongAttribute) {
  InANewLocale([this] { m_node.SetProperty(m_number, 1234); });
  EXPECT_EQ("1,234", m_node.GetProperty("n"));
}

TEST_F(ANodeOutOfMemoryInANewLocale, AddsNoChildOfAWrongText) {
  const std::string name = "b";
  tests::NodePtr child;
  InANewLocale([&] { child.reset(m_node.AddNewChild(name, 1234)); });
  EXPECT_EQ("1,234", child->GetValue());
  EXPECT_EQ(1U, tests::All(m_document, "a/*").size());
}

TEST_F(ANodeOutOfMemoryInANewLocale, ReadsNoWrongNumber) {
  m_node.SetProperty("n", "1,234");
  int number = 0;
  InANewLocale([&] { number = m_node.GetProperty(m_number, 7); });
  EXPECT_EQ(1234, number);
}

}  // namespace
}  // namespace analytics
