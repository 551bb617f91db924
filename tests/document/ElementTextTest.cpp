#include <analytics/Text.h>

#include <iterator>
#include <string>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/TemporaryDirectory.h"

namespace analytics {
namespace {

using testing::ElementsAreArray;
using text::ElementText;

const std::string kOthers[] = {
    "AT&T",
    "a & b",
    "x&y;z",
    "&amp;",
    "&#65;&lt;",
    "&&",
    "<b/>",
    "]]>",
    "<![CDATA[x]]>",
    "<!-- -->",
    "\r\n",
    "line\rline\nline\ttab",
    " leading and trailing ",
    "\n  indented\n",
    " \n\t ",
    "\"'",
    "\xC3\xA4",
    "\xC2\x85",
    "\xC2\xA0",
    "\xE2\x82\xAC",
    "\xE2\x80\xA8",
    "\xEF\xBB\xBF",
    "\xEF\xBF\xBD",
    "\xF0\x9F\x98\x80 & \xF0\x9F\x98\x80",
    "\xF4\x8F\xBF\xBF",
    std::string(100000, '&'),
    std::string(100000, 'x'),
};

/// All ASCII characters that XML allows, alone and between others; then the other texts.
std::vector<std::string> Texts() {
  std::vector<std::string> texts;
  for (int character = 0; character < 0x80; ++character) {
    const std::string alone(1, static_cast<char>(character));
    if (!text::IsXmlText(alone)) continue;
    texts.insert(texts.end(), {alone, "a" + alone + "b", "\xC3\xA4" + alone});
  }
  texts.insert(texts.end(), std::begin(kOthers), std::end(kOthers));
  return texts;
}

/// A way to give a parent a child element "t" of a text.
struct Way {
  const char* name;
  void (*add)(DocumentNode& parent, const std::string& text);
};

const Way kWays[] = {
    {"AddNewChild",
     [](DocumentNode& parent, const std::string& text) {
       const tests::NodePtr child(parent.AddNewChild("t", ElementText(text)));
     }},
    {"SetValue",
     [](DocumentNode& parent, const std::string& text) {
       const tests::NodePtr child(parent.AddNewChild("t", "former"));
       const tests::NodePtr grandchild(child->AddNewChild("t", "former"));
       child->SetValue(ElementText(text));
     }},
};

struct Encoding {
  const char* name;
  std::string document;
};

const Encoding kEncodings[] = {
    {"Undeclared", "<r/>"},
    {"Utf8", "<?xml version='1.0' encoding='UTF-8'?><r/>"},
    {"Ascii", "<?xml version='1.0' encoding='US-ASCII'?><r/>"},
    {"Latin1", "<?xml version='1.0' encoding='ISO-8859-1'?><r/>"},
};

const Encoding kUtf16 = {"Utf16", Utf16("<?xml version='1.0' encoding='UTF-16'?><r/>")};

/// Elements that were given their texts.
class AnElementText : public testing::TestWithParam<std::tuple<Encoding, Way>> {
 protected:
  AnElementText() {
    DocumentNode root = NodeAt(m_document, "/r");
    for (const std::string& text : Texts()) std::get<Way>(GetParam()).add(root, text);
  }

  static std::vector<std::string> Values(Document& document) {
    std::vector<std::string> values;
    for (const tests::NodePtr& node : tests::All(document, "/r/t")) {
      values.push_back(node->GetValue());
    }
    return values;
  }

  ParsedDocument m_document{std::get<Encoding>(GetParam()).document};
};

class ADumpedElementText : public AnElementText {};

TEST_P(AnElementText, ComesBackInMemory) {
  EXPECT_THAT(Values(m_document), ElementsAreArray(Texts()));
}

TEST_P(AnElementText, ComesBackFromAFile) {
  const tests::TemporaryDirectory directory;
  ASSERT_TRUE(m_document.SaveToFile(directory.PathOf("saved.xml")));
  Document again;
  ASSERT_TRUE(again.ParseFile(directory.PathOf("saved.xml")));
  EXPECT_THAT(Values(again), ElementsAreArray(Texts()));
}

TEST_P(ADumpedElementText, ComesBack) {
  ParsedDocument again(m_document.DumpToString());
  EXPECT_THAT(Values(again), ElementsAreArray(Texts()));
}

TEST_P(ADumpedElementText, ComesBackFromTheDumpOfItsNode) {
  ParsedDocument again(RootDump(m_document));
  EXPECT_THAT(Values(again), ElementsAreArray(Texts()));
}

std::string NameOf(const testing::TestParamInfo<std::tuple<Encoding, Way>>& info) {
  return std::string(std::get<Encoding>(info.param).name) + "_" + std::get<Way>(info.param).name;
}

INSTANTIATE_TEST_SUITE_P(Encodings, AnElementText,
                         testing::Combine(testing::ValuesIn(kEncodings), testing::ValuesIn(kWays)),
                         NameOf);

INSTANTIATE_TEST_SUITE_P(Encodings, ADumpedElementText,
                         testing::Combine(testing::ValuesIn(kEncodings), testing::ValuesIn(kWays)),
                         NameOf);

// UTF-16 comes back from a file only: a dump of it is cut.
INSTANTIATE_TEST_SUITE_P(OfAFile, AnElementText,
                         testing::Combine(testing::Values(kUtf16), testing::ValuesIn(kWays)),
                         NameOf);

/// What is no element's text.
class AnElementTextOutOfPlace : public testing::Test {
 protected:
  ParsedDocument m_document{"<r x='1'>text</r>"};
};

TEST_F(AnElementTextOutOfPlace, IsTakenAsItIsByAnAttribute) {
  NodeAt(m_document, "/r").SetProperty("x", ElementText("&"));
  EXPECT_EQ("&amp;", m_document.GetSingleValue("@x", nullptr));
}

TEST_F(AnElementTextOutOfPlace, IsTakenAsItIsByATextNode) {
  NodeAt(m_document, "text()").SetValue(ElementText("&"));
  EXPECT_EQ("&amp;", m_document.GetSingleValue("/r", nullptr));
}

TEST_F(AnElementTextOutOfPlace, ComesBackFromAnAttributeNode) {
  NodeAt(m_document, "@x").SetValue(ElementText("AT&T"));
  EXPECT_EQ("AT&T", m_document.GetSingleValue("@x", nullptr));
}

}  // namespace
}  // namespace analytics
