#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

using tests::NodePtr;

/// The two selectors that give one element.
struct Selector {
  const char* name;
  const char* tag;
  DocumentNode* (ProfileDoc::*select)(const std::string&);
};

const Selector kSelectors[] = {
    {"Rule", "tt:rule", &ProfileDoc::SelectRule},
    {"Engine", "tt:engine", &ProfileDoc::SelectEngine},
};

class TheFirstElement : public tests::ProfileTest, public testing::WithParamInterface<Selector> {
 protected:
  NodePtr Select(const std::string& type) { return NodePtr((m_profile.*GetParam().select)(type)); }

  /// Which element is selected, told by its attribute "n".
  std::string Selected(const std::string& type) {
    const NodePtr node = Select(type);
    return node ? node->GetProperty("n") : "none";
  }

  static std::string Element(const std::string& attributes) {
    return std::string("<") + GetParam().tag + " " + attributes + "/>";
  }
};

TEST_P(TheFirstElement, OfATypeIsTheFirstInDocumentOrder) {
  Parse("<a>" + Element("n='1' Type='B'") + "</a><b><c>" + Element("n='2' Type='A'") + "</c></b>" +
        Element("n='3' Type='A'"));
  EXPECT_EQ("2", Selected("A"));
}

TEST_P(TheFirstElement, OfAnEmptyTypeIsTheFirstWhateverItsType) {
  Parse(Element("n='1' Type='B'") + Element("n='2' Type='A'"));
  EXPECT_EQ("1", Selected(""));
}

TEST_P(TheFirstElement, OfAnEmptyTypeMayHaveNoType) {
  Parse(Element("n='1'") + Element("n='2' Type='A'"));
  EXPECT_EQ("1", Selected(""));
}

TEST_P(TheFirstElement, OfATypeIsNeverOneWithoutType) {
  Parse(Element("n='1'") + Element("n='2' Type='A'"));
  EXPECT_EQ("2", Selected("A"));
}

TEST_P(TheFirstElement, IsNullWhereNothingMatches) {
  Parse(Element("Type='A'"));
  EXPECT_FALSE(Select("B"));
}

TEST_P(TheFirstElement, IsNullWhereOnlyTheVendorHasSuchAnElement) {
  Parse("<ka:rule Type='A'/><ka:engine Type='A'/>");
  EXPECT_FALSE(Select(""));
}

TEST_P(TheFirstElement, IsNullForATypeWithADoubleQuote) {
  Parse(Element("Type='A&quot;'"));
  EXPECT_FALSE(Select("A\""));
}

TEST_P(TheFirstElement, StaysInTheTreeWhenItsNodeIsDeleted) {
  Parse(Element("n='1' Type='A'"));
  EXPECT_TRUE(Select("A"));
  EXPECT_EQ("1", Selected("A"));
}

INSTANTIATE_TEST_SUITE_P(Selectors, TheFirstElement, testing::ValuesIn(kSelectors),
                         [](const testing::TestParamInfo<Selector>& selector) {
                           return selector.param.name;
                         });

}  // namespace
}  // namespace analytics
