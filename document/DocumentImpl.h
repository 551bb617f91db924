#pragma once

#include <string>
#include <vector>

#include <analytics/Document.h>
#include <analytics/Export.h>

#include "document/XmlHandle.h"

namespace analytics {

/// The state behind a `Document`: a libxml2 tree and the search context that belongs to it.
///
/// Its operations are those of `Document`, where they are described, and are exported with it.
class ANALYTICS_API Document::DocumentImpl {
 public:
  DocumentImpl();
  ~DocumentImpl();

  DocumentImpl(const DocumentImpl&) = delete;
  DocumentImpl& operator=(const DocumentImpl&) = delete;

  void Close();

  /// Makes the search context afresh; without an open document nothing changes.
  ///
  /// @param registerNamespaces  whether the profile's namespace prefixes are bound in it
  /// @return whether there is a search context now
  bool CreateXPathContext(bool registerNamespaces);

  /// What queries are evaluated in; null unless the document is open and has one.
  xmlXPathContextPtr SearchContext() const { return m_searchContext.get(); }

  bool ParseString(const char* text, unsigned long length);
  bool ParseFile(const std::string& path);

  /// The node that a query starts from: that of `context`, which may be null, or the root element
  /// if `context` is null.
  xmlNodePtr GetContextNode(DocumentNode* context);

  DocumentNode* SelectRootNode();
  DocumentNode* SelectNode(const std::string& path, DocumentNode* context);
  std::vector<DocumentNode*> SelectNodes(const std::string& path, DocumentNode* context);
  std::string GetValue(const std::string& path, DocumentNode* context);
  std::vector<std::string> GetValues(const std::string& path, DocumentNode* context);
  int GetValue(const std::string& path, int defaultValue, DocumentNode* context);
  double GetNumericValue(const std::string& path, double defaultValue, DocumentNode* context);
  int DeleteNodes(const std::string& path, DocumentNode* context);
  std::string DumpToString();
  bool SaveToFile(const std::string& path);
  void* GetNs(const std::string& prefix);
  void* GetNs(const std::string& prefix, DocumentNode* node);

 private:
  XmlPtr<xmlDoc> m_document;
  XmlPtr<xmlXPathContext> m_searchContext;  // belongs to m_document and never outlives it
};

}  // namespace analytics
