#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <analytics/Document.h>
#include <analytics/DocumentNode.h>

#include "document/DocumentImpl.h"
#include "tests/support/Nodes.h"

namespace analytics {

/// A document opened from text that must be well-formed.
class ParsedDocument : public Document {
 public:
  explicit ParsedDocument(const std::string& text) { EXPECT_TRUE(ParseString(text)) << text; }
};

/// A document that shows its implementation, as a derived document sees it.
class ShownDocument : public Document {
 public:
  using Impl = Document::DocumentImpl;

  Impl& Implementation() { return *m_impl; }
};

/// A document that binds the prefixes of profiles, as profiles do.
class BindingDocument : public Document {
 public:
  bool CreateSearchContext() override { return m_impl->CreateXPathContext(true); }
};

/// A document whose search context can be made to fail.
class SwitchedDocument : public Document {
 public:
  explicit SwitchedDocument(bool makesContext) : m_makesContext(makesContext) {}

  void MakesContext(bool makesContext) { m_makesContext = makesContext; }

  bool CreateSearchContext() override { return m_makesContext && Document::CreateSearchContext(); }

 private:
  bool m_makesContext;
};

/// The first node that `path` selects; the test fails with an exception if there is none.
inline DocumentNode NodeAt(Document& document, const std::string& path) {
  const tests::NodePtr node = tests::First(document, path);
  if (!node) throw std::runtime_error("nothing at " + path);
  return *node;
}

/// All nodes that `path` selects, each as XML text.
inline std::vector<std::string> Dumps(Document& document, const std::string& path,
                                      DocumentNode* context = nullptr) {
  std::vector<std::string> texts;
  for (const tests::NodePtr& node : tests::All(document, path, context)) {
    texts.push_back(node->DumpToString());
  }
  return texts;
}

/// The root element as XML text, without declaration and indentation.
inline std::string RootDump(Document& document) { return NodeAt(document, "/*").DumpToString(); }

/// ASCII text in UTF-16, least byte first, with its byte order mark: every other byte is NUL.
inline std::string Utf16(const std::string& ascii) {
  std::string bytes = "\xFF\xFE";
  for (const char character : ascii) (bytes += character) += '\0';
  return bytes;
}

}  // namespace analytics
