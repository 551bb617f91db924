#include "tests/document/DamagedDocument.h"

#include <vector>

#include <gmock/gmock.h>

#include "tests/document/Indentation.h"
#include "tests/document/TestDocuments.h"
#include "tests/support/PlainTree.h"

namespace analytics {
namespace {

using testing::IsEmpty;
using tests::NodePtr;

void ExpectNoNodes(Document& document) {
  EXPECT_EQ(nullptr, document.SelectRootNode());
  EXPECT_EQ(nullptr, document.SelectNode("//*"));
  EXPECT_THAT(document.SelectNodes("//*"), IsEmpty());
  EXPECT_EQ(0, document.DeleteNodes("//*"));
  EXPECT_EQ(nullptr, document.GetNs("xml"));
}

void ExpectNoValues(Document& document) {
  EXPECT_EQ("", document.GetSingleValue("//*", nullptr));
  EXPECT_EQ(7, document.GetSingleValue("//*", 7, nullptr));
  EXPECT_EQ(0.5, document.GetNumericValue("//*", 0.5));
  EXPECT_THAT(document.GetMultipleValues("//* | //@*"), IsEmpty());
  EXPECT_EQ("", document.DumpToString());
  EXPECT_FALSE(document.SaveToFile("/dev/null"));
}

std::vector<std::string> AttributeTexts(const std::vector<xmlNodePtr>& elements) {
  std::vector<std::string> texts;
  for (const xmlNodePtr element : elements) {
    for (const xmlAttr* attribute = element->properties; attribute; attribute = attribute->next) {
      texts.push_back(tests::OwnText(attribute->children));
    }
  }
  return tests::WithoutEmpty(texts);
}

std::vector<std::string> ElementTexts(const std::vector<xmlNodePtr>& elements) {
  std::vector<std::string> texts;
  texts.reserve(elements.size());
  for (const xmlNodePtr element : elements) texts.push_back(tests::OwnText(element->children));
  return tests::WithoutEmpty(texts);
}

/// The typed readers, on the root element's text.
void ExpectNumbers(const std::string& rootText, Document& document) {
  EXPECT_EQ(rootText, document.GetSingleValue("/*", nullptr));
  EXPECT_EQ(tests::LeadingInt(rootText, 7), document.GetSingleValue("/*", 7, nullptr));
}

std::string RootName(Document& document) {
  return tests::NameOf(static_cast<xmlNodePtr>(NodePtr(document.SelectRootNode())->Handle()));
}

void ExpectSame(xmlDoc& tree, Document& document) {
  const std::vector<xmlNodePtr> elements = tests::ElementsOf(tree);
  EXPECT_EQ(tests::NameOf(elements.at(0)), RootName(document));
  EXPECT_EQ(elements.size(), tests::All(document, "//*").size());
  EXPECT_EQ(ElementTexts(elements), document.GetMultipleValues("//*"));
  EXPECT_EQ(AttributeTexts(elements), document.GetMultipleValues("//@*"));
  ExpectNumbers(tests::OwnText(elements.at(0)->children), document);
  EXPECT_EQ(tests::DumpOf(tree), document.DumpToString());
  EXPECT_EQ(1, document.DeleteNodes("/*"));
  EXPECT_THAT(tests::All(document, "//*"), IsEmpty());
}

/// The bytes are in a block of exactly their size, so that the address sanitizer notices if one
/// more is read.
void ExpectAsParsedAlone(const std::string& text) {
  const std::vector<char> bytes(text.begin(), text.end());
  const tests::TreePtr alone = tests::ParsedAlone(text);
  ParsedDocument document("<former>text</former>");
  EXPECT_EQ(alone != nullptr, document.ParseString(bytes.data(), bytes.size()));
  if (testing::Test::HasFailure()) return;
  if (alone) {
    ExpectSame(*alone, document);
  } else {
    ExpectNoNodes(document);
    ExpectNoValues(document);
  }
}

}  // namespace

DamagedDocument::DamagedDocument() {
  // What libxml2 makes once, at its first use, is no leak.
  ParsedDocument("<?xml version='1.0' encoding='UTF-8'?><a/>").GetSingleValue("/a", nullptr);
}

void DamagedDocument::CheckText(const std::string& text, const std::string& damage) {
  if (HasFailure()) return;
  SCOPED_TRACE(damage);
  const Indentation indented(1);
  const long before = tests::XmlAllocations::Alive();
  ExpectAsParsedAlone(text);
  EXPECT_EQ(before, tests::XmlAllocations::Alive()) << "not released";
}

}  // namespace analytics
