#include <string>

#include <gtest/gtest.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/TemporaryDirectory.h"

namespace analytics {
namespace {

TEST(Entities, MultiplyWhenATextIsRead) {
  std::string references;
  for (int count = 0; count < 900; ++count) references += "&e;";
  const std::string declaration = "<!DOCTYPE r [<!ENTITY e '" + std::string(1000, 'x') + "'>]>";
  ParsedDocument document(declaration + "<r>" + references + "</r>");
  EXPECT_EQ(900000U, document.GetSingleValue("/r", nullptr).size());
}

TEST(Entities, OfOtherFilesAreNotRead) {
  const tests::TemporaryDirectory directory;
  const std::string path = directory.Write("other.txt", "secret");
  ParsedDocument document("<!DOCTYPE r [<!ENTITY e SYSTEM '" + path + "'>]><r>1&e;2</r>");
  EXPECT_EQ("12", document.GetSingleValue("/r", nullptr));
  NodeAt(document, "/r").SetValue("3&e;4");
  EXPECT_EQ("34", document.GetSingleValue("/r", nullptr));
}

// How SECURITY.md has documents from outside refused before any of their entities is read.
TEST(TypeDeclarations, AreSeenByTheHandleOfTheRoot) {
  const auto areIn = [](const std::string& text) {
    ParsedDocument document(text);
    const tests::NodePtr root(document.SelectRootNode());
    return static_cast<xmlNode*>(root->Handle())->doc->intSubset != nullptr;
  };
  EXPECT_FALSE(areIn("<?xml version='1.0'?><!-- <!DOCTYPE r> --><r>&amp;</r>"));
  EXPECT_TRUE(areIn("<!DOCTYPE r><r/>"));
  EXPECT_TRUE(areIn("<!DOCTYPE r SYSTEM 'missing.dtd'><r/>"));
}

TEST(TypeDeclarations, OfOtherFilesAreNotRead) {
  const tests::TemporaryDirectory directory;
  const std::string path = directory.Write("other.dtd", "<!ATTLIST r k CDATA 'default'>");
  ParsedDocument document("<!DOCTYPE r SYSTEM '" + path + "'><r/>");
  EXPECT_EQ("", NodeAt(document, "/r").GetProperty("k"));
}

TEST(TypeDeclarations, OfTheDocumentGiveAttributesTheirDefaults) {
  ParsedDocument document("<!DOCTYPE r [<!ATTLIST r k CDATA '5'>]><r/>");
  DocumentNode root = NodeAt(document, "/r");
  EXPECT_EQ("5", root.GetProperty("k"));
  EXPECT_EQ(5, root.GetProperty("k", 7));
  EXPECT_EQ("", document.GetSingleValue("@k", nullptr));
  root.SetProperty("k", "6");
  EXPECT_EQ("6", root.GetProperty("k"));
}

}  // namespace
}  // namespace analytics
