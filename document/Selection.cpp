#include "document/Selection.h"

#include <algorithm>

#include "document/NodeRemoval.h"
#include "document/PlainPath.h"
#include "document/XmlText.h"

namespace analytics {
namespace {

int NodeCount(const xmlXPathObject* result) {
  return result ? xmlXPathNodeSetGetLength(result->nodesetval) : 0;
}

}  // namespace

xmlNodePtr ContextNode(xmlDocPtr document, DocumentNode* context) {
  return context ? static_cast<xmlNodePtr>(context->Handle()) : xmlDocGetRootElement(document);
}

Selection::Selection(xmlXPathContextPtr searchContext, DocumentNode* context, const char* path,
                     Extent extent)
    : m_searchContext(searchContext) {
  if (!searchContext) return;  // first: with the document closed, `context` may dangle
  const xmlNodePtr start = ContextNode(searchContext->doc, context);
  searchContext->node = start;
  if (PlainPath(path, searchContext).Select(start, extent == kFirst, m_walked)) {
    m_nodes = m_walked.Nodes();
    m_count = m_walked.Count();
    return;
  }
  m_result.reset(xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>(path), searchContext));
  m_count = NodeCount(m_result.get());
  if (m_count > 0) m_nodes = m_result->nodesetval->nodeTab;
}

xmlNodePtr Selection::Node(int index) const {
  const xmlNodePtr node = m_nodes[index];
  return node->type == XML_NAMESPACE_DECL ? nullptr : node;
}

std::string Selection::Text(int index) const {
  const xmlNodePtr node = Node(index);
  return node ? NodeText(m_searchContext->doc, node) : std::string();
}

std::string Selection::FirstText() const { return m_count > 0 ? Text(0) : std::string(); }

int Selection::Delete() {
  // All are detached before any is freed: then none lies within another, so none is freed twice,
  // in whatever order libxml2 puts namespace nodes among them.
  for (int index = 0; index < m_count; ++index) xmlUnlinkNode(m_nodes[index]);
  int freed = 0;
  for (int index = m_count - 1; index >= 0; --index) {
    xmlNodePtr& node = m_nodes[index];
    if (!RemoveNode(node)) continue;
    node = nullptr;  // else freeing the result would look at it
    ++freed;
  }
  return freed;
}

}  // namespace analytics
