#include <gtest/gtest.h>
#include <libxml/tree.h>

#include <analytics/DocumentNode.h>

namespace {

int s_questions = 0;

}  // namespace

/// Takes the place of libxml2's in this program: counts how often it is asked for an attribute.
xmlAttr* xmlHasProp(const xmlNode* /*node*/, const xmlChar* /*name*/) {
  ++s_questions;
  return nullptr;
}

namespace analytics {
namespace {

class AnAttribute : public testing::Test {
 protected:
  AnAttribute() { s_questions = 0; }

  static void Read(DocumentNode node, const char* name) {
    EXPECT_EQ("", node.GetProperty(name));
    EXPECT_EQ(5, node.GetProperty(name, 5));
    EXPECT_EQ(1.5, node.GetNumericProperty(name, 1.5));
  }

  xmlNode m_element = {};
};

TEST_F(AnAttribute, IsAskedOfLibxml2) {
  Read(DocumentNode(&m_element), "x");
  EXPECT_EQ(3, s_questions);
}

TEST_F(AnAttribute, WithoutANameIsNotAskedOfLibxml2) {
  Read(DocumentNode(&m_element), "");
  EXPECT_EQ(0, s_questions);
}

TEST_F(AnAttribute, OfAnEmptyNodeIsNotAskedOfLibxml2) {
  Read(DocumentNode(), "x");
  EXPECT_EQ(0, s_questions);
}

}  // namespace
}  // namespace analytics
